// Typed ways into the tables whose operations uom.h declares.
//
// A table holds exactly `count` elements of one of twelve kinds, all zero when made. The generic read and
// write pass every element through a double, pointers included, whose addresses stay below 2 to the power 53.
#ifndef UOM_SUPPORT_TABLE_H
#define UOM_SUPPORT_TABLE_H

#include "uom/uom.h"

enum TableKind : int32_t {
    TABLE_INT8 = UOM_KIND_INT8,
    TABLE_UINT8 = UOM_KIND_UINT8,
    TABLE_TEXT = UOM_KIND_TEXT, // owned heap copies
    TABLE_INT16 = UOM_KIND_INT16,
    TABLE_UINT16 = UOM_KIND_UINT16,
    TABLE_INT32 = UOM_KIND_INT32,
    TABLE_UINT32 = UOM_KIND_UINT32,
    TABLE_INT64 = UOM_KIND_INT64, // also borrowed records
    TABLE_UINT64 = UOM_KIND_UINT64,
    TABLE_FLOAT = UOM_KIND_FLOAT,
    TABLE_DOUBLE = UOM_KIND_DOUBLE,
    TABLE_OWNED = UOM_KIND_OWNED, // pointers that the table frees and never copies
    TABLE_KINDS
};

constexpr uint32_t TABLE_APPEND = UOM_APPEND;

static_assert(sizeof(void *) == 8, "Tables hold pointers in elements of 64 bits: build for a 64-bit machine.");

inline uint32_t tbl_Count(const UomTable *table) {
    return table ? table->count : 0;
}

// The record or text that a 64-bit element points to, null past the end.
template <class Record> Record *tbl_Record(const UomTable *table, int64_t index) {
    if (!table || index < 0 || index >= table->count || table->width != 8)
        return nullptr;
    return static_cast<Record **>(table->data)[index];
}

// The records of a table of 64-bit elements, all `tbl_Count` of them, for a walk; null for an empty table.
template <class Record> Record *const *tbl_Records(const UomTable *table) {
    return table && table->width == 8 ? static_cast<Record *const *>(table->data) : nullptr;
}

inline int32_t tbl_PutRecord(UomTable *table, uint32_t index, const void *record) {
    return tbl_PutPointer(table, index, reinterpret_cast<uintptr_t>(record));
}

#endif

// Typed ways into the tables whose operations uom.h declares.
//
// A table holds exactly `count` elements of one of twelve kinds, all zero when made. The generic read and
// write pass every element through a double, pointers included, whose addresses stay below 2 to the power 53.
#ifndef UOM_SUPPORT_TABLE_H
#define UOM_SUPPORT_TABLE_H

#include <cassert>

#include "uom/uom.h"

namespace uom {

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

inline uint32_t table_Count(const UomTable *table) {
    return table ? table->count : 0;
}

// The record or text that a 64-bit element points to, null past the end.
template <class Record> Record *table_Record(const UomTable *table, int64_t index) {
    if (!table || index < 0 || index >= table->count || table->width != 8)
        return nullptr;
    return static_cast<Record **>(table->data)[index];
}

// As the tbl_ operations of uom.h.
UomTable *table_Create(uint32_t count, int32_t kind);
void table_Free(UomTable *table);
UomTable *table_Copy(const UomTable *table);
double table_Get(const UomTable *table, uint32_t index);
char *table_GetText(const UomTable *table, uint32_t index);
void *table_GetPointer(const UomTable *table, uint32_t index);
void table_Store(UomTable *table, uint32_t index, double value, int32_t owning);
int32_t table_PutNumber(UomTable *table, uint32_t index, double value);
int32_t table_PutText(UomTable *table, uint32_t index, const char *text);
int32_t table_PutPointer(UomTable *table, uint32_t index, uint64_t value);
int32_t table_Resize(UomTable *table, uint32_t count);
void table_Remove(UomTable *table, uint32_t index, uint32_t n);
void table_Insert(UomTable *table, uint32_t index, uint32_t n);
int32_t table_Find(const UomTable *table, double value);
int32_t table_Compare(const UomTable *table, double a, double b);
void table_Sort(UomTable *table);
char **table_ToTextArray(const UomTable *table);
void table_FreeTextArray(char **texts);

// An element of a table of 64-bit integers, for whoever has made it large enough.
// REQUIRES: the index is below the count.
inline void table_SetInteger(UomTable *table, uint32_t index, int64_t value) {
    assert(table->kind == TABLE_INT64 && index < table->count);
    static_cast<int64_t *>(table->data)[index] = value;
}

inline int32_t table_PutRecord(UomTable *table, uint32_t index, const void *record) {
    return table_PutPointer(table, index, reinterpret_cast<uintptr_t>(record));
}

} // namespace uom

#endif

// The exported functions of one catalogue: the catalogue in use and the thread's scratch, and one call down.
#include "api/state.h"
#include "support/table.h"
#include "uom/uom.h"

UomTable *tbl_Create(uint32_t count, int32_t kind) {
    return uom::table_Create(count, kind);
}

void tbl_Free(UomTable *table) {
    uom::table_Free(table);
}

UomTable *tbl_Copy(const UomTable *table) {
    return uom::table_Copy(table);
}

double tbl_Get(const UomTable *table, uint32_t index) {
    return uom::table_Get(table, index);
}

char *tbl_GetText(const UomTable *table, uint32_t index) {
    return uom::table_GetText(table, index);
}

void *tbl_GetPointer(const UomTable *table, uint32_t index) {
    return uom::table_GetPointer(table, index);
}

void tbl_Store(UomTable *table, uint32_t index, double value, int32_t owning) {
    uom::table_Store(table, index, value, owning);
}

int32_t tbl_PutNumber(UomTable *table, uint32_t index, double value) {
    return uom::table_PutNumber(table, index, value);
}

int32_t tbl_PutText(UomTable *table, uint32_t index, const char *text) {
    return uom::table_PutText(table, index, text);
}

int32_t tbl_PutPointer(UomTable *table, uint32_t index, uint64_t value) {
    return uom::table_PutPointer(table, index, value);
}

int32_t tbl_Resize(UomTable *table, uint32_t count) {
    return uom::table_Resize(table, count);
}

void tbl_Remove(UomTable *table, uint32_t index, uint32_t n) {
    uom::table_Remove(table, index, n);
}

void tbl_Insert(UomTable *table, uint32_t index, uint32_t n) {
    uom::table_Insert(table, index, n);
}

int32_t tbl_Find(const UomTable *table, double value) {
    return uom::table_Find(table, value);
}

int32_t tbl_Compare(const UomTable *table, double a, double b) {
    return uom::table_Compare(table, a, b);
}

void tbl_Sort(UomTable *table) {
    uom::table_Sort(table);
}

char **tbl_ToTextArray(const UomTable *table) {
    return uom::table_ToTextArray(table);
}

void tbl_FreeTextArray(char **texts) {
    uom::table_FreeTextArray(texts);
}

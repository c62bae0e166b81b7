/* A host of the static library that uses tables alone, so that nothing of start-up is linked into it. */
#include <stdio.h>

#include "uom/uom.h"

int main(void) {
    UomTable *table = tbl_Create(0, UOM_KIND_DOUBLE);
    tbl_PutNumber(table, UOM_APPEND, 7.0);
    tbl_PutNumber(table, UOM_APPEND, 100.0);
    const int32_t near = tbl_Find(table, 100.00000001), far = tbl_Find(table, 100.001);
    const int32_t count = (int32_t)table->count;
    tbl_Free(table);
    printf("of %d elements: %d, %d\n", (int)count, (int)near, (int)far);
    return count != 2 || near != 1 || far != -1;
}

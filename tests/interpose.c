/* A host with functions of its own whose names the library exports: its calls go to its own ones and the library's
 * to the library's. The variables are one for both, also for this host, which is not position independent and so
 * holds copies of them. */
#include <stdio.h>

#include "uom/uom.h"

static int calls = 0;

void tbl_Free(UomTable *table) {
    (void)table;
    ++calls;
}
int32_t tbl_PutText(UomTable *table, uint32_t index, const char *text) {
    (void)table, (void)index, (void)text;
    return ++calls;
}
void uom_Free(UomStruct *chain) {
    (void)chain;
    ++calls;
}

int main(void) {
    double pressure = 1.0;
    const int started = uom_Init() == 0;
    const int converted = started && uoms_ConvertArray(&pressure, 1, "Pres", "kPa", "Pa") == 0 && pressure == 1000.0;
    const int sameVariables = UOM_SET_METRIC > 0 && UOM_SET_METRIC == uom_GetSetType("Metric");
    uom_Cleanup();
    if (calls != 0)
        printf("the library called this program's functions %d times\n", calls);
    if (!converted)
        printf("it cannot convert: %s\n", uom_GetLastErrorMessage());
    if (!sameVariables)
        printf("UOM_SET_METRIC is not the library's\n");
    if (calls != 0 || !converted || !sameVariables)
        return 1;
    tbl_Free(NULL);
    return calls != 1; /* the names are this program's own */
}

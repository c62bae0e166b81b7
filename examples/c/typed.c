/* What somebody typed: a number with its unit, and a conversion for many values. Ends with 0 when all went well. */
#include <stdio.h>
#include <uom/entry.h>

int main(void) {
    UomEntry entry;
    UomConversion *toPsia;
    double pressures[] = {250.0, 0.0};
    if (uom_Init() != 0) { /* finds its data file */
        fprintf(stderr, "%s\n", uom_GetLastErrorMessage());
        return 1;
    }
    if (uom_ReadEntry("PresGradient", "3 psi/100ft", &entry) == 0)
        printf("%g %s\n", entry.value * entry.scale, entry.units);

    if (uom_NewConversionFromEntries("Pres", "kPa(g)", "psia", &toPsia, &entry) != 0)
        return 1;
    uom_ConvertMany(toPsia, pressures, pressures, 2);
    uom_FreeConversion(toPsia);
    printf("250 kPag = %.6g psia\n0 kPag = %.6g psia\n", pressures[0], pressures[1]);

    if (uom_ReadEntry("Pres", "kPs", &entry) != 0)
        printf("%s Did you mean \"%s\"?\n", entry.message, entry.suggestion);
    uom_Cleanup();
    return 0;
}

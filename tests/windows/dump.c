/* What the library computes, bit by bit, for a comparison of two systems: each unit of each class to the first one and
 * back, one value and arrays of doubles and floats, in the classical way and prepared, and the constants of each pair;
 * two composite quantities; the definitions of the slates. Argument: the data file. */
#include <inttypes.h>
#include <stdio.h>
#include <string.h>

#include "uom/conversion.h"
#include "uom/uom.h"

#define COUNT 37 /* more than two vectors, and no multiple of one */

static void printBits(double value) {
    uint64_t bits;
    memcpy(&bits, &value, sizeof bits);
    printf(" %016" PRIx64, bits);
}

static void fill(double *values) {
    static const double first[] = {0, 1, -1, 1e-300, 1e300, -459.67, 101.325, 1e16, 35, 3.3e-7};
    for (int i = 0; i < COUNT; ++i)
        values[i] = i < 10 ? first[i] : (i - 20) * 17.318 + 1.0 / i;
}

static void dumpPair(const char *classString, const char *from, const char *to) {
    double values[COUNT], out[COUNT], factor = 0, offset = 0;
    float floats[COUNT], outFloats[COUNT];
    UomConversion *prepared = NULL;
    fill(values);
    printf("%s: %s to %s", classString, from, to);
    if (uoms_NewConversion(classString, from, to, &prepared) != 0) {
        printf(" %s\n", uom_GetLastErrorMessage());
        return;
    }
    uom_GetConversionConstants(prepared, &factor, &offset);
    printBits(factor);
    printBits(offset);
    uom_ConvertMany(prepared, values, out, COUNT);
    for (int i = 0; i < COUNT; ++i) {
        printBits(out[i]);
        printBits(uom_ConvertOne(prepared, values[i]));
        floats[i] = (float)values[i];
    }
    uom_ConvertManyFloat(prepared, floats, outFloats, COUNT);
    for (int i = 0; i < COUNT; ++i)
        printBits((double)outFloats[i]);
    uom_FreeConversion(prepared);
    const int32_t status = uoms_ConvertArray(values, COUNT, classString, from, to);
    printf(" %d", (int)status);
    for (int i = 0; i < COUNT; ++i)
        printBits(values[i]);
    printf("\n");
}

static int dumpClasses(void) {
    int units = 0;
    for (int32_t classId = 3; classId < uom_GetUOMClassCount(); ++classId) {
        char classString[64];
        UomTable *list = uom_GetUnitList(classId);
        uom_GetClassText(classId, classString, sizeof classString, UOM_STYLE_TOKEN);
        const char *first = tbl_GetText(list, 0);
        for (uint32_t i = 0; tbl_GetText(list, i); ++i, ++units) {
            dumpPair(classString, tbl_GetText(list, i), first);
            dumpPair(classString, first, tbl_GetText(list, i));
        }
        tbl_Free(list);
    }
    return units;
}

static void dumpSlates(void) {
    for (int32_t slate = 1; slate < UOM_SET_MAX; ++slate) {
        char name[64];
        uom_GetBaseName2(slate, name, sizeof name);
        UomTable *lines = uoms_GetSetDefinition(name, 2);
        for (uint32_t i = 0; tbl_GetText(lines, i); ++i)
            printf("%s\n", tbl_GetText(lines, i));
        tbl_Free(lines);
    }
}

int main(int count, char **words) {
    const char *start[] = {"-f", count == 2 ? words[1] : ""};
    if (uom_Init2(2, start) != 0) {
        fprintf(stderr, "%s\n", uom_GetLastErrorMessage());
        return 1;
    }
    uoms_SetClassDefault("Current", "GaugePresBasis", "83.4567891234");
    const int units = dumpClasses();
    dumpPair("Pres/VolRate 2", "kpag/(m3/sec)2", "psi/(ft3/min)2");
    dumpPair("Htco", "BTU/hr-ft2-F", "W/m2-K");
    dumpSlates();
    uom_Cleanup();
    fprintf(stderr, "%d units\n", units);
    return units > 300 ? 0 : 1;
}

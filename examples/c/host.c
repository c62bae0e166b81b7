/* The edges of a host: start-up words, messages, tables, a second start, and the end.
 * The data file's path may be the first argument. Ends with 0 when all went as expected. */
#include <stdio.h>
#include <string.h>

#include "uom/uom.h"

static int failures;

static void expectText(const char *title, const char *text, const char *expected) {
    printf("%-36s %s\n", title, text);
    if (strcmp(text, expected) != 0) {
        printf("    expected %s\n", expected);
        ++failures;
    }
}

/* With a path that is to be found from anywhere, and the units' names of a mode. */
static int32_t start(const char *path) {
    const char *words[] = {"kesta", "-f", path};
    int32_t status = path ? uom_Init2(3, words) : uom_Init();
    if (status == 0)
        return 0;
    fprintf(stderr, "The units of measure cannot be started (%d): %s\n", (int)status, uom_GetLastErrorMessage());
    return status;
}

static void messages(void) {
    double value = 1.0;
    if (uoms_ConvertArray(&value, 1, "VolRate", "m3/fortnight", "m3/hr") != 3 || value != 1.0)
        ++failures;
    expectText("source units not understood:", uom_GetLastErrorMessage(),
               "UOM string \"m3/fortnight\" at character 4: unidentified UOM for UOM class \"Time\".");
}

/* The units that an interface offers for a quantity: the table is the host's, its texts are the table's. */
static void offerUnits(void) {
    UomTable *units = uom_GetUnitList(uom_GetClassType("Temp", 1));
    printf("%-36s", "units of Temp:");
    for (uint32_t i = 0; units && i < units->count; ++i)
        printf(" %s", tbl_GetText(units, i));
    printf("\n");
    if (!units || units->count != 4)
        ++failures;
    tbl_Free(units);
}

/* What a user typed, as it is to be shown again. */
static void echoUnits(const char *typed) {
    char shown[64] = "";
    UomStruct chain = uoms_New("Pres/VolRate 2");
    if (uom_FillStructFromString(chain, typed, 1) == 0)
        uom_GetDisplayUnits(chain, shown, sizeof shown, 1);
    uom_Free(&chain);
    expectText("units as shown:", shown, "kPa/(m3/sec)2");
}

int main(int count, char **words) {
    const char *path = count > 1 ? words[1] : NULL;
    if (start(path) != 0)
        return 1;
    messages();
    offerUnits();
    echoUnits("KPA / (M3 / SEC) 2");
    uom_Cleanup();

    /* A new start: slates, custom classes and choices of the first one are gone. */
    if (start(path) != 0)
        return 1;
    echoUnits("kpa/(m3/sec)2");
    uom_Cleanup();
    return failures != 0;
}

/* Twenty-five operations, again and again: conversions and typed texts in the shipped catalogue, which keeps its indexes, and
 * changes in a small one that is started and ended in each round. Ends with 0 when the memory in use after the last round
 * is, to the byte, what it was after the first ones.
 *   uom_repeat DATA_FILE SMALL_DATA_FILE [ROUNDS]      by default 40,000 rounds, a million operations
 * The C library counts the free blocks that it keeps at hand for a thread as used; with GLIBC_TUNABLES=
 * glibc.malloc.tcache_count=0 it keeps none. */
#include <malloc.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <uom/catalogue.h>
#include <uom/conversion.h>
#include <uom/entry.h>
#include <uom/uom.h>

enum { OPERATIONS = 25, WARM_UP = 500, SELDOM = 50, SOME_PAGES = 32, SMALL = 256 };

static int done; /* operations */

static void did(int held, const char *what) {
    if (!held) {
        fprintf(stderr, "%s: %s\n", what, uom_GetLastErrorMessage());
        exit(1);
    }
    ++done;
}
#define DID(call) did((call), #call)

static void convert(void) {
    double values[4] = {1.0, 2.0, 3.0, 4.0}, factor, offset;
    UomStruct from = uoms_New("Pres/VolRate 2"), to = uom_Copy(from);
    UomConversion *conversion = NULL;
    DID(from && to);
    DID(uom_FillStructFromString(from, "kpa/(m3/sec)2", UOM_STYLE_TOKEN) == 0);
    DID(uom_FillStructFromString(to, "psi/(ft3/min)2", UOM_STYLE_TOKEN) == 0);
    DID(uom_ConvertArray(values, 4, from, to) == 0);
    DID(uom_NewConversion(from, to, &conversion) == 0);
    uom_ConvertMany(conversion, values, values, 4);
    uom_FreeConversion(conversion);
    uom_Free(&from);
    uom_Free(&to);
    DID(uoms_ConvertArray(values, 4, "Density", "lb/ft3", "kg/m3") == 0);
    DID(uoms_CalculateConvConstants("Temp", "F", "C", &factor, &offset) == 0);
    DID(uoms_ConvertArray(values, 4, "Density", "lb/ft3", "nosuch") != 0);
}

static void type(void) {
    UomEntry entry;
    UomConversion *conversion = NULL;
    UomTable *found;
    DID(uom_ReadEntry("Pres", "250 kPag", &entry) == 0);
    DID(uom_ReadEntry("Pres", "5 lb", &entry) == 1);
    DID(uom_NewConversionFromEntries("MassRate", "1000 lb/hr", "kg/s", &conversion, &entry) == 0);
    uom_FreeConversion(conversion);
    DID((found = uom_GetChoices("Mass / Area")) != NULL);
    tbl_Free(found);
    DID((found = uom_GetClassList(UOM_STYLE_TOKEN)) != NULL);
    tbl_Free(found);
}

/* What takes longer than all the others, and is not counted. */
static void doSeldom(void) {
    UomEntry entry;
    UomConversion *conversion = NULL;
    uom_ReadEntry("", "5 kPs", &entry);
    uom_NewConversionFromEntries("", "1 kg2/(m3-K)", "lb2/(ft3-F)", &conversion, &entry);
    uom_FreeConversion(conversion);
    tbl_Free(uom_GetEntryClasses("kPag"));
    tbl_Free(uom_Search("pund", 5));
    tbl_Free(uom_GetAliases());
    uom_Dump(UOM_REPORT_DEFINITIONS, "/dev/null");
}

static void changeSlates(void) {
    char text[SMALL];
    UomTable *lines;
    DID(uoms_NewSet("Plant") >= 0 && uoms_PutSetBasedOn("Plant", "Metric") >= 0);
    DID(uoms_SetClassDefault("Plant", "MassRate", "lb/hr") == 0);
    DID(uoms_SetClassDefault("Plant", "GaugePresBasis", "83.5") == 0);
    DID(*uoms_GetDisplayUnits("Pres/MassRate 2", "Plant", text, sizeof text, UOM_STYLE_TOKEN) != '\0');
    DID((lines = uoms_GetSetDefinition("Plant", 2)) != NULL);
    DID(uoms_PutSetDefinition("Plant", lines) == 0);
    tbl_Free(lines);
    DID(uoms_DeleteSet("Plant") == 0);
}

static void changeClasses(void) {
    DID(uoms_NewClass("Load", "Mass / Area") == 0);
    DID(uoms_PutClassText("Load", "LOAD", UOM_STYLE_KEYWORD) == 0);
    DID(uoms_DeleteClass("Load") == 0);
}

static void startAndChange(const char *data) {
    UomCatalogue *own = uom_NewCatalogue(), *before = uom_UseCatalogue(own);
    DID(own && uom_InitText(data, strlen(data), 0, NULL) == 0);
    DID(uom_ReadAliasText("pound = lb\n", 11) == 0);
    did(uoms_NewClass("First", "Mass") == 0, "the first custom class, which stays");
    --done; /* of no new kind */
    changeSlates();
    changeClasses();
    uom_UseCatalogue(before);
    uom_FreeCatalogue(own);
}

static void round25(const char *data, int number) {
    if (number % SELDOM == 0)
        doSeldom();
    convert();
    type();
    startAndChange(data);
}

/* Pages of the process that are in memory. */
static long resident(void) {
    long whole = 0, pages = -1;
    FILE *file = fopen("/proc/self/statm", "r");
    if (file && fscanf(file, "%ld %ld", &whole, &pages) != 2)
        pages = -1;
    if (file)
        fclose(file);
    return pages;
}

int main(int count, char **words) {
    const char *start[2] = {"-f", NULL};
    int rounds = count > 3 ? atoi(words[3]) : 40000;
    static char data[16384];
    FILE *small = count > 2 ? fopen(words[2], "r") : NULL;
    struct mallinfo2 before, after;
    long pagesBefore, pagesAfter;
    if (!small || fread(data, 1, sizeof data - 1, small) == 0 || rounds <= WARM_UP)
        return 2;
    fclose(small);
    start[1] = words[1];
    if (uom_Init2(2, start) != 0) {
        fprintf(stderr, "%s\n", uom_GetLastErrorMessage());
        return 1;
    }
    for (int i = 0; i < WARM_UP; ++i)
        round25(data, i);
    before = mallinfo2();
    pagesBefore = resident();
    for (int i = WARM_UP; i < rounds; ++i)
        round25(data, i);
    after = mallinfo2();
    pagesAfter = resident();
    printf("%d operations: %zu bytes in use before, %zu after; %ld pages resident before, %ld after\n", done,
           before.uordblks, after.uordblks, pagesBefore, pagesAfter);
    uom_Cleanup();
    if (done != rounds * OPERATIONS) {
        fprintf(stderr, "A round has not %d operations.\n", OPERATIONS);
        return 1;
    }
    return after.uordblks != before.uordblks || pagesAfter > pagesBefore + SOME_PAGES;
}

/* Slates by C calls: a site with its own atmospheric pressure, and a company's set of default units.
 * Ends with 0 when every number and text is as expected. */
#include <math.h>
#include <stdio.h>
#include <string.h>

#include "uom/uom.h"

static int failures;

static void expectNumber(const char *title, double value, double expected) {
    printf("%-44s %.6g\n", title, value);
    if (!(fabs(value / expected - 1.0) < 1e-6)) {
        printf("    expected %.6g\n", expected);
        ++failures;
    }
}

static void expectText(const char *title, const char *text, const char *expected) {
    printf("%-44s %s\n", title, text);
    if (strcmp(text, expected) != 0) {
        printf("    expected %s\n", expected);
        ++failures;
    }
}

static void expectDone(int32_t status) {
    if (status != 0) {
        printf("%d: %s\n", (int)status, uom_GetLastErrorMessage());
        ++failures;
    }
}

static double absolutePressure(double gauge) {
    expectDone(uoms_ConvertArray(&gauge, 1, "Pres", "kPag", "kPa"));
    return gauge;
}

static const char *unitsOf(const char *quantity, const char *slate) {
    static char text[128];
    return uoms_GetDisplayUnits(quantity, slate, text, sizeof text, 1);
}

/* A site 1600 m above sea level: metric units, and 83.5 kPa for zero gauge pressure. */
static void site(void) {
    expectNumber("250 kPag at sea level, kPa", absolutePressure(250.0), 351.325);

    int32_t slate = uoms_NewSet("Site");
    uoms_PutSetBasedOn("Site", "Metric");
    expectDone(uoms_SetClassDefault("Site", "GaugePresBasis", "83.5"));
    expectNumber("the same: stating it moves no gauge yet", absolutePressure(250.0), 351.325);

    expectDone(uom_SetGaugePressureBasis(slate));
    expectNumber("250 kPag at the site, kPa", absolutePressure(250.0), 333.5);

    expectDone(uom_SetGaugePressureBasis(UOM_SET_METRIC));
    expectNumber("250 kPag at sea level again, kPa", absolutePressure(250.0), 351.325);
}

/* SI but for degrees Celsius, gauge pressures in bar, and rates by the hour. */
static void company(void) {
    uoms_NewSet("Company");
    uoms_PutSetBasedOn("Company", "SI");
    expectDone(uoms_SetClassDefault("Company", "Temp", "C"));
    expectDone(uoms_SetClassDefault("Company", "Pres", "barg"));
    expectDone(uoms_SetClassDefault("Company", "MassRate", "kg/hr"));
    expectDone(uoms_SetClassDefault("Company", "VolRate", "k*m3/hr"));

    expectText("stated: Pres", unitsOf("Pres", "Company"), "barg");
    expectText("follows from Pres: PresDiff", unitsOf("PresDiff", "Company"), "bar");
    expectText("follows from Temp: TempAbs", unitsOf("TempAbs", "Company"), "K");
    expectText("stated with a multiplier: VolRate", unitsOf("VolRate", "Company"), "k*m3/hr");
    expectText("inherited from SI: Density", unitsOf("Density", "Company"), "kg/m3");

    /* The name of a slate does for a unit text. */
    double rate = 2.0;
    expectDone(uoms_ConvertArray(&rate, 1, "MassRate", "English", "Company"));
    expectNumber("2 lb/hr in the units of Company", rate, 0.90718474);
}

/* A slate of the company for one plant, from lines of text; and the text of a slate. */
static void plant(void) {
    static const char *const lines[] = {
        "[Plant]",   "BasedOn=Company",  "GaugePresBasis=83.5", "NewClass0=SaltFlux,Mass / Area Time",
        "Pres=kPag", "SaltFlux=g/m2-hr",
    };
    UomTable *table = tbl_Create(0, 2);
    for (size_t i = 0; i < sizeof lines / sizeof *lines; ++i)
        tbl_PutText(table, UOM_APPEND, lines[i]);
    uoms_NewSet("Plant");
    expectDone(uoms_PutSetDefinition("Plant", table));
    tbl_Free(table);

    expectText("by text: Pres of Plant", unitsOf("Pres", "Plant"), "kPag");
    expectText("by text: its own class", unitsOf("SaltFlux", "Plant"), "g/m2-hr");
    expectText("inherited from Company: MassRate", unitsOf("MassRate", "Plant"), "kg/hr");

    table = uoms_GetSetDefinition("Plant", 0);
    printf("Plant as text, layout 0:");
    for (uint32_t i = 0; i < table->count; ++i)
        printf(" %s", tbl_GetText(table, i));
    printf("\n");
    expectText("its first line, the parent", tbl_GetText(table, 0), "Company");
    tbl_Free(table);
}

/* What a user sees is the slate Current. It is a copy: a change of the site's slate does not reach it. */
static void current(void) {
    expectDone(uom_InitializeCurrentSet(uom_GetSetType("Plant")));
    expectDone(uoms_SetClassDefault("Current", "GaugePresBasis", "83.5"));
    expectText("Current, from Plant: Pres", unitsOf("Pres", "Current"), "kPag");
    expectNumber("250 kPag with Current of the site, kPa", absolutePressure(250.0), 333.5);
}

int main(void) {
    if (uom_Init() != 0) {
        printf("%s\n", uom_GetLastErrorMessage());
        return 1;
    }
    site();
    company();
    plant();
    current();
    uom_Cleanup();
    return failures != 0;
}

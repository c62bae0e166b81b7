/* Chains made once, arrays converted many times, as a host does it in a loop over time steps.
 * Ends with 0 when every number is as expected. */
#include <math.h>
#include <stdio.h>

#include "uom/uom.h"

#define COUNT 1000
#define STEPS 100

static int failures;

static void expectNumber(const char *title, double value, double expected) {
    printf("%-44s %.6g\n", title, value);
    if (!(fabs(value / expected - 1.0) < 1e-6)) {
        printf("    expected %.6g\n", expected);
        ++failures;
    }
}

/* A chain for a quantity, filled with units; null with a message when either text is not understood. */
static UomStruct newChain(const char *quantity, const char *units) {
    UomStruct chain = uoms_New(quantity);
    if (chain && uom_FillStructFromString(chain, units, 1) != 0)
        uom_Free(&chain);
    if (!chain)
        printf("%s\n", uom_GetLastErrorMessage());
    return chain;
}

/* The road for many arrays: the texts are read once. */
static void manyArrays(void) {
    double values[COUNT];
    double total = 0.0;
    UomStruct from = newChain("MassRate", "M lb/hr");
    UomStruct to = newChain("MassRate", "kg/sec");
    if (!from || !to) {
        ++failures;
        return;
    }
    for (int step = 0; step < STEPS; ++step) {
        for (int i = 0; i < COUNT; ++i)
            values[i] = 1.0;
        uom_ConvertArray(values, COUNT, from, to);
        for (int i = 0; i < COUNT; ++i)
            total += values[i];
    }
    expectNumber("100 x 1000 times 1 M lb/hr, kg/sec", total, STEPS * COUNT * 0.125997881);
    expectNumber("one value through the same chains", uom_ConvertFromTo(1.0, from, to), 0.125997881);
    uom_Free(&from);
    uom_Free(&to);
}

/* API gravity is not linear: each element takes the long road, by the same call. */
static void gravities(void) {
    double values[] = {10.0, 20.0, 35.0};
    UomStruct from = newChain("PetroDensity", "API");
    UomStruct to = newChain("PetroDensity", "kg/m3");
    if (!from || !to || uom_ConvertArray(values, 3, from, to) != 0)
        ++failures;
    expectNumber("10 API, kg/m3", values[0], 999.016);
    expectNumber("35 API, kg/m3", values[2], 849.0136);
    uom_Free(&from);
    uom_Free(&to);
}

/* For a loop of the host's own: y = (x + offset) * factor, and 5 where there are no such constants. */
static void constants(void) {
    double factor = 0.0, offset = 0.0;
    if (uoms_CalculateConvConstants("Temp", "F", "K", &factor, &offset) != 0)
        ++failures;
    expectNumber("212 F by constants, K", (212.0 + offset) * factor, 373.15);
    if (uoms_CalculateConvConstants("PetroDensity", "API", "kg/m3", &factor, &offset) != 5)
        ++failures;
}

/* "No value" stays: anything below -1e35, as long as values go one by one. */
static void noValue(void) {
    UomStruct from = newChain("Pres", "psi");
    UomStruct to = newChain("Pres", "kPa");
    if (!from || !to)
        ++failures;
    expectNumber("no value stays no value", uom_ConvertFromTo(-1.5e35, from, to), -1.5e35);
    uom_Free(&from);
    uom_Free(&to);
}

int main(void) {
    if (uom_Init() != 0) {
        printf("%s\n", uom_GetLastErrorMessage());
        return 1;
    }
    manyArrays();
    gravities();
    constants();
    noValue();
    uom_Cleanup();
    return failures != 0;
}

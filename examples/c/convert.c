/* 250 kPa gauge in psi absolute, and 35 degrees API in kg/m3. Ends with 0 when both are right. */
#include <math.h>
#include <stdio.h>

#include "uom/uom.h"

int main(void) {
    double pressure = 250.0, gravity = 35.0;
    if (uom_Init() != 0 || /* finds its data file */
        uoms_ConvertArray(&pressure, 1, "Pres", "kPag", "psia") != 0 ||
        uoms_ConvertArray(&gravity, 1, "PetroDensity", "API", "kg/m3") != 0) {
        fprintf(stderr, "%s\n", uom_GetLastErrorMessage());
        return 1;
    }
    uom_Cleanup();

    printf("250 kPag = %.6g psia\n", pressure);
    printf("35 API = %.6g kg/m3\n", gravity);
    return fabs(pressure - 50.9554) > 1e-4 || fabs(gravity - 849.0136) > 1e-4;
}

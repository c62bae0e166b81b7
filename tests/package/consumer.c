/* Starts the installed library with the data file that it finds by itself, and converts one value. */

#include <stdio.h>

#include "uom/uom.h"

int main(void) {
    const double expected = 101.325; /* one standard atmosphere: 0 psig, in kPa */
    double value = 0.0;
    double error;

    int32_t status = uom_Init();
    if (status != 0) {
        printf("uom_Init: %d: %s\n", (int)status, uom_GetLastErrorMessage());
        return 1;
    }
    status = uoms_ConvertArray(&value, 1, "Pres", "psig", "kPa");
    if (status != 0) {
        printf("uoms_ConvertArray: %d: %s\n", (int)status, uom_GetLastErrorMessage());
        return 1;
    }
    uom_Cleanup();

    error = value / expected - 1.0;
    if (!(error < 1e-12 && error > -1e-12)) {
        printf("0 psig is %.17g kPa, expected %.17g\n", value, expected);
        return 1;
    }
    puts("OK");
    return 0;
}

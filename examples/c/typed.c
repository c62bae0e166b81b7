#include <stdio.h>
#include <uom/entry.h>

int main(void) {
    UomEntry entry;
    if (uom_Init() != 0)
        return 1;
    if (uom_ReadEntry("PresGradient", "3 psi/100ft", &entry) == 0)
        printf("%g %s\n", entry.value * entry.scale, entry.units);
    else
        printf("%s\n", entry.message);
    uom_Cleanup();
    return 0;
}

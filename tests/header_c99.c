/* Compiled as C99 and as C++: the headers need nothing before them, and their names have C linkage. */

#include "uom/uom.h"
#include "uom/conversion.h"

#include <stdio.h>
#include <string.h>

int main(void) {
    int32_t (*start)(void) = uom_Init;
    void (*stop)(void) = uom_Cleanup;
    char version[32];
    snprintf(version, sizeof version, "%d.%d.%d", UOM_VERSION_MAJOR, UOM_VERSION_MINOR, UOM_VERSION_PATCH);
    /* A host keeps statuses and styles in 32-bit integers, whatever language it is in. */
    int32_t status = UOM_START_NO_FILE;
    switch (status) {
    case UOM_DONE:
    case UOM_NO_MEMORY:
        return 1;
    default:
        break;
    }
    status = UOM_STYLE_HTML;
    return uom_ConvertOne(0, 1.5) != 1.5 || start == 0 || stop == 0 || status != 6 ||
           strcmp(version, UOM_VERSION) != 0 || strcmp(version, uom_GetVersion()) != 0;
}

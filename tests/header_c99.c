/* Compiled as C99 and as C++: the header needs nothing before it, and its names have C linkage. */

#include "uom/uom.h"

int main(void) {
    int32_t (*start)(void) = uom_Init;
    void (*stop)(void) = uom_Cleanup;
    return start == 0 || stop == 0;
}

/* A host for Microsoft's target without any run time, as its headers are not at hand: 0 when the library converts. */
#include "uom/uom.h"

__declspec(dllimport) void __stdcall ExitProcess(unsigned status);
int _fltused = 1; /* what Microsoft's compiler asks the run time for */

void start(void) {
    double pressure = 1.0;
    const int started = uom_Init() == 0 && UOM_SET_SI > 0;
    const int converted = started && uoms_ConvertArray(&pressure, 1, "Pres", "kPa", "Pa") == 0 && pressure == 1000.0;
    uom_Cleanup();
    ExitProcess(converted ? 0 : 1);
}

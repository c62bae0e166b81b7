/* A plug-in with the static library in it, and a DllMain of its own. It exports one function: as uom_FindDataFile, and
 * behind that it starts, converts and ends. */
#include <windows.h>

#include "uom/uom.h"

static int attached = 0;

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID reserved) {
    (void)module, (void)reserved;
    attached = reason == DLL_PROCESS_ATTACH ? 1 : attached;
    return TRUE;
}

__declspec(dllexport) int32_t plugin_FindDataFile(char *out, int32_t size) {
    double pressure = 1.0;
    const int32_t found = uom_FindDataFile(out, size);
    if (found != 0 || !attached)
        return found;
    if (uom_Init() != 0 || uoms_ConvertArray(&pressure, 1, "Pres", "kPa", "Pa") != 0 || pressure != 1000.0)
        return -1;
    uom_Cleanup();
    return 0;
}

// The one file that knows the operating system.
#include "catalogue/platform.h"

#include <cstring>

#include "catalogue/startup.h"
#include "support/numbers.h"
#include "support/text.h"
#include "uom/uom.h"

static const char dataFileName[] = "uomdata.txt";

static void onLoad() {
    platform_Debug("-- Load dll QXUomLib\n");
    num_InitConstants();
}

static void onUnload() {
    platform_Debug("-- Release dll QXUomLib\n");
    uom_Cleanup();
    startup_FreeAll();
}

#if defined(_WIN32)

#include <windows.h>

void platform_Debug(const char *text) {
    OutputDebugStringA(text);
}

const char *platform_DebugText() {
    return "";
}

// Beside the module "corekit.dll", or beside the executable when that module is not loaded.
void platform_FindDataFile(char *out, size_t size) {
    char module[MAX_PATH];
    const DWORD length = GetModuleFileNameA(GetModuleHandleA("corekit.dll"), module, sizeof module);
    char *slash = length > 0 && length < sizeof module ? std::strrchr(module, '\\') : nullptr;
    if (!slash) {
        str_FormatBounded(out, size, ".\\%s", dataFileName);
        return;
    }
    slash[1] = '\0';
    str_FormatBounded(out, size, "%s%s", module, dataFileName);
}

#if !defined(UOM_STATIC)
extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH)
        onLoad();
    else if (reason == DLL_PROCESS_DETACH)
        onUnload();
    return TRUE;
}
#else
static const struct Loader {
    Loader() { onLoad(); }
    ~Loader() { onUnload(); }
} loader;
#endif

#else

#include <dlfcn.h>
#include <unistd.h>

static char debugText[8192] = "";

// The oldest half goes when the buffer is full.
void platform_Debug(const char *text) {
    const size_t used = std::strlen(debugText);
    const size_t added = std::strlen(text);
    if (used + added >= sizeof debugText) {
        const size_t kept = used / 2;
        std::memmove(debugText, debugText + (used - kept), kept + 1);
    }
    str_AppendBounded(debugText, sizeof debugText, text);
}

const char *platform_DebugText() {
    return debugText;
}

// The data file in a directory below the one that holds `file`. True when it can be read.
static bool findBeside(char *out, size_t size, const char *file, const char *directory) {
    const char *slash = std::strrchr(file, '/');
    if (!slash)
        return false;
    const int length = static_cast<int>(slash - file);
    str_FormatBounded(out, size, "%.*s/%s%s", length, file, directory, dataFileName);
    return access(out, R_OK) == 0;
}

void platform_FindDataFile(char *out, size_t size) {
    Dl_info library;
    if (dladdr(reinterpret_cast<void *>(&platform_FindDataFile), &library) != 0 && library.dli_fname) {
        if (findBeside(out, size, library.dli_fname, ""))
            return;
#if defined(UOM_DATA_RELATIVE)
        if (findBeside(out, size, library.dli_fname, UOM_DATA_RELATIVE "/"))
            return;
#endif
    }
    char executable[4096];
    const ssize_t length = readlink("/proc/self/exe", executable, sizeof executable - 1);
    if (length > 0) {
        executable[length] = '\0';
        if (findBeside(out, size, executable, ""))
            return;
    }
    str_FormatBounded(out, size, "./%s", dataFileName);
}

__attribute__((constructor)) static void load() {
    onLoad();
}

__attribute__((destructor)) static void unload() {
    onUnload();
}

#endif

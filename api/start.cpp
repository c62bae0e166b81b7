// The exported functions of one catalogue: the catalogue in use and the thread's scratch, and one call down.
#include "api/state.h"
#include "loading/data_file.h"
#include "loading/startup.h"
#include "support/message.h"
#include "support/numbers.h"
#include "uom/catalogue.h"
#include "uom/uom.h"

#if defined(_WIN32)
#include <windows.h>
#include "catalogue/catalogue.h"
#endif

using uom::Catalogue;
using uom::Running;
using uom::Scratch;
using uom::state_Default;
using uom::state_InUse;
using uom::state_Mirror;
using uom::state_Scratch;

// Starts the catalogue in use.
template <class Start> static int32_t start(Start how) {
    Scratch &scratch = state_Scratch();
    Catalogue &catalogue = state_InUse(scratch);
    const int32_t status = how(catalogue, scratch.running);
    state_Mirror(catalogue);
    return status;
}

const char *uom_GetVersion(void) {
    return UOM_VERSION;
}

int32_t uom_Init(void) {
    return start([=](Catalogue &catalogue, Running &running) { return uom::uom_Init(catalogue, running); });
}

int32_t uom_FindDataFile(char *out, int32_t size) {
    return uom::startup_FindDataFile(out, size);
}

int32_t uom_Init2(int32_t count, const char *const *words) {
    return start(
        [=](Catalogue &catalogue, Running &running) { return uom::uom_Init2(catalogue, running, count, words); });
}

int32_t uom_Init3(int32_t count, const char *const *words) {
    return start(
        [=](Catalogue &catalogue, Running &running) { return uom::uom_Init3(catalogue, running, count, words); });
}

int32_t uom_InitText(const char *text, size_t length, int32_t count, const char *const *words) {
    if (!text && length > 0 && !state_InUse().started) {
        uom::error_Set("The function uom_InitText() was given no text of a data file.");
        return UOM_START_NO_FILE;
    }
    return start([=](Catalogue &catalogue, Running &running) {
        return uom::startup_InitText(catalogue, running, {text, length}, count, words);
    });
}

void uom_Cleanup(void) {
    Catalogue &catalogue = state_InUse();
    uom::uom_Cleanup(catalogue);
    state_Mirror(catalogue);
}

const char *uom_GetLastErrorMessage(void) {
    return uom::error_Text();
}

UomTable *uom_GetKnownUnits(void) {
    return uom::data_KnownUnits();
}

UomTable *uom_GetKnownLists(void) {
    return uom::data_KnownLists();
}

// --- what the system calls when it loads and unloads the library

static void onLoad() {
    uom::platform_NoteLibraryPath();
    uom::platform_Debug("-- Load dll QXUomLib\n");
    uom::num_InitConstants();
}

static void onUnload() {
    uom::platform_Debug("-- Release dll QXUomLib\n");
    uom::startup_End(state_Default());
}

#if defined(_WIN32) && !defined(UOM_STATIC)

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH)
        onLoad();
    else if (reason == DLL_PROCESS_DETACH)
        onUnload();
    return TRUE;
}

#elif defined(_WIN32)

static const struct Loader {
    Loader() { onLoad(); }
    ~Loader() { onUnload(); }
} loader;

#else

__attribute__((constructor)) static void load() {
    onLoad();
}

__attribute__((destructor)) static void unload() {
    onUnload();
}

#endif

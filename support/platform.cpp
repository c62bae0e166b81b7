// The one file that knows the operating system.
#include "support/platform.h"

#include <sys/stat.h>

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#include <unistd.h>
#endif

#include <atomic>
#include <cstdio>
#include <cstring>

#include "support/text.h"

namespace uom {

static const char dataFileName[] = "uomdata.txt";

#if defined(_WIN32)
static const char slashes[] = "\\/";
#else
static const char slashes[] = "/";
#endif

// Looked at before it is opened: opening a pipe may wait for ever, and a device may do anything. The size of a regular
// file, -1 for anything else.
static int64_t sizeOfFile(const char *path) {
    struct stat file;
    const bool regular = stat(path, &file) == 0 && (file.st_mode & S_IFMT) == S_IFREG;
    return regular ? static_cast<int64_t>(file.st_size) : -1;
}

static bool canBeRead(const char *path) {
    FILE *file = sizeOfFile(path) < 0 ? nullptr : std::fopen(path, "r");
    if (file)
        std::fclose(file);
    return file != nullptr;
}

// Reads to the end. The size is what the system expects: it is wrong for a file that grows, and for some that are made
// while they are read.
static ReadStatus readWhole(FILE *file, size_t size, FileText &out) {
    std::setvbuf(file, nullptr, _IONBF, 0); // goes into the one block as it is
    for (size_t room = size + 1;; room = 2 * room) {
        void *block = out.text;
        if (mem_Realloc(&block, room) != 0)
            return READ_NO_MEMORY;
        out.text = static_cast<char *>(block);
        out.length += std::fread(out.text + out.length, 1, room - out.length, file);
        if (out.length < room)
            return std::ferror(file) ? READ_REFUSED : READ_DONE;
    }
}

ReadStatus platform_ReadFile(const char *path, FileText &file) {
    const int64_t size = sizeOfFile(path);
    FILE *source = size < 0 ? nullptr : std::fopen(path, "r");
    if (!source)
        return READ_REFUSED;
    const ReadStatus status = readWhole(source, static_cast<size_t>(size), file);
    std::fclose(source);
    return status;
}

// Adds a path to the places, unless it is there or too long to be a data file's. True when it can be read.
static bool tryPlace(DataFilePlaces &places, std::string_view directory, const char *subdirectory) {
    char *path = places.paths[places.count];
    TextWriter writer(path, DATA_FILE_SIZE);
    str_Write(writer, directory);
    str_Write(writer, subdirectory);
    str_Write(writer, dataFileName);
    if (writer.wanted >= DATA_FILE_SIZE)
        return false;
    for (int32_t i = 0; i < places.count; ++i)
        if (std::strcmp(places.paths[i], path) == 0)
            return false;
    ++places.count;
    return canBeRead(path);
}

// The same beside a file; nowhere when its path has no directory.
static bool tryBeside(DataFilePlaces &places, std::string_view file, const char *subdirectory) {
    const size_t slash = file.find_last_of(slashes);
    return slash != std::string_view::npos && tryPlace(places, str_Head(file, slash + 1), subdirectory);
}

#if defined(_WIN32)

void platform_Debug(const char *text) {
    OutputDebugStringA(text);
}

const char *platform_DebugText() {
    return "";
}

// Beside the module "corekit.dll", or beside the executable when that module is not loaded.
bool platform_FindDataFile(DataFilePlaces &places) {
    char module[MAX_PATH];
    const DWORD length = GetModuleFileNameA(GetModuleHandleA("corekit.dll"), module, sizeof module);
    places.count = 0;
    return (length > 0 && length < sizeof module && tryBeside(places, module, "")) || tryPlace(places, ".\\", "");
}

void platform_NoteLibraryPath() {}

#else

static char debugText[8192] = "";
static std::atomic_flag debugTextInUse = ATOMIC_FLAG_INIT;

// The oldest half goes when the buffer is full.
void platform_Debug(const char *text) {
    while (debugTextInUse.test_and_set(std::memory_order_acquire)) {
    }
    const size_t used = std::strlen(debugText);
    const size_t added = std::strlen(text);
    if (used + added >= sizeof debugText) {
        const size_t kept = used / 2;
        std::memmove(debugText, debugText + (used - kept), kept + 1);
    }
    str_AppendBounded(debugText, sizeof debugText, text);
    debugTextInUse.clear(std::memory_order_release);
}

const char *platform_DebugText() {
    return debugText;
}

constexpr size_t PATH_SIZE = 4096;

// The file that this code is in, by an absolute path; empty while it is not known. A loader, and the caller of a
// program that holds the library in itself, may have named it relative to the directory of that moment.
static char libraryPath[PATH_SIZE] = "";

void platform_NoteLibraryPath() {
    Dl_info library;
    if (dladdr(reinterpret_cast<void *>(&platform_NoteLibraryPath), &library) == 0 || !library.dli_fname)
        return;
    // Without a slash the search path of commands led to it, and the directory at work says nothing.
    if (!std::strchr(library.dli_fname, '/'))
        return;
    char directory[PATH_SIZE] = "";
    const char *name = library.dli_fname;
    const bool absolute = *name == '/';
    while (std::strncmp(name, "./", 2) == 0)
        name += 2;
    if (!absolute && !getcwd(directory, sizeof directory))
        return;
    TextWriter writer(libraryPath, sizeof libraryPath);
    str_Write(writer, directory);
    str_Write(writer, absolute ? "" : "/");
    str_Write(writer, name);
    if (writer.wanted >= sizeof libraryPath)
        libraryPath[0] = '\0';
}

static bool tryBesideLibrary(DataFilePlaces &places) {
    if (tryBeside(places, libraryPath, ""))
        return true;
#if defined(UOM_DATA_RELATIVE)
    return tryBeside(places, libraryPath, UOM_DATA_RELATIVE "/");
#else
    return false;
#endif
}

static bool tryBesideExecutable(DataFilePlaces &places) {
    char executable[PATH_SIZE];
    const ssize_t length = readlink("/proc/self/exe", executable, sizeof executable);
    const size_t known =
        length > 0 && length < static_cast<ssize_t>(sizeof executable) ? static_cast<size_t>(length) : 0;
    return tryBeside(places, std::string_view(executable, known), "");
}

bool platform_FindDataFile(DataFilePlaces &places) {
    places.count = 0;
    return tryBesideLibrary(places) || tryBesideExecutable(places) || tryPlace(places, "./", "");
}

#endif

} // namespace uom

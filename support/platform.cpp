// The one file that knows the operating system.
#include "support/platform.h"

#if defined(_WIN32)
#include <fcntl.h>
#include <io.h>
#include <windows.h>
#else
#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

#include <atomic>
#include <cerrno>
#include <cstring>
#include <cwchar>

#include "support/text.h"

namespace uom {

static const char dataFileName[] = "uomdata.txt";

constexpr size_t PATH_SIZE = 4096;

#if defined(_WIN32)
static const char slashes[] = "\\/";
#else
static const char slashes[] = "/";
#endif

#if defined(_WIN32)

// A path as the system takes it: in UTF-16, whole, and with the mark that lifts the limit of 260 characters where it
// goes beyond that. It comes in UTF-8; what is none is in the code page of the system, as older hosts have it.
struct WidePath {
    static constexpr DWORD LONGEST_MARK = 8;
    wchar_t text[PATH_SIZE + LONGEST_MARK];
    bool known; // a path, and not beyond all bounds
    explicit WidePath(const char *path);
};

static bool widen(const char *path, wchar_t *out, int size) {
    return MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, path, -1, out, size) > 0 ||
           MultiByteToWideChar(CP_ACP, 0, path, -1, out, size) > 0;
}

// What stands in front of a whole path that is too long without: of that of a server, in place of a backslash.
static std::wstring_view markOf(std::wstring_view path) {
    if (path.size() < MAX_PATH || path.starts_with(LR"(\\?\)") || path.starts_with(LR"(\\.\)"))
        return L"";
    return path.starts_with(LR"(\\)") ? LR"(\\?\UNC)" : LR"(\\?\)";
}

WidePath::WidePath(const char *path) {
    wchar_t wide[PATH_SIZE], whole[PATH_SIZE];
    const DWORD length = widen(path, wide, PATH_SIZE) ? GetFullPathNameW(wide, PATH_SIZE, whole, nullptr) : 0;
    known = length > 0 && length < PATH_SIZE;
    if (!known)
        return;
    const std::wstring_view mark = markOf({whole, length});
    const size_t dropped = mark.ends_with(L"UNC") ? 1 : 0;
    std::wmemcpy(text, mark.data(), mark.size());
    std::wmemcpy(text + mark.size(), whole + dropped, length + 1 - dropped);
}

// Whether a handle is that of a file on a disk: a pipe is waited for, and a device may do anything.
static bool isRegular(HANDLE file) {
    return file != INVALID_HANDLE_VALUE && GetFileType(file) == FILE_TYPE_DISK;
}

// Opens a regular file, or a link to one; null for anything else.
static FILE *openRegular(const char *path, size_t *size) {
    const WidePath wide(path);
    const HANDLE file =
        wide.known ? CreateFileW(wide.text, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                 nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr)
                   : INVALID_HANDLE_VALUE;
    LARGE_INTEGER bytes;
    if (!isRegular(file) || !GetFileSizeEx(file, &bytes)) {
        if (file != INVALID_HANDLE_VALUE)
            CloseHandle(file);
        return nullptr;
    }
    *size = static_cast<size_t>(bytes.QuadPart);
    const int descriptor = _open_osfhandle(reinterpret_cast<intptr_t>(file), _O_RDONLY | _O_BINARY);
    if (descriptor < 0) {
        CloseHandle(file);
        return nullptr;
    }
    FILE *stream = _fdopen(descriptor, "rb");
    if (!stream)
        _close(descriptor);
    return stream;
}

FILE *platform_OpenToWrite(const char *path) {
    const WidePath wide(path);
    if (!wide.known)
        errno = ENOENT;
    return wide.known ? _wfopen(wide.text, L"w") : nullptr;
}

#else

// Looked at before it is opened: opening a pipe may wait for ever, and a device may do anything. Null for anything but
// a regular file.
static FILE *openRegular(const char *path, size_t *size) {
    struct stat file;
    if (stat(path, &file) != 0 || (file.st_mode & S_IFMT) != S_IFREG)
        return nullptr;
    *size = static_cast<size_t>(file.st_size);
    return std::fopen(path, "r");
}

FILE *platform_OpenToWrite(const char *path) {
    return std::fopen(path, "w");
}

#endif

static bool canBeRead(const char *path) {
    size_t size;
    FILE *file = openRegular(path, &size);
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
    size_t size;
    FILE *source = openRegular(path, &size);
    if (!source)
        return READ_REFUSED;
    const ReadStatus status = readWhole(source, size, file);
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

// Beside the library, and where the data file is installed relative to it.
static bool tryBesideLibrary(DataFilePlaces &places, std::string_view library) {
    if (tryBeside(places, library, ""))
        return true;
#if defined(UOM_DATA_RELATIVE)
    return tryBeside(places, library, UOM_DATA_RELATIVE "/");
#else
    return false;
#endif
}

#if defined(_WIN32)

void platform_Debug(const char *text) {
    OutputDebugStringA(text);
}

const char *platform_DebugText() {
    return "";
}

// The file of a module, in UTF-8. The mark of a long path goes: not all systems take a path with ".." behind it.
struct ModulePath {
    char text[3 * PATH_SIZE] = "";
    explicit ModulePath(HMODULE module) {
        wchar_t wide[PATH_SIZE];
        const DWORD length = GetModuleFileNameW(module, wide, PATH_SIZE);
        if (length == 0 || length >= PATH_SIZE)
            return;
        const std::wstring_view whole(wide, length);
        const bool marked = whole.starts_with(LR"(\\?\)") && !whole.starts_with(LR"(\\?\UNC\)");
        WideCharToMultiByte(CP_UTF8, 0, wide + (marked ? 4 : 0), -1, text, sizeof text, nullptr, nullptr);
    }
};

// The module that this code is in.
static HMODULE ownModule() {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const wchar_t *>(&platform_NoteLibraryPath), &module);
    return module;
}

// First beside the module "corekit.dll", or beside the executable when that module is not loaded: hosts count on it.
bool platform_FindDataFile(DataFilePlaces &places) {
    places.count = 0;
    return tryBeside(places, ModulePath(GetModuleHandleA("corekit.dll")).text, "") ||
           tryBesideLibrary(places, ModulePath(ownModule()).text) || tryPlace(places, ".\\", "");
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

static bool tryBesideExecutable(DataFilePlaces &places) {
    char executable[PATH_SIZE];
    const ssize_t length = readlink("/proc/self/exe", executable, sizeof executable);
    const size_t known =
        length > 0 && length < static_cast<ssize_t>(sizeof executable) ? static_cast<size_t>(length) : 0;
    return tryBeside(places, std::string_view(executable, known), "");
}

bool platform_FindDataFile(DataFilePlaces &places) {
    places.count = 0;
    return tryBesideLibrary(places, libraryPath) || tryBesideExecutable(places) || tryPlace(places, "./", "");
}

#endif

} // namespace uom

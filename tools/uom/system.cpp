#include "system.h"

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#if defined(_WIN32)

#include <io.h>
#include <windows.h>

// A "*" in a word is a unit's, and no pattern for names of files.
extern "C" {
extern int _CRT_glob;
int _CRT_glob = 0;
}

namespace {

constexpr int FILE_OF_BYTES = O_BINARY | O_NOINHERIT;

// As much as the C library takes in one call.
unsigned atOnce(size_t size) {
    return static_cast<unsigned>(std::min<size_t>(size, INT32_MAX));
}

HANDLE handleOf(int descriptor) {
    return reinterpret_cast<HANDLE>(_get_osfhandle(descriptor));
}

} // namespace

Console::Console() : inputPage(GetConsoleCP()), outputPage(GetConsoleOutputCP()) {
    SetConsoleCP(CP_UTF8);
    SetConsoleOutputCP(CP_UTF8);
    const HANDLE messages = GetStdHandle(STD_ERROR_HANDLE);
    DWORD mode;
    if (GetConsoleMode(messages, &mode))
        SetConsoleMode(messages, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

Console::~Console() {
    if (inputPage != 0)
        SetConsoleCP(inputPage);
    if (outputPage != 0)
        SetConsoleOutputCP(outputPage);
}

// By its mode: the C library takes the device NUL for a terminal, too.
bool isTerminal(std::FILE *stream) {
    DWORD mode;
    return GetConsoleMode(handleOf(fileno(stream)), &mode) != 0;
}

void keepBytes(int descriptor) {
    _setmode(descriptor, O_BINARY);
}

std::ptrdiff_t readBytes(int descriptor, char *to, size_t size) {
    return ::read(descriptor, to, atOnce(size));
}

std::ptrdiff_t writeBytes(int descriptor, const char *from, size_t size) {
    return ::write(descriptor, from, atOnce(size));
}

// An open file cannot be removed here.
void removeOnInterrupt(const std::string &) {}

// By the open file, which is no pipe that waits here: the C library's stat() takes short paths alone.
bool isRegularFile(const std::string &path) {
    const int descriptor = openToRead(path);
    if (descriptor < 0)
        return false;
    const bool regular = GetFileType(handleOf(descriptor)) == FILE_TYPE_DISK;
    close(descriptor);
    return regular;
}

bool isSameFile(int a, int b) {
    BY_HANDLE_FILE_INFORMATION first, second;
    return GetFileType(handleOf(a)) == FILE_TYPE_DISK && GetFileInformationByHandle(handleOf(a), &first) &&
           GetFileInformationByHandle(handleOf(b), &second) &&
           first.dwVolumeSerialNumber == second.dwVolumeSerialNumber && first.nFileIndexHigh == second.nFileIndexHigh &&
           first.nFileIndexLow == second.nFileIndexLow;
}

#else

namespace {

constexpr int FILE_OF_BYTES = O_CLOEXEC;

constexpr int endingSignals[] = {SIGINT, SIGTERM, SIGHUP};
char removedFile[4096];

extern "C" void removeAndEnd(int signal) {
    unlink(removedFile);
    std::signal(signal, SIG_DFL);
    raise(signal);
}

} // namespace

Console::Console() = default;
Console::~Console() = default;

bool isTerminal(std::FILE *stream) {
    return isatty(fileno(stream)) != 0;
}

void keepBytes(int) {}

std::ptrdiff_t readBytes(int descriptor, char *to, size_t size) {
    return ::read(descriptor, to, size);
}

std::ptrdiff_t writeBytes(int descriptor, const char *from, size_t size) {
    return ::write(descriptor, from, size);
}

void removeOnInterrupt(const std::string &path) {
    const bool removes = !path.empty() && path.size() < sizeof removedFile;
    if (removes)
        removedFile[path.copy(removedFile, sizeof removedFile - 1)] = '\0';
    for (const int signal : endingSignals)
        if (std::signal(signal, removes ? removeAndEnd : SIG_DFL) == SIG_IGN)
            std::signal(signal, SIG_IGN); // as nohup wants it
}

bool isRegularFile(const std::string &path) {
    struct stat file;
    return stat(path.c_str(), &file) == 0 && S_ISREG(file.st_mode);
}

bool isSameFile(int a, int b) {
    struct stat first, second;
    return fstat(a, &first) == 0 && fstat(b, &second) == 0 && S_ISREG(first.st_mode) && first.st_dev == second.st_dev &&
           first.st_ino == second.st_ino;
}

#endif

int openToRead(const std::string &path) {
    return open(path.c_str(), O_RDONLY | FILE_OF_BYTES);
}

int openToWrite(const std::string &path) {
    return open(path.c_str(), O_WRONLY | O_CREAT | FILE_OF_BYTES, 0666);
}

int openNew(const std::string &path) {
    return open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | FILE_OF_BYTES, 0666);
}

// What differs between operating systems: the diagnostic channel, files by their paths, and the places of the data file.
//
// Paths are UTF-8 on Windows, and of any length; elsewhere they are bytes.
#ifndef UOM_SUPPORT_PLATFORM_H
#define UOM_SUPPORT_PLATFORM_H

#include <cstddef>
#include <cstdint>
#include <cstdio>

#include "support/memory.h"

namespace uom {

// Whether a carriage return in front of a line feed belongs to the end of a line.
#if defined(_WIN32)
constexpr bool RETURNS_END_LINES = true;
#else
constexpr bool RETURNS_END_LINES = false;
#endif

constexpr size_t DATA_FILE_SIZE = 520; // of a path of a data file

// Writes to the diagnostic channel: the debugger output on Windows, elsewhere a buffer of the process that
// holds the last few thousand characters and that nothing prints.
void platform_Debug(const char *text);

// What the buffer holds; empty on Windows. The address stays the same.
const char *platform_DebugText();

// The bytes of a file that was read.
struct FileText {
    char *text = nullptr; // not ended by a zero byte
    size_t length = 0;
    FileText() = default;
    ~FileText() { mem_Free(text); }
    FileText(const FileText &) = delete;
    FileText &operator=(const FileText &) = delete;
};

enum ReadStatus { READ_DONE, READ_REFUSED, READ_NO_MEMORY };

// Reads a regular file, or a link to one, as a whole. Anything else is refused, without waiting for it.
ReadStatus platform_ReadFile(const char *path, FileText &file);

// Opens a text file that is made, or made anew; null with errno when it cannot be.
FILE *platform_OpenToWrite(const char *path);

// Notes where the file is that this code is in, while the directory at work is still that of the load.
void platform_NoteLibraryPath();

// The paths at which a data file was looked for, in turn, at least one. The last is the one to read.
struct DataFilePlaces {
    char paths[4][DATA_FILE_SIZE];
    int32_t count;
};

// Looks for the data file as uom_Init does. True when the last path can be read; otherwise it is the relative one.
bool platform_FindDataFile(DataFilePlaces &places);

} // namespace uom

#endif

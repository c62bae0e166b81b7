// What differs between operating systems: the diagnostic channel and the places of the data file.
#ifndef UOM_SUPPORT_PLATFORM_H
#define UOM_SUPPORT_PLATFORM_H

#include <cstddef>
#include <cstdint>
#include <cstdio>

namespace uom {

constexpr size_t DATA_FILE_SIZE = 520; // of a path of a data file

// Writes to the diagnostic channel: the debugger output on Windows, elsewhere a buffer of the process that
// holds the last few thousand characters and that nothing prints.
void platform_Debug(const char *text);

// What the buffer holds; empty on Windows. The address stays the same.
const char *platform_DebugText();

// Opens a file for reading: a regular one, or a link to one. Null for anything else, without waiting for it.
FILE *platform_OpenFile(const char *path);

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

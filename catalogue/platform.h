// What differs between operating systems: the diagnostic channel, the places of the data file, the loader's
// entry.
#ifndef UOM_CATALOGUE_PLATFORM_H
#define UOM_CATALOGUE_PLATFORM_H

#include <cstdio>

#include "catalogue/state.h"

// Writes to the diagnostic channel: the debugger output on Windows, elsewhere a buffer of the process that
// holds the last few thousand characters and that nothing prints.
void platform_Debug(const char *text);

// What the buffer holds; empty on Windows. The address stays the same.
const char *platform_DebugText();

// Opens a file for reading: a regular one, or a link to one. Null for anything else, without waiting for it.
FILE *platform_OpenFile(const char *path);

// The paths at which a data file was looked for, in turn, at least one. The last is the one to read.
struct DataFilePlaces {
    char paths[4][DATA_FILE_SIZE];
    int32_t count;
};

// Looks for the data file as uom_Init does. True when the last path can be read; otherwise it is the relative one.
bool platform_FindDataFile(DataFilePlaces &places);

#endif

// What differs between operating systems: the diagnostic channel, the places of the data file, the loader's
// entry.
#ifndef UOM_CATALOGUE_PLATFORM_H
#define UOM_CATALOGUE_PLATFORM_H

#include <cstddef>

// Writes to the diagnostic channel: the debugger output on Windows, elsewhere a buffer of the process that
// holds the last few thousand characters and that nothing prints.
void platform_Debug(const char *text);

// What the buffer holds; empty on Windows. The address stays the same.
const char *platform_DebugText();

// The path of the data file as uom_Init finds it: the first of the places that has one, else the relative
// path.
void platform_FindDataFile(char *out, size_t size);

#endif

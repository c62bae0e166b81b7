// Start-up and clean-up; their operations are declared in uom.h. Kept here is what tests of internals reach.
#ifndef UOM_CATALOGUE_STARTUP_H
#define UOM_CATALOGUE_STARTUP_H

#include <cstdint>

// Walks the compiled rows and the unit records; the first whose number is not its place is a fault. 0, or 3
// for the class table, 4 for the unit table (also when both are at fault), with a message.
int32_t startup_CheckTables();

// Frees the catalogue, also the one that a failed start left behind. For the unloading of the library.
void startup_FreeAll();

#endif

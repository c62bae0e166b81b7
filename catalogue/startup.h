// Start-up and clean-up; their operations are declared in uom.h. Kept here is what tests of internals reach.
#ifndef UOM_CATALOGUE_STARTUP_H
#define UOM_CATALOGUE_STARTUP_H

#include <cstdint>

// Makes a path that of the data file, for this start and those without one. 0; 1 with the message of a file that
// cannot be opened, and no path left, when it is longer than the library can keep.
int32_t startup_NameDataFile(const char *path);

// Walks the compiled rows and the unit records; the first whose number is not its place is a fault. 0, or 3
// for the class table, 4 for the unit table (also when both are at fault), with a message.
int32_t startup_CheckTables();

// Completes the message of a data file that is in none of the places.
struct DataFilePlaces;
void startup_ExplainPlaces(const DataFilePlaces &places);

// Frees the catalogue, also the one that a failed start left behind. For the unloading of the library.
void startup_FreeAll();

#endif

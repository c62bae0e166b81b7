// Start-up and clean-up; their operations are declared in uom.h. Kept here is what tests of internals reach.
#ifndef UOM_LOADING_STARTUP_H
#define UOM_LOADING_STARTUP_H

#include <cstdint>
#include <string_view>
#include "catalogue/catalogue.h"
#include "conversion/running.h"

namespace uom {

// Makes a path that of the data file, for this start and those without one. 0; 1 with the message of a file that
// cannot be opened, and no path left, when it is longer than the library can keep.
int32_t startup_NameDataFile(Catalogue &catalogue, const char *path);

// The same for the next start-up; an empty path is ignored.
void uom_SetDataFileName(Catalogue &catalogue, const char *path);

// Walks the compiled rows and the unit records; the first whose number is not its place is a fault. 0, or 3
// for the class table, 4 for the unit table (also when both are at fault), with a message.
int32_t startup_CheckTables(const Catalogue &catalogue);

// Completes the message of a data file that is in none of the places.
struct DataFilePlaces;
void startup_ExplainPlaces(const DataFilePlaces &places);

// Starts from the bytes of a data file. Paths among the words are passed over, and the catalogue has no data file then.
int32_t startup_InitText(Catalogue &catalogue, Running &running, std::string_view text, int32_t count,
                         const char *const *words);

// Ends the catalogue for good: frees all, also what a failed start left behind and what a clean-up leaves.
void startup_End(Catalogue &catalogue);

// As uom.h says of these names; here the catalogue stands in front.
int32_t startup_FindDataFile(char *out, int32_t size);
int32_t uom_Init(Catalogue &catalogue, Running &running);
int32_t uom_Init2(Catalogue &catalogue, Running &running, int32_t count, const char *const *words);
int32_t uom_Init3(Catalogue &catalogue, Running &running, int32_t count, const char *const *words);
void uom_Cleanup(Catalogue &catalogue);

} // namespace uom

#endif

// The reader of the data file.
#ifndef UOM_LOADING_DATA_FILE_H
#define UOM_LOADING_DATA_FILE_H

#include <cstdint>
#include <string_view>
#include "conversion/running.h"
#include "catalogue/catalogue.h"

namespace uom {

// Reads the file into the catalogue: options, units, class lists, select lists, common lists, slates.
// REQUIRES: the unit table and the null slate exist; the flags are -1 or decided.
// Returns 0; 1 when the path names no regular file or cannot be read, 2 for a section keyword in a wrong place, 11 when
// memory is exhausted, each with a message. What was read before a failure stays.
int32_t uom_ReadDataFile(Catalogue &catalogue, Running &running, const char *path);

// The same from the bytes of a data file, a byte-order mark passed over; messages call it by the name.
int32_t data_ReadText(Catalogue &catalogue, Running &running, const char *name, std::string_view text);

// Writes the message of a data file that cannot be opened; 1.
int32_t data_RefuseFile(const char *path);

// As uom.h says of these names; here the catalogue stands in front.
UomTable *data_KnownUnits(void);
UomTable *data_KnownLists(void);

} // namespace uom

#endif

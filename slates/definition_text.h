// A slate as lines of text, out and in; uoms_GetSetDefinition and uoms_PutSetDefinition are declared in
// uom.h.
#ifndef UOM_SLATES_DEFINITION_TEXT_H
#define UOM_SLATES_DEFINITION_TEXT_H

#include <cstdint>
#include "conversion/running.h"
#include "catalogue/catalogue.h"
#include "slates/defaults.h"

namespace uom {

// Applies one line "key=value" to a slate; the line is cut in place. A line without "=" is a key with a null
// value. The status is that of the operation that the key calls; 11 means that memory is exhausted. `read` is the
// default that a line states for a class.
int32_t definition_ApplyLine(Catalogue &catalogue, Running &running, const char *slateName, char *line,
                             ClassDefault &read);

// As uom.h says of these names; here the catalogue stands in front.
UomTable *uoms_GetSetDefinition(const Catalogue &catalogue, Running &running, const char *name, int32_t format);
int32_t uoms_PutSetDefinition(Catalogue &catalogue, Running &running, const char *name, UomTable *lines);

} // namespace uom

#endif

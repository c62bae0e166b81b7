// Texts that are in the very form of the catalogue: by far the most, and read without the index of names.
#ifndef UOM_ENTRY_CANONICAL_H
#define UOM_ENTRY_CANONICAL_H

#include "catalogue/catalogue.h"
#include "uom/entry.h"

namespace uom {

// Fills the entry when the text is the token of a unit of the class, or what the catalogue prints for units of it. False
// leaves it to the other readers, the entry being anything.
bool canonical_Read(const Catalogue &catalogue, const char *classString, const char *text, UomEntry &entry);

} // namespace uom

#endif

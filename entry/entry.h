// Typed texts: a number with a unit, and which quantity it is of. As entry.h says of these names; here the catalogue
// stands in front.
#ifndef UOM_ENTRY_ENTRY_H
#define UOM_ENTRY_ENTRY_H

#include "catalogue/catalogue.h"
#include "entry/reading.h"
#include "uom/entry.h"

namespace uom {

int32_t uom_ReadEntry(const Catalogue &catalogue, const char *classString, const char *text, UomEntry *entry);
UomTable *uom_GetEntryClasses(const Catalogue &catalogue, const char *text);
int32_t uom_NewConversionFromEntries(const Catalogue &catalogue, const char *classString, const char *from,
                                     const char *to, UomConversion **out, UomEntry *entry);

} // namespace uom

#endif

// Search by words, what a drop-down offers, and the list of aliases; as entry.h says of these names, here the catalogue stands in front.
#ifndef UOM_ENTRY_SEARCH_H
#define UOM_ENTRY_SEARCH_H

#include "catalogue/catalogue.h"
#include "uom/entry.h"

namespace uom {

UomTable *uom_Search(const Catalogue &catalogue, const char *words, int32_t most);
UomTable *uom_GetChoices(const Catalogue &catalogue, const char *classString);
UomTable *uom_GetAliases(const Catalogue &catalogue);

} // namespace uom

#endif

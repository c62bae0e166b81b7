// As uom.h says of these names; here the catalogue stands in front.
#ifndef UOM_TEXT_RELATED_CLASSES_H
#define UOM_TEXT_RELATED_CLASSES_H

#include "catalogue/catalogue.h"
#include "uom/uom.h"

namespace uom {

int32_t uoms_GetAbsoluteClass(const Catalogue &catalogue, const char *classString, char *out, int32_t size);
int32_t uoms_GetDifferenceClass(const Catalogue &catalogue, const char *classString, char *out, int32_t size);
int32_t uoms_GetStandardClass(const Catalogue &catalogue, const char *classString, char *out, int32_t size);

} // namespace uom

#endif

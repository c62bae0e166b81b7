// As uom.h says of these names; here the catalogue stands in front.
#ifndef UOM_TEXT_KEYWORD_TEXT_H
#define UOM_TEXT_KEYWORD_TEXT_H

#include "catalogue/catalogue.h"
#include "uom/uom.h"

namespace uom {

char *uom_StructToOXString(const Catalogue &catalogue, UomStruct chain, char *out, int32_t size);

} // namespace uom

#endif

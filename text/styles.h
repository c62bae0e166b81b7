// The names of the text styles.
#ifndef UOM_TEXT_STYLES_H
#define UOM_TEXT_STYLES_H

#include <cstdint>
#include "catalogue/catalogue.h"

namespace uom {

// The name of a style; an empty text for any other code.
void uom_StyleToName(int32_t style, char *out, int32_t size);

// The code of a name in any case, also returned; 0 for a null or unknown name.
int32_t uom_StyleFromName(const char *name, int32_t *style);

// The style that a printing operation uses: 0 and below mean the default.
int32_t style_Effective(const Catalogue &catalogue, int32_t style);

// As uom.h says of these names; here the catalogue stands in front.
int32_t uom_SetDefaultDisplayStyle(Catalogue &catalogue, int32_t style);
int32_t uom_GetDefaultDisplayStyle(const Catalogue &catalogue);
void uom_SetAllowUOMMultipliers(Catalogue &catalogue, int32_t allow);
int32_t uom_GetAllowUOMMultipliers(const Catalogue &catalogue);

} // namespace uom

#endif

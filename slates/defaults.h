// The defaults of one slate: written by number and by text, read back as text. Declared in uom.h but for
// these.
#ifndef UOM_SLATES_DEFAULTS_H
#define UOM_SLATES_DEFAULTS_H

#include <cstdint>
#include "catalogue/catalogue.h"
#include "conversion/running.h"
#include "uomstruct/chain.h"

namespace uom {

// A default as it is read from texts: the pairs of the class's slots.
struct ClassDefault {
    int32_t classId = CLASS_NONE; // none: nothing was read
    int32_t units[CHAIN_UNITS];
    int32_t multipliers[CHAIN_UNITS];
};

// uoms_SetClassDefault, which also tells what it read.
int32_t default_SetText(Catalogue &catalogue, Running &running, const char *slateName, const char *className,
                        const char *value, ClassDefault &read);

// Whether the slate's own default of the class reads exactly as the text, letters' case included.
int32_t uoms_IsClassDefault(const Catalogue &catalogue, const char *className, const char *slateName, const char *text);

// As uom.h says of these names; here the catalogue stands in front.
int32_t uom_SetClassDefault(Catalogue &catalogue, Running &running, int32_t slate, int32_t classId,
                            const int32_t *units, const int32_t *multipliers);
int32_t uoms_SetClassDefault(Catalogue &catalogue, Running &running, const char *slateName, const char *className,
                             const char *value);
int32_t uom_GetClassDefault(const Catalogue &catalogue, int32_t slate, int32_t classId, char *out, int32_t length);
int32_t uoms_GetClassDefault(const Catalogue &catalogue, const char *slateName, const char *className, char *out,
                             int32_t length);
int32_t uom_IsUnitDefault(const Catalogue &catalogue, UomStruct chain);

} // namespace uom

#endif

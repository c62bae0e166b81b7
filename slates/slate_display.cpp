// Display units of a class as a slate has them.
#include "slates/slate_display.h"

#include "catalogue/slate_table.h"
#include "slates/properties.h"
#include "slates/registry.h"
#include "slates/working_units.h"
#include "text/display_units.h"
#include "uomstruct/chain.h"
#include "uomstruct/class_string.h"

namespace uom {

char *uom_GetDisplayText(const Catalogue &catalogue, int32_t classId, int32_t *units, int32_t slate, char *out,
                         int32_t size, int32_t style) {
    ParsedChain chain(catalogue, classId);
    uom_InitializeUnits(catalogue, chain.chain, slate);
    if (units)
        uom_SetUnits(catalogue, 1, 0, chain.chain, chain_Length(chain.chain), units);
    return uom_GetDisplayUnits(catalogue, chain.chain, out, size, style);
}

char *uoms_GetDisplayUnits(const Catalogue &catalogue, const char *classString, const char *slateName, char *out,
                           int32_t size, int32_t style) {
    if (!out || size < 1)
        return out;
    *out = '\0';
    if (!classString || !slateName)
        return out;
    if (uoms_IsSetProperty(classString))
        return uoms_GetInheritedSetProperty(catalogue, classString, slateName, out, size);
    ParsedChain chain(catalogue, classString);
    const int32_t slate = uom_GetSetType(catalogue, slateName);
    if (!chain.chain || !slate_IsValid(catalogue, slate))
        return out;
    chain_TakeSlate(catalogue, chain.chain, slate);
    return uom_GetDisplayUnits(catalogue, chain.chain, out, size, style);
}

} // namespace uom

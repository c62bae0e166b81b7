// Display units of a class as a slate has them.
#include "catalogue/slate_table.h"
#include "slates/properties.h"
#include "slates/registry.h"
#include "uomstruct/chain.h"
#include "uomstruct/unit_string.h"

char *uom_GetDisplayText(int32_t classId, int32_t *units, int32_t slate, char *out, int32_t size, int32_t style) {
    const ScopedChain chain(chain_OfClass(classId));
    uom_InitializeUnits(chain.chain, slate);
    if (units)
        uom_SetUnits(1, 0, chain.chain, uom_GetUnitCount(chain.chain), units);
    return uom_GetDisplayUnits(chain.chain, out, size, style);
}

char *uoms_GetDisplayUnits(const char *classString, const char *slateName, char *out, int32_t size, int32_t style) {
    if (!out || size < 1)
        return out;
    *out = '\0';
    if (!classString || !slateName)
        return out;
    if (uoms_IsSetProperty(classString))
        return uoms_GetInheritedSetProperty(classString, slateName, out, size);
    const ScopedChain chain(uoms_New(classString));
    const int32_t slate = uom_GetSetType(slateName);
    if (!chain.chain || !slate_IsValid(slate))
        return out;
    chain_TakeSlate(chain.chain, slate);
    return uom_GetDisplayUnits(chain.chain, out, size, style);
}

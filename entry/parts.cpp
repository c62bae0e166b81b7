#include "entry/parts.h"

#include <algorithm>

#include "catalogue/class_table.h"
#include "catalogue/units.h"
#include "slates/working_units.h"
#include "text/display_units.h"
#include "uomstruct/chain.h"
#include "uomstruct/class_string.h"
#include "uomstruct/unit_scan.h"

namespace uom {

namespace {

// A place for a unit, best one where it has the power that was typed.
int32_t slotOf(const Catalogue &catalogue, const Shape &shape, const Parts &parts, const Term &term) {
    int32_t best = -1;
    for (int32_t slot = 0; slot < shape.count; ++slot) {
        if (parts.terms[slot] >= 0 || uom_GetUnitListIndex(catalogue, shape.classes[slot], term.unit) < 0)
            continue;
        if (shape.exponents[slot] == term.exponent)
            return slot;
        best = best < 0 ? slot : best;
    }
    return best;
}

} // namespace

Parts parts_Of(const Catalogue &catalogue, const Reading &reading, const Shape &shape) {
    Parts parts;
    std::fill_n(parts.terms, Shape::LIMIT, -1);
    const Product &product = reading.products[0];
    parts.whole = product.count > 0;
    for (int32_t i = 0; i < product.count; ++i) {
        const int32_t slot = slotOf(catalogue, shape, parts, product.terms[i]);
        if (slot >= 0)
            parts.terms[slot] = i;
        parts.whole = parts.whole && slot >= 0;
    }
    for (int32_t slot = shape.count - 1; slot >= 0; --slot)
        if (parts.terms[slot] >= 0 && product.terms[parts.terms[slot]].exponent != shape.exponents[slot])
            parts.wrongPower = slot;
    return parts;
}

void parts_Suggest(const Catalogue &catalogue, const char *classString, const Reading &reading, const Parts &parts,
                   char *out, int32_t size) {
    *out = '\0';
    ParsedChain chain(catalogue, classString);
    if (!chain.chain)
        return;
    uom_InitializeCurrentUnits(catalogue, chain.chain);
    int32_t slot = 0;
    for (UomStruct node = chain.chain; node; node = node->next) {
        if (node_IsParenthesis(*node))
            continue;
        const int32_t term = parts.terms[slot++];
        if (term < 0)
            continue;
        chain_SetUnit(catalogue, node, reading.products[0].terms[term].unit);
        node->multiplier = reading.products[0].terms[term].multiplier;
    }
    uom_GetDisplayUnits(catalogue, chain.chain, out, size, STYLE_TOKEN);
}

} // namespace uom

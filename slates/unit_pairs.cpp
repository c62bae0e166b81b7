#include "slates/unit_pairs.h"

#include <cstring>

#include "catalogue/class_table.h"
#include "catalogue/slate_table.h"
#include "slates/basis.h"
#include "slates/lists.h"
#include "slates/slate_display.h"
#include "slates/unit_entry.h"
#include "support/text.h"
#include "support/text_array.h"
#include "text/class_text.h"
#include "text/display_units.h"
#include "text/styles.h"
#include "text/unit_text.h"
#include "uomstruct/chain.h"
#include "uomstruct/class_string.h"
#include "uomstruct/quotients.h"
#include "uomstruct/unit_scan.h"

namespace uom {

namespace {

constexpr size_t CLASS_SIZE = 64;
constexpr size_t UNIT_SIZE = 256;
constexpr size_t PAIR_SIZE = 328;

void formatPair(const Catalogue &catalogue, char *pair, const UomStructNode *node) {
    char className[CLASS_SIZE];
    char multiplier[8];
    char unit[UNIT_SIZE];
    uom_GetClassText(catalogue, node->baseClass, className, sizeof className, STYLE_TOKEN);
    uom_GetUOMMultiplierString(catalogue, const_cast<UomStruct>(node), multiplier, sizeof multiplier);
    uom_GetUnitText(catalogue, node->unit, unit, sizeof unit, STYLE_TOKEN);
    str_FormatBounded(pair, PAIR_SIZE, "%s:%s%s", className, multiplier, unit);
}

// --- from pairs to a chain

struct PairWalk {
    const Catalogue &catalogue;
    bool takeNext = false; // the next entry is of the class that the basis chose, whatever it calls itself
    bool skipNext = false; // the next node belongs to a unit that is a whole quotient
    int32_t status = 0;
};

// Whole quotients here as elsewhere, but for the volt-ampere units in thousands, which are left out, kept.
bool isWholeUnit(const Catalogue &catalogue, int32_t classId, int32_t unit) {
    for (const int32_t *left : {&catalogue.named.UOM_U_KVA, &catalogue.named.UOM_U_KVAR, &catalogue.named.UOM_U_E6_KVA,
                                &catalogue.named.UOM_U_E6_KVAR})
        if (*left == unit)
            return false;
    return unit_IsWholeQuotient(catalogue, classId, unit);
}

void readUnit(PairWalk &walk, UomStruct node, const char *text) {
    if (!*text) {
        node->unit = NO_UNIT;
        node->multiplier = 0;
        return;
    }
    int32_t consumed, multiplier, unit;
    walk.status =
        uom_FindUnitFromString(walk.catalogue, node->baseClass, text, STYLE_TOKEN, &consumed, &multiplier, &unit);
    if (walk.status != 0)
        return;
    chain_SetUnit(walk.catalogue, node, unit);
    node->multiplier = multiplier;
}

void applyClassRule(PairWalk &walk, UomStruct node, int32_t classId) {
    if (!node->next)
        return;
    if (classId == CLASS_BASIS) {
        const int32_t chosen = uom_ClassFromBasis(walk.catalogue, node->unit);
        if (chosen != CLASS_NONE)
            node->next->baseClass = chosen;
        walk.takeNext = true;
    } else if (isWholeUnit(walk.catalogue, classId, node->unit)) {
        node->next->unit = NO_UNIT;
        walk.skipNext = true;
    }
}

void applyPair(PairWalk &walk, UomStruct node, const char *pair) {
    const char *colon = std::strchr(pair, ':');
    const char *unit = colon ? colon + 1 : pair;
    unit += std::strspn(unit, " \t");
    char className[UNIT_SIZE];
    str_CopyBounded(className, sizeof className, std::string_view(pair, colon ? static_cast<size_t>(colon - pair) : 0));
    const int32_t classId = class_Find(walk.catalogue, className, STYLE_TOKEN);
    if (walk.takeNext) {
        walk.takeNext = false;
    } else if (walk.skipNext) {
        walk.skipNext = false;
        return;
    } else if (classId != node->baseClass) {
        return;
    }
    readUnit(walk, node, unit);
    applyClassRule(walk, node, classId);
}

int32_t find(char **pairs, int32_t count, std::string_view head) {
    for (int32_t i = 0; i < count; ++i)
        if (str_StartsNoCase(pairs[i], head))
            return i;
    return -1;
}

} // namespace

char **uoms_GetClassUnitPairs(const Catalogue &catalogue, const char *classString, const char *unitString,
                              int32_t *count) {
    if (!count)
        return nullptr;
    *count = 0;
    if (str_IsEmpty(classString) || str_IsEmpty(unitString))
        return nullptr;
    ParsedChain chain(catalogue, classString);
    if (!chain.chain || uom_FillStructFromString(catalogue, chain.chain, unitString, STYLE_TOKEN) != 0)
        return nullptr;
    const int32_t nodes = chain_Length(chain.chain);
    const UomStructNode *node = chain.chain;
    char pair[PAIR_SIZE];
    char **pairs = texts_Make(static_cast<size_t>(nodes), [&](size_t) {
        formatPair(catalogue, pair, node);
        node = node->next;
        return pair;
    });
    *count = pairs ? nodes : 0;
    return pairs;
}

int32_t uoms_PutClassUnitPairs(const Catalogue &catalogue, const char *classString, const char *const *pairs,
                               const char *styleName, int32_t size, char *out) {
    if (!str_Open(out, size) || str_IsEmpty(classString) || !pairs)
        return 1;
    ParsedChain chain(catalogue, classString);
    if (!chain.chain)
        return 2;
    const int32_t style = uom_StyleFromName(styleName, nullptr);
    PairWalk walk = {catalogue};
    for (UomStruct node = chain.chain; node && *pairs; node = node->next, ++pairs)
        applyPair(walk, node, *pairs);
    if (walk.status != 0)
        return walk.status;
    uom_BuildClassString(catalogue, chain.chain, out, size, style);
    str_AppendBounded(out, static_cast<size_t>(size), ":");
    const int32_t used = static_cast<int32_t>(std::strlen(out));
    uom_GetDisplayUnits(catalogue, chain.chain, out + used, size - used, style);
    return 0;
}

int32_t uoms_GetClassWithBasis(const Catalogue &catalogue, const char *classString, const char *basis, int32_t size,
                               char *out) {
    if (!classString || !str_Open(out, size))
        return 1;
    std::memset(out, 0, static_cast<size_t>(size));
    str_CopyBounded(out, static_cast<size_t>(size), classString);
    int32_t count;
    char **pairs = uoms_GetClassUnitPairs(catalogue, classString, "Current", &count);
    const int32_t place = basis && pairs ? find(pairs, count - 1, "Basis") : -1;
    if (place >= 0) {
        char basisPair[PAIR_SIZE];
        char amountPair[PAIR_SIZE];
        str_FormatBounded(basisPair, sizeof basisPair, "Basis:%s", basis);
        str_FormatBounded(amountPair, sizeof amountPair, "%s:", basis);
        char *const saved[] = {pairs[place], pairs[place + 1]};
        pairs[place] = basisPair;
        pairs[place + 1] = amountPair;
        char text[128];
        if (uoms_PutClassUnitPairs(catalogue, classString, pairs, "token", sizeof text, text) == 0) {
            text[std::strcspn(text, ":")] = '\0';
            str_CopyBounded(out, static_cast<size_t>(size), text);
        }
        pairs[place] = saved[0];
        pairs[place + 1] = saved[1];
    }
    uoms_FreeArray(pairs);
    return 0;
}

int32_t uoms_GetBasisWord(const Catalogue &catalogue, const char *classString, const char *unitString, int32_t size,
                          char *out) {
    if (!str_Open(out, size))
        return NO_UNIT;
    const int32_t basis = uoms_GetBasis(catalogue, classString, unitString);
    uom_GetUnitText(catalogue, basis, out, size, STYLE_TOKEN);
    for (const char *word : {"Mass", "Mole", "Volume"})
        if (std::strcmp(out, word) == 0)
            *out = str_Lower(*out);
    return basis;
}

int32_t uoms_FormatUnits(const Catalogue &catalogue, const char *classString, const char *text, const char *styleName,
                         int32_t size, char *out) {
    if (!str_Open(out, size) || str_IsEmpty(classString) || str_IsEmpty(text))
        return 1;
    const int32_t style = uom_StyleFromName(styleName, nullptr);
    if (uom_GetSetType(catalogue, text) >= 1) {
        uoms_GetDisplayUnits(catalogue, classString, text, out, size, style);
        return 0;
    }
    ParsedChain chain(catalogue, classString);
    if (!chain.chain)
        return 2;
    const int32_t status = uom_FillStructFromString(catalogue, chain.chain, text, catalogue.styles.scanUom);
    if (status == 0)
        uom_GetDisplayUnits(catalogue, chain.chain, out, size, style);
    return status;
}

} // namespace uom

#include "entry/canonical.h"

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "catalogue/class_table.h"
#include "catalogue/units.h"
#include "support/text.h"
#include "text/display_units.h"
#include "uomstruct/chain.h"
#include "uomstruct/class_string.h"
#include "uomstruct/unit_scan.h"
#include "uomstruct/unit_string.h"

namespace uom {

namespace {

// All of an entry but its units, where there is nothing to say.
void accept(UomEntry &entry, const char *classString) {
    entry.value = NAN;
    entry.scale = 1.0;
    entry.position = entry.length = 0;
    entry.message[0] = entry.suggestion[0] = '\0';
    str_CopyBounded(entry.classString, sizeof entry.classString, classString);
}

// The commonest text by far: the token of a unit of the class, in its own case. Nothing else is looked at then.
bool isToken(const Catalogue &catalogue, const char *classString, const char *text, UomEntry &entry) {
    const int32_t unit = *text ? unit_FindToken(catalogue, text) : NO_UNIT;
    if (unit <= NO_UNIT || std::strcmp(unit_Token(catalogue, unit), text) != 0)
        return false;
    const int32_t classId = class_Find(catalogue, classString, STYLE_TOKEN);
    const UomClassRow *row = class_ValidRow(catalogue, classId);
    if (!row || row->baseClass[0] != 0 || classId < CLASS_DIMENSIONLESS ||
        uom_GetUnitListIndex(catalogue, classId, unit) < 0 || std::strlen(classString) >= sizeof entry.classString)
        return false;
    // A gas volume is judged elsewhere.
    if (classId == CLASS_LIQ_VOL || classId == CLASS_ACT_VOL)
        return false;
    str_CopyBounded(entry.units, sizeof entry.units, text);
    accept(entry, classString);
    return true;
}

// Whether the unit might be a gas volume in a place where it is none: such a text is judged with care.
bool mayBeForeignGas(const Catalogue &catalogue, const UomStructNode &node) {
    return (node.baseClass == CLASS_LIQ_VOL || node.baseClass == CLASS_ACT_VOL) &&
           std::strchr("SN", *unit_Token(catalogue, node.unit));
}

// Takes the head off the text if it stands there.
bool take(std::string_view &text, std::string_view head) {
    if (str_Head(text, head.size()) != head)
        return false;
    text.remove_prefix(head.size());
    return true;
}

// Takes the unit of a node off the text as the catalogue prints it: multiplier, token, power.
bool takeNode(const Catalogue &catalogue, const UomStructNode &node, std::string_view &text) {
    const UomUnit *unit = unit_Record(catalogue, node.unit);
    char multiplier[16] = "";
    if (unit && node.multiplier != 0)
        multiplier_Write(node.multiplier, unit->multiplierStyle, multiplier, sizeof multiplier);
    if (!unit || !take(text, multiplier) || !take(text, unit->token))
        return false;
    const int32_t power = std::abs(node.baseExponent);
    if (power > 9)
        return false;
    const char digit = static_cast<char>('0' + power);
    return power == 1 || take(text, std::string_view(&digit, 1));
}

// Whether the text is what the catalogue prints for a chain without groups: units above the line, then those below.
bool isPrinted(const Catalogue &catalogue, const UomStructNode *chain, std::string_view text) {
    bool any = false;
    for (const bool above : {true, false}) {
        bool first = true;
        for (const UomStructNode *node = chain; node; node = node->next) {
            if (node_IsParenthesis(*node) || node->baseClass == CLASS_BASIS || node->baseExponent == 0)
                return false;
            if ((node->baseExponent > 0) != above || node->unit == NO_UNIT) // none behind a whole quotient
                continue;
            if ((!first && !take(text, "-")) || (first && !above && (!any || !take(text, "/"))) ||
                !takeNode(catalogue, *node, text))
                return false;
            first = false;
            any = true;
        }
    }
    return any && text.empty();
}

bool hasBasis(const UomStructNode *chain) {
    while (chain && chain->baseClass != CLASS_BASIS)
        chain = chain->next;
    return chain != nullptr;
}

// Units in the very form that the catalogue prints: then the classical reader has read all of the text.
bool isCanonical(const Catalogue &catalogue, const char *classString, const char *text, UomEntry &entry) {
    if ((!str_IsLetter(*text) && *text != '$') || std::strlen(classString) >= sizeof entry.classString)
        return false;
    ParsedChain chain(catalogue, classString);
    if (!chain.chain || chain_FillFromText(catalogue, chain.chain, text, STYLE_TOKEN) != UOM_DONE)
        return false;
    bool printed = isPrinted(catalogue, chain.chain, text);
    // A basis, and the groups that powers of classes are printed as.
    if (!printed && (std::strchr(text, '(') || hasBasis(chain.chain))) {
        uom_GetDisplayUnits(catalogue, chain.chain, entry.units, sizeof entry.units, STYLE_TOKEN);
        printed = std::strcmp(entry.units, text) == 0;
    }
    if (!printed || str_CopyBounded(entry.units, sizeof entry.units, text) != 0)
        return false;
    for (const UomStructNode *node = chain.chain; node; node = node->next)
        if (mayBeForeignGas(catalogue, *node))
            return false;
    accept(entry, classString);
    return true;
}

} // namespace

bool canonical_Read(const Catalogue &catalogue, const char *classString, const char *text, UomEntry &entry) {
    if (class_Find(catalogue, classString, STYLE_TOKEN) == CLASS_DIMENSIONLESS)
        return false;
    return isToken(catalogue, classString, text, entry) || isCanonical(catalogue, classString, text, entry);
}

} // namespace uom

// A chain as fixed-layout text: four characters of class keyword, a blank, twenty of units in keywords. The
// rates share one class, and the basis chooses among their keywords; a rate in moles is written in the word
// of its mass unit.
#include "text/keyword_text.h"

#include <cstring>

#include "catalogue/class_table.h"
#include "support/text.h"
#include "text/display_units.h"
#include "uomstruct/chain.h"
#include "uomstruct/related_unit.h"

namespace uom {

namespace {

constexpr int32_t SMALLEST_SIZE = 26;
constexpr size_t KEYWORD_WIDTH = 4;
constexpr size_t UNITS_WIDTH = 20;
constexpr const char *MOLE_RATE = "MRAT";

// The keyword of a class by the class of its second node.
struct BasisKeyword {
    int32_t classId;
    int32_t amountClass; // CLASS_NONE for any other
    const char *keyword;
};
const BasisKeyword basisKeywords[] = {
    {CLASS_RATE, CLASS_MOLE, MOLE_RATE}, {CLASS_RATE, CLASS_MOLAR, MOLE_RATE}, {CLASS_RATE, CLASS_MASS, "WTRA"},
    {CLASS_RATE, CLASS_LIQ_VOL, "LVRA"}, {CLASS_RATE, CLASS_VAP_VOL, "GVRA"},  {CLASS_RATE, CLASS_ACT_VOL, "AVRA"},
    {CLASS_RATE, CLASS_NONE, ""},        {CLASS_QUANTITY, CLASS_MASS, "WT"},   {CLASS_QUANTITY, CLASS_MOLE, "WT"},
    {CLASS_QUANTITY, CLASS_MOLAR, "WT"}, {CLASS_QUANTITY, CLASS_NONE, "LIQV"},
};

const char *keywordOf(const Catalogue &catalogue, const UomStructNode *chain) {
    const int32_t amountClass = chain->next ? chain->next->baseClass : CLASS_NONE;
    for (const BasisKeyword &entry : basisKeywords)
        if (entry.classId == chain->classId && (entry.amountClass == amountClass || entry.amountClass == CLASS_NONE))
            return entry.keyword;
    const UomClassRow *row = class_ValidRow(catalogue, chain->classId);
    return row && row->keyword ? row->keyword : "";
}

void setBasis(UomStruct chain, int32_t basis, int32_t amountClass, int32_t unit) {
    chain->unit = basis;
    if (!chain->next)
        return;
    chain->next->baseClass = amountClass;
    chain->next->unit = unit;
}

int32_t amountUnit(const UomStructNode *chain) {
    return chain->next ? chain->next->unit : NO_UNIT;
}

void toMass(const Catalogue &catalogue, UomStruct chain) {
    setBasis(chain, catalogue.named.UOM_BASMASS, CLASS_MASS, unit_NamedUpToFirst(catalogue, amountUnit(chain), '-'));
}

// By name, not from a stored copy: a mole unit without a mass twin is lost, kept.
void toMoles(const Catalogue &catalogue, UomStruct chain) {
    const BasisClass moles = chain_MoleBasis(catalogue);
    setBasis(chain, moles.basis, moles.classId, unit_NamedWith(catalogue, amountUnit(chain), "-mol"));
}

void padRight(char *text, size_t size, size_t width) {
    for (size_t length = std::strlen(text); length < width && length + 1 < size; ++length) {
        text[length] = ' ';
        text[length + 1] = '\0';
    }
}

} // namespace

char *uom_StructToOXString(const Catalogue &catalogue, UomStruct chain, char *out, int32_t size) {
    if (!out || size < 1)
        return out;
    *out = '\0';
    if (!chain || size < SMALLEST_SIZE)
        return out;
    const size_t room = static_cast<size_t>(size);
    const char *keyword = keywordOf(catalogue, chain);
    if (str_EqualNoCase(keyword, MOLE_RATE) && chain->classId == CLASS_RATE)
        toMass(catalogue, chain);
    if (std::strlen(keyword) + 1 >= room)
        return out;
    str_CopyBounded(out, room, keyword);
    padRight(out, room, KEYWORD_WIDTH);
    str_AppendBounded(out, room, " ");
    char units[128];
    uom_GetDisplayUnits(catalogue, chain, units, sizeof units, STYLE_KEYWORD);
    padRight(units, sizeof units, UNITS_WIDTH);
    if (str_EqualNoCase(out, "MRAT "))
        toMoles(catalogue, chain);
    if (std::strlen(out) + std::strlen(units) < room)
        str_AppendBounded(out, room, units);
    else
        *out = '\0';
    return out;
}

} // namespace uom

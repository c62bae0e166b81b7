// Class-and-unit entry. Words are cut at "/", a unit is found by a whole-word compare within its class, and the first
// "/" turns all exponents behind it to -1.
#include "uomstruct/class_and_unit.h"

#include <cstring>
#include <string_view>

#include "catalogue/class_table.h"
#include "catalogue/units.h"
#include "support/text.h"
#include "uomstruct/chain.h"
#include "uomstruct/quotients.h"
#include "uomstruct/related_unit.h"
#include "uomstruct/unit_scan.h"

namespace uom {

namespace {

constexpr size_t WORD_SIZE = 21; // bytes of a word: a longer one is not found

// Cuts the head of a text up to one of the marks into a word; false when it is too long. `text` moves to the
// mark.
bool cutWord(char *word, const char **text, const char *marks) {
    const size_t length = std::strcspn(*text, marks);
    const std::string_view cut(*text, length);
    *text += length;
    str_CopyBounded(word, WORD_SIZE, cut);
    return length < WORD_SIZE;
}

// The join of "vap." or "liq." with the word behind it, cut to the size of a word.
void joinNextWord(char *word, const char **text) {
    if (!**text)
        return;
    ++*text;
    const size_t length = std::strcspn(*text, " /");
    const size_t used = std::strlen(word);
    str_AppendBounded(word, WORD_SIZE, " ");
    str_CopyBounded(word + used + 1, WORD_SIZE - used - 1, std::string_view(*text, length));
    *text += length;
}

// Chooses the basis by the first word of the text. False when it is no unit of mass, moles or volume.
bool chooseBasis(const Catalogue &catalogue, UomStruct basisNode, const char *text, int32_t style) {
    char word[WORD_SIZE];
    if (!cutWord(word, &text, " /"))
        return false;
    const BasisClass mass = {catalogue.named.UOM_BASMASS, CLASS_MASS};
    const BasisClass moles = chain_MoleBasis(catalogue);
    BasisClass chosen = {NO_UNIT, CLASS_NONE};
    if (unit_FindByName(catalogue, CLASS_MASS, word, style) != NO_UNIT)
        chosen = mass;
    else if (unit_FindByName(catalogue, moles.classId, word, style) != NO_UNIT)
        chosen = moles;
    else if (unit_FindByName(catalogue, CLASS_LIQ_VOL, word, style) != NO_UNIT)
        chosen = chain_VolumeBasis(catalogue);
    if (chosen.classId == CLASS_NONE)
        return false;
    chain_SetUnit(catalogue, basisNode, chosen.basis);
    basisNode->baseExponent = 1;
    if (basisNode->next)
        basisNode->next->baseClass = chosen.classId;
    return true;
}

int32_t fillSimple(const Catalogue &catalogue, UomStruct node, int32_t classId, const char *text, int32_t style) {
    const int32_t unit = unit_FindByName(catalogue, classId, text, style);
    if (unit == NO_UNIT)
        return 1;
    chain_SetUnit(catalogue, node, unit);
    node->baseExponent = 1;
    return 0;
}

int32_t fillComponents(const Catalogue &catalogue, UomStruct node, int32_t classId, const char *text, int32_t style) {
    const char *const marks = classId == CLASS_BASIS_FRAC ? " /" : "/";
    int32_t exponent = 1;
    for (; node && *text; node = node->next) {
        char word[WORD_SIZE];
        if (!cutWord(word, &text, marks))
            return 1;
        if (node->baseClass == CLASS_BASIS && (str_EqualNoCase(word, "vap.") || str_EqualNoCase(word, "liq.")))
            joinNextWord(word, &text);
        const int32_t unit = unit_FindByName(catalogue, node->baseClass, word, style);
        if (unit == NO_UNIT)
            return 1;
        chain_SetUnit(catalogue, node, unit);
        node->baseExponent = exponent;
        if (*text == '/')
            exponent = -1; // and stays there, kept
        if (*text)
            ++text;
        const bool power = classId == CLASS_POWER || classId == CLASS_E6_POWER;
        if (power && unit_IsWholeQuotient(catalogue, node->baseClass, unit)) {
            if (node->next) {
                chain_SetUnit(catalogue, node->next, NO_UNIT);
                node->next->baseExponent = -1;
            }
            return 0;
        }
    }
    return 0;
}

// A keyword text taken apart: four characters of class keyword, a separator, and the units.
constexpr size_t KEYWORD_LENGTH = 4;
struct KeywordText {
    int32_t classId;
    char units[76];
};

void adjust(const Catalogue &catalogue, KeywordText &entry) {
    switch (entry.classId) {
    case CLASS_PRES:
    case CLASS_PRES_ABS:
    case CLASS_PRES_DIFF:
        if (str_EqualNoCase(entry.units, "KG/CM"))
            str_AppendBounded(entry.units, sizeof entry.units, "2");
        break;
    case CLASS_MASS:
        // The three amounts share one keyword.
        if (std::strchr(entry.units, '-'))
            entry.classId = chain_MoleBasis(catalogue).classId;
        break;
    case CLASS_SP_VOL:
    case CLASS_VAP_SP_VOL:
        str_AppendBounded(entry.units, sizeof entry.units, "-MOL");
        break;
    default:
        break;
    }
}

// All rate keywords name the one class Rate; two of them say more about the basis than the units do.
void applyRateKeyword(const Catalogue &catalogue, UomStruct chain, const char *keyword) {
    UomStruct amount = chain->next;
    if (!amount)
        return;
    if (str_EqualNoCase(keyword, "GVRA")) {
        chain_SetUnit(catalogue, chain, catalogue.named.UOM_BASVAPV);
        amount->baseClass = CLASS_VAP_VOL;
    } else if (str_EqualNoCase(keyword, "MRAT")) {
        const BasisClass moles = chain_MoleBasis(catalogue);
        chain_SetUnit(catalogue, chain, moles.basis);
        amount->baseClass = moles.classId;
        int32_t unit;
        uom_FindRelatedUnit(catalogue, CLASS_MASS, amount->unit, moles.classId, &unit);
        chain_SetUnit(catalogue, amount, unit);
    }
}

} // namespace

int32_t uom_FillStruct(const Catalogue &catalogue, UomStruct chain, int32_t classId, const char *text, int32_t style) {
    if (!chain || !text || str_IsTooLong(text))
        return 1;
    const UomClassRow *row = class_ValidRow(catalogue, classId);
    if (!row || !class_IsComposite(*row))
        return fillSimple(catalogue, chain, classId, text, style);
    if (chain->baseClass != CLASS_BASIS || classId == CLASS_BASIS_FRAC)
        return fillComponents(catalogue, chain, classId, text, style);
    if (!chooseBasis(catalogue, chain, text, style))
        return 1;
    return fillComponents(catalogue, chain->next, classId, text, style);
}

UomStruct uom_StringToStruct(const Catalogue &catalogue, const char *text, int32_t classId, int32_t style) {
    if (!class_IsValid(catalogue, classId))
        return nullptr;
    UomStruct chain = chain_OfClass(catalogue, classId);
    if (chain)
        uom_FillStruct(catalogue, chain, classId, text, style);
    return chain;
}

int32_t uom_SetClassandUnit(const Catalogue &catalogue, UomStruct *chain, int32_t classId, const char *text,
                            int32_t style) {
    if (!chain)
        return 1;
    if (*chain && (*chain)->classId == classId) {
        uom_FillStruct(catalogue, *chain, classId, text, style);
        return 0;
    }
    UomStruct made = uom_StringToStruct(catalogue, text, classId, style);
    chain_Free(chain);
    *chain = made;
    return made ? 0 : 1;
}

UomStruct uom_ClassAndUnitToStruct(const Catalogue &catalogue, const char *text, int32_t style) {
    char copy[80];
    if (!text || std::memchr(text, '\0', KEYWORD_LENGTH + 2))
        return nullptr;
    str_CopyBounded(copy, sizeof copy, text);
    copy[KEYWORD_LENGTH] = '\0';
    KeywordText entry = {class_Find(catalogue, copy, style), {}};
    if (!class_IsValid(catalogue, entry.classId))
        return nullptr;
    str_CopyBounded(entry.units, sizeof entry.units, copy + KEYWORD_LENGTH + 1);
    adjust(catalogue, entry);
    UomStruct chain = uom_StringToStruct(catalogue, entry.units, entry.classId, style);
    if (chain && chain->classId == CLASS_RATE)
        applyRateKeyword(catalogue, chain, copy);
    return chain;
}

int32_t unit_ToStandard(char *out, const char *in) {
    if (!out)
        return 0;
    return unit_Normalize(out, in ? in : "") > 0;
}

} // namespace uom

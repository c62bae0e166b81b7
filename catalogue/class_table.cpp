#include "catalogue/class_table.h"

#include <cstring>

#include "support/memory.h"
#include "support/text.h"

namespace uom {

namespace {

// Keywords that name a class whatever row carries them: a rate of any basis is the one class Rate, and a
// fraction in any unit is a Composition. They answer the row's number even under "qx71", kept for the hosts
// of that numbering.
struct DirectKeyword {
    const char *keyword;
    int32_t classId;
};
const DirectKeyword directKeywords[] = {
    {"MRAT", CLASS_RATE}, {"WTRA", CLASS_RATE}, {"LVRA", CLASS_RATE}, {"GVRA", CLASS_RATE}, {"FRAC", CLASS_FRAC},
    {"PCT", CLASS_FRAC},  {"PCT ", CLASS_FRAC}, {"PPM", CLASS_FRAC},  {"PPM ", CLASS_FRAC},
};

constexpr size_t KEYWORD_BUFFER = 13;

int32_t findDirectKeyword(const char *text) {
    for (const DirectKeyword &direct : directKeywords)
        if (str_EqualNoCase(text, direct.keyword))
            return direct.classId;
    return CLASS_NONE;
}

int32_t findKeyword(const Catalogue &catalogue, const char *text) {
    char trimmed[KEYWORD_BUFFER];
    str_CopyBounded(trimmed, sizeof trimmed, text);
    str_TrimRight(trimmed);
    for (int32_t i = 0; i < catalogue.classes.count; ++i) {
        const UomClassRow *row = class_Row(catalogue, i);
        if (row && (str_EqualNoCase(row->keyword, text) || str_EqualNoCase(row->keyword, trimmed)))
            return i;
    }
    return CLASS_NONE;
}

bool hasToken(const Catalogue &catalogue, int32_t classId, const char *text) {
    const UomClassRow *row = class_Row(catalogue, classId);
    return row && (str_EqualNoCase(row->token, text) || str_EqualNoCase(row->altToken, text));
}

bool hasName(const Catalogue &catalogue, int32_t classId, const char *text) {
    const UomClassRow *row = class_Row(catalogue, classId);
    return row && str_EqualNoCase(row->name, text);
}

// Tokens of all rows go before the first long name.
int32_t findToken(const Catalogue &catalogue, const char *text) {
    const int32_t count = static_cast<int32_t>(table_Count(catalogue.classes.rows));
    int32_t found =
        names_Find(catalogue.classes.tokens, text, count, [&](int32_t i) { return hasToken(catalogue, i, text); });
    if (found < 0)
        found =
            names_Find(catalogue.classes.names, text, count, [&](int32_t i) { return hasName(catalogue, i, text); });
    return found < 0 ? CLASS_NONE : found;
}

using HasText = bool (*)(const Catalogue &catalogue, int32_t classId, const char *text);

bool indexText(const Catalogue &catalogue, NameIndex &index, const char *text, int32_t classId, HasText has) {
    return str_IsEmpty(text) ||
           names_Add(index, text, classId, [&](int32_t other) { return has(catalogue, other, text); });
}

bool indexRow(Catalogue &catalogue, int32_t classId) {
    const UomClassRow *row = class_Row(catalogue, classId);
    return !row || (indexText(catalogue, catalogue.classes.tokens, row->token, classId, hasToken) &&
                    indexText(catalogue, catalogue.classes.tokens, row->altToken, classId, hasToken) &&
                    indexText(catalogue, catalogue.classes.names, row->name, classId, hasName));
}

void unindexText(NameIndex &index, const char *text, int32_t classId) {
    if (!str_IsEmpty(text))
        names_Remove(index, text, classId);
}

int32_t lastRow(const Catalogue &catalogue) {
    return static_cast<int32_t>(table_Count(catalogue.classes.rows)) - 1;
}

} // namespace

void class_DropIndex(Catalogue &catalogue) {
    names_Free(catalogue.classes.tokens);
    names_Free(catalogue.classes.names);
}

void class_IndexTexts(Catalogue &catalogue) {
    catalogue_DropWords(catalogue);
    const uint32_t count = table_Count(catalogue.classes.rows);
    if (!names_Reset(catalogue.classes.tokens, 2 * count) || !names_Reset(catalogue.classes.names, count))
        return class_DropIndex(catalogue);
    for (int32_t i = 0; i <= lastRow(catalogue); ++i)
        indexRow(catalogue, i);
}

void class_IndexLastRow(Catalogue &catalogue) {
    catalogue_DropWords(catalogue);
    if (!indexRow(catalogue, lastRow(catalogue)))
        class_IndexTexts(catalogue);
}

void class_UnindexLastRow(Catalogue &catalogue) {
    catalogue_DropWords(catalogue);
    const UomClassRow *row = class_Row(catalogue, lastRow(catalogue));
    if (!row)
        return;
    unindexText(catalogue.classes.tokens, row->token, lastRow(catalogue));
    unindexText(catalogue.classes.tokens, row->altToken, lastRow(catalogue));
    unindexText(catalogue.classes.names, row->name, lastRow(catalogue));
}

int32_t class_SetName(Catalogue &catalogue, int32_t classId, const char *name) {
    UomClassRow *row = class_Row(catalogue, classId);
    const bool last = classId == lastRow(catalogue);
    if (last)
        class_UnindexLastRow(catalogue);
    const int32_t status = mem_ExchangeText(&row->name, name);
    if (last)
        class_IndexLastRow(catalogue);
    else
        class_IndexTexts(catalogue);
    return status;
}

int32_t class_Find(const Catalogue &catalogue, const char *text, int32_t style) {
    if (str_IsEmpty(text))
        return CLASS_NONE;
    if (style != STYLE_KEYWORD)
        return findToken(catalogue, text);
    const int32_t direct = findDirectKeyword(text);
    return direct != CLASS_NONE ? direct : findKeyword(catalogue, text);
}

bool class_IsComposite(const UomClassRow &row) {
    return row.baseClass[0] != 0 || row.baseClass[1] != 0;
}

bool class_IsInternalBase(int32_t classId) {
    return classId == CLASS_PETRO_MASS || classId == CLASS_POWER_TOP || classId == CLASS_E6_POWER_TOP;
}

bool class_IsOffered(const Catalogue &catalogue, int32_t classId) {
    const UomClassRow *row = class_ValidRow(catalogue, classId);
    return row && classId >= CLASS_DIMENSIONLESS && !class_IsInternalBase(classId) && row->internalFlag == 0 &&
           !str_IsEmpty(row->token);
}

bool uom_ClassHasBasis(const Catalogue &catalogue, int32_t classId) {
    const UomClassRow *row = class_ValidRow(catalogue, classId);
    if (!row || !class_IsComposite(*row))
        return classId == CLASS_BASIS;
    for (int32_t slot = 0; slot < COMPOSITE_SLOTS && row->baseClass[slot] != 0; ++slot)
        if (row->baseClass[slot] == CLASS_BASIS)
            return true;
    return false;
}

const char *class_Token(const Catalogue &catalogue, int32_t classId) {
    const UomClassRow *row = class_ValidRow(catalogue, classId);
    return row && row->token ? row->token : "";
}

const int32_t *uom_GetClassUnits(const Catalogue &catalogue, int32_t classId) {
    const UomClassRow *row = class_Row(catalogue, classId);
    if (!row)
        return nullptr;
    return row->uomChoices ? row->uomChoices : row->uomList;
}

int32_t uom_GetClassType(const Catalogue &catalogue, const char *text, int32_t mode) {
    const int32_t classId = class_Find(catalogue, text, mode);
    if (catalogue.modes.qx71 == 0 || (mode == STYLE_KEYWORD && text && findDirectKeyword(text) != CLASS_NONE))
        return classId;
    const UomClassRow *row = class_ValidRow(catalogue, classId);
    return row ? row->legacyNumber : CLASS_NONE;
}

int32_t uom_GetUOMClassCount(const Catalogue &catalogue) {
    return catalogue.classes.count;
}

int32_t uom_GetClassTextLen(const Catalogue &catalogue, int32_t classId) {
    const UomClassRow *row = class_ValidRow(catalogue, classId);
    return row && row->name ? static_cast<int32_t>(std::strlen(row->name)) : 0;
}

void uom_GetClassGUIWidths(const Catalogue &catalogue, int32_t classId, int32_t *width1, int32_t *width2) {
    const UomClassRow *row = class_ValidRow(catalogue, classId);
    if (width1)
        *width1 = row ? row->guiWidth1 : 0;
    if (width2)
        *width2 = row ? row->guiWidth2 : 0;
}

int32_t uom_IsClassBase(const Catalogue &catalogue, int32_t classId) {
    const UomClassRow *row = class_ValidRow(catalogue, classId);
    return !row || !class_IsComposite(*row);
}

int32_t class_IsBasis(int32_t classId) {
    return classId == CLASS_BASIS;
}

int32_t uom_GetUnitMax(const Catalogue &catalogue, int32_t classId) {
    const UomClassRow *row = class_ValidRow(catalogue, classId);
    if (!row)
        return 0;
    if (row->baseClass[0] == 0)
        return 1;
    return 1 + (row->baseClass[1] != 0) + (row->baseClass[2] != 0);
}

} // namespace uom

#include "catalogue/class_table.h"

#include <cstring>

#include "catalogue/state.h"
#include "support/name_index.h"
#include "support/text.h"

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

int32_t findKeyword(const char *text) {
    char trimmed[KEYWORD_BUFFER];
    str_CopyBounded(trimmed, sizeof trimmed, text);
    str_TrimRight(trimmed);
    for (int32_t i = 0; i < uomClassCount; ++i) {
        const UomClassRow *row = class_Row(i);
        if (row && (str_EqualNoCase(row->keyword, text) || str_EqualNoCase(row->keyword, trimmed)))
            return i;
    }
    return CLASS_NONE;
}

NameIndex tokenIndex;

bool hasToken(const UomClassRow *row, const char *text) {
    return row && (str_EqualNoCase(row->token, text) || str_EqualNoCase(row->altToken, text));
}

// Tokens of all rows go before the first long name.
int32_t findToken(const char *text) {
    const UomClassRow *const *rows = tbl_Records<const UomClassRow>(uomClassTable);
    const int32_t count = static_cast<int32_t>(tbl_Count(uomClassTable));
    if (tokenIndex.places) {
        const int32_t found = names_Find(tokenIndex, text, [=](int32_t i) { return rows && hasToken(rows[i], text); });
        if (found >= 0)
            return found;
    }
    for (int32_t i = 0; !tokenIndex.places && i < count; ++i)
        if (hasToken(rows[i], text))
            return i;
    for (int32_t i = 0; i < count; ++i)
        if (rows[i] && str_EqualNoCase(rows[i]->name, text))
            return i;
    return CLASS_NONE;
}

} // namespace

void class_DropIndex() {
    names_Free(tokenIndex);
}

static bool indexRow(uint32_t place) {
    const UomClassRow *row = class_Row(static_cast<int32_t>(place));
    for (const char *token : {row ? row->token : nullptr, row ? row->altToken : nullptr})
        if (!str_IsEmpty(token) && !names_Add(tokenIndex, token, static_cast<int32_t>(place)))
            return false;
    return true;
}

void class_IndexTokens() {
    const uint32_t count = tbl_Count(uomClassTable);
    names_Reset(tokenIndex, 2 * count);
    for (uint32_t i = 0; tokenIndex.places && i < count; ++i)
        indexRow(i);
}

void class_IndexLastRow() {
    if (!indexRow(tbl_Count(uomClassTable) - 1))
        class_IndexTokens();
}

bool class_IsValid(int32_t classId) {
    return classId >= 1 && classId < uomClassCount;
}

UomClassRow *class_Row(int32_t classId) {
    return tbl_Record<UomClassRow>(uomClassTable, classId);
}

UomClassRow *class_ValidRow(int32_t classId) {
    return class_IsValid(classId) ? class_Row(classId) : nullptr;
}

int32_t class_Find(const char *text, int32_t style) {
    if (str_IsEmpty(text))
        return CLASS_NONE;
    if (style != STYLE_KEYWORD)
        return findToken(text);
    const int32_t direct = findDirectKeyword(text);
    return direct != CLASS_NONE ? direct : findKeyword(text);
}

bool class_IsComposite(const UomClassRow &row) {
    return row.baseClass[0] != 0 || row.baseClass[1] != 0;
}

bool uom_ClassHasBasis(int32_t classId) {
    const UomClassRow *row = class_ValidRow(classId);
    if (!row || !class_IsComposite(*row))
        return classId == CLASS_BASIS;
    for (int32_t slot = 0; slot < COMPOSITE_SLOTS && row->baseClass[slot] != 0; ++slot)
        if (row->baseClass[slot] == CLASS_BASIS)
            return true;
    return false;
}

const char *class_Token(int32_t classId) {
    const UomClassRow *row = class_ValidRow(classId);
    return row && row->token ? row->token : "";
}

const int32_t *uom_GetClassUnits(int32_t classId) {
    const UomClassRow *row = class_Row(classId);
    if (!row)
        return nullptr;
    return row->uomChoices ? row->uomChoices : row->uomList;
}

int32_t uom_GetClassType(const char *text, int32_t mode) {
    const int32_t classId = class_Find(text, mode);
    if (uomModeQx71 == 0 || (mode == STYLE_KEYWORD && text && findDirectKeyword(text) != CLASS_NONE))
        return classId;
    const UomClassRow *row = class_ValidRow(classId);
    return row ? row->legacyNumber : CLASS_NONE;
}

int32_t uom_GetUOMClassCount(void) {
    return uomClassCount;
}

int32_t uom_GetClassTextLen(int32_t classId) {
    const UomClassRow *row = class_ValidRow(classId);
    return row && row->name ? static_cast<int32_t>(std::strlen(row->name)) : 0;
}

UomTable *uom_GetClassList(int32_t style) {
    UomTable *list = tbl_Create(0, TABLE_TEXT);
    for (int32_t i = 0; list && i < uomClassCount; ++i) {
        if (i == CLASS_PETRO_MASS || i == CLASS_POWER_TOP || i == CLASS_E6_POWER_TOP)
            continue;
        char text[80];
        uom_GetClassText(i, text, sizeof text, style);
        if (*text && !tbl_PutText(list, TABLE_APPEND, text)) {
            tbl_Free(list);
            return nullptr;
        }
    }
    return list;
}

void uom_GetClassGUIWidths(int32_t classId, int32_t *width1, int32_t *width2) {
    const UomClassRow *row = class_ValidRow(classId);
    if (width1)
        *width1 = row ? row->guiWidth1 : 0;
    if (width2)
        *width2 = row ? row->guiWidth2 : 0;
}

int32_t uom_IsClassBase(int32_t classId) {
    const UomClassRow *row = class_ValidRow(classId);
    return !row || !class_IsComposite(*row);
}

int32_t uom_IsClassBasis(int32_t classId) {
    return classId == CLASS_BASIS;
}

int32_t uom_GetUnitMax(int32_t classId) {
    const UomClassRow *row = class_ValidRow(classId);
    if (!row)
        return 0;
    if (row->baseClass[0] == 0)
        return 1;
    return 1 + (row->baseClass[1] != 0) + (row->baseClass[2] != 0);
}

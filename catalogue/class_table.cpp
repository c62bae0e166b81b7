#include "catalogue/class_table.h"

#include <cstring>

#include "catalogue/state.h"
#include "support/memory.h"
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

NameIndex tokenIndex; // tokens and alternative tokens
NameIndex nameIndex;  // long names

bool hasToken(int32_t classId, const char *text) {
    const UomClassRow *row = class_Row(classId);
    return row && (str_EqualNoCase(row->token, text) || str_EqualNoCase(row->altToken, text));
}

bool hasName(int32_t classId, const char *text) {
    const UomClassRow *row = class_Row(classId);
    return row && str_EqualNoCase(row->name, text);
}

// Tokens of all rows go before the first long name.
int32_t findToken(const char *text) {
    const int32_t count = static_cast<int32_t>(tbl_Count(uomClassTable));
    int32_t found = names_Find(tokenIndex, text, count, [=](int32_t i) { return hasToken(i, text); });
    if (found < 0)
        found = names_Find(nameIndex, text, count, [=](int32_t i) { return hasName(i, text); });
    return found < 0 ? CLASS_NONE : found;
}

using HasText = bool (*)(int32_t classId, const char *text);

bool indexText(NameIndex &index, const char *text, int32_t classId, HasText has) {
    return str_IsEmpty(text) || names_Add(index, text, classId, [=](int32_t other) { return has(other, text); });
}

bool indexRow(int32_t classId) {
    const UomClassRow *row = class_Row(classId);
    return !row || (indexText(tokenIndex, row->token, classId, hasToken) &&
                    indexText(tokenIndex, row->altToken, classId, hasToken) &&
                    indexText(nameIndex, row->name, classId, hasName));
}

void unindexText(NameIndex &index, const char *text, int32_t classId) {
    if (!str_IsEmpty(text))
        names_Remove(index, text, classId);
}

int32_t lastRow() {
    return static_cast<int32_t>(tbl_Count(uomClassTable)) - 1;
}

} // namespace

void class_DropIndex() {
    names_Free(tokenIndex);
    names_Free(nameIndex);
}

void class_IndexTexts() {
    const uint32_t count = tbl_Count(uomClassTable);
    if (!names_Reset(tokenIndex, 2 * count) || !names_Reset(nameIndex, count))
        return class_DropIndex();
    for (int32_t i = 0; i <= lastRow(); ++i)
        indexRow(i);
}

void class_IndexLastRow() {
    if (!indexRow(lastRow()))
        class_IndexTexts();
}

void class_UnindexLastRow() {
    const UomClassRow *row = class_Row(lastRow());
    if (!row)
        return;
    unindexText(tokenIndex, row->token, lastRow());
    unindexText(tokenIndex, row->altToken, lastRow());
    unindexText(nameIndex, row->name, lastRow());
}

int32_t class_SetName(int32_t classId, const char *name) {
    UomClassRow *row = class_Row(classId);
    const bool last = classId == lastRow();
    if (last)
        class_UnindexLastRow();
    const int32_t status = mem_ExchangeText(&row->name, name);
    if (last)
        class_IndexLastRow();
    else
        class_IndexTexts();
    return status;
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

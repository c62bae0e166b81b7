#include "slates/lists.h"

#include <cstring>

#include "catalogue/class_table.h"
#include "catalogue/slate_table.h"
#include "catalogue/units.h"
#include "support/memory.h"
#include "support/message.h"
#include "support/scoped.h"
#include "support/table.h"
#include "support/text.h"
#include "support/text_array.h"
#include "uomstruct/class_string.h"

namespace uom {

namespace {

constexpr size_t SET_NAME_SIZE = 64;

// A component class whose choices a class's application lists narrow. Restoring clears the same ones, but for
// Cake Resistance, whose choices stay, kept.
struct ListRule {
    int32_t classId;
    const char *component;
    int32_t list;
    bool restored;
};
const ListRule listRules[] = {
    {CLASS_CP, "Cp", LIST_OX_HEAT_CAP, true},
    {CLASS_DENSITY, "Mass", LIST_OX_DENS_MASS, true},
    {CLASS_DENSITY, "Vol", LIST_OX_DENS_LIQ_VOL, true},
    {CLASS_PETRO_DENSITY, "PetroMass", LIST_DENS_PETRO_MASS, true},
    {CLASS_PETRO_DENSITY, "Vol", LIST_OX_DENS_LIQ_VOL, true},
    {CLASS_VAPOR_DENSITY, "PetroMass", LIST_DENS_PETRO_MASS, true},
    {CLASS_VAPOR_DENSITY, "VapVol", LIST_OX_DENS_VAP_VOL, true},
    {CLASS_SP_VOL, "Mole", LIST_OX_DENS_MOLE, true},
    {CLASS_SP_VOL, "Vol", LIST_OX_DENS_LIQ_VOL, true},
    {CLASS_VAP_SP_VOL, "Mole", LIST_OX_DENS_MOLE, true},
    {CLASS_VAP_SP_VOL, "VapVol", LIST_OX_DENS_VAP_VOL, true},
    {CLASS_RATE, "Time", LIST_OX_TIME, true},
    {CLASS_RATE, "Mass", LIST_OX_RATE_MASS, true},
    {CLASS_RATE, "Mole", LIST_OX_RATE_MOLE, true},
    {CLASS_RATE, "Vol", LIST_OX_RATE_LIQ_VOL, true},
    {CLASS_RATE, "VapVol", LIST_OX_RATE_VAP_VOL, true},
    {CLASS_VELOCITY, "Leng", LIST_OX_LENGTH, true},
    {CLASS_VELOCITY, "Time", LIST_OX_TIME, true},
    {CLASS_SP_ENTHALPY, "Energy", LIST_OX_ENTHALPY_ENERGY, true},
    {CLASS_SP_ENTHALPY, "Mass", LIST_OX_ENTHALPY_MASS, true},
    {CLASS_SP_ENTHALPY, "Mole", LIST_OX_ENTHALPY_MOLE, true},
    {CLASS_CAKE_RES, "Mass", LIST_OX_CAKERES_MASS, false},
    {CLASS_CAKE_RES, "Leng", LIST_OX_CAKERES_LENGTH, false},
};

void narrow(Catalogue &catalogue, int32_t classId) {
    for (const ListRule &rule : listRules)
        if (rule.classId == classId)
            uoms_SetUOMChoices(catalogue, rule.component, catalogue.lists.application[rule.list]);
}

void restore(Catalogue &catalogue, int32_t classId) {
    for (const ListRule &rule : listRules)
        if (rule.classId == classId && rule.restored)
            uoms_SetUOMChoices(catalogue, rule.component, nullptr);
}

using ListField = int32_t *UomClassRow::*;

// Replaces one of a row's two arrays; the old one is freed unless it is the other as well.
void replaceList(const Catalogue &catalogue, UomClassRow *row, ListField field, ListField other, int32_t *units) {
    if (row->*field != row->*other)
        mem_Free(row->*field);
    row->*field = units;
    unit_IndexList(catalogue, row);
}

int32_t setFromTokens(Catalogue &catalogue, const char *classText, const UomTable *tokens, ListField field,
                      ListField other) {
    const int32_t classId = class_Find(catalogue, classText, STYLE_TOKEN);
    UomClassRow *row = classId < 1 ? nullptr : class_Row(catalogue, classId);
    if (!row || (tokens && tokens->kind != TABLE_TEXT))
        return 1;
    int32_t *units = nullptr;
    if (table_Count(tokens) > 0 && unit_ResolveList(catalogue, &units, tokens) != 0)
        return 11;
    replaceList(catalogue, row, field, other, units);
    return 0;
}

int32_t setFromUnits(Catalogue &catalogue, int32_t classId, const int32_t *units, ListField field, ListField other) {
    UomClassRow *row = class_ValidRow(catalogue, classId);
    if (!row)
        return 1;
    int32_t *copy = nullptr;
    if (unit_CopyList(&copy, units) != 0)
        return 11;
    replaceList(catalogue, row, field, other, copy);
    return 0;
}

// The tokens of a list of units.
char **namesOf(const Catalogue &catalogue, const int32_t *units, int32_t *count) {
    int32_t length = 0;
    while (units[length] != NO_UNIT)
        ++length;
    *count = length;
    return texts_Make(static_cast<size_t>(length), [&](size_t i) { return unit_Token(catalogue, units[i]); });
}

const UomTable *commonList(const Catalogue &catalogue, int32_t index) {
    return table_Record<UomTable>(catalogue.lists.common, index);
}

} // namespace

int32_t uoms_SetClassList(Catalogue &catalogue, const char *classText, const UomTable *tokens) {
    return setFromTokens(catalogue, classText, tokens, &UomClassRow::uomList, &UomClassRow::uomChoices);
}

int32_t uoms_SetUOMChoices(Catalogue &catalogue, const char *classText, const UomTable *tokens) {
    return setFromTokens(catalogue, classText, tokens, &UomClassRow::uomChoices, &UomClassRow::uomList);
}

int32_t uom_SetClassList(Catalogue &catalogue, int32_t classId, const int32_t *units) {
    return setFromUnits(catalogue, classId, units, &UomClassRow::uomList, &UomClassRow::uomChoices);
}

int32_t uom_SetUOMChoices(Catalogue &catalogue, int32_t classId, const int32_t *units) {
    return setFromUnits(catalogue, classId, units, &UomClassRow::uomChoices, &UomClassRow::uomList);
}

int32_t uoms_SetUOMChoiceArray(Catalogue &catalogue, const char *classText, int32_t count, const char *const *tokens) {
    if (count < 1 || !tokens) {
        uoms_SetUOMChoices(catalogue, classText, nullptr);
        return 0;
    }
    const ScopedTable table(table_Create(0, TABLE_TEXT));
    bool whole = table.table != nullptr;
    for (int32_t i = 0; whole && i < count; ++i)
        whole = table_PutText(table.table, TABLE_APPEND, tokens[i]) != 0;
    if (whole)
        uoms_SetUOMChoices(catalogue, classText, table.table);
    return 0;
}

int32_t uom_LoadApplicationList(Catalogue &catalogue, UomStruct chain) {
    if (chain)
        narrow(catalogue, chain->classId);
    return NO_UNIT;
}

int32_t uom_LoadNormalList(Catalogue &catalogue, UomStruct chain) {
    if (chain)
        restore(catalogue, chain->classId);
    return 0;
}

int32_t uoms_LoadApplicationList(Catalogue &catalogue, const char *classString) {
    ParsedChain chain(catalogue, classString);
    return chain.chain ? uom_LoadApplicationList(catalogue, chain.chain) : 1;
}

int32_t uoms_LoadNormalList(Catalogue &catalogue, const char *classString) {
    ParsedChain chain(catalogue, classString);
    return chain.chain ? uom_LoadNormalList(catalogue, chain.chain) : 1;
}

char **uoms_GetUnitNames(const Catalogue &catalogue, const char *classText, int32_t *count) {
    const int32_t classId = class_Find(catalogue, classText, STYLE_TOKEN);
    const int32_t *units = class_IsValid(catalogue, classId) && uom_IsClassBase(catalogue, classId)
                               ? uom_GetClassUnits(catalogue, classId)
                               : nullptr;
    return units && count ? namesOf(catalogue, units, count) : nullptr;
}

char **uoms_GetUOMList(const Catalogue &catalogue, const char *text, int32_t *count) {
    if (!count)
        return nullptr;
    *count = 0;
    if (str_IsEmpty(text))
        return nullptr;
    const int32_t classId = class_Find(catalogue, text, STYLE_TOKEN);
    const UomClassRow *row = class_ValidRow(catalogue, classId);
    const bool named = row && !str_IsEmpty(row->listName);
    if (row && !named && uom_IsClassBase(catalogue, classId))
        return uoms_GetUnitNames(catalogue, text, count);
    if (!catalogue.lists.common)
        return nullptr;
    const char *name = named ? row->listName : text;
    for (uint32_t i = 0; i < table_Count(catalogue.lists.common); ++i) {
        const UomTable *list = commonList(catalogue, static_cast<int32_t>(i));
        if (table_Count(list) <= 1 || !str_EqualNoCase(table_GetText(list, 0), name))
            continue;
        *count = static_cast<int32_t>(list->count) - 1;
        return texts_Make(list->count - 1,
                          [&](size_t item) { return table_GetText(list, static_cast<uint32_t>(item) + 1); });
    }
    error_Set("Unable to find UOM list \"%s\".", text);
    return nullptr;
}

char **uoms_GetCommonListNames(const Catalogue &catalogue, int32_t *count) {
    if (!count)
        return nullptr;
    *count = static_cast<int32_t>(table_Count(catalogue.lists.common));
    return texts_Make(table_Count(catalogue.lists.common),
                      [&](size_t i) { return table_GetText(commonList(catalogue, static_cast<int32_t>(i)), 0); });
}

char **uoms_GetSetNames(const Catalogue &catalogue, int32_t *count) {
    if (!count)
        return nullptr;
    *count = uom_GetSetCount(catalogue);
    return texts_Make(
        static_cast<size_t>(*count),
        [&](size_t i) {
            const UomSlate *slate = slate_AnyRecord(catalogue, static_cast<int32_t>(i));
            return slate ? slate->name : nullptr;
        },
        SET_NAME_SIZE);
}

int32_t uoms_FreeArray(char **texts) {
    table_FreeTextArray(texts);
    return 0;
}

} // namespace uom

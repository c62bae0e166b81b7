#include "slates/properties.h"

#include <cstdlib>
#include <cstring>

#include "catalogue/slate_table.h"
#include "catalogue/startup.h"
#include "catalogue/state.h"
#include "support/memory.h"
#include "support/numbers.h"
#include "support/scoped.h"
#include "support/table.h"
#include "support/text.h"
#include "text/styles.h"
#include "uomstruct/chain.h"

namespace {

enum PropertyStatus : int32_t {
    PROPERTY_DONE = 0,
    PROPERTY_REFUSED = 1,
    PROPERTY_UNKNOWN = 2,
    PROPERTY_NO_MEMORY = 11
};

constexpr double PASCAL_RATIO = 500.0; // to the atmosphere, from which a basis is taken to be in Pa
constexpr double INHERITED_BASIS = -1.0;
constexpr size_t BASIS_TEXT_SIZE = 100;

// The flag that a property stands for; null for the gauge pressure basis.
struct SetProperty {
    const char *name;
    int32_t UomSlate::*flag;
};
const SetProperty setProperties[] = {
    {"GaugePresBasis", nullptr},
    {"isSystem", &UomSlate::isSystem},
    {"isHidden", &UomSlate::isHidden},
    {"allowDelete", &UomSlate::allowDelete},
    {"allowModify", &UomSlate::allowModify},
};

struct ServerProperty {
    const char *name;
    int32_t *style; // null for the one that is no style
};
const ServerProperty serverProperties[] = {
    {"allowMultipliers", nullptr},
    {"defaultDisplayStyle", &defaultDisplayStyle},
    {"defaultScanClassStyle", &defaultScanClassStyle},
    {"defaultScanUOMStyle", &defaultScanUOMStyle},
};
constexpr int32_t SERVER_PROPERTIES = 4;

const SetProperty *findSetProperty(const char *name) {
    for (const SetProperty &property : setProperties)
        if (str_EqualNoCase(name, property.name))
            return &property;
    return nullptr;
}

const ServerProperty *findServerProperty(const char *name) {
    for (const ServerProperty &property : serverProperties)
        if (str_EqualNoCase(name, property.name))
            return &property;
    return nullptr;
}

UomSlate *namedSlate(const char *name) {
    const int32_t slate = uom_GetSetType(name);
    return slate < 1 ? nullptr : slate_AnyRecord(slate);
}

int32_t unknownSetProperty(const char *property) {
    error_Set("Unrecognized UOM Slate property \"%s\".", property);
    return PROPERTY_UNKNOWN;
}

int32_t unknownServerProperty(const char *name) {
    error_Set("Unrecognized UOM Server property \"%s\".", name);
    return PROPERTY_REFUSED;
}

double kilopascals(double pascals) {
    const ScopedChain from(uoms_New("Pres"));
    const ScopedChain to(uom_Copy(from.chain));
    if (uom_FillStructFromString(from.chain, "Pa", defaultScanUOMStyle) != 0 ||
        uom_FillStructFromString(to.chain, "kPa", defaultScanUOMStyle) != 0)
        return pascals;
    uomRunLinear = 0;
    return uom_ConvertFromTo(pascals, from.chain, to.chain);
}

// Three ways of blanking: own text gives way to inheritance, none to the standard atmosphere; a text that is
// no number leaves what the blanking would.
int32_t putBasis(UomSlate *slate, const char *value) {
    const MemoryWatch memory;
    double basis = slate->gaugePresBasisText ? INHERITED_BASIS : STANDARD_ATMOSPHERE;
    char *text = *value ? mem_NewArray<char>(BASIS_TEXT_SIZE) : nullptr;
    if (text) {
        num_TextToDouble(value, &basis);
        if (basis / STANDARD_ATMOSPHERE >= PASCAL_RATIO)
            basis = kilopascals(basis);
        num_FormatDouble(text, BASIS_TEXT_SIZE, "%.6g", basis);
    }
    if (memory.exhausted()) {
        mem_Free(text);
        return PROPERTY_NO_MEMORY;
    }
    mem_Free(slate->gaugePresBasisText);
    slate->gaugePresBasisText = text;
    slate->gaugePresBasis = basis;
    uom_SetGaugePressureBasis(UOM_SET_CURRENT);
    return PROPERTY_DONE;
}

} // namespace

int32_t uoms_IsSetProperty(const char *name) {
    return findSetProperty(name) != nullptr;
}

static UomTable *setPropertyTable() {
    UomTable *table = tbl_Create(0, TABLE_TEXT);
    for (const SetProperty &property : setProperties)
        if (table && !tbl_PutText(table, TABLE_APPEND, property.name)) {
            tbl_Free(table);
            return nullptr;
        }
    return table;
}

char **uoms_GetSetPropertyList(int32_t *count) {
    const ScopedTable table(setPropertyTable());
    char **names = tbl_ToTextArray(table.table);
    if (count)
        *count = names ? static_cast<int32_t>(tbl_Count(table.table)) : 0;
    return names;
}

int32_t uoms_GetSetPropertyCount() {
    const ScopedTable table(setPropertyTable());
    return static_cast<int32_t>(tbl_Count(table.table));
}

int32_t uoms_GetSetProperty(const char *slateName, const char *property, int32_t length, char *out) {
    if (!out || length < 1)
        return PROPERTY_REFUSED;
    *out = '\0';
    const UomSlate *slate = property ? namedSlate(slateName) : nullptr;
    if (!slate)
        return PROPERTY_REFUSED;
    const SetProperty *found = findSetProperty(property);
    if (!found)
        return unknownSetProperty(property);
    if (found->flag)
        str_FormatBounded(out, static_cast<size_t>(length), "%d", slate->*found->flag);
    else
        str_CopyBounded(out, static_cast<size_t>(length), slate->gaugePresBasisText);
    return PROPERTY_DONE;
}

int32_t uoms_PutSetProperty(const char *slateName, const char *property, const char *value) {
    UomSlate *slate = property && value ? namedSlate(slateName) : nullptr;
    if (!slate)
        return PROPERTY_REFUSED;
    const SetProperty *found = findSetProperty(property);
    if (!found)
        return unknownSetProperty(property);
    if (!found->flag)
        return putBasis(slate, value);
    slate->*found->flag = std::strtol(value, nullptr, 10) != 0;
    return PROPERTY_DONE;
}

char **uoms_GetServerPropertyList(int32_t *count) {
    void *block = nullptr;
    if (count)
        *count = 0;
    if (mem_Calloc(&block, SERVER_PROPERTIES + 1, sizeof(char *)) != 0)
        return nullptr;
    char **names = static_cast<char **>(block);
    for (int32_t i = 0; i < SERVER_PROPERTIES; ++i)
        if (mem_DupText(&names[i], serverProperties[i].name) != 0) {
            tbl_FreeTextArray(names);
            return nullptr;
        }
    if (count)
        *count = SERVER_PROPERTIES;
    return names;
}

int32_t uoms_GetServerPropertyCount() {
    return SERVER_PROPERTIES;
}

int32_t uoms_GetServerProperty(const char *name, int32_t length, char *out) {
    error_Clear();
    if (str_IsEmpty(name)) {
        error_Set("Property is missing or blank.");
        return PROPERTY_REFUSED;
    }
    if (!out || length < 1) {
        error_Set("String buffer for return value was not supplied or length was zero.");
        return PROPERTY_REFUSED;
    }
    *out = '\0';
    const ServerProperty *found = findServerProperty(name);
    if (!found)
        return unknownServerProperty(name);
    if (found->style)
        uom_StyleToName(*found->style, out, length);
    else
        str_CopyBounded(out, static_cast<size_t>(length), uomAllowMult == 1 ? "true" : "false");
    return PROPERTY_DONE;
}

int32_t uoms_PutServerProperty(const char *name, const char *value) {
    error_Clear();
    if (str_IsEmpty(name)) {
        error_Set("Property is missing or blank.");
        return PROPERTY_REFUSED;
    }
    const ServerProperty *found = findServerProperty(name);
    if (!found || (!found->style && std::strcmp(name, found->name) != 0))
        return unknownServerProperty(name);
    if (!found->style) {
        uomAllowMult = str_EqualNoCase(value, "true");
        return PROPERTY_DONE;
    }
    int32_t style;
    uom_StyleFromName(value, &style);
    if (found->style == &defaultDisplayStyle)
        return uom_SetDefaultDisplayStyle(style);
    *found->style = style > 0 ? style : 1;
    return PROPERTY_DONE;
}

void uom_SetKestaOption(int32_t value) {
    uomModeKesta = value;
}

void uom_SetDataFileName(const char *path) {
    if (!str_IsEmpty(path))
        startup_NameDataFile(path);
}

int32_t uom_GetUnitTotal() {
    return uomUnitCount;
}

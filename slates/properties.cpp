#include "slates/properties.h"

#include <cstdlib>
#include <cstring>
#include <iterator>

#include "catalogue/slate_table.h"
#include "conversion/engine.h"
#include "slates/gauge_pressure.h"
#include "slates/unit_entry.h"
#include "support/memory.h"
#include "support/message.h"
#include "support/numbers.h"
#include "support/text.h"
#include "support/text_array.h"
#include "text/styles.h"
#include "uomstruct/class_string.h"

namespace uom {

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
    int32_t Styles::*style; // null for the one that is no style
};
const ServerProperty serverProperties[] = {
    {"allowMultipliers", nullptr},
    {"defaultDisplayStyle", &Styles::display},
    {"defaultScanClassStyle", &Styles::scanClass},
    {"defaultScanUOMStyle", &Styles::scanUom},
};

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

const UomSlate *namedSlate(const Catalogue &catalogue, const char *name) {
    const int32_t slate = uom_GetSetType(catalogue, name);
    return slate < 1 ? nullptr : slate_AnyRecord(catalogue, slate);
}

UomSlate *namedSlate(Catalogue &catalogue, const char *name) {
    const int32_t slate = uom_GetSetType(catalogue, name);
    return slate < 1 ? nullptr : slate_AnyRecord(catalogue, slate);
}

int32_t unknownSetProperty(const char *property) {
    error_Set("Unrecognized UOM Slate property \"%s\".", property);
    return PROPERTY_UNKNOWN;
}

int32_t unknownServerProperty(const char *name) {
    error_Set("Unrecognized UOM Server property \"%s\".", name);
    return PROPERTY_REFUSED;
}

double kilopascals(const Catalogue &catalogue, Running &running, double pascals) {
    ParsedChain from(catalogue, "Pres");
    ParsedChain to(from);
    if (uom_FillStructFromString(catalogue, from.chain, "Pa", catalogue.styles.scanUom) != 0 ||
        uom_FillStructFromString(catalogue, to.chain, "kPa", catalogue.styles.scanUom) != 0)
        return pascals;
    running.linear = 0;
    return uom_ConvertFromTo(catalogue, running, pascals, from.chain, to.chain);
}

// Three ways of blanking: own text gives way to inheritance, none to the standard atmosphere; a text that is
// no number leaves what the blanking would.
int32_t putBasis(Catalogue &catalogue, Running &running, UomSlate *slate, const char *value) {
    const MemoryWatch memory;
    double basis = slate->gaugePresBasisText ? INHERITED_BASIS : STANDARD_ATMOSPHERE;
    char *text = *value ? mem_NewArray<char>(BASIS_TEXT_SIZE) : nullptr;
    if (text) {
        num_TextToDouble(value, &basis);
        if (basis / STANDARD_ATMOSPHERE >= PASCAL_RATIO)
            basis = kilopascals(catalogue, running, basis);
        num_FormatDouble(text, BASIS_TEXT_SIZE, "%.6g", basis);
    }
    if (memory.exhausted()) {
        mem_Free(text);
        return PROPERTY_NO_MEMORY;
    }
    mem_Free(slate->gaugePresBasisText);
    slate->gaugePresBasisText = text;
    slate->gaugePresBasis = basis;
    uom_SetGaugePressureBasis(catalogue, catalogue.slateIndex.current);
    return PROPERTY_DONE;
}

} // namespace

int32_t uoms_IsSetProperty(const char *name) {
    return findSetProperty(name) != nullptr;
}

char **uoms_GetSetPropertyList(int32_t *count) {
    char **names = texts_Make(std::size(setProperties), [](size_t i) { return setProperties[i].name; });
    if (count)
        *count = names ? uoms_GetSetPropertyCount() : 0;
    return names;
}

int32_t uoms_GetSetPropertyCount() {
    return static_cast<int32_t>(std::size(setProperties));
}

int32_t uoms_GetSetProperty(const Catalogue &catalogue, const char *slateName, const char *property, int32_t length,
                            char *out) {
    if (!out || length < 1)
        return PROPERTY_REFUSED;
    *out = '\0';
    const UomSlate *slate = property ? namedSlate(catalogue, slateName) : nullptr;
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

int32_t uoms_PutSetProperty(Catalogue &catalogue, Running &running, const char *slateName, const char *property,
                            const char *value) {
    UomSlate *slate = property && value ? namedSlate(catalogue, slateName) : nullptr;
    if (!slate)
        return PROPERTY_REFUSED;
    const SetProperty *found = findSetProperty(property);
    if (!found)
        return unknownSetProperty(property);
    if (!found->flag)
        return putBasis(catalogue, running, slate, value);
    slate->*found->flag = std::strtol(value, nullptr, 10) != 0;
    return PROPERTY_DONE;
}

char **uoms_GetServerPropertyList(int32_t *count) {
    char **names = texts_Make(std::size(serverProperties), [](size_t i) { return serverProperties[i].name; });
    if (count)
        *count = names ? uoms_GetServerPropertyCount() : 0;
    return names;
}

int32_t uoms_GetServerPropertyCount() {
    return static_cast<int32_t>(std::size(serverProperties));
}

int32_t uoms_GetServerProperty(const Catalogue &catalogue, const char *name, int32_t length, char *out) {
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
        uom_StyleToName(catalogue.styles.*found->style, out, length);
    else
        str_CopyBounded(out, static_cast<size_t>(length), catalogue.modes.allowMult == 1 ? "true" : "false");
    return PROPERTY_DONE;
}

int32_t uoms_PutServerProperty(Catalogue &catalogue, const char *name, const char *value) {
    error_Clear();
    if (str_IsEmpty(name)) {
        error_Set("Property is missing or blank.");
        return PROPERTY_REFUSED;
    }
    const ServerProperty *found = findServerProperty(name);
    if (!found || (!found->style && std::strcmp(name, found->name) != 0))
        return unknownServerProperty(name);
    if (!found->style) {
        catalogue.modes.allowMult = str_EqualNoCase(value, "true");
        return PROPERTY_DONE;
    }
    int32_t style;
    uom_StyleFromName(value, &style);
    if (found->style == &Styles::display)
        return uom_SetDefaultDisplayStyle(catalogue, style);
    catalogue.styles.*found->style = style > 0 ? style : 1;
    return PROPERTY_DONE;
}

void uom_SetKestaOption(Catalogue &catalogue, int32_t value) {
    catalogue.modes.kesta = value;
}

int32_t uom_GetUnitTotal(const Catalogue &catalogue) {
    return catalogue.units.count;
}

} // namespace uom

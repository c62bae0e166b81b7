// Unit text in all its forms, the names of slates among them, for a chain and for a class string.
#include "slates/unit_entry.h"

#include "catalogue/class_table.h"
#include "catalogue/slate_table.h"
#include "slates/working_units.h"
#include "support/message.h"
#include "support/text.h"
#include "text/display_units.h"
#include "uomstruct/class_string.h"
#include "uomstruct/unit_scan.h"
#include "uomstruct/unit_string.h"

namespace uom {

namespace {

// What gauge and absolute pressures become in a difference.
struct UnitForm {
    NamedUnit unit;
    NamedUnit difference;
};
const UnitForm unitForms[] = {
    {&NamedUnits::UOM_U_PAG, &NamedUnits::UOM_U_PA},       {&NamedUnits::UOM_U_KPAG, &NamedUnits::UOM_U_KPA},
    {&NamedUnits::UOM_U_MPAG, &NamedUnits::UOM_U_MPA},     {&NamedUnits::UOM_U_MBARG, &NamedUnits::UOM_U_MBAR},
    {&NamedUnits::UOM_U_BARG, &NamedUnits::UOM_U_BAR},     {&NamedUnits::UOM_U_KG_CM2G, &NamedUnits::UOM_U_KG_CM2},
    {&NamedUnits::UOM_U_ATE, &NamedUnits::UOM_U_ATA},      {&NamedUnits::UOM_U_PSIA, &NamedUnits::UOM_U_PSI},
    {&NamedUnits::UOM_U_PSIG, &NamedUnits::UOM_U_PSI},     {&NamedUnits::UOM_U_MM_HGG, &NamedUnits::UOM_U_MM_HG},
    {&NamedUnits::UOM_U_IN_HGG, &NamedUnits::UOM_U_IN_HG}, {&NamedUnits::UOM_U_IN_H2OG, &NamedUnits::UOM_U_IN_H2O},
};

int32_t differenceUnit(const Catalogue &catalogue, int32_t unit) {
    for (const UnitForm &form : unitForms)
        if (unit > NO_UNIT && unit == catalogue.named.*form.unit)
            return catalogue.named.*form.difference;
    return unit;
}

} // namespace

int32_t uom_FillStructFromString(const Catalogue &catalogue, UomStruct chain, const char *uomString, int32_t style) {
    if (!chain) {
        error_Set("No UOM class specified in function uom_FillStructFromString().");
        return FILL_BAD_ARGUMENT;
    }
    if (!uomString) {
        error_Set("No UOM string specified in function uom_FillStructFromString().");
        return FILL_BAD_ARGUMENT;
    }
    if (str_IsTooLong(uomString)) {
        unit_RefuseLength(uomString);
        return FILL_OVERLONG;
    }
    const int32_t slate = uom_GetSetType(catalogue, uomString);
    if (slate_IsValid(catalogue, slate)) {
        chain_TakeSlate(catalogue, chain, slate);
        return FILL_DONE;
    }
    return chain_FillFromText(catalogue, chain, uomString, style);
}

int32_t uoms_ValidateUOM(const Catalogue &catalogue, const char *classString, const char *uomString) {
    ParsedChain chain(catalogue, classString);
    if (!chain.chain)
        return 1;
    return uom_FillStructFromString(catalogue, chain.chain, uomString, STYLE_TOKEN) != 0 ? 2 : 0;
}

int32_t uoms_GetDifferenceUOM(const Catalogue &catalogue, const char *classString, const char *uomString, char *out,
                              int32_t size) {
    if (out && size > 0)
        *out = '\0';
    ParsedChain chain(catalogue, classString);
    if (!chain.chain)
        return 1;
    uom_FillStructFromString(catalogue, chain.chain, uomString, STYLE_TOKEN);
    for (UomStruct node = chain.chain; node; node = node->next)
        node->unit = differenceUnit(catalogue, node->unit);
    uom_GetDisplayUnits(catalogue, chain.chain, out, size, STYLE_TOKEN);
    return 0;
}

} // namespace uom

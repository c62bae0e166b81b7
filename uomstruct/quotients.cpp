#include "uomstruct/quotients.h"

namespace uom {

namespace {

struct Quotient {
    int32_t baseClass;
    NamedUnit unit;
};
const Quotient quotients[] = {
    {CLASS_PETRO_MASS, &NamedUnits::UOM_U_API},       {CLASS_PETRO_MASS, &NamedUnits::UOM_U_SPGR},
    {CLASS_POWER_TOP, &NamedUnits::UOM_U_HP},         {CLASS_POWER_TOP, &NamedUnits::UOM_U_MW},
    {CLASS_POWER_TOP, &NamedUnits::UOM_U_KW},         {CLASS_POWER_TOP, &NamedUnits::UOM_U_VA},
    {CLASS_POWER_TOP, &NamedUnits::UOM_U_KVA},        {CLASS_POWER_TOP, &NamedUnits::UOM_U_VAR},
    {CLASS_POWER_TOP, &NamedUnits::UOM_U_KVAR},       {CLASS_POWER_TOP, &NamedUnits::UOM_U_W},
    {CLASS_E6_POWER_TOP, &NamedUnits::UOM_U_E6_HP},   {CLASS_E6_POWER_TOP, &NamedUnits::UOM_U_E6_MW},
    {CLASS_E6_POWER_TOP, &NamedUnits::UOM_U_E6_KW},   {CLASS_E6_POWER_TOP, &NamedUnits::UOM_U_E6_VA},
    {CLASS_E6_POWER_TOP, &NamedUnits::UOM_U_E6_KVA},  {CLASS_E6_POWER_TOP, &NamedUnits::UOM_U_E6_VAR},
    {CLASS_E6_POWER_TOP, &NamedUnits::UOM_U_E6_KVAR}, {CLASS_E6_POWER_TOP, &NamedUnits::UOM_U_E6_W},
};

} // namespace

bool unit_IsWholeQuotient(const Catalogue &catalogue, int32_t baseClass, int32_t unit) {
    if (unit <= NO_UNIT)
        return false;
    for (const Quotient &quotient : quotients)
        if (quotient.baseClass == baseClass && catalogue.named.*quotient.unit == unit)
            return true;
    return false;
}

} // namespace uom

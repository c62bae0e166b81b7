#include "uomstruct/quotients.h"

#include "catalogue/state.h"

namespace {

struct Quotient {
    int32_t baseClass;
    const int32_t *unit;
};
const Quotient quotients[] = {
    {CLASS_PETRO_MASS, &UOM_U_API},      {CLASS_PETRO_MASS, &UOM_U_SPGR},      {CLASS_POWER_TOP, &UOM_U_HP},
    {CLASS_POWER_TOP, &UOM_U_MW},        {CLASS_POWER_TOP, &UOM_U_KW},         {CLASS_POWER_TOP, &UOM_U_VA},
    {CLASS_POWER_TOP, &UOM_U_KVA},       {CLASS_POWER_TOP, &UOM_U_VAR},        {CLASS_POWER_TOP, &UOM_U_KVAR},
    {CLASS_POWER_TOP, &UOM_U_W},         {CLASS_E6_POWER_TOP, &UOM_U_E6_HP},   {CLASS_E6_POWER_TOP, &UOM_U_E6_MW},
    {CLASS_E6_POWER_TOP, &UOM_U_E6_KW},  {CLASS_E6_POWER_TOP, &UOM_U_E6_VA},   {CLASS_E6_POWER_TOP, &UOM_U_E6_KVA},
    {CLASS_E6_POWER_TOP, &UOM_U_E6_VAR}, {CLASS_E6_POWER_TOP, &UOM_U_E6_KVAR}, {CLASS_E6_POWER_TOP, &UOM_U_E6_W},
};

} // namespace

bool unit_IsWholeQuotient(int32_t baseClass, int32_t unit) {
    if (unit <= UOM_NULL)
        return false;
    for (const Quotient &quotient : quotients)
        if (quotient.baseClass == baseClass && *quotient.unit == unit)
            return true;
    return false;
}

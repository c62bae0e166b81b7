// The absolute, difference and standard forms of temperatures and pressures in a class string, and the
// difference form of a unit text.
#include "catalogue/class_table.h"
#include "catalogue/state.h"
#include "support/text.h"
#include "uomstruct/chain.h"

namespace {

// What the three forms of temperature and of pressure become.
struct ClassForm {
    int32_t temperature;
    int32_t pressure;
};
const ClassForm absoluteForm = {CLASS_TEMP_ABS, CLASS_PRES_ABS};
const ClassForm differenceForm = {CLASS_TEMP_DIFF, CLASS_PRES_DIFF};
const ClassForm standardForm = {CLASS_TEMP, CLASS_PRES};

int32_t formOf(int32_t classId, const ClassForm &form) {
    if (classId >= CLASS_TEMP && classId <= CLASS_TEMP_DIFF)
        return form.temperature;
    if (classId >= CLASS_PRES && classId <= CLASS_PRES_DIFF)
        return form.pressure;
    return classId;
}

// The text comes back as it is when there is nothing to change, and in normal spacing otherwise.
int32_t printForm(const char *classString, char *out, int32_t size, const ClassForm &form) {
    if (!out || size < 1)
        return 1;
    *out = '\0';
    if (str_IsEmpty(classString))
        return 0;
    const ScopedChain chain(uoms_New(classString));
    str_CopyBounded(out, static_cast<size_t>(size), classString);
    if (!chain.chain)
        return 2;
    bool changed = false;
    for (UomStruct node = chain.chain; node; node = node->next) {
        const int32_t classId = formOf(node->classId, form);
        changed = changed || classId != node->classId;
        node->classId = classId;
    }
    if (changed)
        uom_BuildClassString(chain.chain, out, size, STYLE_TOKEN);
    return 0;
}

struct UnitForm {
    const int32_t *unit;
    const int32_t *difference;
};
const UnitForm unitForms[] = {
    {&UOM_U_PAG, &UOM_U_PA},       {&UOM_U_KPAG, &UOM_U_KPA},     {&UOM_U_MPAG, &UOM_U_MPA},
    {&UOM_U_MBARG, &UOM_U_MBAR},   {&UOM_U_BARG, &UOM_U_BAR},     {&UOM_U_KG_CM2G, &UOM_U_KG_CM2},
    {&UOM_U_ATE, &UOM_U_ATA},      {&UOM_U_PSIA, &UOM_U_PSI},     {&UOM_U_PSIG, &UOM_U_PSI},
    {&UOM_U_MM_HGG, &UOM_U_MM_HG}, {&UOM_U_IN_HGG, &UOM_U_IN_HG}, {&UOM_U_IN_H2OG, &UOM_U_IN_H2O},
};

int32_t differenceUnit(int32_t unit) {
    for (const UnitForm &form : unitForms)
        if (unit > UOM_NULL && unit == *form.unit)
            return *form.difference;
    return unit;
}

} // namespace

int32_t uoms_GetAbsoluteClass(const char *classString, char *out, int32_t size) {
    return printForm(classString, out, size, absoluteForm);
}

int32_t uoms_GetDifferenceClass(const char *classString, char *out, int32_t size) {
    return printForm(classString, out, size, differenceForm);
}

int32_t uoms_GetStandardClass(const char *classString, char *out, int32_t size) {
    return printForm(classString, out, size, standardForm);
}

int32_t uoms_GetDifferenceUOM(const char *classString, const char *uomString, char *out, int32_t size) {
    if (out && size > 0)
        *out = '\0';
    const ScopedChain chain(uoms_New(classString));
    if (!chain.chain)
        return 1;
    uom_FillStructFromString(chain.chain, uomString, STYLE_TOKEN);
    for (UomStruct node = chain.chain; node; node = node->next)
        node->unit = differenceUnit(node->unit);
    uom_GetDisplayUnits(chain.chain, out, size, STYLE_TOKEN);
    return 0;
}

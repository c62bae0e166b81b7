// The absolute, difference and standard forms of temperatures and pressures in a class string, and the
// difference form of a unit text.
#include "text/related_classes.h"

#include "catalogue/class_table.h"
#include "support/text.h"
#include "text/class_text.h"
#include "uomstruct/class_string.h"

namespace uom {

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
int32_t printForm(const Catalogue &catalogue, const char *classString, char *out, int32_t size, const ClassForm &form) {
    if (!out || size < 1)
        return 1;
    *out = '\0';
    if (str_IsEmpty(classString))
        return 0;
    ParsedChain chain(catalogue, classString);
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
        uom_BuildClassString(catalogue, chain.chain, out, size, STYLE_TOKEN);
    return 0;
}

} // namespace

int32_t uoms_GetAbsoluteClass(const Catalogue &catalogue, const char *classString, char *out, int32_t size) {
    return printForm(catalogue, classString, out, size, absoluteForm);
}

int32_t uoms_GetDifferenceClass(const Catalogue &catalogue, const char *classString, char *out, int32_t size) {
    return printForm(catalogue, classString, out, size, differenceForm);
}

int32_t uoms_GetStandardClass(const Catalogue &catalogue, const char *classString, char *out, int32_t size) {
    return printForm(catalogue, classString, out, size, standardForm);
}

} // namespace uom

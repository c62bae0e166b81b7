// The exported functions of prepared conversions. Those that convert look at no state: a null test, and the way that was
// chosen when the conversion was made.
#include "api/state.h"

#include <cstring>

#include "conversion/prepared.h"
#include "slates/text_conversion.h"
#include "support/memory.h"
#include "support/message.h"

using uom::state_InUse;

int32_t uom_NewConversion(UomStruct from, UomStruct to, UomConversion **out) {
    return uom::prepared_New(state_InUse(), from, to, out);
}

int32_t uoms_NewConversion(const char *classString, const char *fromUnits, const char *toUnits, UomConversion **out) {
    return uom::uoms_NewConversion(state_InUse(), classString, fromUnits, toUnits, out);
}

void uom_FreeConversion(UomConversion *conversion) {
    uom::mem_Free(conversion);
}

double uom_ConvertOne(const UomConversion *conversion, double value) {
    return conversion ? uom::prepared_One(*conversion, value) : value;
}

void uom_ConvertMany(const UomConversion *conversion, const double *in, double *out, size_t count) {
    if (!in || !out)
        return;
    if (conversion)
        conversion->run.many(conversion, in, out, count);
    else if (in != out)
        std::memcpy(out, in, count * sizeof *out);
}

void uom_ConvertManyFloat(const UomConversion *conversion, const float *in, float *out, size_t count) {
    if (!in || !out)
        return;
    if (conversion)
        conversion->run.floats(conversion, in, out, count);
    else if (in != out)
        std::memcpy(out, in, count * sizeof *out);
}

void uom_ConvertStrided(const UomConversion *conversion, const double *in, ptrdiff_t inStep, double *out,
                        ptrdiff_t outStep, size_t count) {
    if (!in || !out)
        return;
    const char *from = reinterpret_cast<const char *>(in);
    char *to = reinterpret_cast<char *>(out);
    if (conversion)
        return conversion->run.strided(conversion, from, inStep, to, outStep, count);
    for (size_t i = 0; i < count; ++i, from += inStep, to += outStep) {
        double value; // by way of a variable: the two may be one
        std::memcpy(&value, from, sizeof value);
        std::memcpy(to, &value, sizeof value);
    }
}

int32_t uom_GetConversionConstants(const UomConversion *conversion, double *factor, double *offset) {
    if (conversion)
        return uom::prepared_Constants(*conversion, factor, offset);
    uom::error_Set("Invalid input arguments detected in function uom_GetConversionConstants().");
    return UOM_CONVERT_BAD_ARGUMENT;
}

// The operations by which hosts convert. All end in uom_ConvertFromTo; what they add is how the two chains
// are made, and the running pair as the fast path of arrays.
#include "catalogue/state.h"
#include "conversion/array_kernels.h"
#include "support/text.h"
#include "uomstruct/chain.h"

namespace {

enum ConvertStatus : int32_t {
    CONVERT_DONE = UOM_DONE,
    CONVERT_BAD_ARGUMENT = UOM_CONVERT_BAD_ARGUMENT,
    CONVERT_BAD_CLASS = UOM_CONVERT_BAD_CLASS,
    CONVERT_BAD_SOURCE = UOM_CONVERT_BAD_SOURCE,
    CONVERT_BAD_TARGET = UOM_CONVERT_BAD_TARGET,
    CONVERT_NOT_LINEAR = UOM_CONVERT_NOT_LINEAR
};

int32_t refuseArguments() {
    str_CopyBounded(uomLastError, sizeof uomLastError,
                    "Invalid input arguments detected in function uoms_ConvertArray().");
    return CONVERT_BAD_ARGUMENT;
}

// A copy of the chain in the units of a slate.
UomStruct inSlate(UomStruct chain, int32_t slate) {
    UomStruct copy = uom_Copy(chain);
    uom_InitializeUnits(copy, slate);
    return copy;
}

int32_t fill(UomStruct from, UomStruct to, const char *fromUnits, const char *toUnits) {
    if (!from)
        return CONVERT_BAD_CLASS;
    if (uom_FillStructFromString(from, fromUnits, defaultScanUOMStyle) >= 1)
        return CONVERT_BAD_SOURCE;
    if (!to) {
        error_Set("UOM string \"%s\": memory is exhausted.", toUnits);
        return CONVERT_BAD_TARGET;
    }
    const int32_t status = uom_FillStructFromString(to, toUnits, defaultScanUOMStyle);
    return status >= 1 ? CONVERT_BAD_TARGET : status;
}

} // namespace

double uom_Convert(double value, UomStruct chain, int32_t fromSlate, int32_t toSlate) {
    if (fromSlate == toSlate)
        return value;
    const bool ownFrom = fromSlate == UOM_SET_CURRENT;
    const bool ownTo = toSlate == UOM_SET_CURRENT;
    const ScopedChain from(ownFrom ? nullptr : inSlate(chain, fromSlate));
    const ScopedChain to(ownTo ? nullptr : inSlate(chain, toSlate));
    uomRunLinear = 0;
    return uom_ConvertFromTo(value, ownFrom ? chain : from.chain, ownTo ? chain : to.chain);
}

double uom_ConvertFromCurrent(double value, UomStruct chain) {
    return uom_Convert(value, chain, UOM_SET_CURRENT, UOM_SET_INTERNAL);
}

double uom_ConvertToCurrent(double value, UomStruct chain) {
    return uom_Convert(value, chain, UOM_SET_INTERNAL, UOM_SET_CURRENT);
}

double uom_ConvertValue(int32_t classId, int32_t *units, int32_t fromSlate, int32_t toSlate, double value) {
    const ScopedChain chain(chain_OfClass(classId));
    uom_InitializeCurrentUnits(chain.chain);
    if (units)
        uom_SetUnits(1, 0, chain.chain, uom_GetUnitCount(chain.chain), units);
    return uom_Convert(value, chain.chain, fromSlate, toSlate);
}

int32_t uom_ConvertArray(double *values, int32_t count, UomStruct from, UomStruct to) {
    if (!values || count < 1)
        return CONVERT_BAD_ARGUMENT;
    uomRunLinear = 0;
    values[0] = uom_ConvertFromTo(values[0], from, to);
    if (uomRunLinear) {
        array_ConvertLinear(values + 1, static_cast<size_t>(count) - 1, uomRunOffset, uomRunFactor);
        return CONVERT_DONE;
    }
    for (int32_t i = 1; i < count; ++i)
        values[i] = uom_ConvertFromTo(values[i], from, to);
    return CONVERT_DONE;
}

int32_t uoms_ConvertArray(double *values, int32_t count, const char *classString, const char *fromUnits,
                          const char *toUnits) {
    if (!values || count < 1 || !classString || !fromUnits || !toUnits)
        return refuseArguments();
    const ScopedChain from(uoms_New(classString));
    const ScopedChain to(uom_Copy(from.chain));
    const int32_t status = fill(from.chain, to.chain, fromUnits, toUnits);
    if (status <= CONVERT_DONE)
        uom_ConvertArray(values, count, from.chain, to.chain);
    return status;
}

// The running pair goes out on every way, whatever it holds.
static int32_t calculateConstants(const char *classString, const char *fromUnits, const char *toUnits) {
    if (!classString || !fromUnits || !toUnits)
        return refuseArguments();
    const ScopedChain from(uoms_New(classString));
    const ScopedChain to(uom_Copy(from.chain));
    const int32_t status = fill(from.chain, to.chain, fromUnits, toUnits);
    if (status > CONVERT_DONE)
        return status;
    uomRunLinear = 0;
    uom_ConvertFromTo(1.0, from.chain, to.chain);
    if (status != CONVERT_DONE)
        return status;
    return uomRunLinear ? CONVERT_DONE : CONVERT_NOT_LINEAR;
}

int32_t uoms_CalculateConvConstants(const char *classString, const char *fromUnits, const char *toUnits, double *factor,
                                    double *offset) {
    const int32_t status = calculateConstants(classString, fromUnits, toUnits);
    if (factor)
        *factor = uomRunFactor;
    if (offset)
        *offset = uomRunOffset;
    return status;
}

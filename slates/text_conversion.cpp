// The operations by which hosts convert from texts and slates: what they add is how the two chains are made.
#include "slates/text_conversion.h"

#include "conversion/engine.h"
#include "conversion/prepared.h"
#include "slates/unit_entry.h"
#include "slates/working_units.h"
#include "support/memory.h"
#include "support/message.h"
#include "uomstruct/chain.h"
#include "uomstruct/class_string.h"

namespace uom {

namespace {

enum ConvertStatus : int32_t {
    CONVERT_DONE = UOM_DONE,
    CONVERT_BAD_ARGUMENT = UOM_CONVERT_BAD_ARGUMENT,
    CONVERT_BAD_CLASS = UOM_CONVERT_BAD_CLASS,
    CONVERT_BAD_SOURCE = UOM_CONVERT_BAD_SOURCE,
    CONVERT_BAD_TARGET = UOM_CONVERT_BAD_TARGET,
    CONVERT_NOT_LINEAR = UOM_CONVERT_NOT_LINEAR,
    CONVERT_NO_MEMORY = UOM_NO_MEMORY
};

int32_t refuseArguments(const char *function) {
    error_Set("Invalid input arguments detected in function %s().", function);
    return CONVERT_BAD_ARGUMENT;
}

// A copy of the chain in the units of a slate.
UomStruct inSlate(const Catalogue &catalogue, UomStruct chain, int32_t slate) {
    UomStruct copy = chain_Copy(chain);
    uom_InitializeUnits(catalogue, copy, slate);
    return copy;
}

int32_t fill(const Catalogue &catalogue, UomStruct from, UomStruct to, const char *fromUnits, const char *toUnits) {
    if (!from)
        return CONVERT_BAD_CLASS;
    if (uom_FillStructFromString(catalogue, from, fromUnits, catalogue.styles.scanUom) >= 1)
        return CONVERT_BAD_SOURCE;
    const int32_t status = uom_FillStructFromString(catalogue, to, toUnits, catalogue.styles.scanUom);
    return status >= 1 ? CONVERT_BAD_TARGET : status;
}

} // namespace

double uom_Convert(const Catalogue &catalogue, Running &running, double value, UomStruct chain, int32_t fromSlate,
                   int32_t toSlate) {
    if (fromSlate == toSlate)
        return value;
    const bool ownFrom = fromSlate == catalogue.slateIndex.current;
    const bool ownTo = toSlate == catalogue.slateIndex.current;
    const ScopedChain from(ownFrom ? nullptr : inSlate(catalogue, chain, fromSlate));
    const ScopedChain to(ownTo ? nullptr : inSlate(catalogue, chain, toSlate));
    running.linear = 0;
    return uom_ConvertFromTo(catalogue, running, value, ownFrom ? chain : from.chain, ownTo ? chain : to.chain);
}

double uom_ConvertFromCurrent(const Catalogue &catalogue, Running &running, double value, UomStruct chain) {
    return uom_Convert(catalogue, running, value, chain, catalogue.slateIndex.current, catalogue.slateIndex.internal);
}

double uom_ConvertToCurrent(const Catalogue &catalogue, Running &running, double value, UomStruct chain) {
    return uom_Convert(catalogue, running, value, chain, catalogue.slateIndex.internal, catalogue.slateIndex.current);
}

double uom_ConvertValue(const Catalogue &catalogue, Running &running, int32_t classId, int32_t *units,
                        int32_t fromSlate, int32_t toSlate, double value) {
    ParsedChain chain(catalogue, classId);
    uom_InitializeCurrentUnits(catalogue, chain.chain);
    if (units)
        uom_SetUnits(catalogue, 1, 0, chain.chain, chain_Length(chain.chain), units);
    return uom_Convert(catalogue, running, value, chain.chain, fromSlate, toSlate);
}

int32_t uoms_ConvertArray(const Catalogue &catalogue, Running &running, double *values, int32_t count,
                          const char *classString, const char *fromUnits, const char *toUnits) {
    if (!values || count < 1 || !classString || !fromUnits || !toUnits)
        return refuseArguments("uoms_ConvertArray");
    ParsedChain from(catalogue, classString);
    ParsedChain to(from);
    const int32_t status = fill(catalogue, from.chain, to.chain, fromUnits, toUnits);
    if (status <= CONVERT_DONE)
        uom_ConvertArray(catalogue, running, values, count, from.chain, to.chain);
    return status;
}

// The running pair goes out on every way, whatever it holds.
static int32_t calculateConstants(const Catalogue &catalogue, Running &running, const char *classString,
                                  const char *fromUnits, const char *toUnits) {
    if (!classString || !fromUnits || !toUnits)
        return refuseArguments("uoms_ConvertArray");
    ParsedChain from(catalogue, classString);
    ParsedChain to(from);
    const int32_t status = fill(catalogue, from.chain, to.chain, fromUnits, toUnits);
    if (status > CONVERT_DONE)
        return status;
    running.linear = 0;
    uom_ConvertFromTo(catalogue, running, 1.0, from.chain, to.chain);
    if (status != CONVERT_DONE)
        return status;
    return running.linear ? CONVERT_DONE : CONVERT_NOT_LINEAR;
}

int32_t uoms_CalculateConvConstants(const Catalogue &catalogue, Running &running, const char *classString,
                                    const char *fromUnits, const char *toUnits, double *factor, double *offset) {
    const int32_t status = calculateConstants(catalogue, running, classString, fromUnits, toUnits);
    if (factor)
        *factor = running.factor;
    if (offset)
        *offset = running.offset;
    return status;
}

int32_t uoms_NewConversion(const Catalogue &catalogue, const char *classString, const char *fromUnits,
                           const char *toUnits, UomConversion **out) {
    if (out)
        *out = nullptr;
    if (!classString || !fromUnits || !toUnits || !out)
        return refuseArguments("uoms_NewConversion");
    const MemoryWatch watch;
    ParsedChain from(catalogue, classString);
    ParsedChain to(from);
    const int32_t status = fill(catalogue, from.chain, to.chain, fromUnits, toUnits);
    if (watch.exhausted()) {
        error_Set("Memory is exhausted: the conversion was not made.");
        return CONVERT_NO_MEMORY;
    }
    return status > CONVERT_DONE ? status : prepared_New(catalogue, from.chain, to.chain, out);
}

} // namespace uom

// The exported functions of one catalogue: the catalogue in use and the thread's scratch, and one call down.
#include "api/state.h"
#include "conversion/engine.h"
#include "slates/basis.h"
#include "slates/gauge_pressure.h"
#include "slates/text_conversion.h"
#include "uom/uom.h"

using uom::Scratch;
using uom::state_InUse;
using uom::state_Scratch;

int32_t uoms_ConvertArray(double *values, int32_t count, const char *classString, const char *fromUnits,
                          const char *toUnits) {
    Scratch &scratch = state_Scratch();
    return uom::uoms_ConvertArray(state_InUse(scratch), scratch.running, values, count, classString, fromUnits,
                                  toUnits);
}

int32_t uoms_CalculateConvConstants(const char *classString, const char *fromUnits, const char *toUnits, double *factor,
                                    double *offset) {
    Scratch &scratch = state_Scratch();
    return uom::uoms_CalculateConvConstants(state_InUse(scratch), scratch.running, classString, fromUnits, toUnits,
                                            factor, offset);
}

int32_t uom_ConvertArray(double *values, int32_t count, UomStruct from, UomStruct to) {
    Scratch &scratch = state_Scratch();
    return uom::uom_ConvertArray(state_InUse(scratch), scratch.running, values, count, from, to);
}

double uom_ConvertFromTo(double value, UomStruct from, UomStruct to) {
    Scratch &scratch = state_Scratch();
    return uom::uom_ConvertFromTo(state_InUse(scratch), scratch.running, value, from, to);
}

double uom_Convert(double value, UomStruct chain, int32_t fromSlate, int32_t toSlate) {
    Scratch &scratch = state_Scratch();
    return uom::uom_Convert(state_InUse(scratch), scratch.running, value, chain, fromSlate, toSlate);
}

double uom_ConvertFromCurrent(double value, UomStruct chain) {
    Scratch &scratch = state_Scratch();
    return uom::uom_ConvertFromCurrent(state_InUse(scratch), scratch.running, value, chain);
}

double uom_ConvertToCurrent(double value, UomStruct chain) {
    Scratch &scratch = state_Scratch();
    return uom::uom_ConvertToCurrent(state_InUse(scratch), scratch.running, value, chain);
}

double uom_ConvertValue(int32_t classId, int32_t *units, int32_t fromSlate, int32_t toSlate, double value) {
    Scratch &scratch = state_Scratch();
    return uom::uom_ConvertValue(state_InUse(scratch), scratch.running, classId, units, fromSlate, toSlate, value);
}

int32_t uom_SetBasis(UomStruct chain, int32_t basis) {
    return uom::uom_SetBasis(state_InUse(), chain, basis);
}

int32_t uom_CheckForBasis(UomStruct chain) {
    return uom::chain_HasBasis(chain);
}

int32_t uom_IsBasisEqual(UomStruct a, UomStruct b) {
    return uom::chain_BasisMatches(a, b);
}

int32_t uoms_GetBasis(const char *classString, const char *unitString) {
    return uom::uoms_GetBasis(state_InUse(), classString, unitString);
}

int32_t uom_SetGaugePressureBasis(int32_t slate) {
    return uom::uom_SetGaugePressureBasis(state_InUse(), slate);
}

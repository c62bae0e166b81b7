// The exported functions of one catalogue: the catalogue in use and the thread's scratch, and one call down.
#include <atomic>

#include "api/state.h"
#include "slates/basis.h"
#include "slates/defaults.h"
#include "slates/unit_entry.h"
#include "slates/working_units.h"
#include "uom/uom.h"
#include "uomstruct/chain.h"
#include "uomstruct/class_and_unit.h"
#include "uomstruct/class_string.h"

using uom::state_InUse;

namespace {

// Of the ends known: odd while one that counts may be, one more than that once they are forgotten.
std::atomic<uint64_t> endsRound = 0;

void forgetEnds() {
    uint64_t round = endsRound.load(std::memory_order_acquire);
    if (round % 2 == 1)
        endsRound.compare_exchange_strong(round, round + 1, std::memory_order_acq_rel);
}

void rememberEnd(UomStruct head, UomStruct tail) {
    uint64_t round = endsRound.load(std::memory_order_acquire);
    while (round % 2 == 0 && !endsRound.compare_exchange_weak(round, round + 1, std::memory_order_acq_rel)) {
    }
    uom::state_Scratch().knownEnd = {head, tail, round | 1};
}

// The last node of a chain that is not empty.
UomStruct lastOf(UomStruct chain) {
    const uom::KnownEnd &known = uom::state_Scratch().knownEnd;
    const bool counts = known.head == chain && known.round == endsRound.load(std::memory_order_acquire);
    return uom::chain_Last(counts ? known.tail : chain);
}

} // namespace

UomStruct uoms_New(const char *classString) {
    return uom::uoms_New(state_InUse(), classString);
}

int32_t uoms_IsClassValid(const char *classString) {
    return uom::uoms_IsClassValid(state_InUse(), classString);
}

int32_t uoms_ValidateUOM(const char *classString, const char *uomString) {
    return uom::uoms_ValidateUOM(state_InUse(), classString, uomString);
}

int32_t uoms_GetDimensions(const char *classString, int32_t *dimensions) {
    return uom::uoms_GetDimensions(state_InUse(), classString, dimensions);
}

UomStruct uom_BuildStruct(int32_t count, const int32_t *classes, const int32_t *exponents, const int32_t *units) {
    return uom::uom_BuildStruct(state_InUse(), count, classes, exponents, units);
}

UomStruct uom_CreateStruct(int32_t classId, int32_t exponent, const int32_t *units) {
    return uom::uom_CreateStruct(state_InUse(), classId, exponent, units);
}

void uom_DecodeStruct(UomStruct chain, int32_t n, int32_t *classes, int32_t *exponents) {
    uom::uom_DecodeStruct(state_InUse(), chain, n, classes, exponents);
}

UomStruct uom_Copy(UomStruct chain) {
    return uom::chain_Copy(chain);
}

void uom_Free(UomStruct *chain) {
    forgetEnds();
    uom::chain_Free(chain);
}

UomStruct uom_AddNewStruct(UomStruct *chain) {
    UomStruct node = uom::chain_NewNode();
    if (!node || !chain)
        return node;
    if (*chain)
        lastOf(*chain)->next = node;
    else
        *chain = node;
    rememberEnd(*chain, node);
    return node;
}

UomStruct uom_LinkStruct(UomStruct a, UomStruct b) {
    if (!a)
        return b;
    lastOf(a)->next = b;
    forgetEnds();
    return a;
}

UomStruct uom_UnlinkStruct(UomStruct chain, UomStruct node) {
    forgetEnds();
    return uom::chain_Unlink(chain, node);
}

UomStruct uom_InsertBeforeStruct(UomStruct chain, UomStruct insert, UomStruct node) {
    forgetEnds();
    return uom::chain_InsertBefore(chain, insert, node);
}

UomStruct uom_RemoveStruct(UomStruct *chain, int32_t classId) {
    forgetEnds();
    return uom::uom_RemoveStruct(state_InUse(), chain, classId);
}

UomStruct uom_FindStructClass(UomStruct chain, int32_t classId) {
    return uom::chain_FindClass(chain, classId);
}

int32_t uom_GetStructIndex(UomStruct chain, UomStruct node) {
    return uom::chain_IndexOf(chain, node);
}

int32_t uom_IsStartOfClass(UomStruct node) {
    return uom::chain_IsStartOfClass(node);
}

UomStruct uom_GetEndOfClass(UomStruct node) {
    return uom::uom_GetEndOfClass(state_InUse(), node);
}

int32_t uom_GetUnitCount(UomStruct chain) {
    return uom::chain_Length(chain);
}

int32_t uom_GetClassCount(UomStruct chain) {
    return uom::uom_GetClassCount(state_InUse(), chain);
}

void uom_GetClasses(UomStruct chain, int32_t n, int32_t *classes) {
    uom::chain_GetClasses(chain, n, classes);
}

void uom_SetClasses(UomStruct chain, int32_t n, const int32_t *classes) {
    uom::chain_SetClasses(chain, n, classes);
}

void uom_GetMultipliers(UomStruct chain, int32_t n, int32_t *multipliers) {
    uom::chain_GetMultipliers(chain, n, multipliers);
}

void uom_SetMultipliers(UomStruct chain, int32_t n, const int32_t *multipliers) {
    uom::chain_SetMultipliers(chain, n, multipliers);
}

int32_t uom_SetUnits(int32_t kind, int32_t slate, UomStruct chain, int32_t count, int32_t *units) {
    return uom::uom_SetUnits(state_InUse(), kind, slate, chain, count, units);
}

void uom_GetUnits(int32_t kind, int32_t slate, UomStruct chain, int32_t count, int32_t *units) {
    uom::uom_GetUnits(state_InUse(), kind, slate, chain, count, units);
}

void uom_GetDefaultUnits(UomStruct chain, int32_t slate, int32_t count, int32_t *units) {
    uom::uom_GetDefaultUnits(state_InUse(), chain, slate, count, units);
}

void uom_GetDefaultMults(UomStruct chain, int32_t slate, int32_t count, int32_t *multipliers) {
    uom::uom_GetDefaultMults(state_InUse(), chain, slate, count, multipliers);
}

void uom_GetCurrentUnits(UomStruct chain, int32_t count, int32_t *units) {
    uom::chain_GetUnits(chain, count, units);
}

int32_t uom_SetCurrentUnits(UomStruct chain, int32_t count, int32_t *units) {
    return uom::uom_SetCurrentUnits(state_InUse(), chain, count, units);
}

void uom_GetOverrideUnits(UomStruct chain, int32_t slate, int32_t count, int32_t *units) {
    uom::uom_GetOverrideUnits(state_InUse(), chain, slate, count, units);
}

void uom_SetOverrideUnits(UomStruct chain, int32_t slate, int32_t count, const int32_t *units) {
    uom::uom_SetOverrideUnits(state_InUse(), chain, slate, count, units);
}

void uom_InitializeUnits(UomStruct chain, int32_t slate) {
    uom::uom_InitializeUnits(state_InUse(), chain, slate);
}

void uom_InitializeCurrentUnits(UomStruct chain) {
    uom::uom_InitializeCurrentUnits(state_InUse(), chain);
}

int32_t uom_GetGlobalUnits(int32_t slate, int32_t *units, int32_t *multipliers) {
    return uom::uom_GetGlobalUnits(state_InUse(), slate, units, multipliers);
}

int32_t uom_SetGlobalUnits(int32_t slate, const int32_t *units, const int32_t *multipliers) {
    return uom::uom_SetGlobalUnits(state_InUse(), slate, units, multipliers);
}

int32_t uom_IsUnitDefault(UomStruct chain) {
    return uom::uom_IsUnitDefault(state_InUse(), chain);
}

UomStruct uom_AddBasisStruct(UomStruct chain, int32_t basis) {
    forgetEnds();
    return uom::uom_AddBasisStruct(state_InUse(), chain, basis);
}

UomStruct uom_RemoveBasisStruct(UomStruct chain) {
    forgetEnds();
    return uom::uom_RemoveBasisStruct(state_InUse(), chain);
}

int32_t uom_SetClassandUnit(UomStruct *chain, int32_t classId, const char *text, int32_t style) {
    forgetEnds();
    return uom::uom_SetClassandUnit(state_InUse(), chain, classId, text, style);
}

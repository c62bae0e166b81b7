#include "slates/assign_units.h"

#include "catalogue/units.h"
#include "slates/working_units.h"
#include "uomstruct/chain.h"
#include "uomstruct/quotients.h"
#include "uomstruct/related_unit.h"

namespace uom {

namespace {

bool isVolume(int32_t classId) {
    return classId >= CLASS_LIQ_VOL && classId <= CLASS_ACT_VOL;
}

bool isMoles(int32_t classId) {
    return classId == CLASS_MOLE || classId == CLASS_MOLAR;
}

// Classes that a basis can turn into each other.
bool followsBasis(int32_t classId) {
    return (classId >= CLASS_LIQ_VOL && classId <= CLASS_MOLAR) || classId == CLASS_PETRO_MASS;
}

// The unit of the new class that corresponds to one of the old. False where no rule derives one, and the
// entry stays.
bool carryOver(const Catalogue &catalogue, int32_t oldClass, int32_t newClass, int32_t unit, int32_t *carried) {
    if (oldClass == CLASS_MASS && isMoles(newClass))
        *carried = unit_NamedWith(catalogue, unit, "-mol");
    else if (isMoles(oldClass) && newClass == CLASS_MASS)
        *carried = unit_NamedUpToFirst(catalogue, unit, '-');
    else if (oldClass == CLASS_PETRO_MASS && newClass == CLASS_MOLE)
        uom_FindRelatedUnit(catalogue, unit, unit, newClass, carried); // the unit in the place of the class, kept
    else if (isVolume(oldClass) && isVolume(newClass))
        *carried = unit;
    else
        return false;
    return true;
}

// Makes the node behind a changed basis a node of the class that the basis stands for, for good.
void followBasis(const Catalogue &catalogue, UomStruct node, int32_t basis, int32_t *entry) {
    const int32_t oldClass = node->baseClass;
    if (!followsBasis(oldClass))
        return;
    node->baseClass = uom_ClassFromBasis(catalogue, basis);
    if (!unit_IsValid(catalogue, *entry) && node->unit != NO_UNIT)
        carryOver(catalogue, oldClass, node->baseClass, node->unit, entry);
    if (unit_IsValid(catalogue, *entry))
        return;
    int32_t multiplier;
    uom_GetNodeDefault(catalogue, node->classId, node->baseClass, catalogue.slateIndex.current, entry, &multiplier);
}

} // namespace

void units_Assign(const Catalogue &catalogue, UomStruct chain, int32_t count, int32_t *units) {
    int32_t newBasis = NO_UNIT; // that the node in front was changed to
    bool isFilled = false;      // by the unit in front, which is a whole quotient
    for (int32_t i = 0; chain && i < count; chain = chain->next, ++i) {
        if (newBasis != NO_UNIT)
            followBasis(catalogue, chain, newBasis, &units[i]);
        const bool changesBasis = chain->baseClass == CLASS_BASIS && units[i] != chain->unit;
        newBasis = changesBasis ? units[i] : NO_UNIT;
        if (unit_IsValid(catalogue, units[i]))
            chain_SetUnit(catalogue, chain, units[i]);
        if (isFilled)
            chain->unit = NO_UNIT;
        isFilled = !isFilled && unit_IsWholeQuotient(catalogue, chain->baseClass, units[i]);
    }
}

} // namespace uom

// The pair of numbers that takes a value of one node to base units.
#ifndef UOM_CONVERSION_UNIT_FACTORS_H
#define UOM_CONVERSION_UNIT_FACTORS_H

#include <cstdint>
#include "catalogue/catalogue.h"
#include "catalogue/class_table.h"
#include "catalogue/units.h"
#include "conversion/wide.h"

namespace uom {

// The multiplications that a conversion may still make. A power is made of as many as its exponent says, and exponents
// come from texts: a conversion that would take more than these gives no value.
struct Rounds {
    int64_t left = 10'000'000;
    bool exhausted = false;
    bool take() {
        exhausted = exhausted || left-- == 0;
        return !exhausted;
    }
};

// A value x in a unit is (x + offset) * factor in base units.
template <class Number> struct UnitScale {
    Number offset;
    Number factor;
};

// What is raised, and how often: of a node, its unit's constants known.
struct UnitPowers {
    int32_t baseExponent;
    int32_t exponent; // of the class, 0 when the multiplier is not raised along with it
    int32_t multiplier;
    bool hasOffset;
};

// Takes the unit's constants, the class's hasOffset, the exponents and the multiplier into account. 0; 1 for a bad class,
// 2 for a bad unit, both with the pair 0.0 and 1.0.
int32_t uom_UnitScale(const Catalogue &catalogue, int32_t classId, int32_t exponent, int32_t baseClass, int32_t unit,
                      int32_t baseExponent, int32_t multiplier, double *offset, double *factor, Rounds &rounds);

// The same without rounding and without an end of the rounds. The answers are the same, too, and 3, with the pair 0 and 1,
// where exact numbers have no answer: constants that are not finite, and a factor of 0.
int32_t scale_Exactly(const Catalogue &catalogue, const UomStructNode &node, UnitScale<Wide> *scale);

// The constants of a node's unit as the catalogue has them, and how they are raised. Answers as uom_UnitScale.
inline int32_t scale_Constants(const Catalogue &catalogue, int32_t classId, int32_t exponent, int32_t baseClass,
                               int32_t unit, int32_t baseExponent, int32_t multiplier, UnitScale<double> *scale,
                               UnitPowers *powers) {
    const UomClassRow *row = class_ValidRow(catalogue, classId);
    const UomClassRow *baseRow = baseClass == classId ? row : class_ValidRow(catalogue, baseClass);
    if (!row || !baseRow)
        return 1;
    const UomUnit *record = unit_Record(catalogue, unit);
    if (!record)
        return 2;
    const bool hasOffset = baseRow->hasOffset != 0;
    *scale = {hasOffset ? record->offset : 0.0, record->factor};
    // In a composite class raised to a power the multiplier belongs to the class, and is raised along with it.
    const bool split = multiplier != 0 && class_IsComposite(*row);
    *powers = {baseExponent, split ? exponent : 0, multiplier, hasOffset};
    return 0;
}

} // namespace uom

#endif

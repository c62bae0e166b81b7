// The pair of numbers that takes a value of one node to base units.
#ifndef UOM_CONVERSION_UNIT_FACTORS_H
#define UOM_CONVERSION_UNIT_FACTORS_H

#include <cstdint>
#include "catalogue/catalogue.h"

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

// A value x in the node's unit is (x + offset) * factor in base units. Takes the unit's constants, the
// class's hasOffset, the exponents and the multiplier into account. 0; 1 for a bad class, 2 for a bad unit,
// both with the pair 0.0 and 1.0.
int32_t uom_UnitScale(const Catalogue &catalogue, int32_t classId, int32_t exponent, int32_t baseClass, int32_t unit,
                      int32_t baseExponent, int32_t multiplier, double *offset, double *factor, Rounds &rounds);

} // namespace uom

#endif

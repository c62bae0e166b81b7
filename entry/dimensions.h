// The physical dimension and the size of what units measure: what two texts of one quantity have in common.
#ifndef UOM_ENTRY_DIMENSIONS_H
#define UOM_ENTRY_DIMENSIONS_H

#include <array>
#include <cstdint>

#include "catalogue/catalogue.h"

namespace uom {

enum Axis {
    AXIS_MASS,
    AXIS_LENGTH,
    AXIS_TIME,
    AXIS_TEMPERATURE,
    AXIS_CHARGE,
    AXIS_CURRENCY,
    AXIS_AMOUNT,
    AXIS_ANGLE,
    AXIS_VALVE,
    AXES
};

// Powers of kilogram, meter, second, kelvin, coulomb, dollar, kilogram mole, radian and, for valves, of Cv.
using Dimension = std::array<int16_t, AXES>;

// The first times the second to a power. Powers stay within their type: a text has few units, of bounded powers.
Dimension dimension_Times(const Dimension &a, const Dimension &b, int32_t power);

// What a pure number may be a ratio of: a fraction by mass is none by moles, though both are numbers. A set of bits; what
// is no ratio may be all of them.
using Ratios = uint8_t;
constexpr Ratios RATIO_OF_MASSES = 1, RATIO_OF_AMOUNTS = 2, RATIO_OF_VOLUMES = 4, RATIO_OF_OTHERS = 8,
                 RATIO_OF_ANY = 15;

// What a quantity, to a power, may be a part of a ratio of.
Ratios ratios_OfPart(const Dimension &dimension, int32_t power);

// What a base class measures, and its base unit in the units above.
struct BaseQuantity {
    Dimension dimension;
    double size;
    bool known; // false: of a class that has no quantity (a basis), or one that the library knows nothing of
};
BaseQuantity dimension_OfClass(const Catalogue &catalogue, int32_t classId);

// What a unit measures, as the first base class of its says that lists it.
struct UnitQuantity {
    Dimension dimension;
    double size; // in the base units above
    double base; // that of the class's base unit
    bool known;
    bool shifted; // has an offset: temperatures on a scale, gauge pressures
    bool gas;     // an amount of gas, stated as its volume under standard conditions
    Ratios ratios;
    bool formula; // API gravity and its like: no factor tells it
};

} // namespace uom

#endif

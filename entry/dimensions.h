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
    bool formula; // API gravity and its like: no factor tells it
};

} // namespace uom

#endif

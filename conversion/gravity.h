// API gravity in arrays: a node of gravity and at most one behind it, the most that people convert, without the walk's
// branches. The numbers that need a branch are told by their size, and take the walk.
#ifndef UOM_CONVERSION_GRAVITY_H
#define UOM_CONVERSION_GRAVITY_H

#include <cstdint>

#include "conversion/resolved.h"

namespace uom {

constexpr int32_t GRAVITY_NODES = 2;

// x * factor / divisor, rounded twice as the walk does.
struct GravityStep {
    double factor;
    double divisor;
    double inverse;     // 1 / divisor
    double inverseRest; // what its rounding left out
};

struct GravityLine {
    int32_t steps; // 0: there is no such line
    bool from;     // an API gravity is the source
    bool to;       // an API gravity is the target
    double margin; // a gravity this near to the pole, or to 0, takes the walk
    double least;  // as does a specific gravity, or what is to become one, below this magnitude
    double most;   // or above that
    GravityStep step[GRAVITY_NODES];
};

// The line of the nodes, or one without steps.
GravityLine gravity_Line(const ResolvedNodes &nodes, const NumberConstants &numbers);

} // namespace uom

#endif

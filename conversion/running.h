// What a conversion leaves behind for the calls that follow it in its thread.
#ifndef UOM_CONVERSION_RUNNING_H
#define UOM_CONVERSION_RUNNING_H

#include <cstdint>

namespace uom {

struct Running {
    double factor = 0.0;
    double offset = 0.0;
    int32_t linear = 0;        // the pair is valid: result = (input + offset) * factor
    int32_t apiPending = 0;    // the gravity formula waits for the next node, of whatever conversion
    int32_t apiExponent = 0;   // baseExponent of the node that left it pending
    int32_t apiMultiplier = 0; // multiplier of that node
};

} // namespace uom

#endif

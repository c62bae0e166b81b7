// What the slates say the unit of a class or a node is, inherited ones included; the unit arrays of a chain
// are declared in uom.h.
#ifndef UOM_SLATES_WORKING_UNITS_H
#define UOM_SLATES_WORKING_UNITS_H

#include <cstdint>

// Each walks the based-on chain afresh until a slate states a unit, and gives the unit and the multiplier of
// that slate, or UOM_NULL and 0.

// The default of a class as a base class.
void uom_GetBaseDefault(int32_t classId, int32_t slate, int32_t *unit, int32_t *multiplier);

// The default of one component of a composite class. Slots are matched by class: two slots of one class share
// the first one's default, and a component that the basis changed to another class finds none.
void uom_GetCompositeDefault(int32_t classId, int32_t componentClass, int32_t slate, int32_t *unit,
                             int32_t *multiplier);

// The default of a node: of the component in its composite class, else of the component class alone.
void uom_GetNodeDefault(int32_t classId, int32_t componentClass, int32_t slate, int32_t *unit, int32_t *multiplier);

// The unit that one slate itself states for a class or a component of it.
int32_t uom_GetSlateClassUnit(int32_t classId, int32_t component, int32_t slate);

#endif

// What the slates say the unit of a class or a node is, inherited ones included; the unit arrays of a chain
// are declared in uom.h.
#ifndef UOM_SLATES_WORKING_UNITS_H
#define UOM_SLATES_WORKING_UNITS_H

#include <cstdint>

#include "uom/uom.h"
#include "catalogue/catalogue.h"

namespace uom {

// Each walks the based-on chain afresh until a slate states a unit, and gives the unit and the multiplier of
// that slate, or UOM_NULL and 0.

// The default of a class as a base class.
void uom_GetBaseDefault(const Catalogue &catalogue, int32_t classId, int32_t slate, int32_t *unit, int32_t *multiplier);

// The default of one component of a composite class. Slots are matched by class: two slots of one class share
// the first one's default, and a component that the basis changed to another class finds none.
void uom_GetCompositeDefault(const Catalogue &catalogue, int32_t classId, int32_t componentClass, int32_t slate,
                             int32_t *unit, int32_t *multiplier);

// The default of a node: of the component in its composite class, else of the component class alone.
void uom_GetNodeDefault(const Catalogue &catalogue, int32_t classId, int32_t componentClass, int32_t slate,
                        int32_t *unit, int32_t *multiplier);

// The unit that one slate itself states for a class or a component of it.
int32_t uom_GetSlateClassUnit(const Catalogue &catalogue, int32_t classId, int32_t component, int32_t slate);

// Gives the chain the units of a slate; of "Current" with the units that the chain fixes on top.
void chain_TakeSlate(const Catalogue &catalogue, UomStruct chain, int32_t slate);

// As uom.h says of these names; here the catalogue stands in front.
void uom_GetUnits(const Catalogue &catalogue, int32_t kind, int32_t slate, UomStruct chain, int32_t count,
                  int32_t *units);
void uom_GetDefaultUnits(const Catalogue &catalogue, UomStruct chain, int32_t slate, int32_t count, int32_t *units);
void uom_GetDefaultMults(const Catalogue &catalogue, UomStruct chain, int32_t slate, int32_t count,
                         int32_t *multipliers);
void uom_GetOverrideUnits(const Catalogue &catalogue, UomStruct chain, int32_t slate, int32_t count, int32_t *units);
void uom_SetOverrideUnits(const Catalogue &catalogue, UomStruct chain, int32_t slate, int32_t count,
                          const int32_t *units);
int32_t uom_SetUnits(const Catalogue &catalogue, int32_t kind, int32_t slate, UomStruct chain, int32_t count,
                     int32_t *units);
int32_t uom_SetCurrentUnits(const Catalogue &catalogue, UomStruct chain, int32_t count, int32_t *units);
void uom_InitializeUnits(const Catalogue &catalogue, UomStruct chain, int32_t slate);
void uom_InitializeCurrentUnits(const Catalogue &catalogue, UomStruct chain);
int32_t uom_GetGlobalUnits(const Catalogue &catalogue, int32_t slate, int32_t *units, int32_t *multipliers);
int32_t uom_SetGlobalUnits(Catalogue &catalogue, int32_t slate, const int32_t *units, const int32_t *multipliers);

} // namespace uom

#endif

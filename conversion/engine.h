// The conversion of one node to and from base units; the walk of two chains, uom_ConvertFromTo, is declared
// in uom.h.
#ifndef UOM_CONVERSION_ENGINE_H
#define UOM_CONVERSION_ENGINE_H

#include "conversion/unit_factors.h"
#include "uom/uom.h"
#include "conversion/running.h"
#include "catalogue/catalogue.h"

namespace uom {

// The value of the node's unit in base units, and back. Both keep the running pair of the conversion as long
// as it is linear. A gravity is completed by the next uom_FromBase after the one that met it, since it spans
// two nodes.
double uom_ToBase(const Catalogue &catalogue, Running &running, double value, const UomStructNode *node,
                  Rounds &rounds);
double uom_FromBase(const Catalogue &catalogue, Running &running, double value, const UomStructNode *node,
                    Rounds &rounds);

// An API gravity, which the walk converts by its formula.
bool gravity_Is(const Catalogue &catalogue, const UomStructNode &node);

// Whether the node, with this unit, is a specific gravity in front of a volume of vapour: relative to air, whatever the
// unit says.
inline bool gravity_IsOfVapor(const Catalogue &catalogue, const UomStructNode &node, int32_t unit) {
    return unit == catalogue.named.UOM_U_SPGR && node.next && node.next->baseClass == CLASS_VAP_VOL;
}

// The scale of a node as if it had this unit and multiplier; false when the unit can't be used.
bool scale_OfNode(const Catalogue &catalogue, const UomStructNode &node, int32_t unit, int32_t multiplier,
                  UnitScale<double> *scale, Rounds &rounds);

// As uom.h says of these names; here the catalogue stands in front.
double uom_ConvertFromTo(const Catalogue &catalogue, Running &running, double value, UomStruct from, UomStruct to);
int32_t uom_ConvertArray(const Catalogue &catalogue, Running &running, double *values, int32_t count, UomStruct from,
                         UomStruct to);

} // namespace uom

#endif

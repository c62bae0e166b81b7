// The conversion of one node to and from base units; the walk of two chains, uom_ConvertFromTo, is declared
// in uom.h.
#ifndef UOM_CONVERSION_ENGINE_H
#define UOM_CONVERSION_ENGINE_H

#include "conversion/unit_factors.h"
#include "uom/uom.h"

// The value of the node's unit in base units, and back. Both keep the running pair of the conversion as long
// as it is linear. A gravity is completed by the next uom_FromBase after the one that met it, since it spans
// two nodes.
double uom_ToBase(double value, const UomStructNode *node, Rounds &rounds);
double uom_FromBase(double value, const UomStructNode *node, Rounds &rounds);

#endif

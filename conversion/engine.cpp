// The walk over chains, whose units it looks up in the catalogue.
#include "conversion/engine.h"

#include "conversion/array_kernels.h"
#include "conversion/walk.h"
#include "support/numbers.h"

namespace uom {

namespace {

struct ChainSide {
    const Catalogue &catalogue;
    const UomStructNode &node;

    bool isGravity() const { return gravity_Is(catalogue, node); }
    int32_t multiplier() const { return node.multiplier; }
    int32_t baseExponent() const { return node.baseExponent; }
    bool own(Scale *scale, Rounds &rounds) const {
        return scale_OfNode(catalogue, node, node.unit, node.multiplier, scale, rounds);
    }
    bool relative(Scale *scale, Rounds &rounds) const {
        return scale_OfNode(catalogue, node, catalogue.named.UOM_U_SPGR, 0, scale, rounds);
    }
};

struct ChainNodes {
    const Catalogue &catalogue;
    UomStruct from, to;

    struct Place {
        const UomStructNode *from, *to;
    };
    Place begin() const { return {from, to}; }
    static bool atEnd(const Place &place) { return !place.from || !place.to; }
    static void next(Place &place) { place = {place.from->next, place.to->next}; }
    static int32_t classOf(const Place &place) { return place.from->classId; }
    static int32_t powerOf(const Place &place) { return place.from->exponent; }
    static bool isLastBefore(const Place &place, const Place &close) {
        return atEnd(place) || place.from == close.from || place.from->next == close.from;
    }
    ChainSide fromSide(const Place &place) const { return {catalogue, *place.from}; }
    ChainSide toSide(const Place &place) const { return {catalogue, *place.to}; }
};

// A chain of one node whose scale is what the catalogue has of its unit. Nearly all that is converted one by one is.
bool isPlain(const UomStructNode &node) {
    return !node.next && node.multiplier == 0 && (node.baseExponent == 1 || node.baseExponent == 0) &&
           node.baseClass != CLASS_PETRO_MASS && node.classId != CLASS_OPEN && node.classId != CLASS_CLOSE;
}

// The row that says how such a node's unit converts; null when a class of the node is bad.
const UomClassRow *plainRow(const Catalogue &catalogue, const UomStructNode &node) {
    if (node.classId != node.baseClass && !class_ValidRow(catalogue, node.classId))
        return nullptr;
    return class_ValidRow(catalogue, node.baseClass);
}

bool plainScale(const Catalogue &catalogue, const UomClassRow *row, int32_t unit, Scale *scale) {
    const UomUnit *record = row ? unit_Record(catalogue, unit) : nullptr;
    if (!record)
        return false;
    *scale = {row->hasOffset ? record->offset : 0.0, record->factor};
    return true;
}

// The walk over two such chains while no gravity waits.
double convertPlain(const Catalogue &catalogue, Running &running, double value, const UomStructNode &from,
                    const UomStructNode &to) {
    Running pair = {1.0, 0.0, 1, 0, 0, 0};
    Scale scale;
    const UomClassRow *row = plainRow(catalogue, from);
    if (plainScale(catalogue, row, from.unit, &scale))
        value = walk_Scaled(pair, value, scale);
    if (to.classId != from.classId || to.baseClass != from.baseClass)
        row = plainRow(catalogue, to);
    if (!num_IsNull(value) && plainScale(catalogue, row, to.unit, &scale))
        value = walk_Unscaled(numConstants, pair, value, scale);
    running = pair;
    return value;
}

} // namespace

bool gravity_Is(const Catalogue &catalogue, const UomStructNode &node) {
    return node.baseClass == CLASS_PETRO_MASS && node.unit > NO_UNIT && node.unit == catalogue.named.UOM_U_API;
}

bool scale_OfNode(const Catalogue &catalogue, const UomStructNode &node, int32_t unit, int32_t multiplier,
                  UnitScale<double> *scale, Rounds &rounds) {
    if (uom_UnitScale(catalogue, node.classId, node.exponent, node.baseClass, unit, node.baseExponent, multiplier,
                      &scale->offset, &scale->factor, rounds) != 0)
        return false;
    if (gravity_IsOfVapor(catalogue, node, unit))
        scale->factor = VAPOR_GRAVITY_FACTOR;
    return true;
}

double uom_ToBase(const Catalogue &catalogue, Running &running, double value, const UomStructNode *node,
                  Rounds &rounds) {
    return walk_ToBase(numConstants, running, value, ChainSide{catalogue, *node}, rounds);
}

double uom_FromBase(const Catalogue &catalogue, Running &running, double value, const UomStructNode *node,
                    Rounds &rounds) {
    return walk_FromBase(numConstants, running, value, ChainSide{catalogue, *node}, rounds);
}

double uom_ConvertFromTo(const Catalogue &catalogue, Running &running, double value, UomStruct from, UomStruct to) {
    if (!from || !to || num_IsNull(value))
        return value;
    if (isPlain(*from) && isPlain(*to) && !running.apiPending)
        return convertPlain(catalogue, running, value, *from, *to);
    return walk_Convert(ChainNodes{catalogue, from, to}, numConstants, running, value);
}

int32_t uom_ConvertArray(const Catalogue &catalogue, Running &running, double *values, int32_t count, UomStruct from,
                         UomStruct to) {
    if (!values || count < 1)
        return UOM_CONVERT_BAD_ARGUMENT;
    running.linear = 0;
    values[0] = uom_ConvertFromTo(catalogue, running, values[0], from, to);
    if (running.linear) {
        array_ConvertLinear(values + 1, static_cast<size_t>(count) - 1, running.offset, running.factor);
        return UOM_DONE;
    }
    for (int32_t i = 1; i < count; ++i)
        values[i] = uom_ConvertFromTo(catalogue, running, values[i], from, to);
    return UOM_DONE;
}

} // namespace uom

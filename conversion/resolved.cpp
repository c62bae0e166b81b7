#include "conversion/resolved.h"

#include "catalogue/catalogue.h"
#include "conversion/engine.h"
#include "conversion/running.h"
#include "conversion/unit_factors.h"
#include "support/numbers.h"

namespace uom {

namespace {

ResolvedScale resolve(const Catalogue &catalogue, const UomStructNode &node, int32_t unit, int32_t multiplier) {
    ResolvedScale resolved = {};
    Rounds rounds;
    const int64_t before = rounds.left;
    resolved.usable = scale_OfNode(catalogue, node, unit, multiplier, &resolved.scale, rounds);
    resolved.rounds = rounds.exhausted ? before + 1 : before - rounds.left;
    return resolved;
}

ResolvedSide resolveSide(const Catalogue &catalogue, const UomStructNode &node) {
    ResolvedSide side = {};
    side.ownScale = resolve(catalogue, node, node.unit, node.multiplier);
    side.nodeMultiplier = node.multiplier;
    side.nodeExponent = node.baseExponent;
    side.gravity = gravity_Is(catalogue, node);
    if (side.gravity)
        side.relativeScale = resolve(catalogue, node, catalogue.named.UOM_U_SPGR, 0);
    return side;
}

} // namespace

ResolvedNode resolved_Node(const Catalogue &catalogue, const UomStructNode &from, const UomStructNode &to) {
    return {from.classId, from.exponent, resolveSide(catalogue, from), resolveSide(catalogue, to)};
}

double resolved_Convert(const ResolvedNodes &nodes, const NumberConstants &numbers, double value) {
    if (num_IsNull(numbers, value))
        return value;
    Running running;
    value = walk_Convert(nodes, numbers, running, value);
    if (running.apiPending && !num_IsNull(numbers, value))
        value = walk_CompleteGravity(numbers, running, value);
    return value;
}

} // namespace uom

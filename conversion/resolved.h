// The nodes of two parallel chains with all that the walk asks of the catalogue looked up: they stand by themselves.
#ifndef UOM_CONVERSION_RESOLVED_H
#define UOM_CONVERSION_RESOLVED_H

#include "conversion/walk.h"
#include "uom/uom.h"

namespace uom {

struct ResolvedScale {
    Scale scale;
    int64_t rounds; // that the look-up takes
    bool usable;

    bool take(Scale *out, Rounds &left) const {
        if (left.left < rounds)
            left.exhausted = true;
        else
            left.left -= rounds;
        *out = scale;
        return usable;
    }
};

struct ResolvedSide {
    ResolvedScale ownScale;
    ResolvedScale relativeScale; // of a gravity
    int32_t nodeMultiplier;
    int32_t nodeExponent;
    bool gravity;

    bool isGravity() const { return gravity; }
    int32_t multiplier() const { return nodeMultiplier; }
    int32_t baseExponent() const { return nodeExponent; }
    bool own(Scale *scale, Rounds &rounds) const { return ownScale.take(scale, rounds); }
    bool relative(Scale *scale, Rounds &rounds) const { return relativeScale.take(scale, rounds); }
};

struct ResolvedNode {
    int32_t classId;
    int32_t power; // of a group, on the node that closes it
    ResolvedSide from;
    ResolvedSide to;
};

// Nodes of the walk.
struct ResolvedNodes {
    const ResolvedNode *first;
    const ResolvedNode *end;

    using Place = const ResolvedNode *;
    Place begin() const { return first; }
    bool atEnd(Place place) const { return place == end; }
    static void next(Place &place) { ++place; }
    static int32_t classOf(Place place) { return place->classId; }
    static int32_t powerOf(Place place) { return place->power; }
    bool isLastBefore(Place place, Place close) const { return atEnd(place) || place == close || place + 1 == close; }
    static const ResolvedSide &fromSide(Place place) { return place->from; }
    static const ResolvedSide &toSide(Place place) { return place->to; }
};

ResolvedNode resolved_Node(const Catalogue &catalogue, const UomStructNode &from, const UomStructNode &to);

// What uom_ConvertFromTo makes of the value when no gravity waits and none is left to wait: a gravity that the last node
// of the target leaves pending is completed here, where another conversion would complete it behind its first node.
double resolved_Convert(const ResolvedNodes &nodes, const NumberConstants &numbers, double value);

} // namespace uom

#endif

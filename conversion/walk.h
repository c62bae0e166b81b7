// The walk that a conversion is: two parallel chains in step, each node to base units and from there to the target unit.
// It keeps the running factor and offset that tell the whole of it as one linear step. Groups raised to a power, API
// gravity and the specific gravity of a vapour break the simple walk.
//
// It runs over chains, whose units it looks up on its way (engine.cpp), and over nodes that were resolved before
// (resolved.h). What it asks of either:
//   Nodes      begin(), a Place; atEnd(place), next(place), classOf(place), powerOf(place); fromSide(place) and
//              toSide(place); isLastBefore(place, close): the place is `close`, the one in front of it, or the end
//   Side       isGravity(); own(&scale, rounds), false without a usable unit; relative(&scale, rounds), the same as if
//              the node held a specific gravity; multiplier(), baseExponent()
#ifndef UOM_CONVERSION_WALK_H
#define UOM_CONVERSION_WALK_H

#include <cmath>

#include "catalogue/class_rows.h"
#include "conversion/running.h"
#include "conversion/unit_factors.h"
#include "support/numbers.h"

namespace uom {

constexpr int32_t MAX_OPEN_GROUPS = 32;

// 60 F relative density is 141.5 / (API + 131.5).
constexpr double GRAVITY_SCALE = 141.5;
constexpr double GRAVITY_SHIFT = 131.5;

// A vapour's specific gravity is relative to air: 1.223 kg/m3, in kg/cm3.
constexpr double VAPOR_GRAVITY_FACTOR = 1.223e-06;

using Scale = UnitScale<double>;

inline double walk_CompleteGravity(const NumberConstants &numbers, Running &running, double value) {
    const double gravity = GRAVITY_SCALE / value;
    value = num_Equal(numbers, gravity, GRAVITY_SHIFT) ? 0.0 : gravity - GRAVITY_SHIFT;
    if (running.apiMultiplier == 0)
        return value;
    const double power = num_PowInt(10.0, running.apiMultiplier);
    return running.apiExponent < 0 ? value * power : value / power;
}

// An offset of zero adds nothing to that of a pair, and most units have none: the division is spared.
inline bool walk_AddsOffset(const Running &running, const Scale &scale) {
    return scale.offset != 0.0 || !(running.factor > 0.0);
}

inline double walk_Scaled(Running &running, double value, const Scale &scale) {
    if (running.linear) {
        if (walk_AddsOffset(running, scale))
            running.offset += scale.offset / running.factor;
        running.factor *= scale.factor;
    }
    return (value + scale.offset) * scale.factor;
}

inline double walk_Unscaled(const NumberConstants &numbers, Running &running, double value, const Scale &scale) {
    value = value / scale.factor;
    // An offset of zero or below is not taken off, kept; the running pair takes every offset.
    if (scale.offset > 0.0)
        value = num_Equal(numbers, value, scale.offset) ? 0.0 : value - scale.offset;
    if (running.linear) {
        if (walk_AddsOffset(running, scale) || !std::isfinite(scale.factor))
            running.offset -= (scale.offset * scale.factor) / running.factor;
        running.factor /= scale.factor;
    }
    return value;
}

template <class Side>
inline double walk_ToBase(const NumberConstants &numbers, Running &running, double value, const Side &side,
                          Rounds &rounds) {
    if (num_IsNull(numbers, value))
        return value;
    Scale scale;
    if (!side.isGravity() || num_Equal(numbers, value, -GRAVITY_SHIFT))
        return side.own(&scale, rounds) ? walk_Scaled(running, value, scale) : value;
    if (side.multiplier() != 0) {
        const double power = num_PowInt(10.0, side.multiplier());
        value = side.baseExponent() < 0 ? value / power : value * power;
    }
    value = GRAVITY_SCALE / (value + GRAVITY_SHIFT);
    if (!num_IsNull(numbers, value) && side.relative(&scale, rounds))
        value = walk_Scaled(running, value, scale);
    running.linear = 0;
    return value;
}

// The gravity that an earlier node left pending is complete behind this one, since it spans two nodes.
template <class Side>
inline double walk_FromBase(const NumberConstants &numbers, Running &running, double value, const Side &side,
                            Rounds &rounds) {
    if (num_IsNull(numbers, value))
        return value;
    Scale scale;
    const bool gravity = side.isGravity() && !num_Equal(numbers, value, 0.0);
    if (gravity ? side.relative(&scale, rounds) : side.own(&scale, rounds))
        value = walk_Unscaled(numbers, running, value, scale);
    if (running.apiPending)
        value = walk_CompleteGravity(numbers, running, value);
    running.apiPending = running.apiExponent = running.apiMultiplier = 0;
    if (gravity) {
        running.apiExponent = side.baseExponent();
        running.apiMultiplier = side.multiplier();
        running.apiPending = 1;
        running.linear = 0;
    }
    return value;
}

template <class Nodes> struct Walk {
    using Place = typename Nodes::Place;

    // What the walk was doing when a group opened.
    struct Level {
        double factor;
        double offset;
        int32_t linear;
        Place open;
    };

    const Nodes &nodes;
    const NumberConstants &numbers;
    Running &running;
    double value;
    Rounds rounds;
    int32_t depth;                 // more than the levels hold: the groups beyond are walked, and their powers ignored
    Level levels[MAX_OPEN_GROUPS]; // the first `depth` of them

    Walk(const Nodes &walked, const NumberConstants &constants, Running &left, double start)
        : nodes(walked), numbers(constants), running(left), value(start), depth(0) {}
    Walk(const Walk &) = delete;
    Walk &operator=(const Walk &) = delete;
};

template <class Nodes> inline void walk_Node(Walk<Nodes> &walk, const typename Nodes::Place &place) {
    if (!walk.rounds.take())
        return;
    const double base = walk_ToBase(walk.numbers, walk.running, walk.value, walk.nodes.fromSide(place), walk.rounds);
    walk.value = walk_FromBase(walk.numbers, walk.running, base, walk.nodes.toSide(place), walk.rounds);
}

template <class Nodes> void walk_OpenGroup(Walk<Nodes> &walk, const typename Nodes::Place &open) {
    if (walk.depth++ >= MAX_OPEN_GROUPS)
        return;
    walk.levels[walk.depth - 1] = {walk.running.factor, walk.running.offset, walk.running.linear, open};
    walk.running.factor = 1.0;
    walk.running.offset = 0.0;
    walk.running.linear = 1;
}

// What a round over a linear group changes. A round that changed nothing ends the rounds.
struct Triple {
    double value, factor, offset;
};

inline bool walk_IsSame(const Triple &a, const Triple &b) {
    return num_Same(a.value, b.value) && num_Same(a.factor, b.factor) && num_Same(a.offset, b.offset);
}

// The value has passed through the group once. The level is folded one time less than the power says, kept:
// the array path reproduces the running pair as it stands.
template <class Nodes> void walk_RaiseLinear(Walk<Nodes> &walk, typename Walk<Nodes>::Level &level, int64_t times) {
    for (; times > 0 && walk.rounds.take(); --times) {
        const Triple before = {walk.value, level.factor, level.offset};
        walk.value = (walk.value + walk.running.offset) * walk.running.factor;
        if (level.linear) {
            level.factor = level.factor * walk.running.factor;
            level.offset = level.offset + walk.running.offset / walk.running.factor;
        }
        if (walk_IsSame(before, {walk.value, level.factor, level.offset}))
            break;
    }
}

// Undoes the forward pass and then applies the inverse.
template <class Nodes> void walk_InvertLinear(Walk<Nodes> &walk, typename Walk<Nodes>::Level &level, int64_t times) {
    for (; times > 0 && walk.rounds.take(); --times) {
        const Triple before = {walk.value, level.factor, level.offset};
        walk.value = walk.value / walk.running.factor - walk.running.offset;
        if (level.linear) {
            level.offset = level.offset - (walk.running.offset * walk.running.factor) / level.factor;
            level.factor = level.factor / walk.running.factor;
        }
        if (walk_IsSame(before, {walk.value, level.factor, level.offset}))
            break;
    }
}

// Walks the inside of a group again, all but its last node, kept.
template <class Nodes>
void walk_Repeat(Walk<Nodes> &walk, const typename Walk<Nodes>::Level &level, const typename Nodes::Place &close,
                 int64_t times) {
    for (; times > 0; --times) {
        const double before = walk.value;
        const bool pendingBefore = walk.running.apiPending != 0;
        typename Nodes::Place place = level.open;
        for (walk.nodes.next(place); !walk.nodes.isLastBefore(place, close); walk.nodes.next(place))
            walk_Node(walk, place);
        if ((num_Same(before, walk.value) && !pendingBefore && !walk.running.apiPending) || walk.rounds.exhausted)
            break;
    }
}

template <class Nodes> void walk_CloseGroup(Walk<Nodes> &walk, const typename Nodes::Place &close) {
    if (walk.depth == 0)
        return;
    if (walk.depth-- > MAX_OPEN_GROUPS)
        return;
    typename Walk<Nodes>::Level &level = walk.levels[walk.depth];
    const int64_t power = walk.nodes.powerOf(close);
    const bool linear = walk.running.linear != 0;
    if (power == 0 || power == 1) {
        level.factor = level.factor * walk.running.factor;
        level.offset = level.offset + walk.running.offset / walk.running.factor;
    } else if (linear && power > 1) {
        walk_RaiseLinear(walk, level, power - 1);
    } else if (linear) {
        walk_InvertLinear(walk, level, 1 - power);
    } else if (power > 1) {
        walk_Repeat(walk, level, close, power - 1);
    }
    walk.running.factor = level.factor;
    walk.running.offset = level.offset;
    walk.running.linear = linear ? level.linear : 0;
}

// The whole of it. No value when the rounds did not suffice.
template <class Nodes>
inline double walk_Convert(const Nodes &nodes, const NumberConstants &numbers, Running &running, double value) {
    running.factor = 1.0;
    running.offset = 0.0;
    running.linear = 1;
    Walk<Nodes> walk(nodes, numbers, running, value);
    for (typename Nodes::Place place = nodes.begin(); !nodes.atEnd(place); nodes.next(place)) {
        const int32_t classId = nodes.classOf(place);
        if (classId == CLASS_OPEN)
            walk_OpenGroup(walk, place);
        else if (classId == CLASS_CLOSE)
            walk_CloseGroup(walk, place);
        else
            walk_Node(walk, place);
    }
    if (!walk.rounds.exhausted)
        return walk.value;
    running.linear = 0;
    return numbers.nullDouble;
}

} // namespace uom

#endif

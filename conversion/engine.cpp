// A conversion walks two parallel chains in step, each node to base units and from there to the target unit,
// and keeps the running factor and offset that tell the whole of it as one linear step. Groups raised to a
// power, API gravity and the specific gravity of a vapour break the simple walk.
#include "conversion/engine.h"

#include "conversion/array_kernels.h"
#include "support/numbers.h"

namespace uom {

namespace {

constexpr int32_t MAX_OPEN_GROUPS = 32;

// 60 F relative density is 141.5 / (API + 131.5).
constexpr double GRAVITY_SCALE = 141.5;
constexpr double GRAVITY_SHIFT = 131.5;

// A vapour's specific gravity is relative to air: 1.223 kg/m3, in kg/cm3.
constexpr double VAPOR_GRAVITY_FACTOR = 1.223e-06;

bool isGravity(const Catalogue &catalogue, const UomStructNode &node) {
    return node.baseClass == CLASS_PETRO_MASS && node.unit > NO_UNIT && node.unit == catalogue.named.UOM_U_API;
}

// The node as if it held a specific gravity.
UomStructNode asSpecificGravity(const Catalogue &catalogue, const UomStructNode &node) {
    UomStructNode copy = node;
    copy.unit = catalogue.named.UOM_U_SPGR;
    copy.multiplier = 0;
    return copy;
}

bool scaleOf(const Catalogue &catalogue, const UomStructNode &node, double *offset, double *factor, Rounds &rounds) {
    if (uom_UnitScale(catalogue, node.classId, node.exponent, node.baseClass, node.unit, node.baseExponent,
                      node.multiplier, offset, factor, rounds) != 0)
        return false;
    if (node.unit == catalogue.named.UOM_U_SPGR && node.next && node.next->baseClass == CLASS_VAP_VOL)
        *factor = VAPOR_GRAVITY_FACTOR;
    return true;
}

double completeGravity(Running &running, double value) {
    const double gravity = GRAVITY_SCALE / value;
    value = num_Equal(gravity, GRAVITY_SHIFT) ? 0.0 : gravity - GRAVITY_SHIFT;
    if (running.apiMultiplier == 0)
        return value;
    const double power = num_PowInt(10.0, running.apiMultiplier);
    return running.apiExponent < 0 ? value * power : value / power;
}

// What the walk was doing when a group opened.
struct GroupLevel {
    double factor;
    double offset;
    int32_t linear;
    UomStruct from; // the nodes behind the opening parentheses
    UomStruct to;
};

struct Walk {
    const Catalogue &catalogue;
    Running &running;
    double value;
    Rounds rounds;
    GroupLevel levels[MAX_OPEN_GROUPS];
    int32_t depth = 0; // more than the levels hold: the groups beyond are walked, and their powers ignored
};

void openGroup(Walk &walk, UomStruct from, UomStruct to) {
    if (walk.depth++ >= MAX_OPEN_GROUPS)
        return;
    walk.levels[walk.depth - 1] = {walk.running.factor, walk.running.offset, walk.running.linear, from->next, to->next};
    walk.running.factor = 1.0;
    walk.running.offset = 0.0;
    walk.running.linear = 1;
}

// What a round over a linear group changes. A round that changed nothing ends the rounds.
struct Triple {
    double value, factor, offset;
};

Triple tripleOf(const Walk &walk, const GroupLevel &level) {
    return {walk.value, level.factor, level.offset};
}

bool isSame(const Triple &a, const Triple &b) {
    return num_Same(a.value, b.value) && num_Same(a.factor, b.factor) && num_Same(a.offset, b.offset);
}

// The value has passed through the group once. The level is folded one time less than the power says, kept:
// the array path reproduces the running pair as it stands.
void raiseLinearGroup(Walk &walk, GroupLevel &level, int64_t times) {
    for (; times > 0 && walk.rounds.take(); --times) {
        const Triple before = tripleOf(walk, level);
        walk.value = (walk.value + walk.running.offset) * walk.running.factor;
        if (level.linear) {
            level.factor = level.factor * walk.running.factor;
            level.offset = level.offset + walk.running.offset / walk.running.factor;
        }
        if (isSame(before, tripleOf(walk, level)))
            break;
    }
}

// Undoes the forward pass and then applies the inverse.
void invertLinearGroup(Walk &walk, GroupLevel &level, int64_t times) {
    for (; times > 0 && walk.rounds.take(); --times) {
        const Triple before = tripleOf(walk, level);
        walk.value = walk.value / walk.running.factor - walk.running.offset;
        if (level.linear) {
            level.offset = level.offset - (walk.running.offset * walk.running.factor) / level.factor;
            level.factor = level.factor / walk.running.factor;
        }
        if (isSame(before, tripleOf(walk, level)))
            break;
    }
}

void convertNode(Walk &walk, const UomStructNode *from, const UomStructNode *to) {
    if (walk.rounds.take())
        walk.value =
            uom_FromBase(walk.catalogue, walk.running,
                         uom_ToBase(walk.catalogue, walk.running, walk.value, from, walk.rounds), to, walk.rounds);
}

// Walks the inside of a group again, all but its last node, kept.
void repeatGroup(Walk &walk, const GroupLevel &level, const UomStructNode *close, int64_t times) {
    for (; times > 0; --times) {
        const double before = walk.value;
        const bool pendingBefore = walk.running.apiPending != 0;
        UomStruct from = level.from;
        UomStruct to = level.to;
        for (; from && to && from != close && from->next != close; from = from->next, to = to->next)
            convertNode(walk, from, to);
        if ((num_Same(before, walk.value) && !pendingBefore && !walk.running.apiPending) || walk.rounds.exhausted)
            break;
    }
}

void closeGroup(Walk &walk, const UomStructNode *close) {
    if (walk.depth == 0)
        return;
    if (walk.depth-- > MAX_OPEN_GROUPS)
        return;
    GroupLevel &level = walk.levels[walk.depth];
    const int64_t power = close->exponent;
    const bool linear = walk.running.linear != 0;
    if (power == 0 || power == 1) {
        level.factor = level.factor * walk.running.factor;
        level.offset = level.offset + walk.running.offset / walk.running.factor;
    } else if (linear && power > 1) {
        raiseLinearGroup(walk, level, power - 1);
    } else if (linear) {
        invertLinearGroup(walk, level, 1 - power);
    } else if (power > 1) {
        repeatGroup(walk, level, close, power - 1);
    }
    walk.running.factor = level.factor;
    walk.running.offset = level.offset;
    walk.running.linear = linear ? level.linear : 0;
}

} // namespace

double uom_ToBase(const Catalogue &catalogue, Running &running, double value, const UomStructNode *node,
                  Rounds &rounds) {
    if (num_IsNull(value))
        return value;
    if (isGravity(catalogue, *node) && !num_Equal(value, -GRAVITY_SHIFT)) {
        if (node->multiplier != 0) {
            const double power = num_PowInt(10.0, node->multiplier);
            value = node->baseExponent < 0 ? value / power : value * power;
        }
        const UomStructNode relative = asSpecificGravity(catalogue, *node);
        const double base = uom_ToBase(catalogue, running, GRAVITY_SCALE / (value + GRAVITY_SHIFT), &relative, rounds);
        running.linear = 0;
        return base;
    }
    double offset, factor;
    if (!scaleOf(catalogue, *node, &offset, &factor, rounds))
        return value;
    if (running.linear) {
        running.offset += offset / running.factor;
        running.factor *= factor;
    }
    return (value + offset) * factor;
}

double uom_FromBase(const Catalogue &catalogue, Running &running, double value, const UomStructNode *node,
                    Rounds &rounds) {
    if (num_IsNull(value))
        return value;
    if (isGravity(catalogue, *node) && !num_Equal(value, 0.0)) {
        const UomStructNode relative = asSpecificGravity(catalogue, *node);
        value = uom_FromBase(catalogue, running, value, &relative, rounds);
        running.apiExponent = node->baseExponent;
        running.apiMultiplier = node->multiplier;
        running.apiPending = 1;
        running.linear = 0;
        return value;
    }
    double offset, factor;
    if (scaleOf(catalogue, *node, &offset, &factor, rounds)) {
        value = value / factor;
        // An offset of zero or below is not taken off, kept; the running pair takes every offset.
        if (offset > 0.0)
            value = num_Equal(value, offset) ? 0.0 : value - offset;
        if (running.linear) {
            running.offset -= (offset * factor) / running.factor;
            running.factor /= factor;
        }
    }
    if (running.apiPending)
        value = completeGravity(running, value);
    running.apiPending = running.apiExponent = running.apiMultiplier = 0;
    return value;
}

double uom_ConvertFromTo(const Catalogue &catalogue, Running &running, double value, UomStruct from, UomStruct to) {
    if (!from || !to || num_IsNull(value))
        return value;
    running.factor = 1.0;
    running.offset = 0.0;
    running.linear = 1;
    Walk walk = {catalogue, running, value, {}, {}, 0};
    for (; from && to; from = from->next, to = to->next) {
        if (from->classId == CLASS_OPEN)
            openGroup(walk, from, to);
        else if (from->classId == CLASS_CLOSE)
            closeGroup(walk, from);
        else
            convertNode(walk, from, to);
    }
    if (!walk.rounds.exhausted)
        return walk.value;
    running.linear = 0;
    return num_NullDouble();
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

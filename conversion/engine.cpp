// A conversion walks two parallel chains in step, each node to base units and from there to the target unit,
// and keeps the running factor and offset that tell the whole of it as one linear step. Groups raised to a
// power, API gravity and the specific gravity of a vapour break the simple walk.
#include "conversion/engine.h"

#include "catalogue/state.h"
#include "conversion/unit_factors.h"
#include "support/numbers.h"

namespace {

constexpr int32_t MAX_OPEN_GROUPS = 32;

// 60 F relative density is 141.5 / (API + 131.5).
constexpr double GRAVITY_SCALE = 141.5;
constexpr double GRAVITY_SHIFT = 131.5;

// A vapour's specific gravity is relative to air: 1.223 kg/m3, in kg/cm3.
constexpr double VAPOR_GRAVITY_FACTOR = 1.223e-06;

bool isGravity(const UomStructNode &node) {
    return node.baseClass == CLASS_PETRO_MASS && node.unit > UOM_NULL && node.unit == UOM_U_API;
}

// The node as if it held a specific gravity.
UomStructNode asSpecificGravity(const UomStructNode &node) {
    UomStructNode copy = node;
    copy.unit = UOM_U_SPGR;
    copy.multiplier = 0;
    return copy;
}

bool scaleOf(const UomStructNode &node, double *offset, double *factor, Rounds &rounds) {
    if (uom_UnitScale(node.classId, node.exponent, node.baseClass, node.unit, node.baseExponent, node.multiplier,
                      offset, factor, rounds) != 0)
        return false;
    if (node.unit == UOM_U_SPGR && node.next && node.next->baseClass == CLASS_VAP_VOL)
        *factor = VAPOR_GRAVITY_FACTOR;
    return true;
}

double completeGravity(double value) {
    const double gravity = GRAVITY_SCALE / value;
    value = num_Equal(gravity, GRAVITY_SHIFT) ? 0.0 : gravity - GRAVITY_SHIFT;
    if (uomApiMultiplier == 0)
        return value;
    const double power = num_PowInt(10.0, uomApiMultiplier);
    return uomApiExponent < 0 ? value * power : value / power;
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
    double value;
    Rounds rounds;
    GroupLevel levels[MAX_OPEN_GROUPS];
    int32_t depth = 0; // more than the levels hold: the groups beyond are walked, and their powers ignored
};

void openGroup(Walk &walk, UomStruct from, UomStruct to) {
    if (walk.depth++ >= MAX_OPEN_GROUPS)
        return;
    walk.levels[walk.depth - 1] = {uomRunFactor, uomRunOffset, uomRunLinear, from->next, to->next};
    uomRunFactor = 1.0;
    uomRunOffset = 0.0;
    uomRunLinear = 1;
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
        walk.value = (walk.value + uomRunOffset) * uomRunFactor;
        if (level.linear) {
            level.factor = level.factor * uomRunFactor;
            level.offset = level.offset + uomRunOffset / uomRunFactor;
        }
        if (isSame(before, tripleOf(walk, level)))
            break;
    }
}

// Undoes the forward pass and then applies the inverse.
void invertLinearGroup(Walk &walk, GroupLevel &level, int64_t times) {
    for (; times > 0 && walk.rounds.take(); --times) {
        const Triple before = tripleOf(walk, level);
        walk.value = walk.value / uomRunFactor - uomRunOffset;
        if (level.linear) {
            level.offset = level.offset - (uomRunOffset * uomRunFactor) / level.factor;
            level.factor = level.factor / uomRunFactor;
        }
        if (isSame(before, tripleOf(walk, level)))
            break;
    }
}

void convertNode(Walk &walk, const UomStructNode *from, const UomStructNode *to) {
    if (walk.rounds.take())
        walk.value = uom_FromBase(uom_ToBase(walk.value, from, walk.rounds), to, walk.rounds);
}

// Walks the inside of a group again, all but its last node, kept.
void repeatGroup(Walk &walk, const GroupLevel &level, const UomStructNode *close, int64_t times) {
    for (; times > 0; --times) {
        const double before = walk.value;
        const bool pendingBefore = uomApiPending != 0;
        UomStruct from = level.from;
        UomStruct to = level.to;
        for (; from && to && from != close && from->next != close; from = from->next, to = to->next)
            convertNode(walk, from, to);
        if ((num_Same(before, walk.value) && !pendingBefore && !uomApiPending) || walk.rounds.exhausted)
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
    const bool linear = uomRunLinear != 0;
    if (power == 0 || power == 1) {
        level.factor = level.factor * uomRunFactor;
        level.offset = level.offset + uomRunOffset / uomRunFactor;
    } else if (linear && power > 1) {
        raiseLinearGroup(walk, level, power - 1);
    } else if (linear) {
        invertLinearGroup(walk, level, 1 - power);
    } else if (power > 1) {
        repeatGroup(walk, level, close, power - 1);
    }
    uomRunFactor = level.factor;
    uomRunOffset = level.offset;
    uomRunLinear = linear ? level.linear : 0;
}

} // namespace

double uom_ToBase(double value, const UomStructNode *node, Rounds &rounds) {
    if (num_IsNull(value))
        return value;
    if (isGravity(*node) && !num_Equal(value, -GRAVITY_SHIFT)) {
        if (node->multiplier != 0) {
            const double power = num_PowInt(10.0, node->multiplier);
            value = node->baseExponent < 0 ? value / power : value * power;
        }
        const UomStructNode relative = asSpecificGravity(*node);
        const double base = uom_ToBase(GRAVITY_SCALE / (value + GRAVITY_SHIFT), &relative, rounds);
        uomRunLinear = 0;
        return base;
    }
    double offset, factor;
    if (!scaleOf(*node, &offset, &factor, rounds))
        return value;
    if (uomRunLinear) {
        uomRunOffset += offset / uomRunFactor;
        uomRunFactor *= factor;
    }
    return (value + offset) * factor;
}

double uom_FromBase(double value, const UomStructNode *node, Rounds &rounds) {
    if (num_IsNull(value))
        return value;
    if (isGravity(*node) && !num_Equal(value, 0.0)) {
        const UomStructNode relative = asSpecificGravity(*node);
        value = uom_FromBase(value, &relative, rounds);
        uomApiExponent = node->baseExponent;
        uomApiMultiplier = node->multiplier;
        uomApiPending = 1;
        uomRunLinear = 0;
        return value;
    }
    double offset, factor;
    if (scaleOf(*node, &offset, &factor, rounds)) {
        value = value / factor;
        // An offset of zero or below is not taken off, kept; the running pair takes every offset.
        if (offset > 0.0)
            value = num_Equal(value, offset) ? 0.0 : value - offset;
        if (uomRunLinear) {
            uomRunOffset -= (offset * factor) / uomRunFactor;
            uomRunFactor /= factor;
        }
    }
    if (uomApiPending)
        value = completeGravity(value);
    uomApiPending = uomApiExponent = uomApiMultiplier = 0;
    return value;
}

double uom_ConvertFromTo(double value, UomStruct from, UomStruct to) {
    if (!from || !to || num_IsNull(value))
        return value;
    uomRunFactor = 1.0;
    uomRunOffset = 0.0;
    uomRunLinear = 1;
    Walk walk;
    walk.value = value;
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
    uomRunLinear = 0;
    return num_NullDouble();
}

#include "conversion/linear.h"

#include "conversion/engine.h"
#include "conversion/unit_factors.h"
#include "conversion/walk.h"

namespace uom {

namespace {

// The one and then the other. What cancels in an offset is to leave nothing.
Linear composed(const Linear &first, const Linear &second) {
    if (second.offset.high == 0.0)
        return {first.offset, first.factor * second.factor};
    return {wide_CleanSum(first.offset, second.offset / first.factor), first.factor * second.factor};
}

// The one and then the other backwards: y / factor - offset.
Linear undone(const Linear &first, const Linear &second) {
    const Wide factor = first.factor / second.factor;
    if (second.offset.high == 0.0)
        return {first.offset, factor};
    return {wide_CleanSum(first.offset, -(second.offset / factor)), factor};
}

Linear inverse(const Linear &line) {
    return {-(line.offset * line.factor), Wide{1.0, 0.0, 0} / line.factor};
}

Linear repeated(Linear line, uint64_t times) {
    Linear result;
    for (; times > 0; times >>= 1) {
        if (times & 1)
            result = composed(result, line);
        if (times > 1)
            line = composed(line, line);
    }
    return result;
}

// What the walk had come to when a group opened.
struct Level {
    Linear running;
    Linear value;
    bool together;
};

// The walk's state without a value: what became of it, and the running pair, by which groups are raised. The pair goes
// its own ways, kept: it takes off every offset, and it does not count all rounds.
struct Composer {
    const Catalogue &catalogue;
    Level *levels; // null when there is no group, and no need of the pair
    Linear value;
    Linear running;
    int32_t depth;
    bool together; // value and pair went the same way since the innermost group opened
};

// 0, 1 or 2 as scale_Exactly, or 3 when there is no exact answer.
int32_t scaleOf(const Catalogue &catalogue, const UomStructNode &node, Linear *scale) {
    if (gravity_Is(catalogue, node))
        return 3;
    UnitScale<Wide> exact;
    const int32_t status = scale_Exactly(catalogue, node, &exact);
    if (status == 0 && gravity_IsOfVapor(catalogue, node, node.unit))
        exact.factor = wide_OfConstant(VAPOR_GRAVITY_FACTOR);
    *scale = {exact.offset, exact.factor};
    return status;
}

bool composeNode(Composer &composer, const UomStructNode &from, const UomStructNode &to) {
    Linear scale;
    int32_t status = scaleOf(composer.catalogue, from, &scale);
    if (status == 0) {
        composer.value = composed(composer.value, scale);
        if (composer.levels)
            composer.running = composed(composer.running, scale);
    }
    if (status == 3)
        return false;
    status = scaleOf(composer.catalogue, to, &scale);
    if (status == 0) {
        if (composer.levels)
            composer.running = undone(composer.running, scale);
        composer.together = composer.together && scale.offset.high >= 0.0;
        if (scale.offset.high < 0.0)
            scale.offset = Wide();
        composer.value = undone(composer.value, scale);
    }
    return status != 3;
}

void openGroup(Composer &composer) {
    if (composer.depth++ >= MAX_OPEN_GROUPS || !composer.levels)
        return;
    composer.levels[composer.depth - 1] = {composer.running, composer.value, composer.together};
    composer.running = Linear();
    composer.together = true;
}

// The running pair's way of folding a group that is not inverted: its offset goes by the wrong factor, kept.
void fold(Linear &level, const Linear &group, int64_t times) {
    const Wide count = wide_Of(static_cast<double>(times));
    level.offset = wide_CleanSum(level.offset, group.offset / group.factor * count);
    level.factor = level.factor * wide_Power(group.factor, static_cast<uint64_t>(times));
}

void closeGroup(Composer &composer, int64_t power) {
    if (composer.depth == 0)
        return;
    if (composer.depth-- > MAX_OPEN_GROUPS || !composer.levels)
        return;
    Level &level = composer.levels[composer.depth];
    const Linear &group = composer.running;
    const bool once = power == 0 || power == 1;
    const bool together = level.together && composer.together && once && group.offset.high == 0.0;
    if (once) {
        fold(level.running, group, 1);
    } else if (power > 1) {
        composer.value = composed(composer.value, repeated(group, static_cast<uint64_t>(power - 1)));
        fold(level.running, group, power - 1);
    } else {
        const Linear back = inverse(group);
        const Linear rest = repeated(back, static_cast<uint64_t>(-power));
        // To go forth and back again would leave nothing of an offset beside a great factor.
        composer.value =
            composer.together ? composed(level.value, rest) : composed(composed(composer.value, back), rest);
        level.running = composed(level.running, composed(back, rest));
    }
    composer.running = level.running;
    composer.together = together;
}

bool hasGroup(const UomStructNode *node) {
    for (; node; node = node->next)
        if (node->classId == CLASS_OPEN)
            return true;
    return false;
}

bool composeAll(Composer &composer, const UomStructNode *from, const UomStructNode *to, Linear *out) {
    for (; from && to; from = from->next, to = to->next) {
        if (from->classId == CLASS_OPEN)
            openGroup(composer);
        else if (from->classId == CLASS_CLOSE)
            closeGroup(composer, from->exponent);
        else if (!composeNode(composer, *from, *to))
            return false;
    }
    *out = {composer.value.offset, wide_Clean(composer.value.factor)};
    return true;
}

} // namespace

bool linear_Compose(const Catalogue &catalogue, const UomStructNode *from, const UomStructNode *to, Linear *out) {
    Composer composer = {catalogue, nullptr, {}, {}, 0, true};
    if (!hasGroup(from))
        return composeAll(composer, from, to, out);
    Level levels[MAX_OPEN_GROUPS];
    composer.levels = levels;
    return composeAll(composer, from, to, out);
}

} // namespace uom

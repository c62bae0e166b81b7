#include "conversion/gravity.h"

#include <cmath>
#include "catalogue/class_rows.h"
#include "conversion/walk.h"
#include "support/fma.h"
#include "support/numbers.h"

namespace uom {

namespace {

// Between these a product of the line's few constants is far from the ends of the doubles' range.
constexpr double SMALLEST = 1e-60, GREATEST = 1e60;

// What the checks below count on. Of any other constants the walk alone knows what becomes.
bool areUsual(const NumberConstants &numbers) {
    return numbers.nullDoubleLimit <= -1e33 && numbers.relativeTol > 0.0 && numbers.relativeTol <= 1e-4 &&
           numbers.zeroLimit > 0.0 && numbers.zeroLimit <= 1e-3;
}

bool changesNothing(const ResolvedSide &side) {
    return !side.gravity &&
           (!side.ownScale.usable || (side.ownScale.scale.offset == 0.0 && side.ownScale.scale.factor == 1.0));
}

// The factor of a side that only multiplies; 0 when it does more, or is out of bounds.
double factorOf(const ResolvedSide &side) {
    const ResolvedScale &scale = side.gravity ? side.relativeScale : side.ownScale;
    if (scale.rounds != 0 || (side.gravity && side.nodeMultiplier != 0))
        return 0.0;
    if (!scale.usable)
        return 1.0;
    const double factor = scale.scale.factor;
    return scale.scale.offset == 0.0 && factor >= SMALLEST && factor <= GREATEST ? factor : 0.0;
}

// Keeps what comes of the line's input, times a product of factors, in bounds.
void narrow(GravityLine &line, double product, double least, double most) {
    line.least = std::fmax(line.least, least / product);
    line.most = std::fmin(line.most, most / product);
}

bool addStep(GravityLine &line, const ResolvedNode &node, double *product, const NumberConstants &numbers) {
    const double factor = factorOf(node.from), divisor = factorOf(node.to);
    if (factor == 0.0 || divisor == 0.0)
        return false;
    const double inverse = 1.0 / divisor;
    line.step[line.steps++] = {factor, divisor, inverse, fma_Once(-inverse, divisor, 1.0) / divisor};
    const double most = -numbers.nullDoubleLimit / 2;
    *product *= factor;
    // A gravity is made of what is not nearly 0.
    narrow(line, *product, node.to.gravity ? 2 * numbers.zeroLimit : 1e-200, most);
    *product /= divisor;
    narrow(line, *product, 1e-200, most);
    return true;
}

} // namespace

GravityLine gravity_Line(const ResolvedNodes &nodes, const NumberConstants &numbers) {
    constexpr GravityStep NOTHING = {1.0, 1.0, 1.0, 0.0};
    GravityLine line = {0, false, false, 0.0, 1e-30, 1e30, {NOTHING, NOTHING}};
    ResolvedNodes::Place place = nodes.begin();
    while (!nodes.atEnd(place) && place->classId != CLASS_OPEN && place->classId != CLASS_CLOSE &&
           changesNothing(place->from) && changesNothing(place->to))
        nodes.next(place);
    if (nodes.end - place < 1 || nodes.end - place > GRAVITY_NODES || !areUsual(numbers))
        return {};
    line.from = place->from.gravity;
    line.to = place->to.gravity;
    if (!line.from && !line.to)
        return {};
    line.margin = 4 * numbers.relativeTol * GRAVITY_SHIFT;
    double product = 1.0;
    for (bool first = true; !nodes.atEnd(place); nodes.next(place), first = false) {
        const bool group = place->classId == CLASS_OPEN || place->classId == CLASS_CLOSE;
        const bool gravity = place->from.gravity || place->to.gravity;
        if (group || (gravity && !first) || !addStep(line, *place, &product, numbers))
            return {};
    }
    return line;
}

} // namespace uom

#include "conversion/unit_factors.h"

#include "catalogue/class_table.h"
#include "catalogue/units.h"
#include "support/numbers.h"

namespace uom {

namespace {

struct Scale {
    double factor;
    double offset;
    bool hasOffset;
};

// With an offset the factor comes out to the power n + 2, kept: a squared temperature or pressure has no
// other defined meaning.
void raise(Scale &scale, int64_t n, Rounds &rounds) {
    if (n <= 1)
        return;
    if (!scale.hasOffset) {
        scale.factor = num_PowWhile(scale.factor, n, [&rounds] { return rounds.take(); });
        return;
    }
    double product = 1.0;
    double sum = 1.0;
    if (scale.factor == 1.0) {
        sum += static_cast<double>(n); // as the rounds would: whole numbers add up exactly
        n = 0;
    }
    for (; n > 0 && rounds.take(); --n) {
        const double next = product * scale.factor;
        const double nextSum = sum + next;
        if (next == product && nextSum == sum)
            break;
        product = next;
        sum = nextSum;
    }
    scale.offset = sum / product * scale.offset;
    scale.factor = scale.factor * product * scale.factor;
}

} // namespace

int32_t uom_UnitScale(const Catalogue &catalogue, int32_t classId, int32_t exponent, int32_t baseClass, int32_t unit,
                      int32_t baseExponent, int32_t multiplier, double *offset, double *factor, Rounds &rounds) {
    *offset = 0.0;
    *factor = 1.0;
    const UomClassRow *row = class_ValidRow(catalogue, classId);
    const UomClassRow *baseRow = class_ValidRow(catalogue, baseClass);
    if (!row || !baseRow)
        return 1;
    const UomUnit *record = unit_Record(catalogue, unit);
    if (!record)
        return 2;
    Scale scale = {record->factor, baseRow->hasOffset ? record->offset : 0.0, baseRow->hasOffset != 0};

    // In a composite class raised to a power the multiplier belongs to the class, and is raised along with
    // it.
    const bool split = multiplier != 0 && class_IsComposite(*row) && exponent != 0;
    const int64_t inner = split ? int64_t{baseExponent} / exponent : baseExponent;
    raise(scale, inner < 0 ? -inner : inner, rounds);
    if (multiplier != 0) {
        const double thousands = num_PowInt(10.0, multiplier);
        scale.factor = scale.factor * thousands;
        scale.offset = scale.offset / thousands;
    }
    if (split)
        raise(scale, num_Magnitude(exponent), rounds);
    if (baseExponent < 0) {
        scale.factor = 1.0 / scale.factor;
        scale.offset = 0.0 - scale.offset;
    }
    *offset = scale.offset;
    *factor = scale.factor;
    return 0;
}

} // namespace uom

#include "conversion/unit_factors.h"

#include "conversion/prepared.h"
#include "support/numbers.h"

namespace uom {

namespace {

// How double and Wide make powers: the one step by step, as the rounds allow, the other at once.
struct Stepwise {
    Rounds &rounds;

    static double one() { return 1.0; }
    static double thousands(int32_t multiplier) { return num_PowInt(10.0, multiplier); }
    double power(double factor, int64_t n) {
        return num_PowWhile(factor, n, [this] { return rounds.take(); });
    }
    // factor^n, and the sum of the powers from 0 to n.
    void powers(double factor, int64_t n, double *product, double *sum) {
        *product = *sum = 1.0;
        if (factor == 1.0) {
            *sum += static_cast<double>(n); // as the rounds would: whole numbers add up exactly
            n = 0;
        }
        for (; n > 0 && rounds.take(); --n) {
            const double next = *product * factor;
            const double nextSum = *sum + next;
            if (next == *product && nextSum == *sum)
                break;
            *product = next;
            *sum = nextSum;
        }
    }
};

struct AtOnce {
    static Wide one() { return wide_Of(1.0); }
    static Wide thousands(int32_t multiplier) {
        return wide_Power(wide_Of(10.0), static_cast<uint64_t>(num_Magnitude(multiplier)));
    }
    static Wide power(const Wide &factor, int64_t n) { return wide_Power(factor, static_cast<uint64_t>(n)); }
    // From the leading bit of n + 1 on: m terms double to 2m, and one is added where the bit stands.
    static void powers(const Wide &factor, int64_t n, Wide *product, Wide *sum) {
        const uint64_t terms = static_cast<uint64_t>(n) + 1;
        Wide raised = one(); // factor^m
        Wide total;          // the powers from 0 to m - 1
        for (int bit = static_cast<int>(std::bit_width(terms)) - 1; bit >= 0; --bit) {
            total = total + total * raised;
            raised = raised * raised;
            if (terms >> bit & 1) {
                total = total + raised;
                raised = raised * factor;
            }
        }
        *product = raised / factor;
        *sum = total;
    }
};

// With an offset the factor comes out to the power n + 2, kept: a squared temperature or pressure has no
// other defined meaning.
template <class Number, class Powers> void raise(UnitScale<Number> &scale, bool hasOffset, int64_t n, Powers &powers) {
    if (n <= 1)
        return;
    if (!hasOffset) {
        scale.factor = powers.power(scale.factor, n);
        return;
    }
    Number product, sum;
    powers.powers(scale.factor, n, &product, &sum);
    scale.offset = sum / product * scale.offset;
    scale.factor = scale.factor * product * scale.factor;
}

template <class Number, class Powers>
void applyPowers(UnitScale<Number> &scale, const UnitPowers &node, Powers powers) {
    const bool split = node.exponent != 0;
    const int64_t inner = split ? int64_t{node.baseExponent} / node.exponent : node.baseExponent;
    raise(scale, node.hasOffset, inner < 0 ? -inner : inner, powers);
    if (node.multiplier != 0) {
        const Number thousands = powers.thousands(node.multiplier);
        scale.factor = scale.factor * thousands;
        scale.offset = scale.offset / thousands;
    }
    if (split)
        raise(scale, node.hasOffset, num_Magnitude(node.exponent), powers);
    if (node.baseExponent < 0) {
        scale.factor = powers.one() / scale.factor;
        scale.offset = Number() - scale.offset;
    }
}

} // namespace

int32_t uom_UnitScale(const Catalogue &catalogue, int32_t classId, int32_t exponent, int32_t baseClass, int32_t unit,
                      int32_t baseExponent, int32_t multiplier, double *offset, double *factor, Rounds &rounds) {
    UnitScale<double> scale = {0.0, 1.0};
    UnitPowers powers;
    const int32_t status =
        scale_Constants(catalogue, classId, exponent, baseClass, unit, baseExponent, multiplier, &scale, &powers);
    // Powers of 1 and 0 are the unit itself.
    if (status == 0 && (multiplier != 0 || baseExponent < 0 || baseExponent > 1))
        applyPowers(scale, powers, Stepwise{rounds});
    *offset = scale.offset;
    *factor = scale.factor;
    return status;
}

int32_t scale_Exactly(const Catalogue &catalogue, const UomStructNode &node, UnitScale<Wide> *scale) {
    UnitScale<double> constants = {0.0, 1.0};
    UnitPowers powers;
    const int32_t status = scale_Constants(catalogue, node.classId, node.exponent, node.baseClass, node.unit,
                                           node.baseExponent, node.multiplier, &constants, &powers);
    *scale = {Wide(), AtOnce::one()};
    if (status != 0)
        return status;
    if (!std::isfinite(constants.offset) || !std::isfinite(constants.factor) || constants.factor == 0.0)
        return 3;
    *scale = {wide_OfConstant(constants.offset), wide_OfConstant(constants.factor)};
    applyPowers(*scale, powers, AtOnce());
    return 0;
}

} // namespace uom

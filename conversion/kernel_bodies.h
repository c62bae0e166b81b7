// The kernels over a machine's vectors. Included by the file of each machine, which is compiled with that machine's
// instructions: nothing here may be shared with any other file, so all is without a name outside, and calls no inline
// function of another header.
//
// What a machine tells of its vectors (REQUIRES in each file): Vector, Mask, WIDTH; set, add, sub, mul, div, fma; load and
// store of WIDTH doubles or floats, and of the first n of them; select(mask, yes, no), atLeast, above, both, either, any,
// all, absolute; rest(x, y, sum), what rounding left out of sum = x + y; and unusual(a, b, bound), true where a magnitude
// is above the bound and perhaps where one is NaN, for which the usual way is as good. Then Apart, the machine's vectors for
// values that lie apart, with loadApart and storeApart; FUSED, an instruction makes fma; and STREAMS with stream and fence, whole lines can be
// written past the caches.
#include <cfloat>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "conversion/kernels.h"
#include "support/fma.h"

namespace uom {

namespace {

inline constexpr size_t UNROLLED = 4;
inline constexpr size_t STRIDED_BLOCK = 64;

// From so many values on an array that is written and not read goes past the caches, which saves reading it: measured, a
// quarter to a half of the time. One that is converted in place has been read anyway.
inline constexpr size_t STREAMED = size_t{1} << 20;

template <class Element> inline Element elementAt(const Element *array, size_t i) {
    Element element;
    std::memcpy(&element, reinterpret_cast<const char *>(array) + i * sizeof element, sizeof element);
    return element;
}

template <class Element> inline void putElement(Element *array, size_t i, Element element) {
    std::memcpy(reinterpret_cast<char *>(array) + i * sizeof element, &element, sizeof element);
}

// The formulas, for one value and for a vector of usual ones -------------------------------------------------------

// NaN and no value come back.
struct Product {
    static constexpr bool USUAL = false;
    static double one(const Line &line, double x) { return x >= line.limit ? x * line.factor : x; }

    template <class M> struct Constants {
        typename M::Vector limit, factor;
        explicit Constants(const Line &line) : limit(M::set(line.limit)), factor(M::set(line.factor)) {}
        typename M::Vector operator()(typename M::Vector x) const {
            return M::select(M::atLeast(x, limit), M::mul(x, factor), x);
        }
    };
};

// The factor is split towards 0, so that the products of an infinity have one sign.
struct WideProduct {
    static constexpr bool USUAL = false;
    static double one(const Line &line, double x) {
        return x >= line.limit ? fma_Once(x, line.factor, x * line.factorRest) : x;
    }

    template <class M> struct Constants {
        typename M::Vector limit, factor, factorRest;
        explicit Constants(const Line &line)
            : limit(M::set(line.limit)), factor(M::set(line.factor)), factorRest(M::set(line.factorRest)) {}
        typename M::Vector operator()(typename M::Vector x) const {
            return M::select(M::atLeast(x, limit), M::fma(x, factor, M::mul(x, factorRest)), x);
        }
    };
};

// d = x + offset is rounded; what that left out, t, is exact. The sum of all that is small is added to d * factor with
// the one rounding that counts.
struct Shifted {
    static constexpr bool USUAL = true; // the vectors take usual values alone
    static double one(const Line &line, double x) {
        if (!(x >= line.limit && x <= DBL_MAX))
            return x < line.limit ? x : x * line.factor;
        const double d = x + line.offset;
        const double ofOffset = d - x;
        const double t = (x - (d - ofOffset)) + (line.offset - ofOffset);
        const double small = fma_Once(t, line.factor, fma_Once(d, line.factorRest, line.rest));
        return fma_Once(d, line.factor, small);
    }

    template <class M> struct Constants {
        typename M::Vector offset, factor, factorRest, rest;
        explicit Constants(const Line &line)
            : offset(M::set(line.offset)), factor(M::set(line.factor)), factorRest(M::set(line.factorRest)),
              rest(M::set(line.rest)) {}
        typename M::Vector operator()(typename M::Vector x) const {
            const typename M::Vector d = M::add(x, offset);
            const typename M::Vector t = M::rest(x, offset, d);
            return M::fma(d, factor, M::fma(t, factor, M::fma(d, factorRest, rest)));
        }
    };
};

// Arrays ------------------------------------------------------------------------------------------------------------

// The elements in front of the first whole cache line of the output: vectors that straddle two lines take twice as long.
template <class M, class Element> inline size_t unaligned(const Element *out, size_t count) {
    constexpr size_t BYTES = M::WIDTH * sizeof(Element), LEAST = 8;
    const size_t beyond = reinterpret_cast<uintptr_t>(out) % BYTES;
    if (count < LEAST * M::WIDTH || beyond % sizeof(Element) != 0)
        return 0;
    return beyond == 0 ? 0 : (BYTES - beyond) / sizeof(Element);
}

template <class Formula, class M, class Element>
inline void convertSome(const Line &line, const Element *in, Element *out, size_t count) {
    for (size_t i = 0; i < count; ++i)
        putElement(out, i, static_cast<Element>(Formula::one(line, static_cast<double>(elementAt(in, i)))));
}

template <class M, class Element> inline bool isStreamed(const Element *in, const Element *out, size_t count) {
    return M::STREAMS && sizeof(Element) == sizeof(double) && in != out && count >= STREAMED &&
           reinterpret_cast<uintptr_t>(out) % sizeof(Element) == 0;
}

// REQUIRES: a stream comes to a whole cache line.
template <class M, bool STREAM, class Element> inline void put(Element *out, typename M::Vector x) {
    if constexpr (STREAM && sizeof(Element) == sizeof(double))
        M::stream(out, x);
    else
        M::store(out, x);
}

// A formula that takes values of every kind.
template <class Formula, class M, bool STREAM, class Element>
inline void convertAny(const Line &line, const Element *in, Element *out, size_t count) {
    const typename Formula::template Constants<M> convert(line);
    size_t i = unaligned<M>(out, count);
    if (i > 0)
        M::storeSome(out, convert(M::loadSome(in, i)), i);
    for (; i + UNROLLED * M::WIDTH <= count; i += UNROLLED * M::WIDTH) {
        typename M::Vector x[UNROLLED];
        for (size_t k = 0; k < UNROLLED; ++k)
            x[k] = M::load(in + i + k * M::WIDTH);
        for (size_t k = 0; k < UNROLLED; ++k)
            put<M, STREAM>(out + i + k * M::WIDTH, convert(x[k]));
    }
    for (; i + M::WIDTH <= count; i += M::WIDTH)
        M::store(out + i, convert(M::load(in + i)));
    if (i < count)
        M::storeSome(out + i, convert(M::loadSome(in + i, count - i)), count - i);
}

// A formula for usual values; a block with an unusual one goes value by value.
template <class Formula, class M, bool STREAM, class Element>
inline void convertUsual(const Line &line, const Element *in, Element *out, size_t count) {
    const typename Formula::template Constants<M> convert(line);
    const typename M::Vector bound = M::set(line.bound);
    size_t i = unaligned<M>(out, count);
    if (i > 0)
        convertSome<Formula, M>(line, in, out, i);
    for (; i + UNROLLED * M::WIDTH <= count; i += UNROLLED * M::WIDTH) {
        typename M::Vector x[UNROLLED];
        for (size_t k = 0; k < UNROLLED; ++k)
            x[k] = M::load(in + i + k * M::WIDTH);
        if (M::any(M::either(M::unusual(x[0], x[1], bound), M::unusual(x[2], x[3], bound)))) {
            convertSome<Formula, M>(line, in + i, out + i, UNROLLED * M::WIDTH);
            continue;
        }
        for (size_t k = 0; k < UNROLLED; ++k)
            put<M, STREAM>(out + i + k * M::WIDTH, convert(x[k]));
    }
    for (; i + 2 * M::WIDTH <= count; i += 2 * M::WIDTH) {
        const typename M::Vector x = M::load(in + i), y = M::load(in + i + M::WIDTH);
        if (M::any(M::unusual(x, y, bound))) {
            convertSome<Formula, M>(line, in + i, out + i, 2 * M::WIDTH);
            continue;
        }
        M::store(out + i, convert(x));
        M::store(out + i + M::WIDTH, convert(y));
    }
    while (i < count) {
        const size_t n = count - i < M::WIDTH ? count - i : M::WIDTH;
        const typename M::Vector x = M::loadSome(in + i, n);
        if (M::any(M::unusual(x, x, bound)))
            convertSome<Formula, M>(line, in + i, out + i, n);
        else
            M::storeSome(out + i, convert(x), n);
        i += n;
    }
}

template <class Formula>
inline void convertSomeApart(const Line &line, const char *in, ptrdiff_t inStep, char *out, ptrdiff_t outStep,
                             size_t count) {
    for (; count > 0; --count, in += inStep, out += outStep) {
        double x;
        std::memcpy(&x, in, sizeof x);
        x = Formula::one(line, x);
        std::memcpy(out, &x, sizeof x);
    }
}

// Values that lie apart, two vectors at a time.
template <class Formula, class M>
inline void convertApart(const Line &line, const char *in, ptrdiff_t inStep, char *out, ptrdiff_t outStep,
                         size_t count) {
    const typename Formula::template Constants<M> convert(line);
    const typename M::Vector bound = M::set(line.bound);
    constexpr ptrdiff_t WIDTH = M::WIDTH;
    for (; count >= 2 * M::WIDTH; count -= 2 * M::WIDTH, in += 2 * WIDTH * inStep, out += 2 * WIDTH * outStep) {
        const typename M::Vector x = M::loadApart(in, inStep), y = M::loadApart(in + WIDTH * inStep, inStep);
        if (Formula::USUAL && M::any(M::unusual(x, y, bound))) {
            convertSomeApart<Formula>(line, in, inStep, out, outStep, 2 * M::WIDTH);
            continue;
        }
        M::storeApart(out, outStep, convert(x));
        M::storeApart(out + WIDTH * outStep, outStep, convert(y));
    }
    convertSomeApart<Formula>(line, in, inStep, out, outStep, count);
}

// Values that lie apart go through a block where they lie together.
template <class Many>
inline void convertStrided(const char *in, ptrdiff_t inStep, char *out, ptrdiff_t outStep, size_t count, Many many) {
    double block[STRIDED_BLOCK];
    while (count > 0) {
        const size_t n = count < STRIDED_BLOCK ? count : STRIDED_BLOCK;
        for (size_t i = 0; i < n; ++i, in += inStep)
            std::memcpy(block + i, in, sizeof(double));
        many(block, n);
        for (size_t i = 0; i < n; ++i, out += outStep)
            std::memcpy(out, block + i, sizeof(double));
        count -= n;
    }
}

template <class Formula> struct LineOperations {
    static double one(const UomConversion *conversion, double x) { return Formula::one(conversion->line, x); }
    template <class M>
    static void strided(const UomConversion *conversion, const char *in, ptrdiff_t inStep, char *out, ptrdiff_t outStep,
                        size_t count) {
        convertApart<Formula, M>(conversion->line, in, inStep, out, outStep, count);
    }
};

template <class Formula, class M> struct AnyOperations : LineOperations<Formula> {
    template <class Element>
    static void many(const UomConversion *conversion, const Element *in, Element *out, size_t count) {
        if (isStreamed<M>(in, out, count)) {
            convertAny<Formula, M, M::STREAMS>(conversion->line, in, out, count);
            M::fence();
        } else {
            convertAny<Formula, M, false>(conversion->line, in, out, count);
        }
    }
};

template <class Formula, class M> struct UsualOperations : LineOperations<Formula> {
    template <class Element>
    static void many(const UomConversion *conversion, const Element *in, Element *out, size_t count) {
        if (isStreamed<M>(in, out, count)) {
            convertUsual<Formula, M, M::STREAMS>(conversion->line, in, out, count);
            M::fence();
        } else {
            convertUsual<Formula, M, false>(conversion->line, in, out, count);
        }
    }
};

// API gravity -------------------------------------------------------------------------------------------------------

// x / divisor, rounded once. The first quotient is the nearest double or the one beside it; what it leaves of x is exact,
// and the nearest inverse then leads to the nearest quotient, as Markstein has shown.
template <class M> struct Divided {
    typename M::Vector divisor, inverse, inverseRest;
    explicit Divided(const GravityStep &step)
        : divisor(M::set(-step.divisor)), inverse(M::set(step.inverse)), inverseRest(M::set(step.inverseRest)) {}
    typename M::Vector operator()(typename M::Vector x) const {
        const typename M::Vector quotient = M::fma(x, inverse, M::mul(x, inverseRest));
        return M::fma(M::fma(quotient, divisor, x), inverse, quotient);
    }
};

template <class M> struct GravityVectors {
    using Vector = typename M::Vector;

    Vector scale, shift, margin, least, most, factors[GRAVITY_NODES];
    Divided<M> divided[GRAVITY_NODES];

    explicit GravityVectors(const GravityLine &line)
        : scale(M::set(GRAVITY_SCALE)), shift(M::set(GRAVITY_SHIFT)), margin(M::set(line.margin)),
          least(M::set(line.least)),
          most(M::set(line.most)), factors{M::set(line.step[0].factor), M::set(line.step[1].factor)},
          divided{Divided<M>(line.step[0]), Divided<M>(line.step[1])} {}

    // True when all values are usual, and have become what the walk makes of them.
    template <bool FROM, bool TO> bool convert(Vector *value) const {
        Vector x = *value;
        Vector distance = most;
        if constexpr (FROM) {
            distance = M::add(x, shift);
            x = M::div(scale, distance);
        }
        const Vector magnitude = M::absolute(x);
        typename M::Mask usual = M::both(M::atLeast(magnitude, least), M::atLeast(most, magnitude));
        if constexpr (FROM)
            usual = M::both(usual, M::above(M::absolute(distance), margin));
        for (int32_t i = 0; i < GRAVITY_NODES; ++i)
            x = divided[i](M::mul(x, factors[i]));
        if constexpr (TO) {
            x = M::sub(M::div(scale, x), shift);
            usual = M::both(usual, M::above(M::absolute(x), margin));
        }
        *value = x;
        return M::all(usual);
    }
};

template <class M> struct GravityOperations {
    static double one(const UomConversion *conversion, double value) { return walk_One(conversion, value); }

    template <bool FROM, bool TO, class Element>
    static void convert(const UomConversion *conversion, const Element *in, Element *out, size_t count) {
        const GravityVectors<M> line(conversion->gravity);
        size_t i = 0;
        for (; i + M::WIDTH <= count; i += M::WIDTH) {
            typename M::Vector x = M::load(in + i);
            if (line.template convert<FROM, TO>(&x))
                M::store(out + i, x);
            else
                walk(conversion, in + i, out + i, M::WIDTH);
        }
        walk(conversion, in + i, out + i, count - i);
    }

    template <class Element>
    static void walk(const UomConversion *conversion, const Element *in, Element *out, size_t count) {
        for (size_t i = 0; i < count; ++i)
            putElement(out, i, static_cast<Element>(walk_One(conversion, static_cast<double>(elementAt(in, i)))));
    }

    template <class Element>
    static void many(const UomConversion *conversion, const Element *in, Element *out, size_t count) {
        const GravityLine &line = conversion->gravity;
        if (line.from && line.to)
            convert<true, true>(conversion, in, out, count);
        else if (line.from)
            convert<true, false>(conversion, in, out, count);
        else
            convert<false, true>(conversion, in, out, count);
    }

    template <class>
    static void strided(const UomConversion *conversion, const char *in, ptrdiff_t inStep, char *out, ptrdiff_t outStep,
                        size_t count) {
        convertStrided(in, inStep, out, outStep, count,
                       [conversion](double *block, size_t n) { many<double>(conversion, block, block, n); });
    }
};

template <class Kind, class M> constexpr Operations operationsOf() {
    return {Kind::one, Kind::template many<double>, Kind::template many<float>,
            Kind::template strided<typename M::Apart>};
}

template <class M>
constexpr Kernels kernelsOf = {
    operationsOf<AnyOperations<Product, M>, M>(), operationsOf<AnyOperations<WideProduct, M>, M>(),
    operationsOf<UsualOperations<Shifted, M>, M>(), operationsOf<GravityOperations<M>, M>(), M::FUSED};

} // namespace

} // namespace uom

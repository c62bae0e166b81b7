// The kernels for every machine, and the choice of the widest.
#include <cmath>

#include "conversion/kernel_bodies.h"
#include "conversion/kernels.h"
#include "conversion/prepared.h"
#include "support/fma.h"

namespace uom {

namespace {

// A vector of one.
struct Portable {
    using Vector = double;
    using Mask = bool;
    static constexpr size_t WIDTH = 1;
#if defined(__x86_64__)
    static constexpr bool FUSED = false;
#else
    static constexpr bool FUSED = true; // std::fma is the instruction, or its own substitute
#endif
    static constexpr bool STREAMS = false;
    using Apart = Portable;

    static double set(double x) {
        return x;
    }
    template <class Element> static double load(const Element *from) {
        return static_cast<double>(elementAt(from, 0));
    }
    template <class Element> static void store(Element *to, double x) {
        putElement(to, 0, static_cast<Element>(x));
    }
    template <class Element> static double loadSome(const Element *from, size_t) {
        return load(from);
    }
    template <class Element> static void storeSome(Element *to, double x, size_t) {
        store(to, x);
    }

    static void stream(double *to, double x) {
        store(to, x);
    }
    static void fence() {}
    static double loadApart(const char *from, ptrdiff_t) {
        double x;
        std::memcpy(&x, from, sizeof x);
        return x;
    }
    static void storeApart(char *to, ptrdiff_t, double x) {
        std::memcpy(to, &x, sizeof x);
    }

    static double add(double a, double b) {
        return a + b;
    }
    static double sub(double a, double b) {
        return a - b;
    }
    static double mul(double a, double b) {
        return a * b;
    }
    static double div(double a, double b) {
        return a / b;
    }
    static double fma(double a, double b, double c) {
        return fma_Once(a, b, c);
    }
    static double absolute(double a) {
        return std::fabs(a);
    }
    static bool atLeast(double a, double b) {
        return a >= b;
    }
    static bool above(double a, double b) {
        return a > b;
    }
    static bool both(bool a, bool b) {
        return a && b;
    }
    static bool either(bool a, bool b) {
        return a || b;
    }
    static bool any(bool a) {
        return a;
    }
    static bool all(bool a) {
        return a;
    }
    static double select(bool mask, double yes, double no) {
        return mask ? yes : no;
    }
    static bool unusual(double a, double b, double bound) {
        return !(absolute(a) <= bound && absolute(b) <= bound);
    }
    static double rest(double x, double y, double sum) {
        const double ofY = sum - x;
        return (x - (sum - ofY)) + (y - ofY);
    }
};

} // namespace

static constexpr Kernels kernels = kernelsOf<Portable>;
const Kernels *const kernelsPortable = &kernels;

const Kernels &kernels_Widest() {
#if defined(__GNUC__) && defined(__x86_64__)
    __builtin_cpu_init();
    if (kernelsAvx512 && __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq") &&
        __builtin_cpu_supports("avx512vl"))
        return *kernelsAvx512;
    if (kernelsAvx2 && __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma"))
        return *kernelsAvx2;
#endif
    return *kernelsPortable;
}

} // namespace uom

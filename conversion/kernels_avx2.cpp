// The kernels for machines with AVX2 and FMA.
#include "conversion/kernels.h"

#if defined(__AVX2__) && defined(__FMA__)

#include <immintrin.h>

#include "conversion/kernel_bodies.h"

namespace uom {

namespace {

struct Avx2 {
    using Vector = __m256d;
    using Mask = __m256d;
    static constexpr size_t WIDTH = 4;

    static Vector set(double x) { return _mm256_set1_pd(x); }
    static Vector load(const double *from) { return _mm256_loadu_pd(from); }
    static Vector load(const float *from) { return _mm256_cvtps_pd(_mm_loadu_ps(from)); }
    static void store(double *to, Vector x) { _mm256_storeu_pd(to, x); }
    static void store(float *to, Vector x) { _mm_storeu_ps(to, _mm256_cvtpd_ps(x)); }
    template <class Element> static Vector loadSome(const Element *from, size_t n) {
        Element some[WIDTH] = {};
        std::memcpy(some, from, n * sizeof(Element));
        return load(some);
    }
    template <class Element> static void storeSome(Element *to, Vector x, size_t n) {
        Element some[WIDTH];
        store(some, x);
        std::memcpy(to, some, n * sizeof(Element));
    }

    static Vector add(Vector a, Vector b) { return _mm256_add_pd(a, b); }
    static Vector sub(Vector a, Vector b) { return _mm256_sub_pd(a, b); }
    static Vector mul(Vector a, Vector b) { return _mm256_mul_pd(a, b); }
    static Vector div(Vector a, Vector b) { return _mm256_div_pd(a, b); }
    static Vector fma(Vector a, Vector b, Vector c) { return _mm256_fmadd_pd(a, b, c); }
    static Vector absolute(Vector a) { return _mm256_andnot_pd(_mm256_set1_pd(-0.0), a); }
    static Mask atLeast(Vector a, Vector b) { return _mm256_cmp_pd(a, b, _CMP_GE_OQ); }
    static Mask above(Vector a, Vector b) { return _mm256_cmp_pd(a, b, _CMP_GT_OQ); }
    static Mask both(Mask a, Mask b) { return _mm256_and_pd(a, b); }
    static Mask either(Mask a, Mask b) { return _mm256_or_pd(a, b); }
    static bool any(Mask a) { return _mm256_movemask_pd(a) != 0; }
    static bool all(Mask a) { return _mm256_movemask_pd(a) == 0xF; }
    static Vector select(Mask mask, Vector yes, Vector no) { return _mm256_blendv_pd(no, yes, mask); }

    // The larger magnitude, of a NaN and a number the second.
    static Mask unusual(Vector a, Vector b, Vector bound) {
        return _mm256_cmp_pd(_mm256_max_pd(absolute(a), absolute(b)), bound, _CMP_NLE_UQ);
    }
    static Vector rest(Vector x, Vector y, Vector sum) {
        const Vector ofY = sub(sum, x);
        return add(sub(x, sub(sum, ofY)), sub(y, ofY));
    }
};

} // namespace

static constexpr Kernels kernels = kernelsOf<Avx2>;
const Kernels *const kernelsAvx2 = &kernels;

} // namespace uom

#else

namespace uom {
const Kernels *const kernelsAvx2 = nullptr;
}

#endif

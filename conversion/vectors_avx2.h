// Vectors of AVX2 with FMA, for conversion/kernel_bodies.h. Included by files that are compiled with these instructions.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized" // what the header leaves undefined by intention, GCC 12 reports
#endif
#include <immintrin.h>
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic pop
#endif

#include <cstddef>
#include <cstring>

namespace uom {

namespace {

struct Avx2 {
    using Vector = __m256d;
    using Mask = __m256d;
    static constexpr size_t WIDTH = 4;

    static constexpr bool FUSED = true, STREAMS = true;
    using Apart = Avx2;

    static Vector set(double x) { return _mm256_set1_pd(x); }
    static Vector load(const double *from) { return _mm256_loadu_pd(from); }
    static Vector load(const float *from) { return _mm256_cvtps_pd(_mm_loadu_ps(from)); }
    static void store(double *to, Vector x) { _mm256_storeu_pd(to, x); }
    static void store(float *to, Vector x) { _mm_storeu_ps(to, _mm256_cvtpd_ps(x)); }
    static void stream(double *to, Vector x) { _mm256_stream_pd(to, x); }
    static void fence() { _mm_sfence(); }
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

    static double at(const char *from) {
        double x;
        std::memcpy(&x, from, sizeof x);
        return x;
    }
    static Vector loadApart(const char *from, ptrdiff_t step) {
        return _mm256_setr_pd(at(from), at(from + step), at(from + 2 * step), at(from + 3 * step));
    }
    static void storeApart(char *to, ptrdiff_t step, Vector x) {
        const __m128d low = _mm256_castpd256_pd128(x), high = _mm256_extractf128_pd(x, 1);
        put(to, low);
        put(to + step, _mm_unpackhi_pd(low, low));
        put(to + 2 * step, high);
        put(to + 3 * step, _mm_unpackhi_pd(high, high));
    }
    // A step may be any, so the place may be unaligned.
    static void put(char *to, __m128d x) {
        const double value = _mm_cvtsd_f64(x);
        std::memcpy(to, &value, sizeof value);
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

} // namespace uom

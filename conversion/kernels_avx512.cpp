// The kernels for machines with AVX-512 (F, DQ, VL).
#include "conversion/kernels.h"

// GCC 12 lays variables of 64 bytes out of line when it watches the use of a stack after return (its bug 110027).
#if defined(__SANITIZE_ADDRESS__) && !defined(__clang__)
#define UOM_NO_WIDE_VARIABLES
#endif

#if defined(__AVX512F__) && defined(__AVX512DQ__) && defined(__AVX512VL__) && !defined(UOM_NO_WIDE_VARIABLES)

#include "conversion/kernel_bodies.h"
#include "conversion/vectors_avx2.h"

namespace uom {

namespace {

constexpr int MAX_MAGNITUDE = 0xB, MAX_WITH_SIGN = 0x7, MIN_WITH_SIGN = 0x6; // of the range instruction

// Half the width, for values that lie apart: no width has instructions that gather faster.
struct Avx512Half : Avx2 {
    static Mask unusual(Vector a, Vector b, Vector bound) {
        return _mm256_cmp_pd(_mm256_range_pd(a, b, MAX_MAGNITUDE), bound, _CMP_NLE_UQ);
    }
    static Vector rest(Vector x, Vector y, Vector sum) {
        const Vector larger = _mm256_range_pd(x, y, MAX_WITH_SIGN), smaller = _mm256_range_pd(x, y, MIN_WITH_SIGN);
        return sub(smaller, sub(sum, larger));
    }
};

struct Avx512 {
    using Vector = __m512d;
    using Mask = __mmask8;
    static constexpr size_t WIDTH = 8;
    static constexpr bool FUSED = true, STREAMS = true;
    using Apart = Avx512Half;

    static Mask first(size_t n) { return static_cast<Mask>((1u << n) - 1); }
    static Vector set(double x) { return _mm512_set1_pd(x); }
    static Vector load(const double *from) { return _mm512_loadu_pd(from); }
    static Vector load(const float *from) { return _mm512_cvtps_pd(_mm256_loadu_ps(from)); }
    static void store(double *to, Vector x) { _mm512_storeu_pd(to, x); }
    static void store(float *to, Vector x) { _mm256_storeu_ps(to, _mm512_cvtpd_ps(x)); }
    static void stream(double *to, Vector x) { _mm512_stream_pd(to, x); }
    static void fence() { _mm_sfence(); }
    static Vector loadSome(const double *from, size_t n) { return _mm512_maskz_loadu_pd(first(n), from); }
    static Vector loadSome(const float *from, size_t n) {
        return _mm512_cvtps_pd(_mm256_maskz_loadu_ps(first(n), from));
    }
    static void storeSome(double *to, Vector x, size_t n) { _mm512_mask_storeu_pd(to, first(n), x); }
    static void storeSome(float *to, Vector x, size_t n) { _mm256_mask_storeu_ps(to, first(n), _mm512_cvtpd_ps(x)); }

    static Vector add(Vector a, Vector b) { return _mm512_add_pd(a, b); }
    static Vector sub(Vector a, Vector b) { return _mm512_sub_pd(a, b); }
    static Vector mul(Vector a, Vector b) { return _mm512_mul_pd(a, b); }
    static Vector div(Vector a, Vector b) { return _mm512_div_pd(a, b); }
    static Vector fma(Vector a, Vector b, Vector c) { return _mm512_fmadd_pd(a, b, c); }
    static Vector absolute(Vector a) { return _mm512_abs_pd(a); }
    static Mask atLeast(Vector a, Vector b) { return _mm512_cmp_pd_mask(a, b, _CMP_GE_OQ); }
    static Mask above(Vector a, Vector b) { return _mm512_cmp_pd_mask(a, b, _CMP_GT_OQ); }
    static Mask both(Mask a, Mask b) { return a & b; }
    static Mask either(Mask a, Mask b) { return a | b; }
    static bool any(Mask a) { return a != 0; }
    static bool all(Mask a) { return a == 0xFF; }
    static Vector select(Mask mask, Vector yes, Vector no) { return _mm512_mask_mov_pd(no, mask, yes); }

    // The larger magnitude, of a NaN and a number the number.
    static Mask unusual(Vector a, Vector b, Vector bound) {
        return _mm512_cmp_pd_mask(_mm512_range_pd(a, b, MAX_MAGNITUDE), bound, _CMP_NLE_UQ);
    }
    // The term of the smaller magnitude less what the sum took of it.
    static Vector rest(Vector x, Vector y, Vector sum) {
        const Vector larger = _mm512_range_pd(x, y, MAX_WITH_SIGN), smaller = _mm512_range_pd(x, y, MIN_WITH_SIGN);
        return sub(smaller, sub(sum, larger));
    }
};

} // namespace

static constexpr Kernels kernels = kernelsOf<Avx512>;
const Kernels *const kernelsAvx512 = &kernels;

} // namespace uom

#else

namespace uom {
const Kernels *const kernelsAvx512 = nullptr;
}

#endif

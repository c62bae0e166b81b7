#include "conversion/array_kernels.h"

#include <atomic>
#include <cstdint>

namespace uom {

// One body, compiled for each width of vectors. An addition before a multiplication never fuses, so all agree.
#if defined(__GNUC__)
__attribute__((always_inline))
#endif
static inline void
convert(double *values, size_t count, double offset, double factor) {
    for (size_t i = 0; i < count; ++i)
        values[i] = (values[i] + offset) * factor;
}

#if defined(__GNUC__) && defined(__x86_64__)

static constexpr size_t CACHE_LINE = 64;

using Kernel = void (*)(double *, size_t, double, double);

static void convertPlain(double *values, size_t count, double offset, double factor) {
    convert(values, count, offset, factor);
}

__attribute__((target("avx2"))) static void convertAvx2(double *values, size_t count, double offset, double factor) {
    convert(values, count, offset, factor);
}

#if defined(__clang__)
#define WIDEST "avx512f"
#else
#define WIDEST "avx512f,prefer-vector-width=512"
#endif

__attribute__((target(WIDEST))) static void convertAvx512(double *values, size_t count, double offset, double factor) {
    convert(values, count, offset, factor);
}

static Kernel chooseKernel() {
    __builtin_cpu_init();
    if (__builtin_cpu_supports("avx512f"))
        return convertAvx512;
    return __builtin_cpu_supports("avx2") ? convertAvx2 : convertPlain;
}

// Made with the first array. Threads that come at once all choose the same.
static std::atomic<Kernel> arrayKernel = nullptr;

static Kernel kernelOfMachine() {
    Kernel kernel = arrayKernel.load(std::memory_order_relaxed);
    if (!kernel) {
        kernel = chooseKernel();
        arrayKernel.store(kernel, std::memory_order_relaxed);
    }
    return kernel;
}

// The widest vectors are a cache line: where they straddle two, half of their speed is gone.
void array_ConvertLinear(double *values, size_t count, double offset, double factor) {
    const Kernel kernel = kernelOfMachine();
    for (; count > 0 && reinterpret_cast<uintptr_t>(values) % CACHE_LINE != 0; ++values, --count)
        *values = (*values + offset) * factor;
    kernel(values, count, offset, factor);
}

#else

void array_ConvertLinear(double *values, size_t count, double offset, double factor) {
    convert(values, count, offset, factor);
}

#endif

} // namespace uom

// The loop over arrays.
#include <cmath>
#include <cstring>

#include "conversion/array_kernels.h"
#include "tests/library_fixture.h"

namespace {

TEST(ArrayKernels, WideVectorsAreBitForBitTheScalar) {
    const double pairs[][2] = {{0, 100}, {273.15, 1.8}, {-459.67, 5 / 9.0}, {1e-300, -1e-20}, {1e200, 1e200}};
    std::vector<double> buffer(80 + 8), expected(buffer.size());
    for (const auto &pair : pairs)
        for (size_t length = 0; length <= 70; ++length)
            for (size_t start = 0; start < 8; ++start) {
                for (size_t i = 0; i < buffer.size(); ++i)
                    expected[i] = buffer[i] =
                        std::ldexp(1.0 / (static_cast<double>(i) - 40.5), static_cast<int>((i * 37) % 200) - 100);
                buffer[start] = expected[start] = -0.0;
                for (size_t i = start; i < start + length; ++i) {
                    const volatile double sum = expected[i] + pair[0];
                    expected[i] = sum * pair[1];
                }
                array_ConvertLinear(buffer.data() + start, length, pair[0], pair[1]);
                ASSERT_EQ(std::memcmp(buffer.data(), expected.data(), sizeof(double) * buffer.size()), 0)
                    << "length " << length << " from " << start;
            }
}

} // namespace

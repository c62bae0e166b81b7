// The operations by which hosts convert: between slates, by plain texts, whole arrays.
#include <cmath>
#include <cstring>

#include "conversion/array_kernels.h"
#include "tests/library_fixture.h"

namespace {

class EntryPointsTest : public ShippedTest {};

TEST_F(EntryPointsTest, StatusesAndMessagesOfTexts) {
    const struct {
        const char *classString, *from, *to;
        int32_t status;
        const char *message;
    } cases[] = {
        {"Leng", "m", "cm", 0, nullptr},
        {"Leng", "English", "Metric", 0, nullptr}, // a slate's name stands for its units
        {nullptr, "m", "cm", 1, "Invalid input arguments detected in function uoms_ConvertArray()."},
        {"Lengo", "m", "cm", 2, "Parsing UOM class string \"Lengo\" but unable to identify the UOM class \"Lengo\"."},
        {"(Leng", "m", "cm", 2, "Parentheses do not balance in UOM class string \"(Leng\"."},
        {"Leng", "kg", "cm", 3, "UOM string \"kg\": unidentified UOM for UOM class \"Leng\"."},
        {"Leng", "m", "kg", 4, "UOM string \"kg\": unidentified UOM for UOM class \"Leng\"."},
        {"Leng", "m2", "cm", 3, "UOM string \"m2\" at character 2: expecting an exponent of 1 but found 2 instead."},
        {"Leng Mass", "m", "cm-g", 3, "UOM string \"m\" is incomplete. Expecting more characters."},
        {"Leng", "m", "cm-g", 4, "UOM string \"cm-g\" at character 4: extra characters \"g\" were found at the end."}};
    for (const auto &c : cases) {
        SCOPED_TRACE(testing::Message() << c.classString << " " << c.from << " " << c.to);
        double values[2] = {2, 4}, factor = 5, offset = 6;
        error_Set("none");
        EXPECT_EQ(uoms_ConvertArray(values, 2, c.classString, c.from, c.to), c.status);
        if (c.message) {
            EXPECT_EQ(lastError(), c.message);
            EXPECT_EQ(values[0] + values[1], 6) << "changed by a failure";
        }
        uomRunFactor = 11, uomRunOffset = 12;
        error_Set("none");
        EXPECT_EQ(uoms_CalculateConvConstants(c.classString, c.from, c.to, &factor, &offset), c.status);
        if (c.message) {
            EXPECT_EQ(lastError(), c.message);
            EXPECT_EQ(factor, 11); // what the last conversion left
            EXPECT_EQ(offset, 12);
        } else {
            EXPECT_NEAR((2 + offset) * factor, values[0], 1e-12 * values[0]);
            EXPECT_NEAR((4 + offset) * factor, values[1], 1e-12 * values[1]);
        }
    }
}

TEST_F(EntryPointsTest, BadArraysAndUnlinearConstants) {
    double value = 3, factor = 0, offset = 0;
    EXPECT_EQ(uoms_ConvertArray(&value, 0, "Leng", "m", "cm"), 1);
    EXPECT_EQ(lastError(), "Invalid input arguments detected in function uoms_ConvertArray().");
    EXPECT_EQ(uom_ConvertArray(&value, -1, nullptr, nullptr), 1);
    EXPECT_EQ(uoms_ConvertArray(nullptr, 1, "Leng", "m", "cm"), 1);
    EXPECT_EQ(uom_ConvertArray(nullptr, 1, nullptr, nullptr), 1);
    EXPECT_EQ(uom_ConvertArray(&value, 1, nullptr, nullptr), 0);
    EXPECT_EQ(value, 3);
    EXPECT_EQ(uoms_CalculateConvConstants("PetroDensity", "API", "kg/m3", &factor, &offset), 5);
    EXPECT_EQ(uoms_CalculateConvConstants("PetroDensity", "spgr", "kg/m3", &factor, &offset), 0);
    EXPECT_EQ(uoms_CalculateConvConstants("Temp", "C", "F", &factor, &offset), 0);
    EXPECT_NEAR((100 + offset) * factor, 212, 1e-11);
    EXPECT_NEAR(factor, 1.8, 1e-15);
}

// The array path works by the running pair, which lacks a factor for a powered group; one element alone does
// not.
TEST_F(EntryPointsTest, ArraysReproduceTheRunningPair) {
    const Chain m("(Leng) 2", {"m"}), cm("(Leng) 2", {"cm"});
    double values[] = {3, 3, 5}, single[] = {3, 3};
    EXPECT_EQ(uom_ConvertArray(values, 3, m.head, cm.head), 0);
    EXPECT_NEAR(values[0], 3e4, 1e-8);
    EXPECT_NEAR(values[1], 3e2, 1e-10);
    EXPECT_NEAR(values[2], 5e2, 1e-10);
    EXPECT_EQ(uom_ConvertArray(single, 1, m.head, cm.head), 0);
    EXPECT_NEAR(single[0], 3e4, 1e-8);
    EXPECT_EQ(single[1], 3);
}

TEST_F(EntryPointsTest, WideVectorsAreBitForBitTheScalar) {
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

TEST_F(EntryPointsTest, BetweenSlates) {
    const Chain chain("Leng / Time", {"cm", "min"});
    EXPECT_EQ(uom_Convert(3, nullptr, UOM_SET_SI, UOM_SET_ENGLISH), 3);
    EXPECT_NEAR(uom_Convert(1, chain.head, UOM_SET_ENGLISH, UOM_SET_SI), 0.3048 / 3600, 1e-16);
    // Current stands for the chain's own units, whatever the slate holds.
    EXPECT_NEAR(uom_ConvertFromCurrent(6000, chain.head), 1, 1e-12);
    EXPECT_NEAR(uom_ConvertToCurrent(1, chain.head), 6000, 1e-9);
    EXPECT_NEAR(uom_Convert(6000, chain.head, UOM_SET_CURRENT, UOM_SET_INTERNAL), 1, 1e-12);
    // The value of a class starts from the units of Current, English here, or from an array over them.
    int32_t units[] = {uom_GetUnitType("cm")};
    const int32_t leng = classOf("Leng");
    EXPECT_NEAR(uom_ConvertValue(leng, nullptr, UOM_SET_CURRENT, UOM_SET_INTERNAL, 1), 0.3048, 1e-15);
    EXPECT_NEAR(uom_ConvertValue(leng, units, UOM_SET_CURRENT, UOM_SET_INTERNAL, 1), 0.01, 1e-16);
    EXPECT_EQ(uom_ConvertValue(-4, nullptr, UOM_SET_ENGLISH, UOM_SET_SI, 1), 1);
}

} // namespace

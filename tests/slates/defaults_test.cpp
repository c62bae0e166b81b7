// The defaults that a slate states, by number and by text.
#include "slates/defaults.h"

#include "tests/library_fixture.h"

namespace {

class DefaultsTest : public ShippedTest {
protected:
    void SetUp() override {
        ShippedTest::SetUp();
        plant = newSlate("Plant", "Metric");
    }
    int32_t plant = -1;
};

TEST_F(DefaultsTest, WrittenAndReadByText) {
    const struct {
        const char *className, *value, *read;
    } cases[] = {// clang-format off
        {"Temp", "f", "F"}, {"temperature", "K", "K"}, // a long name
        {"Mass", "M lb", "M lb"}, {"Mass", "MM lb", "MM lb"}, {"Mass", "k*kg", "k*kg"}, {"Mass", "M*kg", "M*kg"},
        {"Mass", "", ""}, {"Mass", nullptr, ""}, {"Rate", "MM BBL / day", "MM BBL/day"}, {"Rate", "lb/hr", "lb/hr"},
        {"Density", "lb/ft3", "lb/ft3"}, {"Density", nullptr, ""}, {"PetroDensity", "API", "API"},
        {"MassFlux", "(lb/ft2)-day", nullptr}, // a sign that does not fit is no matter in a composite
        {"Permeability", "darcy", "darcy"}, // a custom class with units of its own
        {"Power", "KVAR", "KVAR"}, {"Density", "English", "lb/ft3"}, // a slate's name
        {"GaugePresBasis", "99", "99"}, {"ISHIDDEN", "1", "1"}};
    // clang-format on
    for (const auto &c : cases) {
        SCOPED_TRACE(testing::Message() << c.className << " " << c.value);
        error_Set("old");
        EXPECT_EQ(uoms_SetClassDefault("pLANT", c.className, c.value), 0);
        EXPECT_EQ(lastError(), "");
        error_Set("old");
        const std::string read = stated("Plant", c.className);
        EXPECT_EQ(lastError(), "");
        if (c.read) {
            EXPECT_EQ(read, c.read);
            EXPECT_EQ(uoms_IsClassDefault(c.className, "PLANT", c.read), 1);
            EXPECT_EQ(uoms_IsClassDefault(c.className, "Plant", "?"), 0);
        }
    }
    ASSERT_TRUE(state("Plant", "Pres", "kPa"));
    EXPECT_EQ(uoms_IsClassDefault("Pres", "Plant", "kpa"), 0); // letters' case counts here
}

TEST_F(DefaultsTest, FailuresAndMessages) {
    ASSERT_TRUE(state("Plant", "Temp", "F"));
    ASSERT_TRUE(state("Plant", "Density", "lb/ft3"));
    char out[16];
    const struct {
        const char *slate, *className, *value;
        int32_t status;
        const char *message;
    } writes[] = {
        {nullptr, nullptr, "C", 1, "Unit-of-Measure slate is missing or blank."},
        {"", "Temp", "C", 1, "Unit-of-Measure slate is missing or blank."},
        {"Nosuch", nullptr, "C", 1, "Unit-of-Measure class is missing or blank."},
        {"Plant", "", "C", 1, "Unit-of-Measure class is missing or blank."},
        {"Nosuch", "Nosuch", "C", 1, "Unrecognized Unit-of-Measure slate \"Nosuch\"."},
        {"Plant", "Nosuch", "C", 1, "Unrecognized Unit-of-Measure class \"Nosuch\"."},
        {"Plant", "Temp 2", "C", 1, "Unrecognized Unit-of-Measure class \"Temp 2\"."},
        {"Plant", "Temp", "lb", 2, "UOM string \"lb\": unidentified UOM for UOM class \"Temp\"."},
        {"Plant", "Temp", "C-kg", 4,
         "UOM string \"C-kg\" at character 3: extra characters \"kg\" were found at the end."},
        {"Plant", "Density", "kg", 3, "UOM string \"kg\" is incomplete. Expecting more characters."},
        {"Plant", "Density", "g*kg/m3", 5, "UOM string \"g*kg/m3\" at character 1: unidentified UOM multiplier."}};
    for (const auto &c : writes) {
        SCOPED_TRACE(c.message);
        EXPECT_EQ(uoms_SetClassDefault(c.slate, c.className, c.value), c.status);
        EXPECT_EQ(lastError(), c.message);
    }
    EXPECT_EQ(stated("Plant", "Temp"), "F");
    EXPECT_EQ(stated("Plant", "Density"), "lb/ft3");
    const struct {
        const char *slate, *className;
        int32_t length, status;
        const char *message;
    } reads[] = {{nullptr, "", 0, 1, "Unit-of-Measure slate is missing or blank."},
                 {"Nosuch", nullptr, 0, 1, "Unit-of-Measure class is missing or blank."},
                 {"Nosuch", "Temp", 0, 1, "Unrecognized Unit-of-Measure slate \"Nosuch\"."},
                 {"Plant", "Temp", 0, 1, "Output buffer for Unit-of-Measure is not specified."},
                 {"Plant", "Nosuch", 16, 1, ""}, // unlike the write
                 {"Plant", "Temp", 16, 0, ""}};
    for (const auto &c : reads) {
        EXPECT_EQ(uoms_GetClassDefault(c.slate, c.className, out, c.length), c.status);
        EXPECT_EQ(lastError(), c.message);
    }
}

} // namespace

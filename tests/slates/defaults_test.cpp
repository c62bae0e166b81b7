// The defaults that a slate states, by number and by text.
#include "slates/defaults.h"

#include "slates/properties.h"
#include "tests/library_fixture.h"

namespace {

class DefaultsTest : public ShippedTest {
protected:
    void SetUp() override {
        ShippedTest::SetUp();
        plant = NewSlate("Plant", "Metric");
    }
    int32_t plant = -1;
};

TEST_F(DefaultsTest, WrittenAndReadByText) {
    const struct {
        const char *className, *value, *read;
    } cases[] = {{"Temp", "f", "F"},
                 {"temperature", "K", "K"}, // a long name
                 {"Mass", "M lb", "M lb"},
                 {"Mass", "MM lb", "MM lb"},
                 {"Mass", "k*kg", "k*kg"},
                 {"Mass", "M*kg", "M*kg"},
                 {"Mass", "", ""},
                 {"Mass", nullptr, ""},
                 {"Rate", "MM BBL / day", "MM BBL/day"},
                 {"Rate", "lb/hr", "lb/hr"},
                 {"Density", "lb/ft3", "lb/ft3"},
                 {"Density", nullptr, ""},
                 {"PetroDensity", "API", "API"},
                 {"MassFlux", "(lb/ft2)-day", nullptr}, // a sign that does not fit is no matter in a composite
                 {"Permeability", "darcy", "darcy"},    // a custom class with units of its own
                 {"Power", "KVAR", "KVAR"},
                 {"Density", "English", "lb/ft3"}, // a slate's name
                 {"GaugePresBasis", "99", "99"},
                 {"ISHIDDEN", "1", "1"}};
    for (const auto &c : cases) {
        SCOPED_TRACE(testing::Message() << c.className << " " << c.value);
        error_Set("old");
        EXPECT_EQ(uoms_SetClassDefault("pLANT", c.className, c.value), 0);
        EXPECT_EQ(Message(), "");
        error_Set("old");
        const std::string read = Stated("Plant", c.className);
        EXPECT_EQ(Message(), "");
        if (c.read) {
            EXPECT_EQ(read, c.read);
            EXPECT_EQ(uoms_IsClassDefault(c.className, "PLANT", c.read), 1);
            EXPECT_EQ(uoms_IsClassDefault(c.className, "Plant", "?"), 0);
        }
    }
    ASSERT_TRUE(State("Plant", "Pres", "kPa"));
    EXPECT_EQ(uoms_IsClassDefault("Pres", "Plant", "kpa"), 0); // letters' case counts here
}

TEST_F(DefaultsTest, FailuresAndMessages) {
    ASSERT_TRUE(State("Plant", "Temp", "F"));
    ASSERT_TRUE(State("Plant", "Density", "lb/ft3"));
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
        EXPECT_EQ(Message(), c.message);
    }
    EXPECT_EQ(Stated("Plant", "Temp"), "F");
    EXPECT_EQ(Stated("Plant", "Density"), "lb/ft3");
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
        EXPECT_EQ(Message(), c.message);
    }
    EXPECT_EQ(uoms_GetClassDefault("Plant", "Temp", nullptr, 16), 1);
    EXPECT_EQ(Message(), "Output buffer for Unit-of-Measure is not specified.");
}

TEST_F(DefaultsTest, WrittenByNumber) {
    const int32_t classes = uom_GetUOMClassCount(), temp = ClassOf("Temp"), density = ClassOf("Density");
    int32_t units[3] = {uom_GetUnitType("F")}, multipliers[3] = {};
    for (const int32_t slate : {0, -1, UOM_SET_MAX})
        EXPECT_EQ(uom_SetClassDefault(slate, temp, units, multipliers), 1);
    for (const int32_t classId : {0, -1, classes})
        EXPECT_EQ(uom_SetClassDefault(plant, classId, units, multipliers), 1);
    EXPECT_EQ(uom_SetClassDefault(plant, temp, units, multipliers), 0);
    EXPECT_EQ(Stated("Plant", "Temp"), "F");
    units[0] = uom_GetUnitType("lb");
    multipliers[0] = 4; // a power of ten without a row: the unit stands alone
    EXPECT_EQ(uom_SetClassDefault(plant, ClassOf("Mass"), units, multipliers), 0);
    EXPECT_EQ(Stated("Plant", "Mass"), "lb");
    // A composite class: slots left open are filled from the parents, an unset class reads as nothing.
    EXPECT_EQ(Stated("Metric", "Density"), "kg/m3");
    EXPECT_EQ(Stated("Plant", "Density"), "");
    multipliers[0] = 3;
    EXPECT_EQ(uom_SetClassDefault(plant, density, units, multipliers), 0);
    EXPECT_EQ(Stated("Plant", "Density"), "M lb/m3");
    units[0] = 0;
    EXPECT_EQ(uom_SetClassDefault(plant, density, units, multipliers), 0);
    EXPECT_EQ(Stated("Plant", "Density"), "");
    EXPECT_EQ(uom_SetClassDefault(plant, density, nullptr, nullptr), 0);
    EXPECT_EQ(uom_SetClassDefault(plant, temp, nullptr, nullptr), 1);

    char out[8] = "#";
    EXPECT_EQ(uom_GetClassDefault(plant, temp, out, 0), 1);
    EXPECT_EQ(uom_GetClassDefault(plant, temp, nullptr, 8), 1);
    for (const int32_t bad : {0, -1, classes}) {
        out[0] = '#';
        EXPECT_EQ(uom_GetClassDefault(plant, bad, out, 8), 1);
        EXPECT_STREQ(out, "");
    }
    for (const int32_t bad : {0, -1, UOM_SET_MAX})
        EXPECT_EQ(uom_GetClassDefault(bad, temp, out, 8), 1);
    ASSERT_TRUE(State("Plant", "Mass", "MM tons"));
    ASSERT_TRUE(State("Plant", "Density", "lb/ft3"));
    const std::string mass = "MM tons", lb = "lb/ft3";
    for (int32_t size = 1; size < 8; ++size) {
        EXPECT_EQ(uom_GetClassDefault(plant, ClassOf("Mass"), out, size), 0);
        EXPECT_EQ(out, mass.substr(0, static_cast<size_t>(size) - 1));
        EXPECT_EQ(uom_GetClassDefault(plant, density, out, size), 0);
        EXPECT_EQ(out, lb.substr(0, static_cast<size_t>(size) - 1));
    }
}

TEST_F(DefaultsTest, StylesOfScanAndDisplay) {
    EXPECT_EQ(uoms_PutServerProperty("defaultScanClassStyle", "keyword"), 0);
    EXPECT_EQ(uoms_PutServerProperty("defaultScanUOMStyle", "keyword"), 0);
    EXPECT_EQ(uoms_PutServerProperty("defaultDisplayStyle", "tokenupper"), 1);
    EXPECT_EQ(uoms_SetClassDefault("Plant", "TEMP", "F"), 0);
    EXPECT_EQ(Stated("Plant", "TEMP"), "F");
    EXPECT_EQ(uoms_SetClassDefault("Plant", "Visc", "PA-S"), 0); // VISC is its keyword
    EXPECT_EQ(Stated("Plant", "VISC"), "PA-S");
    EXPECT_EQ(uoms_SetClassDefault("Plant", "Leng", "FT"), 0);
    EXPECT_EQ(uoms_SetClassDefault("Plant", "MassRate", "KG/HR"), 1); // a token, no keyword
    // The keyword style finds the tokens of the rules all the same.
    EXPECT_EQ(uoms_PutServerProperty("defaultScanClassStyle", "token"), 0);
    EXPECT_EQ(Stated("Plant", "TempAbs"), "R");
    EXPECT_EQ(Stated("Plant", "StdLiqVol"), "FT3");
    EXPECT_EQ(defaultScanUOMStyle, 2);
    // The older numbering does not reach the rows.
    uomModeQx71 = 1;
    EXPECT_EQ(uoms_SetClassDefault("Plant", "Energy", "BTU"), 0);
    uomModeQx71 = 0;
    EXPECT_EQ(Stated("Plant", "Energy"), "BTU");
    EXPECT_EQ(Stated("Plant", "Mole"), "");
}

} // namespace

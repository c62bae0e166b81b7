// The properties of the library and of a slate.
#include "slates/properties.h"

#include "catalogue/slate_table.h"
#include "tests/library_fixture.h"

namespace {

class PropertiesTest : public ShippedTest {
protected:
    void SetUp() override {
        ShippedTest::SetUp();
        plant = NewSlate("Plant", "Metric");
    }
    static std::string Get(const char *property) {
        char out[64] = "#";
        EXPECT_EQ(uoms_GetSetProperty("Plant", property, sizeof out, out), 0);
        return out;
    }
    static std::string Server(const char *property) {
        char out[64] = "#";
        EXPECT_EQ(uoms_GetServerProperty(property, sizeof out, out), 0) << Message();
        return out;
    }
    int32_t plant = -1;
};

TEST_F(PropertiesTest, GaugeBasis) {
    const struct {
        const char *value, *text;
        double kPa;
    } cases[] = {// Fresh: no text of its own, and the standard atmosphere all the same.
                 {"", "", 101.325},
                 {"101.325", "101.325", 101.325},
                 {"101325", "101.325", 101.325},  // in pascals
                 {"50662.4", "50662.4", 50662.4}, // not yet
                 {"50662.5", "50.6625", 50.6625}, // the ratio reaches 500
                 {"40000", "40000", 40000},
                 {"82000", "82", 82},
                 {"7e1", "70", 70},
                 {"100.00000049", "100", 100.00000049}, // six digits in the text
                 {"", "", -1},                          // had its own: inherits from now on
                 {"", "", 101.325},                     // had none: the standard atmosphere, and no inheriting
                 {"abc", "101.325", 101.325},           // can't be read, had none
                 {"abc", "-1", -1},                     // had its own
                 {"99", "99", 99}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.value);
        EXPECT_EQ(uoms_PutSetProperty("Plant", "gaugePresBASIS", c.value), 0);
        EXPECT_EQ(Get("GaugePresBasis"), c.text);
        EXPECT_NEAR(slate_Record(plant)->gaugePresBasis, c.kPa, 1e-9);
    }
    char out[4];
    EXPECT_EQ(uoms_GetSetProperty("Plant", "GaugePresBasis", 2, out), 0);
    EXPECT_STREQ(out, "9");
    NewSlate("Child", "Plant");
    EXPECT_EQ(Stated("Child", "GaugePresBasis"), ""); // not inherited
}

TEST_F(PropertiesTest, Flags) {
    const struct {
        const char *value, *text;
    } cases[] = {{"1", "1"}, {"0", "0"}, {"2", "1"}, {"", "0"}, {"-1", "1"}, {"true", "0"}, {" 7x", "1"}, {"abc", "0"}};
    for (const char *flag : {"isSystem", "ISHIDDEN", "allowDelete", "AllowModify"}) {
        EXPECT_EQ(Get(flag), flag[0] == 'a' || flag[0] == 'A' ? "1" : "0");
        for (const auto &c : cases) {
            EXPECT_EQ(uoms_PutSetProperty("Plant", flag, c.value), 0);
            EXPECT_EQ(Get(flag), c.text) << flag << " " << c.value;
        }
    }
}

TEST_F(PropertiesTest, FailuresOfSlateProperties) {
    char out[8] = "#";
    const struct {
        const char *slate, *property;
        int32_t status;
    } cases[] = {{nullptr, "isHidden", 1}, {"Plant", nullptr, 1},  {"Nosuch", "isHidden", 1},
                 {"", "isHidden", 1},      {"Plant", "Nosuch", 2}, {"Plant", "Temp", 2}};
    for (const auto &c : cases) {
        error_Set("old");
        EXPECT_EQ(uoms_GetSetProperty(c.slate, c.property, 8, out), c.status);
        EXPECT_EQ(Message(),
                  c.status == 2 ? std::string("Unrecognized UOM Slate property \"") + c.property + "\"." : "old");
        EXPECT_STREQ(out, "");
        error_Set("old");
        EXPECT_EQ(uoms_PutSetProperty(c.slate, c.property, "1"), c.status);
        EXPECT_EQ(Message(),
                  c.status == 2 ? std::string("Unrecognized UOM Slate property \"") + c.property + "\"." : "old");
    }
    EXPECT_EQ(uoms_PutSetProperty("Plant", "isHidden", nullptr), 1);
    EXPECT_EQ(uoms_GetSetProperty("Plant", "isHidden", 0, out), 1);
    EXPECT_EQ(uoms_GetSetProperty("Plant", "isHidden", 8, nullptr), 1);
    int32_t count = 0;
    char **names = uoms_GetSetPropertyList(&count);
    const char *expected[] = {"GaugePresBasis", "isSystem", "isHidden", "allowDelete", "allowModify"};
    ASSERT_EQ(count, 5);
    for (int i = 0; i < 5; ++i) {
        EXPECT_STREQ(names[i], expected[i]);
        EXPECT_EQ(uoms_IsSetProperty(expected[i]), 1);
    }
    EXPECT_EQ(names[5], nullptr);
    tbl_FreeTextArray(names);
    EXPECT_EQ(uoms_GetSetPropertyCount(), 5);
    EXPECT_EQ(uoms_IsSetProperty("ALLOWdelete"), 1);
    EXPECT_EQ(uoms_IsSetProperty("allow"), 0);
    EXPECT_EQ(uoms_IsSetProperty(nullptr), 0);
}

TEST_F(PropertiesTest, OfTheLibrary) {
    EXPECT_EQ(Server("allowMultipliers"), "false");
    EXPECT_EQ(uoms_PutServerProperty("allowMultipliers", "TRUE"), 0);
    EXPECT_EQ(Server("ALLOWMULTIPLIERS"), "true"); // read in any case, written in this one alone
    EXPECT_EQ(uom_GetAllowUOMMultipliers(), 1);
    EXPECT_EQ(uoms_PutServerProperty("AllowMultipliers", "false"), 1);
    EXPECT_EQ(Message(), "Unrecognized UOM Server property \"AllowMultipliers\".");
    EXPECT_EQ(uoms_PutServerProperty("allowMultipliers", "yes"), 0);
    EXPECT_EQ(Server("allowMultipliers"), "false");
    // The display style answers with the style before, and stays when the name is unknown.
    EXPECT_EQ(uoms_PutServerProperty("DEFAULTDISPLAYSTYLE", "Html"), 1);
    EXPECT_EQ(uoms_PutServerProperty("defaultDisplayStyle", "nosuch"), 6);
    EXPECT_EQ(Server("defaultDisplayStyle"), "html");
    EXPECT_EQ(uom_GetDefaultDisplayStyle(), 6);
    for (const char *scan : {"defaultScanClassStyle", "defaultScanUOMStyle"}) {
        EXPECT_EQ(Server(scan), "token");
        EXPECT_EQ(uoms_PutServerProperty(scan, "longName"), 0);
        EXPECT_EQ(Server(scan), "longname");
        EXPECT_EQ(uoms_PutServerProperty(scan, "nosuch"), 0); // back to tokens
        EXPECT_EQ(Server(scan), "token");
    }
    const struct {
        const char *name;
        int32_t length;
        const char *message;
    } cases[] = {{nullptr, 8, "Property is missing or blank."},
                 {"", 0, "Property is missing or blank."},
                 {"Nosuch", 0, "String buffer for return value was not supplied or length was zero."},
                 {"Nosuch", 8, "Unrecognized UOM Server property \"Nosuch\"."}};
    for (const auto &c : cases) {
        char out[8] = "#";
        EXPECT_EQ(uoms_GetServerProperty(c.name, c.length, out), 1);
        EXPECT_EQ(Message(), c.message);
        if (c.length) {
            EXPECT_EQ(uoms_PutServerProperty(c.name, "1"), 1);
            EXPECT_EQ(Message(), c.message);
        }
    }
    EXPECT_EQ(uoms_GetServerProperty("defaultDisplayStyle", 8, nullptr), 1);
    EXPECT_EQ(Server("defaultDisplayStyle"), "html");
    EXPECT_EQ(Message(), ""); // a success empties it
    int32_t count = 0;
    char **names = uoms_GetServerPropertyList(&count);
    ASSERT_EQ(count, 4);
    EXPECT_STREQ(names[0], "allowMultipliers");
    EXPECT_STREQ(names[3], "defaultScanUOMStyle");
    EXPECT_EQ(names[4], nullptr);
    tbl_FreeTextArray(names);
    EXPECT_EQ(uoms_GetServerPropertyCount(), 4);
    EXPECT_EQ(uom_GetUnitTotal(), uomUnitCount);
    uom_SetKestaOption(5);
    EXPECT_EQ(uomModeKesta, 5);
}

TEST_F(LibraryTest, DataFileNameIsForTheNextStart) {
    uom_SetDataFileName(SHIPPED_DATA);
    uom_SetDataFileName("");
    ASSERT_EQ(uom_Init2(0, nullptr), 0) << Message();
    EXPECT_EQ(Resolved("SI", "Temp"), "K");
}

} // namespace

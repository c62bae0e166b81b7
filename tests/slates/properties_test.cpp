// The properties of the library and of a slate.
#include "slates/properties.h"

#include "catalogue/slate_table.h"
#include "tests/library_fixture.h"

namespace {

class PropertiesTest : public ShippedTest {
protected:
    void SetUp() override {
        ShippedTest::SetUp();
        plant = newSlate("Plant", "Metric");
    }
    static std::string Get(const char *property) {
        char out[64] = "#";
        EXPECT_EQ(uoms_GetSetProperty(catalogue(), "Plant", property, sizeof out, out), 0);
        return out;
    }
    static std::string Server(const char *property) {
        char out[64] = "#";
        EXPECT_EQ(uoms_GetServerProperty(catalogue(), property, sizeof out, out), 0) << lastError();
        return out;
    }
    int32_t plant = -1;
};

TEST_F(PropertiesTest, GaugeBasis) {
    // Put one after the other: the text given back, and the pressure in kPa that counts; -1 inherits. Without a text
    // of its own a slate has the standard atmosphere, one that is taken away makes it inherit. Pascals from 50662.5 on.
    const char cases[] = R"(
        | 101.325; 101.325 | 101.325 101.325; 101325 | 101.325 101.325; 50662.4 | 50662.4 50662.4
        50662.5 | 50.6625 50.6625; 40000 | 40000 40000; 82000 | 82 82; 7e1 | 70 70; 100.00000049 | 100 100.00000049
        | -1; | 101.325; abc | 101.325 101.325; abc | -1 -1; 99 | 99 99
    )";
    expectAnswers(cases, [this](const Cells &c) {
        EXPECT_EQ(uoms_PutSetProperty(catalogue(), running(), "Plant", "gaugePresBASIS", c[0].c_str()), 0);
        std::ostringstream all;
        all.precision(11);
        all << Get("GaugePresBasis") << (Get("GaugePresBasis").empty() ? "" : " ")
            << slate_Record(catalogue(), plant)->gaugePresBasis;
        return all.str();
    });
    char out[4];
    EXPECT_EQ(uoms_GetSetProperty(catalogue(), "Plant", "GaugePresBasis", 2, out), 0);
    EXPECT_STREQ(out, "9");
    newSlate("Child", "Plant");
    EXPECT_EQ(stated("Child", "GaugePresBasis"), ""); // not inherited
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
        EXPECT_EQ(uoms_GetSetProperty(catalogue(), c.slate, c.property, 8, out), c.status);
        EXPECT_EQ(lastError(),
                  c.status == 2 ? std::string("Unrecognized UOM Slate property \"") + c.property + "\"." : "old");
        EXPECT_STREQ(out, "");
        error_Set("old");
        EXPECT_EQ(uoms_PutSetProperty(catalogue(), running(), c.slate, c.property, "1"), c.status);
        EXPECT_EQ(lastError(),
                  c.status == 2 ? std::string("Unrecognized UOM Slate property \"") + c.property + "\"." : "old");
    }
    EXPECT_EQ(uoms_PutSetProperty(catalogue(), running(), "Plant", "isHidden", nullptr), 1);
}

TEST_F(PropertiesTest, OfTheLibrary) {
    EXPECT_EQ(Server("allowMultipliers"), "false");
    EXPECT_EQ(uoms_PutServerProperty(catalogue(), "allowMultipliers", "TRUE"), 0);
    EXPECT_EQ(Server("ALLOWMULTIPLIERS"), "true"); // read in any case, written in this one alone
    EXPECT_EQ(uom_GetAllowUOMMultipliers(), 1);
    EXPECT_EQ(uoms_PutServerProperty(catalogue(), "AllowMultipliers", "false"), 1);
    EXPECT_EQ(lastError(), "Unrecognized UOM Server property \"AllowMultipliers\".");
    EXPECT_EQ(uoms_PutServerProperty(catalogue(), "allowMultipliers", "yes"), 0);
    EXPECT_EQ(Server("allowMultipliers"), "false");
    // The display style answers with the style before, and stays when the name is unknown.
    EXPECT_EQ(uoms_PutServerProperty(catalogue(), "DEFAULTDISPLAYSTYLE", "Html"), 1);
    EXPECT_EQ(uoms_PutServerProperty(catalogue(), "defaultDisplayStyle", "nosuch"), 6);
    error_Set("old");
    EXPECT_EQ(Server("defaultDisplayStyle"), "html");
    EXPECT_EQ(lastError(), "") << "nothing of an earlier failure is left";
    char one[] = "#";
    EXPECT_EQ(uoms_GetServerProperty(catalogue(), "defaultDisplayStyle", 1, one), 0);
    EXPECT_STREQ(one, "");
    EXPECT_EQ(uom_GetDefaultDisplayStyle(), 6);
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
        EXPECT_EQ(uoms_GetServerProperty(catalogue(), c.name, c.length, out), 1);
        EXPECT_EQ(lastError(), c.message);
        if (c.length) {
            EXPECT_EQ(uoms_PutServerProperty(catalogue(), c.name, "1"), 1);
            EXPECT_EQ(lastError(), c.message);
        }
    }
}

TEST_F(PropertiesTest, Lists) {
    const auto taken = [](char **texts, int32_t count) {
        std::string all;
        for (int32_t i = 0; texts && i < count; ++i)
            all += std::string(texts[i]) + " ";
        EXPECT_TRUE(texts && !texts[count]) << "ended by null";
        tbl_FreeTextArray(texts);
        return all;
    };
    int32_t count = -7;
    char **texts = uoms_GetSetPropertyList(&count);
    EXPECT_EQ(joined(5, count), joined(uoms_GetSetPropertyCount(), count));
    EXPECT_EQ("GaugePresBasis isSystem isHidden allowDelete allowModify ", taken(texts, count));
    texts = uoms_GetServerPropertyList(&count);
    EXPECT_EQ(joined(4, count), joined(uoms_GetServerPropertyCount(), count));
    EXPECT_EQ("allowMultipliers defaultDisplayStyle defaultScanClassStyle defaultScanUOMStyle ", taken(texts, count));
    taken(uoms_GetSetPropertyList(nullptr), 5), taken(uoms_GetServerPropertyList(nullptr), 4);
    uom_SetKestaOption(catalogue(), 5);
    EXPECT_EQ(joined(5, catalogue().units.count), joined(catalogue().modes.kesta, uom_GetUnitTotal(catalogue())));
    for (const auto &[value, style] : {std::pair{"Token", 1}, {"nosuch", 1}, {"Keyword", 2}}) {
        EXPECT_EQ("0 0", joined(uoms_PutServerProperty(catalogue(), "defaultScanClassStyle", value),
                                uoms_PutServerProperty(catalogue(), "DEFAULTSCANUOMSTYLE", value)));
        EXPECT_EQ(joined(style, style), joined(catalogue().styles.scanClass, catalogue().styles.scanUom)) << value;
    }
}

} // namespace

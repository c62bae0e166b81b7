// The texts of single units and classes in the six styles, into buffers of any size.
#include <cstring>

#include "catalogue/platform.h"
#include "tests/library_fixture.h"
#include "text/styles.h"

namespace {

const char *const data = R"(BEGINUOMLIST
none NONE "No Unit" 0 0.0 1.0
m3 MCUB "Cubic Meter" 0 0.0 1.0
"in H2O" INWATER "Inch of Water" 0 0.0 1.0
"in h2o old" OLD "Lower" 0 0.0 1.0
cP2c CP2 "Viscous" 0 0.0 1.0
xp2C XP2 "Viscous again" 0 0.0 1.0
H2 HYD "Hydrogen" 0 0.0 1.0
2nd SEC "Second" 0 0.0 1.0
3H2Os2 TRI "Three" 0 0.0 1.0
"x 10^6 J" MMJ "Million Joules" 0 0.0 1.0
K4 KELV "Fourth" 0 0.0 1.0
a12b345 NUM "Numbers" 0 0.0 1.0
BTU/hr-ft2-F HTC "Coefficient" 0 0.0 1.0
10^12 TEN "Twelve" 0 0.0 1.0
ENDUOMLIST
)";

class UnitTextTest : public LibraryTest {
protected:
    void SetUp() override { ASSERT_EQ(Start(WriteData(data)), 0); }
    static std::string ClassText(int32_t classId, int32_t style, int32_t size = 64) {
        std::vector<char> out(static_cast<size_t>(size) + 1, '#');
        uom_GetClassText(classId, out.data(), size, style);
        EXPECT_EQ(out.back(), '#');
        return out.data();
    }
};

TEST_F(UnitTextTest, SixStyles) {
    const struct {
        const char *token, *super, *upper, *html;
    } cases[] = {{"m3", "m\263", "M3", "m<SUP>3</SUP>"},
                 {"in H2O", "in H2O", "IN H2O", "in H2O"},
                 {"in h2o old", "in h\262o old", "IN H2O OLD", "in h<SUP>2</SUP>o old"}, // the O is a capital
                 {"cP2c", "cP2c", "CP2C", "cP2c"},
                 {"xp2C", "xp2C", "XP2C", "xp2C"},
                 {"H2", "H\262", "H2", "H<SUP>2</SUP>"},
                 {"2nd", "\262nd", "2ND", "<SUP>2</SUP>nd"},
                 {"3H2Os2", "\263H2Os\262", "3H2OS2", "<SUP>3</SUP>H2Os<SUP>2</SUP>"},
                 {"x 10^6 J", "x 10^6 J", "X 10^6 J", "x 10<SUP>6</SUP> J"},
                 {"K4", "K4", "K4", "K<SUP>4</SUP>"},
                 {"a12b345", "a1\262b\26345", "A12B345", "a<SUP>12</SUP>b<SUP>345</SUP>"},
                 {"BTU/hr-ft2-F", "BTU/hr-ft\262-F", "BTU/HR-FT2-F", "BTU/hr-ft<SUP>2</SUP>-F"},
                 {"10^12", "10^1\262", "10^12", "10<SUP>12</SUP>"}};
    int32_t unit = 0;
    for (const auto &c : cases) {
        SCOPED_TRACE(c.token);
        ++unit;
        EXPECT_EQ(UnitText(unit, 1), c.token);
        EXPECT_EQ(UnitText(unit, 3), c.super);
        EXPECT_EQ(UnitText(unit, 4), c.upper);
        EXPECT_EQ(UnitText(unit, 6), c.html);
        EXPECT_EQ(UnitText(unit, 7), c.token);
        EXPECT_EQ(UnitText(unit, 0), c.token);
        EXPECT_EQ(uom_GetUnitTextLen(unit), static_cast<int32_t>(std::strlen(c.token)));
    }
    EXPECT_EQ(UnitText(1, 2), "MCUB");
    EXPECT_EQ(UnitText(1, 5), "Cubic Meter");
    for (const int32_t bad : {UOM_NULL, -1, uomUnitCount, 1 << 30})
        for (int32_t style = -1; style < 8; ++style) {
            EXPECT_EQ(UnitText(bad, style), "");
            EXPECT_EQ(uom_GetUnitTextLen(bad), 0);
        }
}

TEST_F(UnitTextTest, BuffersOfAnySize) {
    uom_GetUnitText(1, nullptr, 10, 1);
    for (int32_t style = 1; style <= 6; ++style) {
        const std::string whole = UnitText(8, style); // 3H2Os2
        for (int32_t size = 1; size < 40; ++size) {
            SCOPED_TRACE(testing::Message() << "style " << style << " size " << size);
            std::vector<char> out(41, '#');
            uom_GetUnitText(8, out.data(), size, style);
            const std::string text = out.data();
            EXPECT_EQ(text, whole.substr(0, static_cast<size_t>(size) - 1));
            for (size_t i = text.size(); i < static_cast<size_t>(size); ++i)
                EXPECT_EQ(out[i], '\0') << "all bytes are cleared";
            EXPECT_EQ(out[static_cast<size_t>(size)], '#');
        }
    }
    for (const int32_t size : {0, -1}) {
        char out[] = "#";
        uom_GetUnitText(1, out, size, 1);
        EXPECT_EQ(out[0], '#');
    }
}

TEST_F(UnitTextTest, ClassTexts) {
    const struct {
        const char *token;
        const char *texts[7]; // styles 0 to 6
    } cases[] = {{"Temp", {"Temp", "Temp", "TEMP", "Temp", "TEMP", "Temperature", "Temp"}},
                 {"E6Energy", {"E6Energy", "E6Energy", "", "E6Energy", "E6ENERGY", "E6Energy", "E6Energy"}},
                 {"cakeRes", {"cakeRes", "cakeRes", "CRES", "cakeRes", "CAKERES", "Cake Resistance", "cakeRes"}},
                 {"MassRate", {"MassRate", "MassRate", "WTRA", "MassRate", "MASSRATE", "Mass Rate", "MassRate"}}};
    for (const auto &c : cases)
        for (int32_t style = 0; style <= 6; ++style)
            EXPECT_EQ(ClassText(ClassOf(c.token), style), c.texts[style]) << c.token << " " << style;
    EXPECT_EQ(ClassText(4, 9), "Temp");
    EXPECT_EQ(ClassText(4, 5, 5), "Temp"); // cut
    EXPECT_EQ(ClassText(4, 5, 2), "T");
    for (const int32_t bad : {0, -1, 71, 1 << 30}) {
        EXPECT_EQ(ClassText(bad, 1), "");
        EXPECT_EQ(uom_GetClassTextLen(bad), 0);
    }
    char out[] = "#";
    uom_GetClassText(4, out, 1, 1);
    EXPECT_STREQ(out, "#") << "a size below 2 writes nothing";
    uom_GetClassText(4, nullptr, 9, 1);
    EXPECT_EQ(uom_GetClassTextLen(ClassOf("MassRate")), 9);
    EXPECT_EQ(uom_GetClassTextLen(4), 11);
}

TEST_F(UnitTextTest, DefaultStyleAndNamesOfStyles) {
    EXPECT_EQ(uom_GetDefaultDisplayStyle(), 1);
    EXPECT_EQ(uom_SetDefaultDisplayStyle(4), 1);
    EXPECT_EQ(UnitText(1, 0), "M3");
    EXPECT_EQ(UnitText(1, -3), "M3");
    EXPECT_EQ(ClassText(4, 0), "TEMP");
    for (const int32_t ignored : {0, 7, -1})
        EXPECT_EQ(uom_SetDefaultDisplayStyle(ignored), 4);
    EXPECT_EQ(uom_SetDefaultDisplayStyle(1), 4);
    const char *names[] = {"", "token", "keyword", "tokensuper", "tokenupper", "longname", "html", ""};
    for (int32_t style = 0; style < 8; ++style) {
        char out[32] = "#";
        uom_StyleToName(style, out, sizeof out);
        EXPECT_STREQ(out, names[style]);
        int32_t code = 9;
        EXPECT_EQ(uom_StyleFromName(names[style], &code), style == 7 ? 0 : style);
        EXPECT_EQ(code, style == 7 ? 0 : style);
    }
    int32_t code = 9;
    EXPECT_EQ(uom_StyleFromName("TokenSUPER", &code), 3);
    EXPECT_EQ(uom_StyleFromName("tokens", &code), 0);
    EXPECT_EQ(uom_StyleFromName(nullptr, &code), 0);
    EXPECT_EQ(code, 0);
}

TEST_F(UnitTextTest, NamesOfSlates) {
    const int32_t slate = uoms_NewSet("A slate with a name");
    char out[128] = "#";
    EXPECT_EQ(uom_GetBaseName2(slate, out, 8), out);
    EXPECT_STREQ(out, "A slate");
    EXPECT_STREQ(uom_GetBaseName(slate, out), "A slate with a name");
    EXPECT_NE(std::strstr(platform_DebugText(), "COREKIT.DLL: call to deprecated function uom_GetBaseName.\n"),
              nullptr);
    for (const int32_t bad : {0, -1, UOM_SET_MAX}) {
        out[0] = '#';
        EXPECT_STREQ(uom_GetBaseName2(bad, out, sizeof out), "");
        out[0] = '#';
        EXPECT_STREQ(uom_GetBaseName(bad, out), "");
    }
    EXPECT_EQ(uom_GetBaseName(slate, nullptr), nullptr);
    EXPECT_EQ(uom_GetBaseName2(slate, nullptr, 9), nullptr);
    const std::string longName(100, 'n');
    EXPECT_EQ(std::string(uom_GetBaseName(uoms_NewSet(longName.c_str()), out)), longName.substr(0, 63));
}

} // namespace

// The texts of single units and classes in the six styles, into buffers of any size.
#include <cstring>

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
10^^2 CARET "Two carets" 0 0.0 1.0
10^12 TEN "Twelve" 0 0.0 1.0
ENDUOMLIST
)";

class UnitTextTest : public LibraryTest {
protected:
    void SetUp() override { ASSERT_EQ(startWith(data), 0); }
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
                 {"10^^2", "10^^\262", "10^^2", "10<SUP>^2</SUP>"},
                 {"10^12", "10^1\262", "10^12", "10<SUP>12</SUP>"}};
    int32_t unit = 0;
    for (const auto &c : cases) {
        SCOPED_TRACE(c.token);
        ++unit;
        EXPECT_EQ(unitText(unit, 1), c.token);
        EXPECT_EQ(unitText(unit, 3), c.super);
        EXPECT_EQ(unitText(unit, 4), c.upper);
        EXPECT_EQ(unitText(unit, 6), c.html);
        EXPECT_EQ(unitText(unit, 7), c.token);
        EXPECT_EQ(unitText(unit, 0), c.token);
        EXPECT_EQ(uom_GetUnitTextLen(unit), static_cast<int32_t>(std::strlen(c.token)));
    }
    EXPECT_EQ(unitText(1, 2), "MCUB");
    EXPECT_EQ(unitText(1, 5), "Cubic Meter");
}

} // namespace

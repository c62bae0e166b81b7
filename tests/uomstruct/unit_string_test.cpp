// Unit strings: class string and unit string in, units or a message out.
#include "uomstruct/unit_string.h"

#include "tests/library_fixture.h"

namespace {

class UnitString : public ShippedTest {
protected:
    // The units of a class string filled from a unit string, or status and message.
    static std::string filled(const std::string &classString, const std::string &units) {
        const Chain chain(classString);
        const int32_t status = uom_FillStructFromString(chain.head, units.c_str(), 1);
        return status == 0 ? describeUnits(chain.head) : joined(status, lastError());
    }
};

TEST_F(UnitString, StaysWithinItsBounds) {
    const std::string open(100, '('), close(100, ')');
    const std::string texts[] = {std::string(10000, 'x'), std::string(10000, '('),   std::string(10000, ')'),
                                 std::string(10000, '/'), std::string(10000, '7'),   "ft" + std::string(10000, '7'),
                                 open + "ft" + close,     open + "lb/ft3" + close,   "k*" + std::string(10000, '*'),
                                 std::string(10000, '-'), std::string(10000, '\xB2')};
    for (const std::string classes : {"Leng", "Density", "Rate", "(Leng Mass) 2", "((Leng)2)2", "Power", "BasisFrac"})
        for (const std::string &text : texts)
            EXPECT_NE(std::string::npos, filled(classes, text).find("UOM string")) << classes;
    EXPECT_EQ("2 UOM string \"" + std::string(499, 'x'), filled("Leng", texts[0]));
    EXPECT_EQ("11:ft", filled("Leng", std::string(10000, ' ') + "ft" + std::string(9999, ' ')));
    EXPECT_EQ("11:ft", filled("Leng", std::string(30, '(') + "ft" + std::string(30, ')')));
}

} // namespace

// The units of a chain as text.
#include "tests/library_fixture.h"

namespace {

class DisplayUnitsTest : public ShippedTest {};

TEST_F(DisplayUnitsTest, BuffersOfAnySize) {
    const Chain chain("Pres / Rate 2 (Leng Mass) 3", "psi/(lb/hr)2(ft-lb)3");
    for (int32_t style = 1; style <= 6; ++style) {
        const std::string whole = display(chain.head, style);
        for (int32_t size = 1; size <= static_cast<int32_t>(whole.size()) + 3; ++size)
            EXPECT_EQ(display(chain.head, style, size), whole.substr(0, static_cast<size_t>(size) - 1))
                << style << " " << size;
    }
    // A class to the power zero has no text of its own; it must not bring the process down.
    for (const char *classString : {"Rate 0", "Density 0", "Pres / Rate 0", "(Rate 0)"}) {
        const Chain zero(classString);
        uom_InitializeUnits(zero.head, UOM_SET_ENGLISH);
        display(zero.head);
    }
}

} // namespace

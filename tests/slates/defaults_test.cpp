// Whether a text is what a slate states.
#include "slates/defaults.h"

#include "tests/library_fixture.h"

namespace {

class DefaultsTest : public ShippedTest {};

TEST_F(DefaultsTest, AreToldByTheirText) {
    newSlate("Plant", "Metric");
    ASSERT_TRUE(state("Plant", "Rate", "MM BBL / day"));
    EXPECT_EQ(uoms_IsClassDefault(catalogue(), "Rate", "PLANT", "MM BBL/day"), 1);
    EXPECT_EQ(uoms_IsClassDefault(catalogue(), "Rate", "Plant", "MM BBL / day"), 0);
    EXPECT_EQ(uoms_IsClassDefault(catalogue(), "Rate", "Plant", "mm bbl/day"), 0); // letters' case counts here
    EXPECT_EQ(uoms_IsClassDefault(catalogue(), "Mass", "Plant", ""), 1);
    EXPECT_EQ(uoms_IsClassDefault(catalogue(), "Mass", "Plant", nullptr), 0);
    EXPECT_EQ(uoms_IsClassDefault(catalogue(), "Mass", "nosuch", ""), 0);
}

} // namespace

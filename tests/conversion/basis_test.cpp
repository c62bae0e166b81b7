// The atmosphere that gauge pressures start from.
#include "catalogue/slate_table.h"
#include "tests/library_fixture.h"

namespace {

class GaugeTest : public ShippedTest {
protected:
    static double Offset(const char *unit) {
        double offset = 0, factor = 0;
        uom_GetConvConstants(uom_GetUnitType(unit), &offset, &factor);
        return offset;
    }
    // Takes the slate's own basis away, so that it asks its parents.
    static int32_t Inheriting(const char *name, const char *parent) {
        const int32_t slate = newSlate(name, parent);
        EXPECT_TRUE(state(name, "GaugePresBasis", "77"));
        EXPECT_TRUE(state(name, "GaugePresBasis", ""));
        return slate;
    }
};

TEST_F(GaugeTest, WalksUpTheParentsHoweverFar) {
    ASSERT_TRUE(state("Metric", "GaugePresBasis", "90"));
    std::string below = "Metric";
    int32_t last = -1;
    for (int i = 0; i < 60; ++i) {
        const std::string name = "Deep" + std::to_string(i);
        last = Inheriting(name.c_str(), below.c_str());
        below = name;
    }
    Inheriting("First", "Third");
    Inheriting("Second", "First");
    const int32_t orphan = Inheriting("Orphan", "Nobody"), ring = Inheriting("Third", "Second");
    for (const auto &c :
         {std::pair(last, 90.0), std::pair(orphan, 101.325), std::pair(last, 90.0), std::pair(ring, 101.325)}) {
        EXPECT_EQ(uom_SetGaugePressureBasis(c.first), 0);
        EXPECT_DOUBLE_EQ(Offset("kPag"), c.second) << slate_Record(c.first)->name;
    }
}

} // namespace

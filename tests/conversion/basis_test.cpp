// What a quantity is counted by, and the atmosphere that gauge pressures start from.
#include "catalogue/slate_table.h"
#include "tests/library_fixture.h"

namespace {

class BasisTest : public ShippedTest {
protected:
    static int32_t Basis(const char *name) {
        const struct {
            const char *name;
            int32_t unit;
        } units[] = {{"mole", UOM_BASMOLE}, {"molar", UOM_BASMOLAR}, {"mass", UOM_BASMASS},
                     {"liq", UOM_BASLIQV},  {"vap", UOM_BASVAPV},    {"act", UOM_BASACTV}};
        for (const auto &unit : units)
            if (std::string(unit.name) == name)
                return unit.unit;
        return UOM_NULL;
    }
};

TEST_F(BasisTest, ChangesTheNodeBehindIt) {
    const struct {
        const char *classString, *units, *basis, *classAfter, *unitAfter;
    } cases[] = {// clang-format off
        {"Quantity", "kg-mol", "mass", "Mass", "kg"}, {"Quantity", "kg", "mole", "Mole", "kg-mol"},
        {"Quantity", "kg", "molar", "Molar", "kg-mol"},
        {"Quantity", "grain", "mole", "Mole", "lb-mol"}, // no grain-mol: the default of Current
        {"Rate", "tonne-mol/hr", "mass", "Mass", "tonne"}, {"Rate", "lb/hr", "mole", "Mole", "lb-mol"},
        {"Rate", "BBL/day", "vap", "StdVapVol", "BBL"}, // volumes share their units
        {"Rate", "BBL/day", "act", "ActVol", "BBL"}, {"Rate (Vap. Vol.)", "SCF/day", "liq", "StdLiqVol", "SCF"},
        {"Rate", "lb/hr", "liq", "StdLiqVol", "ft3"}, // no unit to derive: defaults of Current
        {"Rate", "BBL/hr", "mass", "Mass", "lb"},
        {"Rate", "lb-mol/hr", "mole", "Mole", "lb-mol"}, // the basis that it has
        {"BasisFrac", "Mass percent", "vap", "Frac", "percent"}}; // no class of amounts behind it
    // clang-format on
    for (const auto &c : cases) {
        SCOPED_TRACE(testing::Message() << c.classString << " " << c.units << " by " << c.basis);
        const Chain chain(c.classString, c.units);
        EXPECT_EQ(uom_SetBasis(chain.head, Basis(c.basis)), 0);
        EXPECT_EQ(chain.node(0)->unit, Basis(c.basis));
        EXPECT_STREQ(class_Token(chain.node(1)->baseClass), c.classAfter);
        EXPECT_EQ(unitText(chain.node(1)->unit), c.unitAfter);
        EXPECT_EQ(uom_CheckForBasis(chain.head), 1);
    }
}

TEST_F(BasisTest, PutIntoAChainAndTakenOut) {
    const auto nodes = [](UomStruct chain) {
        std::string text;
        for (; chain; chain = chain->next)
            text += std::string(class_Token(chain->baseClass)) + ":" + unitText(chain->unit) + " ";
        return text;
    };
    const struct {
        const char *classString, *units;
        int32_t basis;
        const char *with, *without;
    } cases[] = {
        {"MassRate", "lb/hr", UOM_BASMOLE, "Basis:Mole Mole:lb-mol Time:hr ", "Mass:lb Time:hr "},
        {"MassRate", "lb/hr", UOM_BASMASS, "Basis:Mass Mass:lb Time:hr ", "Mass:lb Time:hr "},
        {"SpEnthalpy", "kJ/kg", UOM_BASMOLE, "Energy:kJ Basis:Mole Mole:kg-mol ", "Energy:kJ Mass:kg "},
        {"Density", "lb/ft3", UOM_BASVAPV, "Basis:Vap. Vol. StdVapVol:SCF StdLiqVol:ft3 ", "Mass:lb StdLiqVol:ft3 "},
        {"PetroDensity", "kg/m3", UOM_BASMOLE, "Basis:Mole Mole:lb-mol StdLiqVol:m3 ", "Mass:lb StdLiqVol:m3 "},
        // Unchanged: outside the range of bases, one there already, no mass.
        {"MassRate", "lb/hr", UOM_NULL, "Mass:lb Time:hr ", "Mass:lb Time:hr "},
        {"MassRate", "lb/hr", UOM_BASVAPV + 1, "Mass:lb Time:hr ", "Mass:lb Time:hr "},
        {"MassRate", "lb/hr", UOM_BASMOLE - 1, "Mass:lb Time:hr ", "Mass:lb Time:hr "},
        {"Rate", "lb-mol/hr", UOM_BASMASS, "Basis:Mole Mole:lb-mol Time:hr ", "Mass:lb Time:hr "},
        {"VolRate", "ft3/hr", UOM_BASMASS, "StdLiqVol:ft3 Time:hr ", "StdLiqVol:ft3 Time:hr "},
        // Only of a PetroDensity is the petro mass the place.
        {"VaporDensity", "kg/m3", UOM_BASMOLE, "PetroMass:kg StdVapVol:m3 ", "PetroMass:kg StdVapVol:m3 "}};
    for (const auto &c : cases) {
        SCOPED_TRACE(testing::Message() << c.classString << " " << c.basis);
        Chain chain(c.classString, c.units);
        const int32_t classId = chain.head->classId;
        chain.head = uom_AddBasisStruct(chain.head, c.basis);
        EXPECT_EQ(nodes(chain.head), c.with);
        EXPECT_EQ(chain.head->classId, classId);
        chain.head = uom_RemoveBasisStruct(chain.head);
        EXPECT_EQ(nodes(chain.head), c.without);
    }
    EXPECT_EQ(uom_RemoveBasisStruct(nullptr), nullptr);
}

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

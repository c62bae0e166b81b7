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
    } cases[] = {
        {"Quantity", "kg-mol", "mass", "Mass", "kg"},
        {"Quantity", "kg", "mole", "Mole", "kg-mol"},
        {"Quantity", "kg", "molar", "Molar", "kg-mol"},
        {"Quantity", "grain", "mole", "Mole", "lb-mol"}, // no grain-mol: the default of Current
        {"Rate", "tonne-mol/hr", "mass", "Mass", "tonne"},
        {"Rate", "lb/hr", "mole", "Mole", "lb-mol"},
        {"Rate", "BBL/day", "vap", "StdVapVol", "BBL"}, // volumes share their units
        {"Rate", "BBL/day", "act", "ActVol", "BBL"},
        {"Rate (Vap. Vol.)", "SCF/day", "liq", "StdLiqVol", "SCF"},
        {"Rate", "lb/hr", "liq", "StdLiqVol", "ft3"}, // no unit to derive: defaults of Current
        {"Rate", "BBL/hr", "mass", "Mass", "lb"},
        {"Rate", "lb-mol/hr", "mole", "Mole", "lb-mol"},        // the basis that it has
        {"BasisFrac", "Mass percent", "vap", "Frac", "percent"} // no class of amounts behind it
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(testing::Message() << c.classString << " " << c.units << " by " << c.basis);
        const Chain chain(c.classString, c.units);
        EXPECT_EQ(uom_SetBasis(chain.head, Basis(c.basis)), 0);
        EXPECT_EQ(chain.Node(0)->unit, Basis(c.basis));
        EXPECT_STREQ(class_Token(chain.Node(1)->baseClass), c.classAfter);
        EXPECT_EQ(UnitText(chain.Node(1)->unit), c.unitAfter);
        EXPECT_EQ(uom_CheckForBasis(chain.head), 1);
    }
}

TEST_F(BasisTest, FailuresAndOddChains) {
    const Chain rate("Rate", "lb/hr"), pres("Pres", "psi"), alone("Basis", {"Mass"}), fraction("BasisFrac");
    EXPECT_EQ(uom_SetBasis(rate.head, UOM_NULL), 1);
    EXPECT_EQ(uom_SetBasis(pres.head, UOM_BASMASS), 1);
    EXPECT_EQ(uom_SetBasis(nullptr, UOM_BASMASS), 1);
    EXPECT_EQ(uom_CheckForBasis(nullptr), 0);
    EXPECT_EQ(uom_CheckForBasis(pres.head), 0);
    EXPECT_EQ(uom_SetBasis(alone.head, UOM_BASMOLE), 0); // no node behind it
    EXPECT_EQ(alone.head->unit, UOM_BASMOLE);
    // A basis given again leaves the next node alone, also one that does not fit it.
    rate.Node(1)->baseClass = CLASS_ENERGY;
    EXPECT_EQ(uom_SetBasis(rate.head, UOM_BASMASS), 0);
    EXPECT_EQ(rate.Node(1)->baseClass, CLASS_ENERGY);
    EXPECT_EQ(uom_IsClassBasis(CLASS_BASIS), 1);
    EXPECT_EQ(uom_IsClassBasis(CLASS_QUANTITY), 0);
    // A chain of more nodes than the twenty that are reached.
    std::vector<int32_t> classes(20, CLASS_LENG), exponents(21, 1);
    classes.push_back(CLASS_QUANTITY);
    const Chain longChain(uom_BuildStruct(21, classes.data(), exponents.data(), nullptr));
    EXPECT_EQ(uom_SetBasis(longChain.head, UOM_BASMASS), 0);
    EXPECT_EQ(longChain.Node(20)->unit, UOM_NULL);
}

TEST_F(BasisTest, EqualMeansAtTheSamePlace) {
    const Chain mass("Quantity", "kg"), mole("Quantity", "kg-mol"), rate("Rate / Time", "lb/hr-sec");
    const Chain behind("Time Quantity", "hr-kg"), none("Leng");
    EXPECT_EQ(uom_IsBasisEqual(mass.head, mole.head), 1);
    EXPECT_EQ(uom_IsBasisEqual(mass.head, rate.head), 1);
    EXPECT_EQ(uom_IsBasisEqual(behind.head, rate.head), 0);
    EXPECT_EQ(uom_IsBasisEqual(none.head, mass.head), 0);
    EXPECT_EQ(uom_IsBasisEqual(nullptr, mass.head), 0);
    const struct {
        const char *classString, *units;
        int32_t basis;
    } cases[] = {{"Rate", "lb/hr", UOM_BASMASS},
                 {"Rate", "lb-mol/hr", UOM_BASMOLE},
                 {"Rate", "ft3/hr", UOM_BASLIQV},
                 {"Rate (Vol)", "ft3/hr", UOM_BASACTV},
                 {"Rate (Vap. Vol.)", "ft3/hr", UOM_BASVAPV},
                 {"Leng", "ft", UOM_NULL},
                 {"Nosuch", "ft", UOM_NULL},
                 {nullptr, "ft", UOM_NULL},
                 {"Rate", nullptr, UOM_NULL},
                 {"Rate (Mass)", "?", UOM_BASMASS}, // a bad text is no matter
                 {"Leng Rate", "ft-kg/hr", UOM_BASMASS}};
    for (const auto &c : cases)
        EXPECT_EQ(uoms_GetBasis(c.classString, c.units), c.basis)
            << testing::Message() << c.classString << " " << c.units;
}

TEST_F(BasisTest, PutIntoAChainAndTakenOut) {
    const auto nodes = [](UomStruct chain) {
        std::string text;
        for (; chain; chain = chain->next)
            text += std::string(class_Token(chain->baseClass)) + ":" + UnitText(chain->unit) + " ";
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
        const int32_t slate = NewSlate(name, parent);
        EXPECT_TRUE(State(name, "GaugePresBasis", "77"));
        EXPECT_TRUE(State(name, "GaugePresBasis", ""));
        return slate;
    }
};

TEST_F(GaugeTest, SixUnitsFollowASlate) {
    const int32_t site = NewSlate("Site", "Metric");
    ASSERT_TRUE(State("Site", "GaugePresBasis", "100"));
    EXPECT_DOUBLE_EQ(Offset("kPag"), 101.325); // Current decides until a host asks for another
    EXPECT_EQ(uom_SetGaugePressureBasis(site), 0);
    const struct {
        const char *unit;
        double offset;
    } cases[] = {{"kPag", 100},
                 {"barg", 1},
                 {"mbarg", 1000},
                 {"ate", 100 / 98.0665},
                 {"psig", 100 / 6.8947572931683613367},
                 {"kg/cm2g", 100 / 98.0665},
                 {"Pag", 101325},
                 {"MPag", 0.101325},
                 {"in Hgg", 101325 / 3386.388640341},
                 {"mm Hgg", 101325 / 133.322387415},
                 {"in H2Og", 101325 / 249.08891}};
    for (const auto &c : cases)
        EXPECT_NEAR(Offset(c.unit), c.offset, 1e-12 * c.offset) << c.unit;
    for (const int32_t bad : {UOM_SET_NULL, UOM_SET_MAX, -1, 1 << 20}) {
        EXPECT_EQ(uom_SetGaugePressureBasis(bad), 1);
        EXPECT_DOUBLE_EQ(Offset("kPag"), 100);
    }
}

TEST_F(GaugeTest, WalksUpTheParents) {
    ASSERT_TRUE(State("Metric", "GaugePresBasis", "90"));
    const int32_t child = Inheriting("Child", "Metric"), grandchild = Inheriting("Grandchild", "child");
    const int32_t root = Inheriting("Root", "Root"), orphan = Inheriting("Orphan", "Nobody");
    const int32_t unnamed = Inheriting("Unnamed", ""), first = Inheriting("First", "Third");
    Inheriting("Second", "First");
    const int32_t third = Inheriting("Third", "Second");
    const struct {
        int32_t slate;
        double kPa;
    } cases[] = {{child, 90},          {root, 101.325},    {grandchild, 90}, {orphan, 101.325},
                 {grandchild, 90},     {unnamed, 101.325}, {child, 90},      {first, 101.325},
                 {UOM_SET_METRIC, 90}, {third, 101.325}}; // a ring of three comes to an end
    for (const auto &c : cases) {
        EXPECT_EQ(uom_SetGaugePressureBasis(c.slate), 0);
        EXPECT_DOUBLE_EQ(Offset("kPag"), c.kPa) << slate_Record(c.slate)->name;
    }
    ASSERT_TRUE(State("Second", "GaugePresBasis", "80")); // a value in the ring is met
    EXPECT_EQ(uom_SetGaugePressureBasis(first), 0);
    EXPECT_DOUBLE_EQ(Offset("kPag"), 80);
    // No limit of steps here: sixty slates up.
    std::string below = "Second";
    int32_t last = -1;
    for (int i = 0; i < 60; ++i) {
        const std::string name = "Deep" + std::to_string(i);
        last = Inheriting(name.c_str(), below.c_str());
        below = name;
    }
    EXPECT_EQ(uom_SetGaugePressureBasis(child), 0);
    EXPECT_EQ(uom_SetGaugePressureBasis(last), 0);
    EXPECT_DOUBLE_EQ(Offset("kPag"), 80);
}

} // namespace

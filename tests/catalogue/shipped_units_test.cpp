// The numbers of the shipped data file, each worked out again from public definitions: the tables define what has
// a definition of its own, and a token that is put together from others is worked out from its parts. A unit's dimension
// comes out of the same calculation, so each list of the file is held to its quantity on the way.
#include <cfloat>
#include <map>

#include "catalogue/units.h"
#include "tests/catalogue/public_definitions.h"
#include "tests/catalogue/shipped_file.h"
#include "tests/library_fixture.h"

namespace {

// clang-format off
// Units that take thousands as "M " and millions as "MM ", as the trade writes them: the large customary ones.
const std::set<std::string> takeM = {
    "ft3", "yd3", "BBL", "gal", "igal", "acre-ft", "SCF", "lb", "ton", "lton", "lb-mol", "ton-mol", "lton-mol",
    "BTU", "BTUth", "therm", "HP-hr", "EHP-hr", "ft-lb", "HP", "BTU/hr-F", "BTU/sec-F", "$", "USD", "OXcredits",
    "beerBBL", "liqBBL", "iBBL", "ibushel", "bushel", "boardft", "SCF 14.65", "SCF 14.73", "SCF 15.025", "SCF 68F",
    "SCF 70F", "NCF", "Dth", "thermUS", "boe", "BTU/hr-R", "BTU/hr-C", "BTU/min-F", "lbf"};

// What the factors of each list are relative to. A list in two rows holds units of both dimensions.
const struct Base {
    const char *unit, *lists;
} bases[] = {
    {"basis", "Basis KSBasisList OXBasisList"},
    {"1", "none Dimensionless Frac MassFrac MoleFrac VolFrac"},
    {"K", "Temp TempAbs TempDiff"}, {"Pa", "Pres PresAbs PresDiff"}, {"sec", "Time OXTimeList"},
    {"m", "Leng FineLeng OXLengthList OXCakeresLengthList"}, {"m2", "Area FineArea Permeability"},
    {"cm3", "StdLiqVol StdVapVol ActVol OXRateLiqVolList OXRateVapVolList OXDensLiqVolList OXDensVapVolList"},
    {"kg", "Mass Cutpoint PetroMass OXRateMassList OXDensMassList OXEnthalpyMassList OXCakeresMassList "
           "DensPetroMassList"},
    {"kg/cm3", "PetroMass DensPetroMassList"},
    {"kmol", "Mole Molar OXRateMoleList OXDensMoleList OXEnthalpyMoleList"},
    {"J", "Energy E6Energy Torque OXEnthalpyEnergyList PowerTop E6PowerTop"}, {"W", "PowerTop E6PowerTop"},
    {"Pa s", "Visc"}, {"m2/s", "KVis"}, {"N/m", "Surf"}, {"W/m-K", "Cond"}, {"W/m2-K", "Htco"}, {"m2-K/W", "Foul"},
    {"W/K", "UA"}, {"W/K4", "RUA"}, {"J/kg-K", "Cp OXHeatCapList"}, {"coulomb m", "Dipole"}, {"V", "Potential"},
    {"A", "Current"}, {"ohm", "Resistance"}, {"rad", "Angle"}, {"rad/s", "Rotation"}, {"Cv", "FlowConductance"},
    {"$", "Currency"}, {"N", "Force"}, {"S/m", "ElecConductivity"}, {"Pa^0.5", "SolubilityParam"}};
// clang-format on

// The rows of `bases` that name a list.
std::vector<Value> basesOf(const std::string &list) {
    std::vector<Value> found;
    for (const Base &base : bases) {
        const std::string names = std::string(" ") + base.lists + " ";
        if (names.find(" " + list + " ") != std::string::npos)
            found.push_back(product(base.unit).value());
    }
    return found;
}

// The file has the nearest double. A few bits are left to where a long double is no longer than that.
void expectSame(const std::string &given, long double expected) {
    const double nearest = static_cast<double>(expected), bits = LDBL_MANT_DIG > DBL_MANT_DIG ? 0 : 16;
    EXPECT_NEAR(std::strtod(given.c_str(), nullptr), nearest, bits * DBL_EPSILON * nearest);
}

// The units by token, each with the lists that name it. The placeholder stands in none.
std::map<std::string, std::set<std::string>> listsOfUnits() {
    std::map<std::string, std::set<std::string>> lists{{"none", {"none"}}};
    for (const Section &section : shippedSections("BEGINLIST"))
        for (const std::string &line : section.lines)
            lists[fieldsOf(line)[0]].insert(section.name);
    return lists;
}

TEST(CatalogueShippedUnits, FactorsOffsetsAndStylesAreThoseOfPublicDefinitions) {
    auto lists = listsOfUnits();
    for (const Fields &fields : shippedUnits()) {
        const std::string &token = fields[0];
        SCOPED_TRACE(token);
        ASSERT_EQ(6u, fields.size());
        const std::optional<Unit> unit = derived(token);
        ASSERT_TRUE(unit) << "neither the tables nor the rules know it";
        EXPECT_EQ(takeM.count(token) ? "1" : "0", fields[3]);
        expectSame(fields[4], unit->offset);
        EXPECT_FALSE(lists[token].empty()) << "in no list";
        for (const std::string &list : lists[token]) {
            const std::vector<Value> known = basesOf(list);
            const auto base = std::find_if(known.begin(), known.end(),
                                           [&](const Value &b) { return b.powers == unit->value.powers; });
            ASSERT_NE(base, known.end()) << list << " holds no units of this dimension";
            expectSame(fields[5], unit->value.size / base->size);
        }
    }
}

TEST(CatalogueShippedUnits, TheTablesHaveNoRowTooMany) {
    std::set<std::string> tokens, lists{"none"};
    used.clear();
    for (const Fields &fields : shippedUnits()) {
        tokens.insert(fields[0]);
        derived(fields[0]);
    }
    for (const Section &section : shippedSections("BEGINLIST"))
        lists.insert(section.name);
    for (const Definition &row : unitDefinitions)
        EXPECT_EQ(1u, tokens.count(row.name)) << "no unit of the file: " << row.name;
    for (const std::string &token : takeM)
        EXPECT_EQ(1u, tokens.count(token)) << "no unit of the file: " << token;
    for (const Definition &row : partDefinitions) {
        EXPECT_EQ(0u, tokens.count(row.name)) << "a unit of the file: " << row.name;
        EXPECT_EQ(1u, used.count(row.name)) << "part of nothing: " << row.name;
    }
    for (const Base &base : bases) {
        std::istringstream names(base.lists);
        for (std::string name; names >> name;)
            EXPECT_EQ(1u, lists.count(name)) << "no list of the file: " << name;
    }
}

// Start-up works out the offsets of six gauge units again, from the same atmosphere.
class CatalogueShippedUnitsRead : public ShippedTest {};
TEST_F(CatalogueShippedUnitsRead, AreTheNumbersOfTheFile) {
    const std::vector<Fields> lines = shippedUnits();
    for (size_t i = 1; i < lines.size(); ++i) {
        SCOPED_TRACE(lines[i][0]);
        const UomUnit *unit = unit_Record(catalogue(), static_cast<int32_t>(i));
        ASSERT_TRUE(unit);
        EXPECT_EQ(std::atoi(lines[i][3].c_str()), unit->multiplierStyle);
        EXPECT_DOUBLE_EQ(std::strtod(lines[i][4].c_str(), nullptr), unit->offset);
        EXPECT_EQ(std::strtod(lines[i][5].c_str(), nullptr), unit->factor);
    }
}

} // namespace

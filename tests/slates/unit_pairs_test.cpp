// A class and its units as one entry a node, and back; the words of a basis.
#include "slates/unit_pairs.h"

#include "slates/lists.h"
#include "tests/library_fixture.h"

namespace {

class UnitPairs : public ShippedTest {
protected:
    static std::string pairsOf(const std::string &classString, const std::string &units) {
        int32_t count = 0;
        char **const pairs = uoms_GetClassUnitPairs(catalogue(), classString.c_str(), units.c_str(), &count);
        std::string all = pairs ? "" : "null";
        for (int32_t i = 0; pairs && i < count; ++i)
            all += (i ? ", " : "") + std::string(pairs[i]);
        uoms_FreeArray(pairs);
        return all;
    }
    static std::string put(const std::string &classString, const std::string &list, const char *style = "token") {
        Lines pairs;
        std::istringstream texts(list);
        for (std::string pair; std::getline(texts >> std::ws, pair, ',');)
            pairs.push_back(pair);
        Words words;
        for (const std::string &pair : pairs)
            words.push_back(pair.c_str());
        char out[128] = "#";
        const int32_t status =
            uoms_PutClassUnitPairs(catalogue(), classString.c_str(), words.data(), style, sizeof out, out);
        return joined(status, out);
    }
};

TEST_F(UnitPairs, OutAndInAgain) {
    // class string, units: the pairs, and what they give
    const char cases[] = R"(
        Rate | lb/hr | Basis:Mass, Mass:lb, Time:hr | 0 Rate(Mass):lb/hr
        Rate | M BBL/day | Basis:Liq. Vol., StdLiqVol:M BBL, Time:day | 0 Rate(Liq. Vol.):M BBL/day
        Power | kW | PowerTop:kW, Time: | 0 Power:kW; PetroDensity | API | PetroMass:API, StdLiqVol: | 0 PetroDensity:API
        Leng / Time 2 | M*m/sec2 | Leng:M*m, Time:sec | 0 Leng / Time 2:M*m/sec2
        Power / Area | BTU/hr-ft2 | PowerTop:BTU, Time:hr, Area:ft2 | 0 Power / Area:(BTU/hr)/ft2
        Leng | kg | null |; x | kg | null |; | kg | null |; Leng | | null |
    )";
    expectAnswers(cases, [](const Cells &c) {
        const std::string pairs = pairsOf(c[0], c[1]);
        EXPECT_EQ(pairs, c[2]);
        return pairs == "null" ? "" : put(c[0], pairs);
    });
    int32_t count = 0;
    char **const pairs = uoms_GetClassUnitPairs(catalogue(), "Temp", "English", &count);
    EXPECT_EQ(joined(count, pairs[0]), "1 Temp:F");
    uoms_FreeArray(pairs);
}

TEST_F(UnitPairs, ChoicesOfAUser) {
    const char cases[] = R"(
        Rate | Basis:Mole, Mass:lb-mol, Time:day | 0 Rate(Mole):lb-mol/day
        Rate | Basis:Vap. Vol., x:SCF, Time:hr | 0 Rate(Vap. Vol.):SCF/hr; Leng Mass | Leng:~~m, Time:hr | 0 Leng Mass:m
        Leng Mass | Leng:m, kg | 0 Leng Mass:m; Power | PowerTop:kW, Time:hr | 0 Power:kW
        Power | PowerTop:KVA, Time:hr | 0 Power:KVA/hr; Power | PowerTop:KVAR, Time:hr | 0 Power:KVAR/hr
        E6Power | E6PowerTop:x 10^6 KVA, Time:hr | 0 E6Power:x 10^6 KVA/hr
        E6Power | E6PowerTop:x 10^6KVAR, Time:hr | 0 E6Power:x 10^6KVAR/hr; E6Power | E6PowerTop:x 10^6 W, Time:hr | 0 E6Power:x 10^6 W
        PetroDensity | PetroMass:spgr, StdLiqVol:m3 | 0 PetroDensity:spgr; Leng | Leng:kg | 2; x | x:m | 2; | x:m | 1
    )";
    expectAnswers(cases, [](const Cells &c) { return put(c[0], c[1]); });
    EXPECT_EQ(put("Pres / Time", "Pres:kPa, Time:hr", "keyword").substr(0, 14), "0 PRES / TIME:");
    catalogue().styles.scanUom = 2; // pairs are tokens all the same
    EXPECT_EQ(put("Pres", pairsOf("Pres", "in Hg")), "0 Pres:in Hg");
    char zeroed[40];
    std::memset(zeroed, '#', sizeof zeroed);
    EXPECT_EQ(uoms_GetClassWithBasis(catalogue(), "Leng", "Mole", sizeof zeroed, zeroed), 0);
    EXPECT_EQ(std::string(zeroed, sizeof zeroed), "Leng" + std::string(36, '\0'));
    char out[16] = "#";
    EXPECT_EQ(uoms_PutClassUnitPairs(catalogue(), "Leng", nullptr, "token", 16, out), 1);
    EXPECT_STREQ(out, "");
}

TEST_F(UnitPairs, BasesAndUnitsInWords) {
    const char cases[] = R"(
        with | Rate | Mole | 0 Rate(Mole); with | Rate / Leng | Vap. Vol. | 0 Rate(Vap. Vol.) / Leng
        with | Leng  / Time | Mole | 0 Leng  / Time; word | Rate | lb/hr | mass; word | Rate | lb-mol/hr | mole
        word | Rate | ft3/hr | Liq. Vol.; word | Leng | ft | ; token | Rate | Metric | 0 kg-mol/hr
        token | Leng 2 | M*m2 | 0 M*m2; html | Leng 2 | m2 | 0 m<SUP>2</SUP>; token | Leng | kg | 2; token | x | kg | 2
        token | | kg | 1
    )";
    expectAnswers(cases, [](const Cells &c) {
        char out[64] = "";
        const char *const classString = c[1].c_str(), *const text = c[2].c_str();
        if (c[0] == "word") {
            const int32_t unit = uoms_GetBasisWord(catalogue(), classString, text, sizeof out, out);
            EXPECT_EQ(str_EqualNoCase(unitText(unit).c_str(), out), true);
            return std::string(out);
        }
        const int32_t status = c[0] == "with"
                                   ? uoms_GetClassWithBasis(catalogue(), classString, text, sizeof out, out)
                                   : uoms_FormatUnits(catalogue(), classString, text, c[0].c_str(), sizeof out, out);
        return joined(status, out);
    });
}

} // namespace

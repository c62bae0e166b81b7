// The compiled classes and the look-ups among them.
#include "catalogue/class_table.h"

#include <set>

#include "tests/support_fixture.h"

namespace {

TEST(CatalogueClassRows, HoldTogether) {
    // Where a composite's kind and slots disagree, or a slot names what is no base class, chains go wrong.
    const std::set<int32_t> withoutKeyword = {22, 46, 47, 48, 49, 68}, internal = {1, 2, 46, 47, 48, 68};
    std::set<std::string> tokens;
    int32_t olderNumber = 0;
    for (int32_t i = 0; i < STATIC_CLASSES; ++i) {
        const UomClassRow &row = uomStaticRows[i];
        SCOPED_TRACE(row.token);
        EXPECT_EQ(i, row.index);
        std::string lower = row.token;
        std::transform(lower.begin(), lower.end(), lower.begin(), str_Lower);
        EXPECT_TRUE(tokens.insert(lower).second);
        EXPECT_EQ(withoutKeyword.count(i) == 1, row.keyword == nullptr);
        EXPECT_TRUE(row.kind == 3 || row.kind == 5 || row.kind == 7 || row.kind == 9);
        EXPECT_EQ(internal.count(i) == 1, (row.kind & CLASS_INTERNAL) != 0);
        EXPECT_EQ(row.kind == 9, row.baseClass[0] != 0);
        EXPECT_EQ(i != 0 && i != 4 && i != 7, row.allowExponent == 1);
        EXPECT_EQ(i == 4 || i == 5 || i == 7 || i == 8, row.hasOffset == 1);
        for (int32_t slot = 0; slot < COMPOSITE_SLOTS; ++slot) {
            const int32_t part = row.baseClass[slot];
            EXPECT_EQ(part == 0, row.baseExponent[slot] == 0);
            EXPECT_TRUE(part == 0 || slot == 0 || row.baseClass[slot - 1] != 0) << "a gap in the slots";
            EXPECT_TRUE(part == 0 || (uomStaticRows[part].kind & CLASS_BASE) != 0);
        }
        for (const int32_t exponent : row.dimension)
            EXPECT_TRUE(row.kind != 9 || exponent == 0);
        const bool later = i == 20 || i == 45 || i == 54; // the older numbering runs on without these
        EXPECT_EQ(later ? 0 : olderNumber, row.legacyNumber);
        olderNumber += !later;
    }
}

TEST(CatalogueClassRows, BearTheWordsThatHostsWrite) {
    std::string tokens, keywords;
    for (int32_t i = 1; i < STATIC_CLASSES; ++i) {
        tokens += std::string(uomStaticRows[i].token) + " ";
        keywords += std::string(uomStaticRows[i].keyword ? uomStaticRows[i].keyword : "-") + " ";
    }
    EXPECT_EQ("( ) Dimensionless Temp TempAbs TempDiff Pres PresAbs PresDiff Time Leng FineLeng Area FineArea "
              "StdLiqVol StdVapVol ActVol Mass Mole Molar Energy E6Energy Visc Cond Surf Htco UA RUA Foul Dipole "
              "KVis Cp Torque Frac MassFrac MoleFrac VolFrac Currency Rotation Basis Potential Current Resistance "
              "Angle FlowConductance PetroMass PowerTop E6PowerTop Quantity Power E6Power Density PetroDensity "
              "VaporDensity SpVol VapSpVol Rate Velocity Inertia SpEnthalpy SpEntropy Freq BasisFrac MassRate "
              "MoleRate VolRate HeatVal Cutpoint cakeRes InvLeng ",
              tokens);
    EXPECT_EQ("( ) NODM TEMP TABS TDIF PRES PABS PDIF TIME LENG FLEN AREA FARE LIQV VAPV ACTV WT WT WT ENER - "
              "VISC COND SURF HTCO UA RUA FOUL DIPO KVIS CP TORQ FRAC WFRA MFRA MFRA CURR ROT BASI POT CUR RES "
              "ANGP FLOW - - - - WORK DUTY LDEN PDEN VDEN SPVO SPVV RATE VELO INER ENTH ENTR FREQ FRAC WTRA MRAT "
              "LVRA HVAL - CRES ILEN ",
              keywords);
}

class CatalogueClasses : public ShippedFixture {};

TEST_F(CatalogueClasses, DimensionsAgreeAcrossClasses) {
    const auto dimensionsOf = [](const std::string &text) {
        std::vector<int32_t> dimensions(DIMENSIONS, -99);
        EXPECT_EQ(0, uoms_GetDimensions(text.c_str(), dimensions.data()));
        return joined(dimensions[0], dimensions[1], dimensions[2], dimensions[3], dimensions[4], dimensions[5]);
    };
    const char cases[] = R"(
        Pres Area | Energy / Leng |; Visc / Density | KVis |; Htco Area | UA |; Cond / Leng | Htco |
        Foul Htco | Dimensionless |; Cp Mass TempDiff | Energy |; Potential Current | Power |; Surf Area | Torque |
        Resistance Current | Potential |; Leng Rotation | Velocity |; RUA TempAbs 4 | Power |; Freq Time | Angle |
        Dipole / Leng | Current Time |; Inertia / Time 2 | Energy |; InvLeng FineLeng | Frac |; SpEntropy | Cp |
        SpEnthalpy | Velocity 2 |; MassRate Time | Mass |; HeatVal | PresAbs |; cakeRes Mass | Leng |
        E6Power | PowerTop/Time |; SpVol Mole | StdVapVol |; VaporDensity | PetroDensity |; VolRate | ActVol/Time |
        Temp | TempAbs |; TempAbs | TempDiff |; Pres | PresDiff |; FineArea | Leng 2 |; Mole | Molar |
        Cutpoint | PetroMass |; E6Energy | E6PowerTop |; Power | E6Power |; MoleRate | MassRate |
    )";
    expectAnswers(cases, [&](const Cells &c) {
        EXPECT_EQ(dimensionsOf(c[1]), dimensionsOf(c[0])) << c[0] << " against " << c[1];
        return "";
    });
}

TEST_F(CatalogueClasses, AreFoundByText) {
    // text and mode: the number, and that of the older numbering
    const char lookUps[] = R"(
        Temp | 1 | 4 4; tEMP | 1 | 4 4; Temperature | 1 | 4 4; absolute temperature | 0 | 5 5; VapVol | 1 | 16 16
        Vol | 1 | 15 15; Mole | 1 | 19 19; Rate | 1 | 57 54; Molar | 1 | 20 0; FlowConductance | 9 | 45 0
        VaporDensity | 1 | 54 0; E6Energy | 1 | 22 21; InvLeng | -1 | 70 67; ( | 1 | 1 1; ) | 2 | 2 2
        MassRate | 2 | 0 0; WTRA | 1 | 0 0; Temp~ | 1 | 0 0; | 1 | 0 0; | 2 | 0 0; nosuch | 1 | 0 0; ~~ | 2 | 0 0
        TEMP | 2 | 4 4; temp~~~ | 2 | 4 4; TEMP\t\n | 2 | 4 4; TEMP~~~~~~~~~X | 2 | 4 4; ~TEMP | 2 | 0 0; WT | 2 | 18 18
        WTRA | 2 | 57 57; lvra | 2 | 57 57; MRAT | 2 | 57 57; GVRA | 2 | 57 57; FRAC | 2 | 34 34; pct | 2 | 34 34
        PCT~ | 2 | 34 34; PPM | 2 | 34 34; PPM~ | 2 | 34 34; PPM~~ | 2 | 0 0; FRAC~ | 2 | 34 33; WTRA~ | 2 | 64 61
        RATE | 2 | 57 54; MFRA | 2 | 36 35; DUTY | 2 | 51 49
    )";
    for (const bool indexed : {true, false}) {
        expectAnswers(lookUps, [](const Cells &c) {
            const int32_t mode = std::stoi(c[1]), number = uom_GetClassType(c[0].c_str(), mode);
            uomModeQx71 = 1;
            const int32_t older = uom_GetClassType(c[0].c_str(), mode);
            EXPECT_EQ(number, class_Find(c[0].c_str(), mode)) << "inside, numbers are rows";
            uomModeQx71 = 0;
            return joined(number, older);
        });
        for (const int32_t mode : {1, 2}) {
            EXPECT_EQ(0, uom_GetClassType(nullptr, mode));
            EXPECT_EQ(0, uom_GetClassType(std::string(10000, 'T').c_str(), mode));
        }
        if (indexed)
            class_DropIndex(); // the slow way answers the same
    }
}

TEST_F(CatalogueClasses, AnswerQuestions) {
    // base, nodes, length of the long name, widths
    const char cases[] = R"(
        -1 | 1 0 0 0 0; 0 | 1 0 0 0 0; 1 | 1 1 15 0 0; 4 | 1 1 11 100 100; 7 | 1 1 8 100 150; 40 | 1 1 5 100 120
        57 | 0 3 4 0 0; 62 | 0 1 9 0 0; 64 | 0 2 9 0 0; 68 | 1 1 8 100 150; 1000 | 1 0 0 0 0; -2147483648 | 1 0 0 0 0
    )";
    expectAnswers(cases, [](const Cells &c) {
        const int32_t classId = std::stoi(c[0]);
        int32_t width1 = 7, width2 = 7;
        uom_GetClassGUIWidths(classId, &width1, &width2);
        return joined(uom_IsClassBase(classId), uom_GetUnitMax(classId), uom_GetClassTextLen(classId), width1, width2);
    });
    uom_GetClassGUIWidths(4, nullptr, nullptr);
    for (int32_t i = 0; i <= uom_GetUOMClassCount(); ++i) {
        EXPECT_EQ(i == 40, uom_IsClassBasis(i) == 1);
        EXPECT_EQ(i == 40 || i == 49 || i == 57 || i == 63, uom_ClassHasBasis(i)) << i;
    }
}

TEST_F(CatalogueClasses, AreListed) {
    // style and place: the text there, and whether "Quantity" is anywhere
    const char cases[] = R"(
        1 | 0 | ( 1; 1 | 64 | Cutpoint 1; 2 | 48 | VDEN 0; 5 | 0 | OpenParenthesis 1; 5 | 3 | Temperature 1
    )";
    expectAnswers(cases, [](const Cells &c) {
        UomTable *list = uom_GetClassList(std::stoi(c[0]));
        EXPECT_EQ(c[0] != "2", list->count == static_cast<uint32_t>(uom_GetUOMClassCount()) - 4);
        bool quantity = false;
        for (uint32_t i = 0; i < list->count; ++i)
            quantity = quantity || std::string(tbl_GetText(list, i)) == "Quantity";
        const std::string text = joined(tbl_GetText(list, static_cast<uint32_t>(std::stoi(c[1]))), quantity);
        tbl_Free(list);
        return text;
    });
}

TEST_F(UomFixture, ClassesAndUnitsOfALibraryThatIsNotStarted) {
    EXPECT_EQ(0, uom_GetUOMClassCount());
    EXPECT_EQ(0, uom_GetClassType("Temp", 1));
    EXPECT_EQ(1, uom_IsClassBase(57));
    EXPECT_EQ(0, uom_GetUnitMax(57));
    EXPECT_FALSE(uoms_New("Pres"));
    EXPECT_EQ(0, uom_GetUnitType("kPa"));
    EXPECT_FALSE(uom_GetUnitList(7));
}

} // namespace

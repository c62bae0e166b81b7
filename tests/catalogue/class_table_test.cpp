// The compiled classes and the look-ups among them.
#include "catalogue/class_table.h"

#include "tests/library_fixture.h"

namespace {

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

class CatalogueClasses : public ShippedTest {};

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

TEST(CatalogueClassRows, CompositesHaveTheDimensionsOfTheirComponents) {
    for (const UomClassRow &row : uomStaticRows) {
        for (const int32_t own : row.dimension)
            EXPECT_TRUE(own == 0 || !class_IsComposite(row)) << row.token;
        for (const int32_t flag : {row.allowExponent, row.hasOffset, row.internalFlag})
            EXPECT_TRUE(flag == 0 || flag == 1) << row.token;
    }
}

} // namespace

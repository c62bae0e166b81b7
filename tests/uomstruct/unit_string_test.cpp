// Unit strings: class string and unit string in, units or a message out.
#include "uomstruct/unit_string.h"

#include "tests/library_fixture.h"

namespace {

class UnitString : public ShippedTest {
protected:
    // The units of a class string filled from a unit string, or status and message.
    static std::string filled(const Cells &c, int32_t style) {
        UomStruct chain = uoms_New(c[0].c_str());
        error_Set("not cleared");
        const int32_t status = uom_FillStructFromString(chain, c[1].c_str(), style);
        const std::string message = lastError(), units = describeUnits(chain);
        EXPECT_TRUE(status != 0 || message.empty()) << message;
        if (style == 1) {
            EXPECT_EQ(status == 0 ? 0 : 2, uoms_ValidateUOM(c[0].c_str(), c[1].c_str()));
        }
        uom_Free(&chain);
        return status == 0 ? units : joined(status, message);
    }
    static std::string byTokens(const Cells &c) { return filled(c, 1); }
    static std::string byKeywords(const Cells &c) { return filled(c, 2); }
};

TEST_F(UnitString, FillsPlainClasses) {
    const char cases[] = R"(
        Leng | ft | 11:ft; Leng | ~~FT~~ | 11:ft; Leng 2 | ft2 | 11:ft; Leng 2 | (ft)2 | 11:ft; Leng 2 | ( ft ) 2 | 11:ft
        Leng 2 | ft\2 | 11:ft; Leng -1 | 1/ft | 11:ft; Leng -1 | ft-1 | 11:ft; Leng / Time 2 | ft/sec2 | 11:ft 10:sec
        Leng / Time / Mass | ft/sec/lb | 11:ft 10:sec 18:lb; Pres | in   Hg | 7:in Hg; Pres | inHg | 7:in Hg
        Pres / Time | kg/cm2/hr | 7:kg/cm2 10:hr; Pres | kg / cm2g | 7:kg/cm2g; Mole | lb-mole | 19:lb-mol
        Mole / Time | lb - molE/hr | 19:lb-mol 10:hr; Currency | $ | 38:$; Dimensionless | | 3:-
        Dimensionless Leng | ft | 3:- 11:ft; Leng Dimensionless | ft | 11:ft 3:-
        Leng | M ft | 11:3*ft; Leng | Mft | 11:3*ft; Leng | k*ft | 11:3*ft; Leng | M*ft | 11:6*ft; Leng | MM ft | 11:6*ft
        Leng | MM | 11:mm; Leng | M m | 11:3*m; Energy | MMBtu | 21:6*BTU; Energy / Time | MMBTU/M hr | 21:6*BTU 10:3*hr
    )";
    expectAnswers(cases, byTokens);
}

TEST_F(UnitString, FillsGroups) {
    const char cases[] = R"(
        (Leng Mass) 2 | ft2 lb2 | ( 11:ft 18:lb )2; (Leng Mass) 2 | (ft lb)2 | ( 11:ft 18:lb )2
        (Leng Mass) 2 | (ft lb)3 | ( 11:ft 18:lb )2; (Leng Mass) 2 | (M ft M lb)2 | ( 11:3*ft 18:3*lb )2
        (Leng Mass) 1 | M ft M lb | ( 11:3*ft 18:3*lb )1; (Leng / Time) 2 | (ft/hr)2 | ( 11:ft 10:hr )2
        (Leng / Time) 2 | ft2/hr2 | ( 11:ft 10:hr )2
        Leng / (Time Mass) 2 Pres | ft/(hr lb)2/kPa | 11:ft ( 10:hr 18:lb )-2 7:kPa
    )";
    expectAnswers(cases, byTokens);
    stop(); // a unit's own name may begin with a parenthesis
    ASSERT_EQ(0, startWith("BEGINUOMLIST\nnone N N 0 0 1\n\"(x)ft\" X odd 0 0 1\nft FT Foot 0 0 1\nENDUOMLIST\n"
                           "BEGINLIST\nLeng\nft\n\"(x)ft\"\nENDLIST\n"));
    expectAnswers("Leng | (x)ft | 11:(x)ft; Leng 2 | ((x)ft)2 | 11:(x)ft; Leng | (ft) | 11:ft\n", byTokens);
}

TEST_F(UnitString, FillsCompositeClassesWhateverTheirExponents) {
    const char cases[] = R"(
        Density | lb/ft3 | 18:lb 15:ft3; Density | lb2 ft3-5 | 18:lb 15:ft3; Density | (lb/ft3)2 | 18:lb 15:ft3
        Density | lb/ft3 )2 | 18:lb 15:ft3; Density | k*kg/M*m3 | 18:3*kg 15:6*m3; Freq | 1/sec | 10:sec
        Pres/VolRate 2 | kpa/(m3/sec)2 | 7:kPa 15:m3 10:sec; Pres/VolRate 2 | kpa/(m3/sec)3 | 7:kPa 15:m3 10:sec
        Density Pres | (lb/ft3)2-kPa | 18:lb 15:ft3 7:kPa; BasisFrac | Mole fraction | 40:Mole 34:fraction
        BasisFrac | VAP. VOL. percent | 40:Vap. Vol. 34:percent; VaporDensity | lb/SCF | 46:lb 16:SCF
        Rate | lb/hr | 40:Mass 18:lb 10:hr; Rate | lb-mol/hr | 40:Mole 19:lb-mol 10:hr; Quantity | kg | 40:Mass 18:kg
        Rate | lb-mole/hr | 40:Mole 19:lb-mol 10:hr; Rate | M BBL/day | 40:Liq. Vol. 15:3*BBL 10:day
        Rate | k*m3/hr | 40:Liq. Vol. 15:3*m3 10:hr; Rate (Vol) | MM BBL/day | 40:Vol 17:6*BBL 10:day
        Rate (Vap. Vol.) | SCF/hr | 40:Vap. Vol. 16:SCF 10:hr; Rate (Vap. Vol.) | lb/hr | 40:Mass 18:lb 10:hr
        Rate (Mass) | BBL/hr | 40:Liq. Vol. 15:BBL 10:hr; Rate / Pres | lb/hr psi | 40:Mass 18:lb 10:hr 7:psi
        Power | kW | 47:kW 10:-; Power | BTU/hr | 47:BTU 10:hr; Power / Area | kW/m2 | 47:kW 10:- 13:m2
        E6Power | x 10^6 BTU/hr | 48:x 10^6 BTU 10:hr; E6Power | x 10^6KVAR | 48:x 10^6KVAR 10:-
        PetroDensity | API | 46:API 15:-; PetroDensity Leng | spgr ft | 46:spgr 15:- 11:ft
    )";
    expectAnswers(cases, byTokens);
    const char moreCases[] = R"(
        Pres | inhg | 7:in Hg; E6Power | MMBTU/HR | 48:x 10^6 BTU 10:hr; Rate | LB-MOL/HR | 40:Mole 19:lb-mol 10:hr
        Currency | M DOLLAR | 38:3*$; Currency | $ | 2 UOM string "$": unidentified UOM for UOM class "Currency".
    )";
    expectAnswers(moreCases, byKeywords);
}

TEST_F(UnitString, FailsWithAMessage) {
    const char cases[] = R"(
        Leng | xyz | 2 UOM string "xyz": unidentified UOM for UOM class "Leng".
        Leng/Time | ft / xyz 2 | 2 UOM string "xyz 2": unidentified UOM for UOM class "Time".
        Density | xyz/ft3 | 2 UOM string "xyz/ft3" at character 1: unidentified UOM for UOM class "Mass".
        Density | lb / xyz | 2 UOM string "lb/xyz" at character 4: unidentified UOM for UOM class "StdLiqVol".
        Density | lb/ | 2 UOM string "lb/" at character 4: unidentified UOM for UOM class "StdLiqVol".
        Rate | xyz/hr | 2 UOM string "xyz/hr" at character 1: unidentified UOM for UOM class "Basis".
        Leng | | 3 UOM string "" is incomplete. Expecting more characters.
        Leng | ~\t~ | 3 UOM string "" is incomplete. Expecting more characters.
        Density | ~lb~ | 3 UOM string "lb" is incomplete. Expecting more characters.
        Dimensionless Leng | | 3 UOM string "" is incomplete. Expecting more characters.
        Power | BTU | 3 UOM string "BTU" is incomplete. Expecting more characters.
        Leng | ft  and more | 4 UOM string "ft and more" at character 4: extra characters "and more" were found at the end.
        Dimensionless | ft | 4 UOM string "ft" at character 1: extra characters "ft" were found at the end.
        Power | kW/hr | 4 UOM string "kW/hr" at character 4: extra characters "hr" were found at the end.
        Density | lb/ft3 $ | 4 UOM string "lb/ft3 $" at character 8: extra characters "$" were found at the end.
        Leng | m*ft | 5 UOM string "m*ft": unrecognized UOM multiplier.
        Leng | km*ft | 5 UOM string "km*ft": unrecognized UOM multiplier.
        Leng/Time | ft/K*hr | 5 UOM string "K*hr": unrecognized UOM multiplier.
        Density | lb/q*ft3 | 5 UOM string "lb/q*ft3" at character 4: unidentified UOM multiplier.
        Leng | ft2 | 6 UOM string "ft2" at character 3: expecting an exponent of 1 but found 2 instead.
        Leng 2 | ft | 6 UOM string "ft" at character 3: expecting an exponent of 2 but found 1 instead.
        Leng / Time | ft hr | 6 UOM string "ft hr" at character 6: expecting an exponent of -1 but found 1 instead.
        Leng / Time 2 | ft/hr-2 | 6 UOM string "ft/hr-2" at character 6: expecting an exponent of -2 but found 2 instead.
        (Leng Mass) 2 | ft2 lb | 6 UOM string "ft2 lb" at character 7: expecting an exponent of 2 but found 1 instead.
        Rate Pres | lb/hr psi | 6 UOM string "lb/hr psi" at character 10: expecting an exponent of 1 but found -1 instead.
        Leng/(Time Mass)Temp | a | 2 UOM string "a": unidentified UOM for UOM class "Leng".
        Leng/(Time Mass)Temp | m/(hr lb)F | 6 UOM string "m/(hr lb)F" at character 11: expecting an exponent of -1 but found 1 instead.
        (Leng Mass) 2 | M ft2 M lb2 | 7 UOM string "M ft2 M lb2" at character 1: required parentheses are missing.
        (Leng Mass) -2 | ft-2 M lb-2 | 7 UOM string "ft-2 M lb-2" at character 6: required parentheses are missing.
    )";
    expectAnswers(cases, byTokens);
    EXPECT_EQ(1, uom_FillStructFromString(nullptr, "ft", 1));
    EXPECT_EQ("No UOM class specified in function uom_FillStructFromString().", lastError());
    const Chain chain("Leng");
    EXPECT_EQ(1, uom_FillStructFromString(chain.head, nullptr, 1));
    EXPECT_EQ("No UOM string specified in function uom_FillStructFromString().", lastError());
}

TEST_F(UnitString, StaysWithinItsBounds) {
    const std::string open(100, '('), close(100, ')');
    const std::string texts[] = {std::string(10000, 'x'), std::string(10000, '('),   std::string(10000, ')'),
                                 std::string(10000, '/'), std::string(10000, '7'),   "ft" + std::string(10000, '7'),
                                 open + "ft" + close,     open + "lb/ft3" + close,   "k*" + std::string(10000, '*'),
                                 std::string(10000, '-'), std::string(10000, '\xB2')};
    for (const std::string classes : {"Leng", "Density", "Rate", "(Leng Mass) 2", "((Leng)2)2", "Power", "BasisFrac"})
        for (const std::string &text : texts)
            EXPECT_NE(std::string::npos, byTokens({classes, text}).find("UOM string")) << classes;
    EXPECT_EQ("2 UOM string \"" + std::string(499, 'x'), byTokens({"Leng", texts[0]}));
    EXPECT_EQ("11:ft", byTokens({"Leng", std::string(10000, ' ') + "ft" + std::string(9999, ' ')}));
    EXPECT_EQ("11:ft", byTokens({"Leng", std::string(30, '(') + "ft" + std::string(30, ')')}));
}

} // namespace

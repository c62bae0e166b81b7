// Class strings: text in, classes and exponents out.
#include "uomstruct/class_string.h"

#include "tests/library_fixture.h"

namespace {

class ClassString : public ShippedTest {
protected:
    // The classes as "class^exponent", with the basis unit of a class string behind it, or the message.
    static std::string entriesOf(const std::string &text) {
        UomStruct chain = uoms_New(text.c_str());
        EXPECT_EQ(chain != nullptr, uoms_IsClassValid(text.c_str()) == 1);
        std::string all = chain ? "" : lastError();
        for (UomStruct node = chain; node; node = node->next) {
            if (node->tag > 100)
                continue;
            all += (all.empty() ? "" : " ") + std::to_string(node->classId) + "^" + std::to_string(node->exponent);
            char basis[32] = "";
            uom_GetUnitText(node->unit, basis, sizeof basis, 1);
            all += *basis ? "[" + std::string(basis) + "]" : "";
        }
        uom_Free(&chain);
        return all;
    }
    static std::string answer(const Cells &c) { return entriesOf(c[0]); }
};

TEST_F(ClassString, BecomesEntries) {
    const char cases[] = R"(
        Pres Rate 2 | 7^1 57^2; Pres / Rate 2 | 7^1 57^-2; Pres/VolRate 2 | 7^1 66^-2; 1 / Time | 10^-1; / Pres | 7^-1
        (Pres Time) 2 / Leng | 1^0 7^1 10^1 2^2 11^-1; Pres / (Time Leng) 2 | 7^1 1^0 10^1 11^1 2^-2; 2 Pres | 7^1
        ( 2 Pres ) | 1^0 7^1 2^1; Mass / Time / Leng | 18^1 10^-1 11^1; Dimensionless | 3^1; () | 1^0 2^1
        Leng / (Time) Mass | 11^1 1^0 10^1 2^-1 18^-1; Leng/(Time/Mass) | 11^1 1^0 10^1 18^-1 2^-1; ) ( | 2^1 1^0
        Leng / (Time) -2 Mass 3 | 11^1 1^0 10^1 2^2 18^-3; (Pres) 2 3 | 1^0 7^1 2^3
        (Pres) / 2 Time | 1^0 7^1 2^1 10^-1; (Pres /) 2 3 | 1^0 7^1 2^3; ((Pres)2 Time)3 | 1^0 1^0 7^1 2^2 10^1 2^3
        Pres 2 3 | 7^3; Pres -2 | 7^-2; Pres / Time -2 | 7^1 10^2; Pres - 2 | 7^2; Pres + 2 | 7^2; Pres - | 7^0
        Pres 2 / 3 Time | 7^2 10^-1; Pres6 | 7^6; Time 6 | 10^6; Pres-2Time | 7^-2 10^1; Pres 2147483647 | 7^2147483647
        pres | 7^1; PRES | 7^1; Pressure | 7^1; VapVol Vol | 16^1 15^1; Leng \2 | 11^2; Leng \3/ Time | 11^3 10^-1
        E6Energy e6power/E6PowerTop 2 | 22^1 51^1 48^-2; 'Mass Rate' "Heat Transfer Coeff * Area" 2 | 64^1 27^2
        'Pressure | 7^1; Rate (Mass) / Time | 57^1[Mass] 10^-1; Rate (Mass) 2 | 57^2[Mass]
        Leng/Rate( vap. vol. )2 | 11^1 57^-2[Vap. Vol.]; Quantity(Liq.Vol.) Basis(Vol) | 49^1[Liq. Vol.] 40^1[Vol]
        Rate (Mass Time) Leng | 57^1[Mass] 11^1; BasisFrac (Mole) | 63^1[Mole]; Rate () | 57^1 1^0 2^1
        Rate (Pres Time) | 57^1 1^0 7^1 10^1 2^1; Density (Mass) | 52^1 1^0 18^1 2^1
    )";
    expectAnswers(cases, answer);
    defaultScanClassStyle = 2;
    expectAnswers("PRES/LENG 2 | 7^1 11^-2; wtra | 57^1; RATE (WT) 2 | 57^2[Mass]\n", answer);
    EXPECT_FALSE(uoms_New("Pressure"));
}

TEST_F(ClassString, FailsWithAMessage) {
    const char cases[] = R"cases(
        Nosuch | Parsing UOM class string "Nosuch" but unable to identify the UOM class "Nosuch".
        Pres Nosuch Other | Parsing UOM class string "Pres Nosuch Other" but unable to identify the UOM class "Nosuch".
        Pres+2 | Parsing UOM class string "Pres+2" but unable to identify the UOM class "Pres+".
        Pres 99999999999 | Parsing UOM class string "Pres 99999999999" but unable to identify the UOM class "99999999999".
        Leng\2 | Parsing UOM class string "Leng\2" but unable to identify the UOM class "Leng2".
        Time6 | Parsing UOM class string "Time6" but unable to identify the UOM class "Time6".
        Pres "No such" | Parsing UOM class string "Pres "No such"" but unable to identify the UOM class "No such".
        Pres\tTime | Parsing UOM class string "Pres\tTime" but unable to identify the UOM class "Pres\tTime".
        PRES PDIF | Parsing UOM class string "PRES PDIF" but unable to identify the UOM class "PDIF".
        Pres 2x | Parsing UOM class string "Pres 2x" but unable to identify the UOM class "x".
        (Pres | Parentheses do not balance in UOM class string "(Pres".
        Pres) | Parentheses do not balance in UOM class string "Pres)".
        (Nosuch | Parentheses do not balance in UOM class string "(Nosuch".
        Rate (Mass | Parentheses do not balance in UOM class string "Rate (Mass".
    )cases";
    expectAnswers(cases, answer);
    EXPECT_EQ(1, uoms_ValidateUOM("Nosuch", "kPa"));
    const std::string before = lastError();
    for (const char *text : {"", "   ", "2 3", "/", "2 / 3"})
        EXPECT_FALSE(uoms_New(text)) << text;
    EXPECT_EQ(before, lastError()) << "what is empty says nothing";
}

TEST_F(ClassString, StaysWithinItsBounds) {
    std::string twenty, expected;
    for (int i = 0; i < 20; ++i) {
        twenty += "Pres ";
        expected += i ? " 7^1" : "7^1";
    }
    EXPECT_EQ(expected, entriesOf(twenty));
    EXPECT_FALSE(uoms_New((twenty + "Pres").c_str()));
    EXPECT_FALSE(uoms_New((std::string(100, '(') + "Pres" + std::string(100, ')')).c_str()));
    for (const std::string piece : {"x", "Pres ", "(", ")", "7 ", "/", "'", "Rate ("}) {
        std::string all;
        while (all.size() < 10000)
            all += piece;
        EXPECT_EQ(0, uoms_IsClassValid(all.c_str()));
    }
    EXPECT_EQ("Parsing UOM class string \"" + std::string(485, 'x'), entriesOf(std::string(10000, 'x')));
    EXPECT_EQ("7^2", entriesOf(std::string(10000, ' ') + "Pres" + std::string(10000, ' ') + "2"));
}

TEST_F(ClassString, HasDimensions) {
    // The power of a group is its closing parenthesis's alone. What fails leaves the sevens.
    const char cases[] = R"(
        Pres | 1 -1 -2 0 0 0; Density 2 / Currency | 2 -6 0 0 0 -1; SpEntropy | 0 2 -2 -1 0 0; Rate | 1 0 -1 0 0 0
        Rate (Vol) | 0 3 -1 0 0 0; (Leng Time) 2 | 0 1 1 0 0 0; Resistance / Dipole | 1 1 -1 0 -3 0; x | 7 7 7 7 7 7
    )";
    expectAnswers(cases, [](const Cells &c) {
        int32_t d[6] = {7, 7, 7, 7, 7, 7};
        EXPECT_EQ(0, uoms_GetDimensions(c[0].c_str(), d));
        return joined(d[0], d[1], d[2], d[3], d[4], d[5]);
    });
}

} // namespace

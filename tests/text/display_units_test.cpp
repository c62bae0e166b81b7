// The units of a chain as text, and that this text reads back.
#include <cstring>

#include "tests/library_fixture.h"
#include "uomstruct/quotients.h"

namespace {

class DisplayUnitsTest : public ShippedTest {};

struct Row {
    const char *classString;
    std::initializer_list<const char *> units; // of the nodes but the parentheses
    const char *text;
};

TEST_F(DisplayUnitsTest, FormsOfTheText) {
    const Row rows[] = {
        // clang-format off
        {"Pres", {"psia"}, "psia"}, {"Rate (Mass)", {"Mass", "lb", "hr"}, "lb/hr"},
        {"Pres/VolRate 2", {"kPa", "m3", "sec"}, "kPa/(m3/sec)2"},
        {"Pres Rate (Mass) 2", {"psi", "Mass", "lb", "hr"}, "psi(lb/hr)2"},
        {"Pres / Rate (Mass)", {"psi", "Mass", "lb", "hr"}, "psi/(lb/hr)"},
        {"Rate (Mass) Pres", {"Mass", "lb", "hr", "psi"}, "(lb/hr)-psi"}, {"Leng 2", {"ft"}, "ft2"},
        {"Area 2", {"ft2"}, "(ft2)2"}, {"Mass Leng", {"lb", "ft"}, "lb-ft"},
        {"Mass / Time Leng", {"lb", "sec", "ft"}, "lb/sec-ft"},
        {"Mass / Time / Leng", {"lb", "sec", "ft"}, "lb/sec/ft"}, {"1 / Time", {"hr"}, "1/hr"},
        {"Pres Time", {"kg/cm2", "sec"}, "(kg/cm2)-sec"}, {"Pres", {"kg/cm2"}, "kg/cm2"},
        {"Pres Rate (Mass)", {"psi", "Mass", "lb", "hr"}, "psi lb/hr"},
        {"BasisFrac", {"Mass", "fraction"}, "Mass fraction"}, {"(Leng Mass) 2", {"ft", "lb"}, "(ft-lb)2"},
        // Exponents beyond 3, units with a hyphen or slash, signs of groups.
        {"Leng 5 / Time 4", {"ft", "sec"}, "ft5/sec4"}, {"Mole 2", {"lb-mol"}, "(lb-mol)2"},
        {"Mole Time", {"lb-mol", "sec"}, "lb-mol-sec"}, {"Pres 2 Time", {"kg/cm2", "sec"}, "(kg/cm2)2-sec"},
        {"Time Pres", {"sec", "kg/cm2"}, "sec-kg/cm2"}, {"Pres / (Time Leng) 2", {"psi", "sec", "ft"}, "psi/(sec-ft)2"},
        {"1 / (Time Leng) 2", {"sec", "ft"}, "1/(sec-ft)2"},
        {"(Pres / Time) 2 / Leng", {"psi", "sec", "ft"}, "(psi/sec)2/ft"},
        {"(Pres / (Time Leng))", {"psi", "sec", "ft"}, "(psi/(sec-ft))"},
        {"Mass (1 / (Time) 2)", {"lb", "sec"}, "1/(sec)2)"}, // the "1" takes the place of what stands there
        {"(1 / Leng)", {"ft"}, "(1/ft)"},
        // Composite classes: parentheses by power, by what follows, by how many units show.
        {"Density", {"lb", "ft3"}, "lb/ft3"}, {"Density 2", {"lb", "ft3"}, "(lb/ft3)2"},
        {"1 / Density", {"lb", "ft3"}, "1/(lb/ft3)"}, {"Density Leng", {"lb", "ft3", "m"}, "(lb/ft3)-m"},
        {"Density / Leng", {"lb", "ft3", "m"}, "(lb/ft3)/m"},
        {"(Density) 2", {"lb", "ft3"}, "(lb/ft3)2"}, // last in the group
        {"(Density Leng) 2", {"lb", "ft3", "m"}, "((lb/ft3)-m)2"}, {"Inertia Leng", {"lb", "ft", "m"}, "lb-ft2-m"},
        {"Inertia 2", {"lb", "ft"}, "(lb-ft2)2"}, {"SpEntropy", {"BTU", "F", "lb"}, "BTU/F-lb"},
        {"Power 2", {"kW"}, "kW2"}, {"Power 2 Leng", {"kW", nullptr, "m"}, "kW2-m"},
        {"Leng / Power", {"m", "kW"}, "m/kW"}, {"Power", {"BTU", "hr"}, "BTU/hr"},
        {"Quantity (Mass) 2", {"Mass", "lb"}, "lb2"}, {"Quantity (Mass) Leng", {"Mass", "lb", "ft"}, "lb-ft"},
        {"Leng / Quantity (Mole)", {"ft", "Mole", "lb-mol"}, "ft/lb-mol"}, {"Freq", {"sec"}, "1/sec"},
        {"Leng Freq", {"ft", "sec"}, "ft/sec"}, {"Freq 2", {"sec"}, "1/sec2"},
        {"Basis Leng", {"Mass", "ft"}, "ft"}, // a basis ahead of anything but a fraction never shows
        // Nothing where there is no unit.
        {"Leng Mass Time", {"ft", nullptr, "sec"}, "ft-sec"}, {"Leng / Mass", {}, ""}, {"(Leng)", {}, "()"},
        // An exponent of zero.
        {"Leng 0", {"ft"}, "ft"}, {"Mass / Leng 0", {"lb", "ft"}, "lb-ft"}};
    // clang-format on
    for (const Row &row : rows) {
        const Chain chain(row.classString, row.units);
        EXPECT_EQ(display(chain.head), row.text) << row.classString;
    }
}

TEST_F(DisplayUnitsTest, Styles) {
    const struct {
        Row row;
        const char *super, *html, *upper;
    } cases[] = {{{"Leng 2", {"ft"}, "ft2"}, "ft\262", "ft<SUP>2</SUP>", "FT2"},
                 {{"Leng 3", {"ft"}, "ft3"}, "ft\263", "ft<SUP>3</SUP>", "FT3"},
                 {{"Leng 4", {"ft"}, "ft4"}, "ft4", "ft<SUP>4</SUP>", "FT4"},
                 {{"Area 2", {"ft2"}, "(ft2)2"}, "(ft\262)\262", "(ft<SUP>2</SUP>)<SUP>2</SUP>", "(FT2)2"},
                 {{"Area 5", {"ft2"}, "(ft2)5"}, "(ft\262)5", "(ft<SUP>2</SUP>)<SUP>5</SUP>", "(FT2)5"},
                 {{"Power 3", {"kW"}, "kW3"}, "kW\263", "kW<SUP>3</SUP>", "KW3"},
                 {{"(Leng Mass) 3", {"ft", "lb"}, "(ft-lb)3"}, "(ft-lb)\263", "(ft-lb)<SUP>3</SUP>", "(FT-LB)3"},
                 {{"(Leng) 12", {"ft"}, "(ft)12"}, "(ft)12", "(ft)<SUP>12</SUP>", "(FT)12"},
                 {{"Leng / Density 2", {"ft", "lb", "ft3"}, "ft/(lb/ft3)2"},
                  "ft/(lb/ft\263)\262",
                  "ft/(lb/ft<SUP>3</SUP>)<SUP>2</SUP>",
                  "FT/(LB/FT3)2"}};
    for (const auto &c : cases) {
        const Chain chain(c.row.classString, c.row.units);
        EXPECT_EQ(display(chain.head, 1), c.row.text);
        EXPECT_EQ(display(chain.head, 3), c.super);
        EXPECT_EQ(display(chain.head, 4), c.upper);
        EXPECT_EQ(display(chain.head, 6), c.html);
    }
    const Chain rate("Rate", "kg/hr");
    EXPECT_EQ(display(rate.head, 2), "KG/HR");
    EXPECT_EQ(display(rate.head, 5), "Kilogram/Hour");
    uom_SetDefaultDisplayStyle(4);
    EXPECT_EQ(display(rate.head, 0), "KG/HR");
}

TEST_F(DisplayUnitsTest, Multipliers) {
    const struct {
        const char *classString, *units, *text;
    } cases[] = {// clang-format off
        {"Rate", "M BBL/day", "M BBL/day"}, {"Rate", "MM BBL / day", "MM BBL/day"}, {"Rate", "k*m3/hr", "k*m3/hr"},
        {"Leng 2", "M*m2", "M*m2"}, {"Area 2", "(k*m2)2", "(k*m2)2"}, {"Rate 2", "(M lb/hr)2", "(M lb/hr)2"},
        {"Pres Time", "(k*kg/cm2)-k*sec", "(k*kg/cm2)-k*sec"}, {"1/Mass", "1/M lb", "1/M lb"}};
    // clang-format on
    for (const auto &c : cases)
        EXPECT_EQ(display(Chain(c.classString, c.units).head), c.text);
    const Chain node("Mass", {"lb"});
    for (const auto &c : {std::pair(3, "M "), std::pair(6, "MM "), std::pair(0, ""), std::pair(4, "")}) {
        char out[8] = "#";
        node.head->multiplier = c.first;
        EXPECT_EQ(uom_GetUOMMultiplierString(node.head, out, sizeof out), 0);
        EXPECT_STREQ(out, c.second);
    }
}

TEST_F(DisplayUnitsTest, BuffersOfAnySize) {
    const Chain chain("Pres / Rate 2 (Leng Mass) 3", "psi/(lb/hr)2(ft-lb)3");
    for (int32_t style = 1; style <= 6; ++style) {
        const std::string whole = display(chain.head, style);
        for (int32_t size = 1; size <= static_cast<int32_t>(whole.size()) + 3; ++size)
            EXPECT_EQ(display(chain.head, style, size), whole.substr(0, static_cast<size_t>(size) - 1))
                << style << " " << size;
    }
    // A class to the power zero has no text of its own; it must not bring the process down.
    for (const char *classString : {"Rate 0", "Density 0", "Pres / Rate 0", "(Rate 0)"}) {
        const Chain zero(classString);
        uom_InitializeUnits(zero.head, UOM_SET_ENGLISH);
        display(zero.head);
    }
}

// --- texts that read back

// Writes class strings and fills their chains with units, the same on every machine.
struct Generator {
    uint32_t state;
    explicit Generator(uint32_t seed) : state(seed) {}
    int32_t Below(int32_t n) {
        state = state * 1664525u + 1013904223u;
        return static_cast<int32_t>((state >> 10) % static_cast<uint32_t>(n));
    }
    bool basis = false; // the last class has one
    std::string Class() {
        const int32_t classId = 4 + Below(67); // the parentheses and Dimensionless are never read
        std::string text = class_Token(classId);
        basis = uom_ClassHasBasis(classId);
        if (classId == CLASS_QUANTITY || classId == CLASS_RATE) {
            // A volume under a hidden basis reads back as a liquid volume unless the class string says else.
            const char *bases[] = {"", " (Mole)", " (Mass)", " (Liq. Vol.)", " (Vap. Vol.)", " (Vol)"};
            text += bases[Below(6)];
        }
        const int32_t exponent = Below(7) - 2;
        return exponent > 1 || exponent < 0 ? text + " " + std::to_string(exponent) : text;
    }
    std::string ClassString() {
        std::string text;
        const int32_t factors = 1 + Below(3);
        for (int32_t i = 0; i < factors; ++i) {
            // A group behind a class with a basis could be taken for its basis.
            if (Below(4) == 0 && !basis) {
                text += "(" + Class() + (Below(2) ? " / " : " ") + Class() + ") ";
                if (Below(2))
                    text += std::to_string(2 + Below(3)) + " ";
                else if (i == factors - 1 && i > 0)
                    text += "-2";
            } else {
                text += Class() + (Below(3) == 0 && i < factors - 1 ? " / " : " ");
            }
        }
        return text;
    }
    void Fill(UomStruct head, bool multipliers) {
        bool closed = false;
        for (UomStruct node = head; node; node = node->next) {
            const bool read = node->classId > CLASS_CLOSE && !closed;
            const bool hidden = node->baseClass == CLASS_BASIS && node->classId != CLASS_BASIS_FRAC;
            closed = false;
            if (!read)
                continue;
            if (hidden && node->next && node->next->classId == node->classId) {
                if (node->unit == UOM_NULL) // one that plain text reads back
                    node->unit = uom_BasisFromClass(node->next->baseClass);
                continue;
            }
            int32_t units[64] = {};
            uom_GetUnitIndices(node->baseClass, units, 63);
            int32_t count = 0;
            while (units[count])
                ++count;
            chain_SetUnit(node, units[Below(count)]);
            if (multipliers && Below(4) == 0)
                node->multiplier = 3 + 3 * Below(2);
            closed = node->tag >= TAG_COMPONENT && unit_IsWholeQuotient(node->baseClass, node->unit);
        }
    }
};

// What the text of such a chain can't say.
const char *Exception(UomStruct head, const std::string &text) {
    bool inversePassed = false, basisShown = false, composite = false, negative = false;
    for (UomStruct node = head; node; node = node->next) {
        if (node->classId == CLASS_OPEN && composite)
            return "a group right behind a class in parentheses, whose closing one the opening of the group "
                   "skips";
        if (node->classId != CLASS_CLOSE)
            composite = node->tag >= TAG_COMPONENT;
        const bool simple = node->tag == 0 && node->classId > CLASS_CLOSE;
        if (simple && inversePassed)
            return "a class behind one that leaves a slash open without parentheses";
        const bool lone = node->tag == TAG_COMPONENT && uom_GetUnitMax(node->classId) == 1;
        if (lone && node->next)
            inversePassed = true;
        if (node->classId == CLASS_CLOSE)
            inversePassed = false;
        if (node->classId == CLASS_OPEN) {
            const UomStruct close = chain_MatchingClose(node);
            if ((close->exponent < 0) != negative && close->next)
                return "a class behind a group with a slash, which the opening of the group skips";
            negative = false;
        } else {
            negative = node->exponent < 0;
        }
        if (simple && node->baseClass == CLASS_BASIS)
            basisShown = true;
    }
    if (basisShown)
        return "a basis by itself never shows ahead of another class";
    // The prefix of an SI multiplier runs from the start of the reading to the "*", blanks and all.
    for (size_t blank = text.find(' '); blank != std::string::npos; blank = text.find(' ', blank + 1))
        if (text.compare(blank + 2, 1, "*") == 0)
            return "an SI multiplier behind the blank of a hidden basis";
    return nullptr;
}

TEST_F(DisplayUnitsTest, TextsReadBack) {
    int excepted = 0, total = 0;
    for (uint32_t seed = 1; seed <= 20000; ++seed) {
        Generator generator(seed * 2654435761u);
        const std::string classString = generator.ClassString();
        const Chain chain(classString), copy(classString);
        if (uom_GetUnitCount(chain.head) > CHAIN_UNITS)
            continue;
        generator.Fill(chain.head, seed % 2 == 0);
        const std::string text = display(chain.head);
        ++total;
        if (Exception(chain.head, text)) {
            ++excepted;
            continue;
        }
        SCOPED_TRACE(testing::Message() << "seed " << seed << ": \"" << classString << "\" \"" << text << "\"");
        ASSERT_EQ(uom_FillStructFromString(copy.head, text.c_str(), 1), 0) << lastError();
        UomStruct back = copy.head;
        for (UomStruct node = chain.head; node; node = node->next, back = back->next) {
            ASSERT_EQ(unitText(back->unit), unitText(node->unit));
            ASSERT_EQ(back->multiplier, node->multiplier);
            ASSERT_EQ(back->baseClass, node->baseClass);
            ASSERT_EQ(back->baseExponent, node->baseExponent);
        }
        ASSERT_EQ(display(copy.head), text);
    }
    EXPECT_GT(total, 15000);
    EXPECT_LT(excepted, total / 3);
}

} // namespace

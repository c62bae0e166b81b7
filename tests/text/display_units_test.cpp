// The units of a chain as text, and that this text reads back.
#include "tests/library_fixture.h"
#include "uomstruct/quotients.h"

namespace {

class DisplayUnitsTest : public ShippedTest {};

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

// Calls with texts as pointer and length, padded with blanks and without a terminator.
#include "uom/blank_padded.h"

#include "tests/library_fixture.h"

namespace {

// A text as such a caller has it: an address, and a length that counts blanks, with other characters behind it.
struct Padded {
    std::string text;
    uint32_t length;
    explicit Padded(const std::string &words, size_t blanks = 5)
        : text(words + std::string(blanks, ' ') + "###"), length(static_cast<uint32_t>(words.size() + blanks)) {}
};

class BlankPadded : public ShippedTest {
protected:
    static int32_t made(const Padded &name) {
        int32_t index = -7;
        EXPECT_EQ(uom_NewSetFixed(name.text.data(), name.length, &index), index);
        return index;
    }
    static int32_t deleted(const Padded &name) {
        int32_t status = -7;
        uom_DeleteSetFixed(name.text.data(), name.length, &status);
        return status;
    }
    static int32_t initialised(const Padded &name, const Padded &source) {
        int32_t status = -7;
        EXPECT_EQ(uom_InitializeSetFixed(name.text.data(), name.length, source.text.data(), source.length, &status),
                  status);
        return status;
    }
    static int32_t put(const Padded &slate, const Padded &className, const Padded &units) {
        int32_t status = -7;
        EXPECT_EQ(uoms_SetClassDefaultFixed(slate.text.data(), slate.length, className.text.data(), className.length,
                                            units.text.data(), units.length, &status),
                  status);
        return status;
    }
    static std::string constants(const Padded &className, const Padded &from, const Padded &to) {
        int32_t status = -7;
        double factor = -7, offset = -7;
        uoms_CalculateConvConstantsFixed(className.text.data(), className.length, from.text.data(), from.length,
                                         to.text.data(), to.length, &status, &factor, &offset);
        return joined(status, factor, offset);
    }
};

TEST_F(BlankPadded, Slates) {
    const int32_t plant = made(Padded("Plant"));
    EXPECT_EQ(plant, uom_GetSetType("Plant"));
    EXPECT_EQ(made(Padded("PLANT", 0)), plant);
    EXPECT_EQ(joined(initialised(Padded("plant"), Padded("Metric")), initialised(Padded("Plant"), Padded("No"))),
              "0 1");
    EXPECT_EQ(
        joined(put(Padded("Plant"), Padded("Mass"), Padded("M lb")), put(Padded("Plant"), Padded("x"), Padded("lb"))),
        "0 1");
    EXPECT_EQ(stated("Plant", "Mass"), "M lb");
    for (const uint32_t size : {2u, 4u, 10u}) {
        std::string out(12, '#');
        const Padded className("Mass"), slate("Plant");
        const int32_t style = 1;
        uoms_GetDisplayUnitsFixed(className.text.data(), className.length, slate.text.data(), slate.length, &style,
                                  out.data(), size);
        EXPECT_EQ(out.substr(size), std::string(12 - size, '#'));
        EXPECT_EQ(size < 10 || out.substr(0, size) == "M lb      ", true) << out;
    }
    EXPECT_EQ(deleted(Padded("pLANT")), 0);
    EXPECT_EQ(deleted(Padded("Plant")), 1);
    made(Padded(std::string(40, 'n'), 0)); // cut
    EXPECT_EQ(uom_GetSetType(std::string(31, 'n').c_str()), plant);
    made(Padded(std::string(30, 'b') + "   x", 0)); // and trimmed behind the cut
    EXPECT_EQ(uom_GetSetType(std::string(30, 'b').c_str()), plant + 1);
    EXPECT_EQ(made(Padded("", 9)), UOM_SET_NULL);
    int32_t index = -7;
    EXPECT_EQ(uom_NewSetFixed("Long", 0x7FFFFFFF, &index), UOM_SET_NULL);
    EXPECT_EQ(deleted(Padded("", 0)), 0); // the unnamed slate is one
    EXPECT_EQ(uom_GetSetType("English"), 0);
}

TEST_F(BlankPadded, Conversions) {
    const Padded temp("Temp"), c("C"), f("F"), lb("lb");
    const auto convert = [&](int32_t count, double *values, const Padded &to) {
        error_Clear();
        uoms_ConvertArrayFixed(&count, values, temp.text.data(), temp.length, c.text.data(), c.length, to.text.data(),
                               to.length);
        return lastError();
    };
    double values[] = {100, -40};
    EXPECT_EQ(convert(2, values, f), "");
    EXPECT_NEAR(values[0], 212, 1e-10);
    EXPECT_NEAR(values[1], -40, 1e-10);
    EXPECT_EQ(convert(2, values, lb), "UOM string \"lb\": unidentified UOM for UOM class \"Temp\".");
    EXPECT_NEAR(values[0], 212, 1e-10);
    for (const std::string &message : {convert(0, values, f), convert(2, nullptr, f)})
        EXPECT_EQ(message, "Invalid input arguments detected in function uoms_ConvertArray().");
    EXPECT_EQ(constants(Padded("Leng"), Padded("m"), Padded("cm")), "0 100 0");
    for (const char *bad : {"(Leng", "Mass"}) // the outputs are what the last conversion left
        EXPECT_EQ(constants(Padded(bad), Padded("m"), Padded("cm")), "-1 100 0");
    EXPECT_EQ(constants(Padded("PetroDensity"), Padded("API"), Padded("kg/m3")).substr(0, 3), "-1 ");
}

TEST_F(BlankPadded, Report) {
    const int32_t options = 4096;
    const Padded good(path), bad("/nosuch/directory/report");
    EXPECT_EQ(uom_DumpFixed(&options, good.text.data(), good.length), 0);
    std::string first;
    std::getline(std::ifstream(path) >> std::ws, first);
    EXPECT_EQ(first, "[Current]"); // the shipped ones must not be modified
    EXPECT_NE(uom_DumpFixed(&options, bad.text.data(), bad.length), 0);
}

} // namespace

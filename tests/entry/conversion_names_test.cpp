// Names and symbols of a general converter: none is read as something else, and nearly all are read.
#include <cmath>

#include "tests/entry/fields.h"
#include "tests/library_fixture.h"
#include "uom/entry.h"

namespace {

struct ConversionNames : ShippedTest {};

// A product and quotient of numbers.
long double numberOf(const std::string &text) {
    const char *c = text.c_str();
    long double value = 1.0L;
    for (char sign = '*'; sign; sign = *c ? *c++ : '\0') {
        char *end;
        const long double number = std::strtold(c, &end);
        EXPECT_NE(c, end) << text;
        value = sign == '/' ? value / number : value * number;
        c = end;
    }
    return value;
}

struct Name {
    std::string classString, longName, symbol, unit;
    long double value;
    double tolerance;
};

Name nameOf(const std::string &line) {
    std::vector<std::string> fields = fieldsOf(line, '|');
    EXPECT_EQ(5u, fields.size()) << line;
    fields.resize(5);
    const bool about = fields[3][0] == '~';
    return {fields[0], fields[1], fields[2], fields[4], numberOf(fields[3].substr(about ? 1 : 0)), about ? 5e-5 : 1e-8};
}

// 1 right, 0 refused; what is wrong fails.
int countRight(const Name &name, const std::string &typed, const char *classString) {
    UomConversion *conversion = nullptr;
    UomEntry entry;
    if (uom_NewConversionFromEntries(classString, typed.c_str(), name.unit.c_str(), &conversion, &entry) != 0) {
        EXPECT_STRNE("", entry.message) << typed;
        return 0;
    }
    const double ratio = uom_ConvertOne(conversion, 1.0) / static_cast<double>(name.value);
    EXPECT_NEAR(1.0, ratio, name.tolerance) << name.classString << ": " << typed << " in " << name.unit;
    uom_FreeConversion(conversion);
    return 1;
}

TEST_F(ConversionNames, AreNeverReadAsSomethingElse) {
    std::ifstream file(UOM_TEST_DIR "/entry/conversion_names.txt");
    int names = 0, right = 0, rightWithoutClass = 0;
    for (std::string line; std::getline(file, line);) {
        if (line.rfind("//", 0) == 0)
            continue;
        const Name name = nameOf(line);
        for (const std::string &typed : {name.longName, name.symbol}) {
            if (typed == "-")
                continue;
            ++names;
            right += countRight(name, typed, name.classString.c_str());
            rightWithoutClass += countRight(name, typed, nullptr);
        }
    }
    EXPECT_GT(names, 1900);
    EXPECT_GE(right, names * 91 / 100) << "of " << names;
    EXPECT_GE(rightWithoutClass, names * 89 / 100) << "of " << names;
}

} // namespace

// Prepared conversions, against fractions that are exact in 128 bits or long double, and against the walk.
#include <cfloat>
#include <cmath>
#include <limits>
#include <random>
#include <thread>

#include "conversion/decimal.h"
#include "conversion/kernels.h"
#include "conversion/wide.h"
#include "tests/library_fixture.h"
#include "uom/conversion.h"

namespace {

using Real = long double;
__extension__ typedef __int128 Wholes;
const double infinity = std::numeric_limits<double>::infinity(), nan = std::numeric_limits<double>::quiet_NaN();

uint64_t bitsOf(double x) {
    return std::bit_cast<uint64_t>(x);
}

struct Prepared {
    UomConversion *conversion = nullptr;
    int32_t status;
    Prepared(const char *classString, const char *from, const char *to)
        : status(uoms_NewConversion(classString, from, to, &conversion)) {
        EXPECT_EQ(status, 0) << classString << " " << from << " " << to << ": " << LibraryTest::lastError();
    }
    Prepared(const Chain &from, const Chain &to) : status(uom_NewConversion(from.head, to.head, &conversion)) {
        EXPECT_EQ(status, 0) << LibraryTest::lastError();
    }
    ~Prepared() { uom_FreeConversion(conversion); }
    Prepared(const Prepared &) = delete;
    Prepared &operator=(const Prepared &) = delete;
    double operator()(double x) const { return uom_ConvertOne(conversion, x); }
};

class PreparedTest : public ShippedTest {};

// Whole numbers and short decimals to the last bit.
struct ExactCase {
    const char *classString, *from, *to;
    double value, expected;
};

TEST_F(PreparedTest, WholeDefinitionsComeOutWhole) {
    const ExactCase cases[] = {
        {"Temp", "C", "F", 0, 32},
        {"Temp", "F", "C", 32, 0},
        {"Temp", "C", "F", -40, -40},
        {"Temp", "F", "C", -40, -40},
        {"Temp", "F", "C", 212, 100},
        {"Temp", "F", "C", 23, -5},
        {"Temp", "F", "C", 98.6, 37},
        {"Temp", "C", "K", 0, 273.15},
        {"Leng", "ft", "in", 1, 12},
        {"Leng", "in", "cm", 3, 7.62},
        {"Leng", "mile", "ft", 1, 5280},
        {"Leng", "ft", "m", 1, 0.3048},
        {"Leng 3", "ft3", "in3", 1, 1728},
        {"Leng 20", "ft20", "in20", 1, 0x1p40 * 3486784401},
        {"TempDiff", "C", "F", 5, 9},
        {"Mass", "tons", "lb", 1, 2000},
        {"Pres", "kPag", "kPa", -50, 51.325},
        {"Time", "hr", "sec", 2, 7200},
        {"Area", "m2", "cm2", 1, 1e4},
        {"1 / Leng", "1/in", "1/ft", 1, 12},
        {"(Leng)-1", "(ft)-1", "(in)-1", 12, 1},
    };
    for (const ExactCase &c : cases) {
        const Prepared prepared(c.classString, c.from, c.to);
        EXPECT_EQ(bitsOf(prepared(c.value)), bitsOf(c.expected))
            << c.classString << " " << c.from << " to " << c.to << ": " << prepared(c.value);
    }
}

// An inverted group undoes what it did: nothing of an offset may go lost beside a great factor.
TEST_F(PreparedTest, InvertedGroupsKeepTheirOffsets) {
    const struct {
        const char *classString, *from, *to;
    } cases[] = {{"(Temp FineArea)-1", "(C-ang2)-1", "(K-m2)-1"},
                 {"(Temp Area)-1", "(C-ang2)-1", "(K-km2)-1"},
                 {"(Temp ActVol)-1", "(C-ang3)-1", "(K-m3)-1"}};
    for (const auto &c : cases) {
        double factor = 0, offset = 0;
        const Prepared prepared(c.classString, c.from, c.to);
        EXPECT_EQ(prepared(0), -273.15) << c.classString;
        EXPECT_EQ(uom_GetConversionConstants(prepared.conversion, &factor, &offset), 0);
        EXPECT_NEAR(offset * factor, -273.15, 1e-13) << c.classString;
    }
}

TEST_F(PreparedTest, Constants) {
    double factor = -1, offset = -1;
    const Prepared toF("Temp", "F", "C"), same("Temp", "F", "F"), gravity("PetroDensity", "API", "kg/m3");
    EXPECT_EQ(uom_GetConversionConstants(toF.conversion, &factor, &offset), 0);
    EXPECT_EQ(joined(bitsOf(factor) == bitsOf(5.0 / 9), offset), "1 -32");
    EXPECT_EQ(uom_GetConversionConstants(same.conversion, &factor, &offset), 0);
    EXPECT_EQ(joined(factor, offset), "1 0");
    EXPECT_EQ(uom_GetConversionConstants(toF.conversion, nullptr, nullptr), 0);
    factor = offset = -1;
    EXPECT_EQ(uom_GetConversionConstants(gravity.conversion, &factor, &offset), 5);
    EXPECT_EQ(uom_GetConversionConstants(nullptr, &factor, &offset), 1);
    EXPECT_EQ(joined(factor, offset), "-1 -1");
}

// What a constant of the file means: p/q in whole numbers, given its digits and its place.
struct Meaning {
    const char *token;
    Real factor, offset;
};
const Meaning temperatures[] = {{"C", 1, 273.15L}, {"F", 5 / 9.0L, 459.67L}, {"R", 5 / 9.0L, 0}, {"K", 1, 0}};
const Meaning lengths[] = {{"in", 0.0254L, 0}, {"ft", 0.3048L, 0},     {"m", 1, 0},
                           {"km", 1000, 0},    {"mile", 1609.344L, 0}, {"cm", 0.01L, 0}};

double unitInTheLastPlace(Real x) {
    const double magnitude = std::fabs(static_cast<double>(x));
    return std::nextafter(magnitude, infinity) - magnitude;
}

template <size_t N> void expectPairs(const char *classString, const Meaning (&units)[N], const char *power, int n) {
    for (const Meaning &from : units)
        for (const Meaning &to : units) {
            SCOPED_TRACE(testing::Message() << classString << " " << from.token << power << " to " << to.token);
            const std::string text = std::string(from.token) + power, target = std::string(to.token) + power;
            const Prepared prepared(classString, text.c_str(), target.c_str());
            const Real factor = std::pow(from.factor / to.factor, static_cast<Real>(n));
            const Real offset = from.offset - to.offset * to.factor / from.factor;
            for (int i = -300; i <= 1200; i += 7) {
                const double x = i / 3.0;
                const Real larger = std::fmax(std::fabs(x * factor), std::fabs(offset * factor));
                const Real error = prepared(x) - (x + offset) * factor;
                // The yardstick's own roundings are of 64 bits, and bear on what cancels.
                const Real slack = 8 * LDBL_EPSILON * (larger + std::fabs(from.offset * factor) + std::fabs(to.offset));
                ASSERT_LE(std::fabs(error), unitInTheLastPlace(larger) + slack) << x;
            }
        }
}

TEST_F(PreparedTest, WithinTheLastPlaceOfTheExactResult) {
    expectPairs("Temp", temperatures, "", 1);
    expectPairs("Leng", lengths, "", 1);
    expectPairs("Leng 2", lengths, "2", 2);
    expectPairs("Leng -3", lengths, "-3", -3);
    expectPairs("Leng 7", lengths, "7", 7);
}

// What a constant means, found the long way: its shortest decimal, or the nearest fraction that reads as it.
Real meaningOf(double constant) {
    char text[40];
    for (int digits = 1; digits <= 17; ++digits) {
        std::snprintf(text, sizeof text, "%.*e", digits - 1, constant);
        if (std::strtod(text, nullptr) != constant)
            continue;
        Real nearest = 0;
        for (int q = 1; digits > 15 && q <= 1000; ++q) {
            const Real fraction = std::rint(static_cast<Real>(constant) * q) / q;
            if (static_cast<double>(fraction) == constant &&
                std::fabs(fraction - constant) < std::fabs(nearest - constant))
                nearest = fraction;
        }
        return nearest != 0 ? nearest : std::strtold(text, nullptr);
    }
    return constant;
}

// Every pair of units of every simple class of the shipped file.
TEST_F(PreparedTest, AllPairsOfTheShippedFile) {
    int pairs = 0;
    for (int32_t classId = 3; classId < uom_GetUOMClassCount(); ++classId) {
        const UomClassRow *row = class_Row(catalogue(), classId);
        const int32_t *units = uom_GetClassUnits(catalogue(), classId);
        if (class_IsComposite(*row) || !units || classId == CLASS_BASIS)
            continue;
        for (const int32_t *a = units; *a != 0; ++a)
            for (const int32_t *b = units; *b != 0; ++b) {
                const Chain from(row->token), to(row->token);
                chain_SetUnit(catalogue(), from.head, *a);
                chain_SetUnit(catalogue(), to.head, *b);
                const Prepared prepared(from, to);
                double offsetA, factorA, offsetB, factorB;
                uom_GetConvConstants(*a, &offsetA, &factorA);
                uom_GetConvConstants(*b, &offsetB, &factorB);
                if (a == b || uom_GetConversionConstants(prepared.conversion, nullptr, nullptr) != 0)
                    continue;
                ++pairs;
                const Real factor = meaningOf(factorA) / meaningOf(factorB);
                const Real back = row->hasOffset && offsetB > 0 ? meaningOf(offsetB) / factor : 0;
                const Real offset = (row->hasOffset ? meaningOf(offsetA) : 0) - back;
                for (const double x : {1.0, -7.25, 1234.5678, 1 / 3.0}) {
                    const Real exact = (x + offset) * factor;
                    const Real larger = std::fmax(std::fabs(x * factor), std::fabs(offset * factor));
                    // The yardstick's own roundings are of 64 bits, and bear on what cancels.
                    const Real slack = 4 * LDBL_EPSILON * (larger + std::fabs(back * factor));
                    ASSERT_LE(std::fabs(prepared(x) - exact), unitInTheLastPlace(larger) + slack)
                        << row->token << " " << unitText(*a) << " to " << unitText(*b) << " of " << x;
                }
            }
    }
    EXPECT_GT(pairs, 1000);
}

// Groups, powers and multipliers ----------------------------------------------------------------------------------

// Factors are worked out by hand; the walk rounds on its way and is near.
TEST_F(PreparedTest, GroupsPowersAndMultipliers) {
    const struct {
        const char *classString, *from, *to;
        Real factor;
    } cases[] = {
        {"(Leng)2", "(ft)2", "(in)2", 144},
        {"(Leng)-2", "(ft)-2", "(in)-2", 1 / 144.0L},
        {"1 / (Leng)3", "1/(ft)3", "1/(in)3", 1 / 1728.0L},
        {"(Mass Leng)2 / Time", "(lb-ft)2/hr", "(lb-in)2/sec", 144 / 3600.0L},
        {"(Leng / Time)2", "(ft/min)2", "(in/sec)2", 144 / 3600.0L},
        {"((Leng)2)2", "((ft)2)2", "((in)2)2", 12 * 12 * 12}, // kept: a group in a group counts once less
        {"((Leng) Time)2", "((ft)-hr)2", "((in)-sec)2", 43200 * 43200.0L},
        {"Pres/VolRate 2", "psi/(gal/min)2", "psi/(gal/hr)2", 1 / 3600.0L},
        {"Rate", "M BBL/day", "BBL/day", 1000},
        {"Rate", "MM BBL/day", "M BBL/hr", 1000 / 24.0L},
        {"Area", "k*ft2", "in2", 144000},
        {"Leng 100", "ft100", "in100", std::pow(12.0L, 100)},
        {"(Leng)100", "(ft)100", "(in)100", std::pow(12.0L, 100)},
        {"(Leng)-100", "(ft)-100", "(in)-100", 1 / std::pow(12.0L, 100)},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(testing::Message() << c.classString << " " << c.from << " to " << c.to);
        const Prepared prepared(c.classString, c.from, c.to);
        const Chain from(c.classString, c.from), to(c.classString, c.to);
        for (const double x : {1.0, 0.1, -2.5e7}) {
            EXPECT_LE(std::fabs(prepared(x) - x * c.factor), unitInTheLastPlace(x * c.factor) * 1.1L) << prepared(x);
            EXPECT_NEAR(prepared(x), uom_ConvertFromTo(x, from.head, to.head), 1e-11 * std::fabs(prepared(x)));
        }
    }
}

// More groups than the walk keeps: the powers of those beyond are ignored.
TEST_F(PreparedTest, DeepGroups) {
    for (const int depth : {31, 32, 33, 40}) {
        std::vector<int32_t> classes(static_cast<size_t>(depth), CLASS_OPEN), exponents(classes.size(), 1);
        classes.push_back(CLASS_LENG);
        classes.insert(classes.end(), static_cast<size_t>(depth), CLASS_CLOSE);
        exponents.insert(exponents.end(), static_cast<size_t>(depth) + 1, 1);
        exponents[static_cast<size_t>(depth) + 1] = 2; // of the innermost group
        const int32_t count = static_cast<int32_t>(classes.size());
        const Chain from(uom_BuildStruct(count, classes.data(), exponents.data(), nullptr));
        const Chain to(uom_BuildStruct(count, classes.data(), exponents.data(), nullptr));
        chain_SetUnit(catalogue(), chain_FindClass(from.head, CLASS_LENG), uom_GetUnitType("ft"));
        chain_SetUnit(catalogue(), chain_FindClass(to.head, CLASS_LENG), uom_GetUnitType("in"));
        const Prepared prepared(from, to);
        EXPECT_EQ(prepared(1), depth > 32 ? 12 : 144) << depth;
        EXPECT_NEAR(uom_ConvertFromTo(1, from.head, to.head), prepared(1), 1e-10) << depth;
    }
}

// Offsets in groups and under powers, where the walk's sums are short enough to follow.
TEST_F(PreparedTest, OffsetsUnderPowers) {
    for (const char *text : {"(Temp)2", "(Temp)-1", "(Temp)3 Leng", "((Temp)2 Leng)2", "TempAbs 2", "TempAbs 5",
                             "TempAbs -3", "Leng TempAbs", "(Temp Temp)2", "TempAbs 70"})
        for (const char *fromUnit : {"F", "C", "R"})
            for (const char *toUnit : {"C", "F", "K"}) {
                SCOPED_TRACE(testing::Message() << text << " " << fromUnit << " to " << toUnit);
                const Chain from(text), to(text);
                for (UomStruct a = from.head, b = to.head; a; a = a->next, b = b->next) {
                    if (a->classId == CLASS_OPEN || a->classId == CLASS_CLOSE)
                        continue;
                    const bool length = a->baseClass == CLASS_LENG;
                    chain_SetUnit(catalogue(), a, uom_GetUnitType(length ? "ft" : fromUnit));
                    chain_SetUnit(catalogue(), b, uom_GetUnitType(length ? "m" : toUnit));
                }
                const Prepared prepared(from, to);
                for (const double x : {250.0, 1000.0}) {
                    const double walk = uom_ConvertFromTo(x, from.head, to.head);
                    double factor = 1, offset = 0;
                    uom_GetConversionConstants(prepared.conversion, &factor, &offset);
                    if (std::strcmp(fromUnit, toUnit) == 0 && !std::strstr(text, "Leng")) {
                        EXPECT_EQ(prepared(x), x); // whatever the walk rounds
                        continue;
                    }
                    // The walk loses what cancels on its way: up to a thousand units of the smallest kind.
                    EXPECT_NEAR(prepared(x), walk, 1e-11 * (std::fabs(walk) + 1e4 * std::fabs(factor)));
                }
            }
}

// Where the walk would give up.
TEST_F(PreparedTest, GreatPowers) {
    for (const char *text : {"Leng 2000000000", "(Leng)2000000000", "(Leng)-2147483647"}) {
        const Chain from(text), to(text);
        for (UomStruct a = from.head, b = to.head; a; a = a->next, b = b->next)
            if (a->baseClass == CLASS_LENG) {
                chain_SetUnit(catalogue(), a, uom_GetUnitType("ft"));
                chain_SetUnit(catalogue(), b, uom_GetUnitType("m"));
            }
        const bool grows = std::strchr(text, '-');
        const Prepared prepared(from, to);
        EXPECT_EQ(prepared(5), grows ? infinity : 0) << text;
        EXPECT_EQ(prepared(-5), grows ? -infinity : 0) << text;
        EXPECT_EQ(prepared(0), 0) << text;
        EXPECT_EQ(prepared(-1.5e35), -1.5e35) << text;
    }
    // A factor just beside 1 to a great power, (1 + 1e-9)^1e9 = e (1 - 5e-10).
    ASSERT_EQ(uom_SetConvConstants(uom_GetUnitType("ft"), 0, 1.000000001), 0);
    const Prepared prepared("Leng 1000000000", "ft1000000000", "m1000000000");
    EXPECT_NEAR(prepared(1), static_cast<double>(std::exp(1e9L * std::log1p(1e-9L))), 1e-14);
    // Constants at the ends of the doubles' range.
    for (const Real factor : {1e-300L, 1e300L}) {
        ASSERT_EQ(uom_SetConvConstants(uom_GetUnitType("ft"), 0, static_cast<double>(factor)), 0);
        const Prepared extreme("Leng", "ft", "m");
        for (const double x : {3.0, static_cast<double>(7e-9L / factor), -0.7, 5e-324})
            EXPECT_EQ(extreme(x), static_cast<double>(x * factor)) << x;
        EXPECT_EQ(extreme(infinity), infinity);
        EXPECT_EQ(extreme(-1.5e35), -1.5e35);
        EXPECT_TRUE(std::isnan(extreme(nan)));
    }
}

// Constants that are no numbers to compute with: what the walk makes of them.
TEST_F(PreparedTest, ConstantsBeyondSense) {
    const int32_t unit = uom_GetUnitType("ft");
    for (const double factor : {0.0, infinity, nan}) {
        uom_SetConvConstants(unit, 0, factor);
        const Chain from("Leng", {"ft"}), to("Leng", {"m"});
        for (const Chain *source : {&from, &to}) {
            const Prepared prepared(*source, source == &from ? to : from);
            EXPECT_EQ(uom_GetConversionConstants(prepared.conversion, nullptr, nullptr), 5);
            const double walk = uom_ConvertFromTo(2, source->head, source == &from ? to.head : from.head);
            EXPECT_EQ(joined(prepared(2)), joined(walk)) << factor;
        }
    }
}

TEST_F(PreparedTest, NodesWithoutAUnitPassTheValue) {
    const Chain from("Leng Time", {"ft", nullptr}), to("Leng Time", {"in", "sec"});
    const Prepared prepared(from, to);
    EXPECT_EQ(prepared(1), 12); // a second is the base
    EXPECT_NEAR(uom_ConvertFromTo(1, from.head, to.head), 12, 1e-14);
}

// Arrays -----------------------------------------------------------------------------------------------------------

const ExactCase kinds[] = {{"Pres", "psi", "kPa", 0, 0},
                           {"Pres", "psig", "kPa", 0, 0},
                           {"Temp", "F", "C", 0, 0},
                           {"Temp", "C", "K", 0, 0},
                           {"Leng", "ft", "in", 0, 0},
                           {"Leng", "ft", "ft", 0, 0},
                           {"Leng 400", "ft400", "in400", 0, 0},
                           {"PetroDensity", "API", "kg/m3", 0, 0},
                           {"PetroDensity", "kg/m3", "API", 0, 0},
                           {"PetroDensity", "API", "lb/ft3", 0, 0},
                           {"PetroDensity", "spgr", "API", 0, 0},
                           {"PetroDensity", "API", "spgr", 0, 0},
                           {"(PetroDensity)2", "(API)2", "(kg/m3)2", 0, 0}};

// Common values, and among them those of every other kind.
std::vector<double> values(size_t count, unsigned seed) {
    const double special[] = {
        -1.5e35,    nan,   infinity, -infinity, -0.0, 0.0,   DBL_MAX, -DBL_MAX,           5e-324, -1e35, -131.5,
        -131.50001, 131.5, 999.016,  1e-15,     1e34, -9e34, -32.0,   1.0760456273764258, 2e-310};
    std::mt19937 random(seed);
    std::vector<double> out(count);
    for (double &value : out) {
        value = std::ldexp(static_cast<double>(random()) - 2e9, static_cast<int>(random() % 60) - 52);
        if (seed % 4 != 0 && random() % (seed % 4 == 1 ? 3 : 40) == 0)
            value = special[random() % std::size(special)];
    }
    return out;
}

// A NaN's bits are nobody's promise but the library's own: here they count, too.
template <class Number> void expectSame(const std::vector<Number> &is, const std::vector<Number> &expected) {
    ASSERT_TRUE(is.empty() || std::memcmp(is.data(), expected.data(), is.size() * sizeof(Number)) == 0);
}

TEST_F(PreparedTest, ArraysGiveWhatOneValueGives) {
    for (const ExactCase &kind : kinds) {
        const Prepared prepared(kind.classString, kind.from, kind.to);
        for (size_t length = 0; length <= 70; ++length)
            for (size_t start = 0; start < 9; ++start) {
                SCOPED_TRACE(testing::Message() << kind.classString << " " << kind.from << " to " << kind.to << ", "
                                                << length << " from " << start);
                const std::vector<double> in = values(80, static_cast<unsigned>(length + start));
                std::vector<double> out(80, 77), expected = out;
                for (size_t i = start; i < start + length; ++i)
                    expected[i] = prepared(in[i]);
                uom_ConvertMany(prepared.conversion, in.data() + start, out.data() + start, length);
                expectSame(out, expected);
                out = in;
                uom_ConvertMany(prepared.conversion, out.data() + start, out.data() + start, length);
                std::copy_n(in.begin(), start, expected.begin());
                std::copy(in.begin() + static_cast<ptrdiff_t>(start + length), in.end(),
                          expected.begin() + static_cast<ptrdiff_t>(start + length));
                expectSame(out, expected);
                if (HasFatalFailure())
                    return;
            }
        const std::vector<double> in = values(5000, 2);
        std::vector<double> out(in.size()), expected(in.size());
        std::transform(in.begin(), in.end(), expected.begin(), [&](double x) { return prepared(x); });
        uom_ConvertMany(prepared.conversion, in.data(), out.data(), in.size());
        expectSame(out, expected);
    }
}

// So long that they are written past the caches.
TEST_F(PreparedTest, LongArrays) {
    const size_t count = (size_t{1} << 20) + 13;
    const std::vector<double> in = values(count, 2);
    for (const ExactCase &kind : {kinds[0], kinds[1], kinds[4], kinds[5]}) {
        const Prepared prepared(kind.classString, kind.from, kind.to);
        std::vector<double> out(count + 3, 77), expected = out;
        std::transform(in.begin(), in.end(), expected.begin() + 1, [&](double x) { return prepared(x); });
        uom_ConvertMany(prepared.conversion, in.data(), out.data() + 1, count);
        expectSame(out, expected);
    }
}

TEST_F(PreparedTest, FloatsAreRoundedOnce) {
    for (const ExactCase &kind : kinds) {
        const Prepared prepared(kind.classString, kind.from, kind.to);
        for (size_t length = 0; length <= 200; length += length < 40 ? 1 : 31)
            for (size_t start = 0; start < 4; ++start) {
                SCOPED_TRACE(testing::Message() << kind.classString << " " << kind.from << ", " << length);
                std::vector<float> in(210), out(210, 7), expected(210, 7);
                const std::vector<double> wide = values(210, static_cast<unsigned>(length));
                for (size_t i = 0; i < in.size(); ++i)
                    in[i] = static_cast<float>(wide[i]);
                for (size_t i = start; i < start + length; ++i)
                    expected[i] = static_cast<float>(prepared(static_cast<double>(in[i])));
                uom_ConvertManyFloat(prepared.conversion, in.data() + start, out.data() + start, length);
                expectSame(out, expected);
            }
    }
}

TEST_F(PreparedTest, StridesOfAnySize) {
    for (const ExactCase &kind : kinds) {
        const Prepared prepared(kind.classString, kind.from, kind.to);
        for (const ptrdiff_t step : {8, 24, 13, -8, -24, -11})
            for (const size_t length : {0u, 1u, 2u, 3u, 4u, 7u, 64u, 65u, 150u}) {
                SCOPED_TRACE(testing::Message() << kind.classString << " " << kind.from << ", step " << step);
                const std::vector<double> in = values(length, static_cast<unsigned>(length));
                std::vector<char> bytes(length * 24 + 32, 'x'), expected = bytes;
                const ptrdiff_t first = step < 0 ? -step * static_cast<ptrdiff_t>(length) : 1;
                for (size_t i = 0; i < length; ++i) {
                    const double y = prepared(in[i]);
                    std::memcpy(expected.data() + first + step * static_cast<ptrdiff_t>(i), &y, sizeof y);
                    std::memcpy(bytes.data() + first + step * static_cast<ptrdiff_t>(i), &in[i], sizeof y);
                }
                double *column = reinterpret_cast<double *>(bytes.data() + first);
                uom_ConvertStrided(prepared.conversion, column, step, column, step, length); // in place
                expectSame(bytes, expected);
                std::vector<double> out(length), plain(length);
                for (size_t i = 0; i < length; ++i)
                    plain[length - 1 - i] = prepared(in[i]);
                double *last = length > 0 ? &out.back() : out.data();
                uom_ConvertStrided(prepared.conversion, in.data(), 8, last, -8, length);
                expectSame(out, plain);
            }
    }
    // One value for many.
    const Prepared prepared("Leng", "ft", "in");
    const double foot = 1;
    double inches[5] = {};
    uom_ConvertStrided(prepared.conversion, &foot, 0, inches, 8, 5);
    EXPECT_EQ(joined(inches[0], inches[4]), "12 12");
}

// Every machine's kernels, as far as this one runs them.
TEST_F(PreparedTest, AllKernelsGiveTheSame) {
    std::vector<const Kernels *> all = {kernelsPortable};
#if defined(__GNUC__) && defined(__x86_64__)
    if (kernelsAvx2 && __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma"))
        all.push_back(kernelsAvx2);
#endif
    for (const ExactCase &kind : kinds) {
        const Prepared prepared(kind.classString, kind.from, kind.to);
        const Kernels &widest = kernels_Widest();
        Operations Kernels::*operations = nullptr;
        for (const auto candidate : {&Kernels::product, &Kernels::wideProduct, &Kernels::shifted, &Kernels::gravity})
            if ((widest.*candidate).one == prepared.conversion->run.one &&
                (widest.*candidate).many == prepared.conversion->run.many)
                operations = candidate;
        for (size_t i = 0; operations && i < all.size() * 20; ++i) {
            const Operations &other = all[i % all.size()]->*operations;
            const std::vector<double> in = values(300 + i, static_cast<unsigned>(i));
            const std::vector<float> floats(in.begin(), in.end());
            std::vector<double> out(in.size()), expected(in.size());
            std::vector<float> narrow(in.size()), expectedFloats(in.size());
            uom_ConvertMany(prepared.conversion, in.data(), expected.data(), in.size());
            other.many(prepared.conversion, in.data(), out.data(), in.size());
            expectSame(out, expected);
            for (size_t k = 0; k < in.size(); ++k)
                out[k] = other.one(prepared.conversion, in[k]);
            expectSame(out, expected);
            other.strided(prepared.conversion, reinterpret_cast<const char *>(in.data()), 8,
                          reinterpret_cast<char *>(out.data()), 8, in.size());
            expectSame(out, expected);
            uom_ConvertManyFloat(prepared.conversion, floats.data(), expectedFloats.data(), floats.size());
            other.floats(prepared.conversion, floats.data(), narrow.data(), floats.size());
            expectSame(narrow, expectedFloats);
        }
    }
}

TEST_F(PreparedTest, NoValueAndWhatIsNoNumber) {
    for (const ExactCase &kind : kinds) {
        SCOPED_TRACE(testing::Message() << kind.classString << " " << kind.from << " to " << kind.to);
        const Prepared prepared(kind.classString, kind.from, kind.to);
        for (const double x : {-1.5e35, -1.0000001e35, -infinity})
            EXPECT_EQ(bitsOf(prepared(x)), bitsOf(x));
        EXPECT_TRUE(std::isnan(prepared(nan)));
    }
    for (const char *to : {"C", "K", "R"})
        EXPECT_EQ(Prepared("Temp", "F", to)(infinity), infinity);
    EXPECT_EQ(Prepared("Pres", "psi", "kPa")(infinity), infinity);
    EXPECT_EQ(bitsOf(Prepared("Pres", "psi", "kPa")(-0.0)), bitsOf(-0.0));
    EXPECT_EQ(bitsOf(Prepared("Leng", "ft", "ft")(-0.0)), bitsOf(-0.0));
}

// API gravity --------------------------------------------------------------------------------------------------------

void expectWalk(const char *classString, const std::string &from, const std::string &to) {
    const Prepared prepared(classString, from.c_str(), to.c_str());
    const Chain a(classString, from.c_str()), b(classString, to.c_str());
    std::vector<double> in = values(20000, 2);
    for (int i = -2000; i < 2000; ++i)
        for (const double near : {-131.5, 0.0, 131.5, 1.0760456273764258, 1076.0456273764258, 67.17})
            in.push_back(near * (1 + i * 1e-9) + i * 1e-12);
    for (int i = 1; i < 5000; ++i)
        in.push_back(i * 0.37);
    std::vector<double> out(in.size());
    uom_ConvertMany(prepared.conversion, in.data(), out.data(), in.size());
    for (size_t i = 0; i < in.size(); ++i) {
        running() = Running();
        const double walk = uom_ConvertFromTo(in[i], a.head, b.head);
        ASSERT_TRUE(bitsOf(out[i]) == bitsOf(walk) || (std::isnan(walk) && std::isnan(out[i])))
            << from << " to " << to << " of " << in[i] << ": " << out[i] << " for " << walk;
    }
}

TEST_F(PreparedTest, GravityIsWhatTheWalkMakesOfIt) {
    for (const std::string from : {"API", "kg/m3", "spgr", "lb/ft3"})
        for (const std::string to : {"API", "kg/m3", "spgr", "lb/gal"}) {
            if (from == to || (from != "API" && to != "API"))
                continue;
            expectWalk("PetroDensity", from, to);
            // Behind another unit the formula is of what that one made of the value.
            expectWalk("Leng PetroDensity", "ft-" + from, "m-" + to);
        }
}

// Nothing waits: a target that ends with a gravity is complete, where the walk leaves the formula to the next conversion.
TEST_F(PreparedTest, GravityAtTheEndOfTheTarget) {
    const Chain from("PetroMass", {"spgr"}), to("PetroMass", {"API"});
    const Prepared prepared(from, to);
    EXPECT_DOUBLE_EQ(prepared(1), 10);
    EXPECT_DOUBLE_EQ(prepared(0.85), 141.5 / 0.85 - 131.5);
    const std::vector<double> in = values(1000, 2);
    std::vector<double> out(in.size()), expected(in.size());
    std::transform(in.begin(), in.end(), expected.begin(), [&](double x) { return prepared(x); });
    uom_ConvertMany(prepared.conversion, in.data(), out.data(), in.size());
    expectSame(out, expected);
    running().apiPending = 1; // of somebody's walk
    EXPECT_DOUBLE_EQ(prepared(1), 10);
    running() = Running();
}

// Refusals -----------------------------------------------------------------------------------------------------------

TEST_F(PreparedTest, Refusals) {
    const auto refusal = [&](const Chain &from, const Chain &to) {
        UomConversion *conversion = reinterpret_cast<UomConversion *>(this);
        const int32_t status = uom_NewConversion(from.head, to.head, &conversion);
        return joined(status, conversion == nullptr) + " " + lastError();
    };
    const std::string parallel =
        "1 1 The two chains are not parallel: a conversion needs both to be made from one class string.";
    EXPECT_EQ(refusal(Chain("Leng", "ft"), Chain("Mass", "lb")), parallel);
    EXPECT_EQ(refusal(Chain("Leng", "ft"), Chain("Leng 2", "ft2")), parallel);
    EXPECT_EQ(refusal(Chain("Leng", "ft"), Chain("Leng Time", "ft-hr")), parallel);
    EXPECT_EQ(refusal(Chain("Leng Time", "ft-hr"), Chain("Leng", "ft")), parallel);
    EXPECT_EQ(refusal(Chain("(Leng)2", "(ft)2"), Chain("(Leng)3", "(ft)3")), parallel);
    EXPECT_EQ(refusal(Chain("Rate", "lb/hr"), Chain("Rate", "kg-mol/sec")),
              "1 1 The units mean different kinds of amount: basis \"Mass\" can't be converted to basis \"Mole\".");
    const Chain masses("Mass", "lb"), moles("Mass", "lb");
    moles.head->baseClass = CLASS_MOLE;
    EXPECT_EQ(refusal(masses, moles),
              "1 1 The units mean different kinds of amount: \"Mass\" can't be converted to \"Mole\".");
    UomConversion *conversion = nullptr;
    EXPECT_EQ(uoms_NewConversion("Rate", "lb/hr", "kg-mol/sec", &conversion), 1);
    EXPECT_NE(lastError().find("different kinds of amount"), std::string::npos) << lastError();
    const Chain from("Leng", "ft");
    for (const int missing : {0, 1, 2}) {
        error_Clear();
        EXPECT_EQ(uom_NewConversion(missing == 0 ? nullptr : from.head, missing == 1 ? nullptr : from.head,
                                    missing == 2 ? nullptr : &conversion),
                  1);
        EXPECT_EQ(lastError(), "Invalid input arguments detected in function uom_NewConversion().");
    }
    for (const int missing : {0, 1, 2, 3}) {
        error_Clear();
        EXPECT_EQ(uoms_NewConversion(missing == 0 ? nullptr : "Leng", missing == 1 ? nullptr : "ft",
                                     missing == 2 ? nullptr : "m", missing == 3 ? nullptr : &conversion),
                  1);
        EXPECT_EQ(lastError(), "Invalid input arguments detected in function uoms_NewConversion().");
    }
    // The messages of arrays.
    const Words texts[] = {{"Lengh", "ft", "m"}, {"Leng", "fot", "m"}, {"Leng", "ft", "mm3"}};
    for (const Words &text : texts) {
        double value = 1;
        const int32_t status = uoms_ConvertArray(&value, 1, text[0], text[1], text[2]);
        const std::string message = lastError();
        error_Clear();
        conversion = reinterpret_cast<UomConversion *>(this);
        EXPECT_EQ(uoms_NewConversion(text[0], text[1], text[2], &conversion), status);
        EXPECT_EQ(joined(status, lastError(), conversion == nullptr),
                  joined(&text - texts + 2, message, true)); // 2, 3 and 4
    }
}

TEST_F(PreparedTest, WithoutAConversionValuesStay) {
    double in[] = {1, 2, 3}, out[3] = {};
    float floats[] = {1, 2}, narrow[2] = {};
    uom_FreeConversion(nullptr);
    EXPECT_EQ(uom_ConvertOne(nullptr, 4.5), 4.5);
    uom_ConvertMany(nullptr, in, out, 3);
    EXPECT_EQ(joined(out[0], out[2]), "1 3");
    uom_ConvertMany(nullptr, in, in, 3);
    uom_ConvertManyFloat(nullptr, floats, narrow, 2);
    EXPECT_EQ(narrow[1], 2);
    uom_ConvertStrided(nullptr, in, 16, out, 8, 2);
    EXPECT_EQ(joined(out[0], out[1]), "1 3");
    const Prepared prepared("Leng", "ft", "in");
    uom_ConvertMany(prepared.conversion, nullptr, out, 3);
    uom_ConvertMany(prepared.conversion, in, nullptr, 3);
    uom_ConvertManyFloat(prepared.conversion, nullptr, narrow, 2);
    uom_ConvertStrided(prepared.conversion, in, 8, nullptr, 8, 2);
    EXPECT_EQ(joined(out[0], out[1], in[0]), "1 3 1");
}

TEST_F(PreparedTest, MemoryIsExhausted) {
    static int asked, failing;
    for (const char *units : {"lb/ft3", "API"})
        for (failing = 1;; ++failing) {
            asked = 0;
            memReallocate = [](void *block, size_t size) {
                return ++asked == failing ? nullptr : std::realloc(block, size);
            };
            UomConversion *conversion = nullptr;
            const int32_t status = uoms_NewConversion("PetroDensity", units, "kg/m3", &conversion);
            memReallocate = std::realloc;
            if (asked < failing) {
                EXPECT_EQ(status, 0);
            } else {
                EXPECT_EQ(joined(status, lastError(), conversion == nullptr),
                          "11 Memory is exhausted: the conversion was not made. 1");
            }
            uom_FreeConversion(conversion);
            if (asked < failing || HasFailure())
                break;
        }
}

// What it was made of may go and change.
TEST_F(PreparedTest, OutlivesItsCatalogue) {
    ASSERT_TRUE(state("Current", "GaugePresBasis", "82"));
    const Prepared gauge("Pres", "kPag", "kPa"), gravity("PetroDensity", "API", "kg/m3");
    EXPECT_EQ(gauge(100), 182);
    uom_SetConvConstants(uom_GetUnitType("kPag"), 5, 5);
    uom_SetConvConstants(uom_GetUnitType("spgr"), 5, 5);
    num_SetNullDoubleLimit(-10);
    num_SetRelativeTol(0.5);
    EXPECT_EQ(joined(gauge(100), gauge(-20)), "182 62");
    EXPECT_DOUBLE_EQ(gravity(10), 999.016);
    num_InitConstants();
    uom_Cleanup();
    EXPECT_EQ(gauge(100), 182);
    double out[40], in[40];
    std::fill_n(in, 40, 10.0);
    uom_ConvertMany(gravity.conversion, in, out, 40);
    EXPECT_DOUBLE_EQ(out[39], 999.016);
    EXPECT_EQ(uom_GetConversionConstants(gauge.conversion, nullptr, nullptr), 0);
}

// A limit of no value that is set high makes more values none.
TEST_F(PreparedTest, TheLimitOfNoValueIsThatOfTheMaking) {
    for (const double limit : {-100.0, 50.0, -infinity}) {
        num_SetNullDoubleLimit(limit);
        for (const ExactCase &kind : kinds) {
            const Prepared prepared(kind.classString, kind.from, kind.to);
            std::vector<double> in(64), out(64);
            for (int i = 0; i < 64; ++i)
                in[static_cast<size_t>(i)] = 8.0 * i - 260;
            uom_ConvertMany(prepared.conversion, in.data(), out.data(), in.size());
            for (size_t i = 0; i < in.size(); ++i) {
                ASSERT_EQ(bitsOf(out[i]), bitsOf(prepared(in[i])));
                ASSERT_TRUE(!(in[i] < limit) || out[i] == in[i]);
            }
        }
    }
    num_InitConstants();
}

TEST_F(PreparedTest, ManyThreadsUseOne) {
    const Prepared prepared("Temp", "F", "C"), gravity("PetroDensity", "API", "kg/m3");
    std::vector<std::thread> threads;
    std::vector<double> results(4);
    for (size_t t = 0; t < results.size(); ++t)
        threads.emplace_back([&, t] {
            std::vector<double> block(500, 212.0);
            for (int i = 0; i < 50; ++i) {
                std::fill(block.begin(), block.end(), 212.0);
                uom_ConvertMany(prepared.conversion, block.data(), block.data(), block.size());
            }
            results[t] = block[499] + prepared(32) + 0 * gravity(10);
        });
    for (std::thread &thread : threads)
        thread.join();
    for (const double result : results)
        EXPECT_EQ(result, 100);
}

// The arithmetic under it ---------------------------------------------------------------------------------------------

TEST(Decimals, WhatReadsAsADouble) {
    const struct {
        double number;
        int64_t digits;
        int32_t exponent;
    } cases[] = {{0.3048, 3048, -4},
                 {1000, 1000, 0},
                 {1.223e-06, 1223, -9},
                 {459.67, 45967, -2},
                 {1e300, 1, 300},
                 {1e-300, 1, -300},
                 {5e-324, 494065645841247, -338},
                 {6894.757293168362, 6894757293168362, -12},
                 {0.1 + 0.2, 30000000000000004, -17},
                 {9.869232667160128e-13, 9869232667160128, -28},
                 {1e22, 1, 22},
                 {123456789012345680.0, 12345678901234568, 1}};
    for (const auto &c : cases) {
        Decimal decimal = decimal_Short(c.number);
        if (decimal.digits == 0)
            decimal = decimal_Long(c.number);
        while (decimal.digits % 10 == 0 && c.digits % 10 != 0)
            decimal = {decimal.digits / 10, decimal.exponent + 1};
        EXPECT_EQ(joined(decimal.digits, decimal.exponent + (c.number == 1000 ? -decimal.exponent : 0)),
                  joined(c.number == 1000 ? decimal.digits : c.digits, c.exponent))
            << c.number;
    }
    for (int q = 1; q <= 1000; ++q)
        for (const int p : {1, 2, 5, 7, 355, 999, 1234567}) {
            const Fraction fraction = fraction_Of(static_cast<double>(p) / q);
            ASSERT_EQ(fraction.numerator * q, fraction.denominator * p) << p << "/" << q;
        }
    EXPECT_EQ(fraction_Of(0.1234567890123456).numerator, 0);
    EXPECT_EQ(fraction_Of(12345678901.0 + 1 / 3.0).denominator, 3);
    EXPECT_EQ(fraction_Of(4168181825440579.5).denominator, 2) << "and not a third, which reads as it too";
}

// Fractions of whole numbers in 128 bits: what a Wide gives, times the divisor, must be the dividend.
TEST(WideNumbers, FractionsAndSums) {
    std::mt19937_64 random(5);
    for (int i = 0; i < 20000; ++i) {
        const int64_t a = static_cast<int64_t>(random() >> 24), b = static_cast<int64_t>(random() >> 24) | 1;
        const Wide quotient = wide_Of(static_cast<double>(a)) / wide_Of(static_cast<double>(b));
        const Wide back = wide_Clean(quotient * wide_Of(static_cast<double>(b)));
        ASSERT_EQ(joined(wide_Rounded(back) == static_cast<double>(a), back.low), "1 0");
        const Wholes product = static_cast<Wholes>(a) * b;
        const Wide wide = wide_Of(static_cast<double>(a)) * wide_Of(static_cast<double>(b));
        const double high = std::ldexp(wide.high, static_cast<int>(wide.exponent)),
                     low = std::ldexp(wide.low, static_cast<int>(wide.exponent));
        ASSERT_TRUE(static_cast<Wholes>(high) + static_cast<Wholes>(low) == product);
        const Wide sum = wide + wide_Of(-high);
        ASSERT_EQ(wide_Rounded(sum), low);
    }
    EXPECT_EQ(wide_CleanSum(wide_OfConstant(0.1), -wide_OfConstant(0.1)).high, 0);
    EXPECT_EQ(wide_Rounded(wide_Power(wide_Of(3.0), 33)), 5559060566555523.0);
    EXPECT_EQ(wide_Rounded(wide_Power(wide_Of(2.0), 2147483647) / wide_Power(wide_Of(2.0), 2147483640)), 128);
    EXPECT_EQ(wide_Rounded(wide_Of(5e-324)), 5e-324);
    EXPECT_EQ(wide_Rounded(wide_Of(-DBL_MAX)), -DBL_MAX);
}

} // namespace

// Every combination of multiplier, exponent, group, composite class and offset, against exponent arithmetic on exact
// definitions, in long double.
#include <cmath>

#include "conversion/engine.h"
#include "tests/library_fixture.h"

namespace {

using Real = long double;

// A unit as its definition has it: a value x of it is (x + offset) * factor in SI. The classes of a text that goes with a
// unit have their SI units for base, but for volumes in liters and times in hours, which cancel.
struct Unit {
    const char *token;
    Real factor, offset = 0;
};
const Unit m = {"m", 1}, ft = {"ft", 0.3048L}, mile = {"mile", 1609.344L}, kg = {"kg", 1}, lb = {"lb", 0.45359237L};
const Unit sec = {"sec", 1}, hr = {"hr", 3600}, m3 = {"m3", 1}, gal = {"gal", 0.003785411784L}, J = {"J", 1};
const Unit btu = {"BTU", 1055.05585262L}, kW = {"kW", 1000}, hp = {"HP", 745.69987158227022L}, none = {nullptr, 1};
const Unit C = {"C", 1, 273.15L}, F = {"F", 1 / 1.8L, 459.67L}, K = {"K", 1}, mass = {"Mass", 1};
const Unit psig = {"psig", 6894.757293168361L, 101325 / 6894.757293168361L}, bar = {"bar", 1e5L};
const Unit kPag = {"kPag", 1000, 101.325L};

// A class: each node's exponent within it, and its unit on both sides.
struct Item {
    const char *classString;
    bool composite;
    std::vector<int> slots;
    std::vector<Unit> from, to;
};
const Item items[] = {
    {"Leng", false, {1}, {ft}, {m}},
    {"Time", false, {1}, {hr}, {sec}},
    {"Freq", true, {-1}, {hr}, {sec}},
    {"Density", true, {1, -1}, {lb, gal}, {kg, m3}},
    {"Inertia", true, {1, 2}, {lb, ft}, {kg, mile}},
    {"SpEntropy", true, {1, -1, -1}, {btu, {"F", 1 / 1.8L}, lb}, {J, {"C", 1}, kg}},
    {"Rate (Mass)", true, {0, 1, -1}, {mass, lb, hr}, {mass, kg, sec}},
    {"Power", true, {1, 0}, {hp, none}, {kW, none}},
};

const int multipliers[] = {0, 3, 6};

void fill(UomStruct chain, const std::vector<Unit> &units, int multiplier) {
    auto unit = units.begin();
    for (UomStruct node = chain; node && unit != units.end(); node = node->next) {
        if (node->classId == CLASS_OPEN || node->classId == CLASS_CLOSE)
            continue;
        chain_SetUnit(catalogue(), node, unit->token ? uom_GetUnitType(unit->token) : UOM_NULL);
        ASSERT_EQ(node->unit == UOM_NULL, unit->token == nullptr) << unit->token;
        node->multiplier = unit->token && node->baseClass != CLASS_BASIS ? multiplier : 0;
        ++unit;
    }
}

// What one of a class's value is in SI under its exponent: of a simple class "k*ft2" are a thousand square feet, of a
// composite one the thousand is raised along with the class.
Real scaleOf(const Item &item, const std::vector<Unit> &units, int multiplier, int exponent) {
    Real scale = 1;
    for (size_t i = 0; i < units.size(); ++i) {
        const int slot = item.slots[i], power = slot * exponent;
        const Real thousands = slot == 0 ? 1 : std::pow(10.0L, multiplier);
        const Real magnitude = item.composite
                                   ? std::pow(std::pow(units[i].factor, std::abs(slot)) * thousands, std::abs(exponent))
                                   : std::pow(units[i].factor, std::abs(power)) * thousands;
        scale *= power < 0 ? 1 / magnitude : magnitude;
    }
    return scale;
}

void expectNear(Real value, Real expected) {
    EXPECT_LE(std::fabs(value - expected), 3e-14L * std::fabs(expected))
        << static_cast<double>(value) << " for " << static_cast<double>(expected);
}

class CombinationsTest : public ShippedTest {};

TEST_F(CombinationsTest, MultipliersExponentsAndGroups) {
    for (const Item &item : items)
        for (const int exponent : {1, 2, 3, -1, -2})
            for (const int power : {99, 0, 1, 2, 3, -1, -2}) // of a group round it, 99 for none
                for (const int fromMultiplier : multipliers)
                    for (const int toMultiplier : multipliers) {
                        const std::string inner = item.classString + (" " + std::to_string(exponent));
                        const bool group = power != 99;
                        const std::string text = group ? "(" + inner + ")" + std::to_string(power) : inner;
                        SCOPED_TRACE(testing::Message() << text << ", " << fromMultiplier << " to " << toMultiplier);
                        const Chain from(text), to(text);
                        fill(from.head, item.from, fromMultiplier);
                        fill(to.head, item.to, toMultiplier);
                        const Real once = scaleOf(item, item.from, fromMultiplier, exponent) /
                                          scaleOf(item, item.to, toMultiplier, exponent);
                        const Real ratio = std::pow(once, group && power != 0 ? power : 1);
                        expectNear(uom_ConvertFromTo(7, from.head, to.head), 7 * ratio);
                        EXPECT_EQ(joined(running().linear, running().offset), "1 0");
                        // Of a raised group the pair lacks one power, and the inverse of a group two.
                        const int short_ = group && power > 1 ? 1 : group && power < 0 ? 2 * power - 1 : 0;
                        expectNear(running().factor,
                                   power < 0 ? std::pow(once, power - 1) : ratio / std::pow(once, short_));
                        if (HasFailure())
                            return;
                    }
}

TEST_F(CombinationsTest, Products) {
    for (const Item &a : items)
        for (const Item &b : items)
            for (const char *form : {"%A %B", "%A / %B", "(%A %B)2", "%A / (%B)2", "(%A)2 / %B", "(%A / %B)-2"}) {
                std::string text = form;
                text.replace(text.find("%A"), 2, a.classString);
                text.replace(text.find("%B"), 2, b.classString);
                SCOPED_TRACE(text);
                const std::string shape = form;
                const int sign = shape.find('/') < shape.find("%B") ? -1 : 1;
                const int around =
                    shape.back() == '2' && shape[0] == '(' ? (shape[shape.size() - 2] == '-' ? -2 : 2) : 1;
                const int powerA = shape.rfind("(%A)2", 0) == 0 ? 2 : around;
                const int powerB = shape.find("(%B)2") != std::string::npos ? 2 * sign : sign * around;
                const Chain from(text), to(text);
                std::vector<Unit> fromUnits = a.from, toUnits = a.to;
                fromUnits.insert(fromUnits.end(), b.from.begin(), b.from.end());
                toUnits.insert(toUnits.end(), b.to.begin(), b.to.end());
                fill(from.head, fromUnits, 0);
                fill(to.head, toUnits, 3);
                const auto ratioOf = [](const Item &item, int exponent) {
                    return scaleOf(item, item.from, 0, exponent) / scaleOf(item, item.to, 3, exponent);
                };
                expectNear(uom_ConvertFromTo(7, from.head, to.head),
                           7 * std::pow(ratioOf(a, 1), powerA) * std::pow(ratioOf(b, 1), powerB));
            }
}

// The offset counts in the unit's own scale, before the factor; a multiplier makes it smaller. To a power n of 2 and up
// the factor is raised to n + 2 and the offset takes the sum of the powers up to n, since a squared temperature has no
// meaning of its own; to a negative one an offset is turned round, and not taken off on the way back.
TEST_F(CombinationsTest, Offsets) {
    const struct {
        const char *token;
        Unit from, to;
    } pairs[] = {{"Temp", C, F},      {"Temp", F, C},      {"TempAbs", F, K},      {"TempAbs", K, C},
                 {"Pres", psig, bar}, {"Pres", bar, kPag}, {"PresAbs", kPag, psig}};
    const auto scaled = [](const Unit &unit, int multiplier, int exponent) {
        Real f = unit.factor, o = unit.offset, sum = 1;
        const int n = std::abs(exponent);
        for (int k = 1; k <= n; ++k)
            sum += std::pow(f, k);
        if (n > 1) {
            o = sum / std::pow(f, n) * o;
            f = std::pow(f, n + 2);
        }
        f *= std::pow(10.0L, multiplier);
        o /= std::pow(10.0L, multiplier);
        return exponent < 0 ? Unit{"", 1 / f, -o} : Unit{"", f, o};
    };
    for (const auto &pair : pairs)
        for (const int exponent : {1, 2, 3, -1, -2})
            for (const int fromMultiplier : multipliers)
                for (const int toMultiplier : multipliers)
                    for (const bool first : {true, false}) { // a length in front, or behind
                        const std::string power = std::string(pair.token) + " " + std::to_string(exponent);
                        const std::string text = first ? "Leng " + power : power + " Leng";
                        SCOPED_TRACE(testing::Message() << text << " " << pair.from.token << " " << fromMultiplier
                                                        << " to " << pair.to.token << " " << toMultiplier);
                        const Chain from(text), to(text);
                        UomStruct a = first ? from.head->next : from.head, b = first ? to.head->next : to.head;
                        UomStruct length = first ? from.head : from.head->next;
                        fill(a, {pair.from}, fromMultiplier);
                        fill(b, {pair.to}, toMultiplier);
                        fill(length, {ft}, 0);
                        fill(first ? to.head : to.head->next, {m}, 0);
                        const Unit s = scaled(pair.from, fromMultiplier, exponent),
                                   t = scaled(pair.to, toMultiplier, exponent);
                        Real expected = first ? 250 * ft.factor : 250;
                        expected = (expected + s.offset) * s.factor / t.factor;
                        const Real pairOffset = s.offset - t.offset * t.factor / s.factor;
                        expected -= t.offset > 0 ? t.offset : 0;
                        expected *= first ? 1 : ft.factor;
                        const double value = uom_ConvertFromTo(250, from.head, to.head);
                        EXPECT_NEAR(value, static_cast<double>(expected), 1e-12 * std::fabs(value) + 1e-12);
                        expectNear(running().factor, s.factor / t.factor * ft.factor);
                        const Real offset = first ? pairOffset / ft.factor : pairOffset;
                        EXPECT_NEAR(running().offset, static_cast<double>(offset),
                                    1e-12 * std::fabs(running().offset) + 1e-11);
                        if (HasFailure())
                            return;
                    }
}

// Long after the sum of the powers has come to its limit, the factor is still to be raised.
TEST_F(CombinationsTest, OffsetsToGreatPowers) {
    for (const int exponent : {10, 60, 70, 80, 200}) {
        const std::string text = "TempAbs " + std::to_string(exponent);
        const Chain from(text), to(text);
        fill(from.head, {F}, 0);
        fill(to.head, {K}, 0);
        uom_ConvertFromTo(250, from.head, to.head);
        expectNear(running().factor, std::pow(F.factor, exponent + 2));
        expectNear(running().offset,
                   F.offset / std::pow(F.factor, exponent) * (1 - std::pow(F.factor, exponent + 1)) / (1 - F.factor));
    }
}

} // namespace

#include "entry/prefixes.h"

#include <algorithm>
#include <iterator>

#include "support/text.h"

namespace uom {

namespace {

struct Prefix {
    std::string_view symbol;
    std::string_view name;
    int32_t power;
    bool rare;
};
constexpr Prefix prefixes[] = {
    {"da", "deca", 1, true},    {"da", "deka", 1, true},   {"h", "hecto", 2, false},  {"k", "kilo", 3, false},
    {"M", "mega", 6, false},    {"G", "giga", 9, false},   {"T", "tera", 12, false},  {"P", "peta", 15, true},
    {"E", "exa", 18, true},     {"Z", "zetta", 21, true},  {"Y", "yotta", 24, true},  {"R", "ronna", 27, true},
    {"Q", "quetta", 30, true},  {"d", "deci", -1, false},  {"c", "centi", -2, false}, {"m", "milli", -3, false},
    {"u", "micro", -6, false},  {"n", "nano", -9, false},  {"p", "pico", -12, true},  {"f", "femto", -15, true},
    {"a", "atto", -18, true},   {"z", "zepto", -21, true}, {"y", "yocto", -24, true}, {"r", "ronto", -27, true},
    {"q", "quecto", -30, true},
};

constexpr int32_t ANY_SMALLEST = -30;
constexpr int32_t ANY_LARGEST = 30;

// A unit that takes prefixes, and which ones are in use with it.
struct MetricUnit {
    std::string_view text;
    int32_t smallest = ANY_SMALLEST;
    int32_t largest = ANY_LARGEST;
};
constexpr MetricUnit metricSymbols[] = {
    {"m", -15, 30}, {"g"},        {"s", -30, -1}, {"sec", -9, -3}, {"mol"},       {"mole"},        {"g-mol"},
    {"gmol"},       {"J"},        {"W"},          {"Pa"},          {"bar"},       {"L", -12, 9},   {"l", -12, 9},
    {"N"},          {"V"},        {"A"},          {"Hz"},          {"ohm"},       {"S"},           {"P", -9, 0},
    {"St", -9, 6},  {"eV"},       {"t", 3, 12},   {"Wh"},          {"Whr"},       {"W-hr"},        {"cal"},
    {"calth"},      {"D", -9, 0}, {"VA"},         {"var"},         {"VAR"},       {"torr", -9, 0}, {"Torr", -9, 0},
    {"rad"},        {"dyn"},      {"dyne"},       {"Pa-s"},        {"barg"},      {"bara"},        {"Pag"},
    {"Paa"},        {"gf"},       {"K", -9, 3},   {"Nm3", 3, 6},   {"Sm3", 3, 6},
};
// What else stands behind a mega or a milli in names of the catalogue and in aliases.
constexpr std::string_view furtherStems[] = {"WHR", "We", "Wth", "Wt", "tonne", "tonnes", "Darcy", "darcy"};

constexpr MetricUnit metricNames[] = {
    {"meter"},         {"metre"},     {"gram"},         {"gramme"},      {"second", -30, -1},
    {"mole"},          {"mol"},       {"watt"},         {"joule"},       {"pascal"},
    {"bar"},           {"liter"},     {"litre"},        {"newton"},      {"volt"},
    {"ampere"},        {"amp"},       {"hertz"},        {"ohm"},         {"siemens"},
    {"poise"},         {"stokes"},    {"stoke"},        {"calorie"},     {"watthour"},
    {"watt-hour"},     {"watt hour"}, {"tonne"},        {"darcy"},       {"dyne"},
    {"kelvin"},        {"radian"},    {"gram-force"},   {"gram-mole"},   {"torr"},
    {"farad"},         {"coulomb"},   {"electronvolt"}, {"volt-ampere"}, {"gram-mol"},
    {"pascal second"},
};

// The unit ends where its letters do, or at a plural s.
bool takes(const MetricUnit &unit, int32_t power, std::string_view behind, bool anyCase) {
    if (behind.size() < unit.text.size() || str_Lower(behind[0]) != str_Lower(unit.text[0]) || power < unit.smallest ||
        power > unit.largest)
        return false;
    const std::string_view head = str_Head(behind, unit.text.size());
    if (anyCase ? !str_EqualNoCase(head, unit.text) : head != unit.text)
        return false;
    const std::string_view rest = str_Behind(behind, unit.text.size());
    return rest.empty() || !str_IsLetter(rest[0]) ||
           (anyCase && str_Lower(rest[0]) == 's' && (rest.size() == 1 || !str_IsLetter(rest[1])));
}

// The longest unit that the prefix may stand before.
template <size_t N>
int32_t unitBehind(const MetricUnit (&units)[N], int32_t power, std::string_view behind, bool anyCase) {
    size_t longest = 0;
    for (const MetricUnit &unit : units)
        if (unit.text.size() > longest && takes(unit, power, behind, anyCase))
            longest = unit.text.size();
    return static_cast<int32_t>(longest);
}

template <size_t N>
PrefixedUnit find(const MetricUnit (&units)[N], std::string_view text, std::string_view Prefix::*spelling,
                  bool prefixAnyCase, bool unitAnyCase) {
    for (const Prefix &prefix : prefixes) {
        const std::string_view symbol = prefix.*spelling;
        const std::string_view head = str_Head(text, symbol.size());
        if (head.size() < symbol.size() || (prefixAnyCase ? !str_EqualNoCase(head, symbol) : head != symbol))
            continue;
        const int32_t length = unitBehind(units, prefix.power, str_Behind(text, symbol.size()), unitAnyCase);
        if (length > 0)
            return {static_cast<int32_t>(symbol.size()), length, prefix.power, prefix.rare};
    }
    return {};
}

bool isMetricStem(std::string_view letters) {
    for (const MetricUnit &unit : metricSymbols)
        if (unit.text == letters)
            return true;
    return std::find(std::begin(furtherStems), std::end(furtherStems), letters) != std::end(furtherStems);
}

} // namespace

bool prefix_IsTurned(std::string_view name, std::string_view typed) {
    constexpr size_t SHORTEST_WORD = 3; // "Mm" and "Mg" are symbols
    const bool milli = name[0] == 'M' && typed[0] == 'm';
    const bool mega = name[0] == 'm' && typed[0] == 'M' && name.size() > SHORTEST_WORD &&
                      std::any_of(typed.begin(), typed.end(), str_IsSmallLetter);
    return (milli || mega) && isMetricStem(name.substr(1));
}

PrefixedUnit prefix_OfSymbol(std::string_view text) {
    return find(metricSymbols, text, &Prefix::symbol, false, false);
}

PrefixedUnit prefix_OfName(std::string_view text) {
    return find(metricNames, text, &Prefix::name, true, true);
}

PrefixedUnit prefix_IfCaseWereFree(std::string_view text) {
    constexpr int32_t KILO = 3;
    if (!text.empty() && text[0] == 'K') // of those who write all in capitals
        if (const int32_t length = unitBehind(metricSymbols, KILO, str_Behind(text, 1), true); length > 1)
            return {1, length, KILO, false};
    return find(metricSymbols, text, &Prefix::symbol, false, true);
}

} // namespace uom

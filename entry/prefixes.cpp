#include "entry/prefixes.h"

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
    {"m"},        {"g"},         {"s", -30, -1}, {"sec", -9, -3}, {"mol"},         {"g-mol"},       {"gmol"},
    {"J"},        {"W"},         {"Pa"},         {"bar"},         {"L", -12, 9},   {"l", -12, 9},   {"N"},
    {"V"},        {"A"},         {"Hz"},         {"ohm"},         {"S"},           {"P", -9, 0},    {"St", -9, 6},
    {"eV"},       {"t", 3, 12},  {"Wh"},         {"W-hr"},        {"cal"},         {"calth"},       {"D", -9, 0},
    {"VA"},       {"var"},       {"VAR"},        {"torr", -9, 0}, {"Torr", -9, 0}, {"rad", -9, -1}, {"dyn"},
    {"dyne"},     {"Pa-s"},      {"barg"},       {"bara"},        {"Pag"},         {"Paa"},         {"gf"},
    {"K", -9, 3}, {"toe", 3, 9}, {"boe", 3, 9},
};
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

bool isLetter(char c) {
    return str_IsLetter(c);
}

// The unit ends where its letters do.
bool takes(const MetricUnit &unit, const Prefix &prefix, std::string_view behind, bool anyCase) {
    if (prefix.power < unit.smallest || prefix.power > unit.largest || behind.size() < unit.text.size())
        return false;
    const std::string_view head = str_Head(behind, unit.text.size());
    if (anyCase ? !str_EqualNoCase(head, unit.text) : head != unit.text)
        return false;
    return behind.size() == unit.text.size() || !isLetter(behind[unit.text.size()]) ||
           (anyCase && str_Lower(behind[unit.text.size()]) == 's');
}

template <size_t N>
PrefixedUnit find(const MetricUnit (&units)[N], std::string_view text, std::string_view Prefix::*spelling,
                  bool prefixAnyCase, bool unitAnyCase) {
    for (const Prefix &prefix : prefixes) {
        const std::string_view symbol = prefix.*spelling;
        const std::string_view head = str_Head(text, symbol.size());
        if (head.size() < symbol.size() || (prefixAnyCase ? !str_EqualNoCase(head, symbol) : head != symbol))
            continue;
        std::string_view behind = str_Behind(text, symbol.size());
        for (const MetricUnit &unit : units)
            if (takes(unit, prefix, behind, unitAnyCase))
                return {static_cast<int32_t>(symbol.size()), prefix.power, prefix.rare};
    }
    return {};
}

} // namespace

PrefixedUnit prefix_OfSymbol(std::string_view text) {
    return find(metricSymbols, text, &Prefix::symbol, false, false);
}

PrefixedUnit prefix_OfName(std::string_view text) {
    return find(metricNames, text, &Prefix::name, true, true);
}

PrefixedUnit prefix_IfCaseWereFree(std::string_view text) {
    return find(metricSymbols, text, &Prefix::symbol, false, true);
}

} // namespace uom

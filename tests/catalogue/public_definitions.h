// Public definitions of units, and what texts made of them are worth, in a calculation of its own: neither the numbers of
// the data file nor the library's engine have a hand in it. A dimension comes out of it along with the size.
//
// Texts are products: factors stand beside each other or are joined by hyphens, and all behind a slash divide. A factor
// is a number, a name of the tables, such a name with a prefix or with digits for its power, or either with "^power".
#ifndef UOM_TESTS_PUBLIC_DEFINITIONS_H
#define UOM_TESTS_PUBLIC_DEFINITIONS_H

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <optional>
#include <set>
#include <string>
#include <vector>

// What is measured on its own. "kmol" is the kilogram mole, "basis" the way of counting, "Cv" the flow of a valve.
inline const char *const dimensions[] = {"kg", "m", "sec", "K", "coulomb", "kmol", "rad", "$", "Cv", "basis"};

// clang-format off
inline const struct Prefix {
    const char *name;
    long double size;
} prefixes[] = { // BIPM SI brochure, 9th ed., table 7
    {"E", 1e18L}, {"P", 1e15L}, {"T", 1e12L}, {"G", 1e9L}, {"M", 1e6L}, {"k", 1e3L}, {"h", 1e2L}, {"da", 10},
    {"d", 0.1L}, {"c", 0.01L}, {"m", 0.001L}, {"u", 1e-6L}, {"n", 1e-9L}, {"p", 1e-12L},
    {"mega", 1e6L}, {"kilo", 1e3L}, {"milli", 0.001L}, {"micro", 1e-6L}, {"nano", 1e-9L}};

struct Definition {
    const char *name, *text, *offset = "0";
};

inline const std::vector<Definition> unitDefinitions = {
    // Dimensionless, and the six ways of counting, which have no size.
    {"none", "1"}, {"dimensionless", "1"}, {"unitless", "1"}, {"fraction", "1"},
    {"Mole", "basis"}, {"Molar", "basis"}, {"Mass", "basis"}, {"StdLiqVol", "basis"}, {"Vol", "basis"},
    {"StdVapVol", "basis"},
    {"percent", "1/100"}, {"permille", "1/1000"}, {"ppm", "1/10^6"}, {"ppb", "1/10^9"}, // BIPM SI brochure, 5.4.7
    {"pptw", "1/10^12"}, {"pptv", "1/10^12"}, // a trillion is 10^12, ISO 80000-1
    // Temperature
    {"C", "K", "273.15"},             // BIPM SI brochure, 9th ed., 2.3.1
    {"R", "5 K/9"},                   // NIST SP 811, B.8
    {"F", "R", "459.67"},             // NIST SP 811: (F + 459.67)/1.8 K
    // Time
    {"min", "60 sec"}, {"hr", "60 min"}, {"day", "24 hr"}, // BIPM SI brochure, table 8
    {"week", "7 day"},
    {"year", "365 day"},              // NIST SP 811, B.8
    {"month", "year/12"},
    {"yearJul", "365.25 day"},        // IAU, 1976
    {"shift", "8 hr"},
    // Length, area, volume
    {"yd", "0.9144 m"},               // international yard and pound agreement, 1959
    {"ft", "yd/3"}, {"in", "ft/12"}, {"mil", "in/1000"}, {"mile", "1760 yd"}, // NIST Handbook 44, app. C
    {"nmile", "1852 m"},              // Monaco conference, 1929
    {"micron", "m/10^6"}, {"ang", "m/10^10"}, // NIST SP 811, B.8
    {"ftUS", "1200 m/3937"}, {"mileUS", "5280 ftUS"}, // Mendenhall order, 1893; NIST SP 811, B.6
    {"chain", "66 ft"}, {"furlong", "10 chain"}, {"link", "chain/100"}, // NIST Handbook 44
    {"fathom", "2 yd"},
    {"acre", "4840 yd2"},             // NIST Handbook 44, app. C, in international feet
    {"acreUS", "43560 ftUS2"}, {"section", "640 acre"}, {"township", "36 section"}, // NIST Handbook 44, app. C
    {"hectare", "10^4 m2"},           // BIPM SI brochure, table 8
    {"kcmil", "1000 circmil"},        // NFPA 70, table 8
    {"circmil", "pi mil2/4"},         // NIST SP 811, B.8
    {"darcy", "cP cm2/sec atm"},      // SPE metric standard, 1984: 1 cm3/sec of 1 cP through 1 cm2 at 1 atm/cm
    {"liter", "dm3"},                 // CGPM 1964
    {"gal", "231 in3"}, {"qt", "gal/4"}, {"pt", "gal/8"}, {"floz", "gal/128"}, // NIST Handbook 44, app. C
    {"cup", "gal/16"}, {"gill", "gal/32"}, {"tbsp", "gal/256"}, {"tsp", "gal/768"}, {"fldram", "gal/1024"}, // the same
    {"bushel", "2150.42 in3"}, {"peck", "bushel/4"}, {"drygal", "bushel/8"}, {"dryqt", "bushel/32"}, // Handbook 44
    {"drypt", "bushel/64"}, {"dryBBL", "7056 in3"}, {"liqBBL", "31.5 gal"}, // NIST Handbook 44, app. C
    {"boardft", "ft2 in"}, {"cord", "128 ft3"}, // NIST Handbook 130
    {"BBL", "42 gal"},                // API MPMS ch. 1
    {"beerBBL", "31 gal"},            // 27 CFR 25.11
    {"drum", "55 gal"},               // ANSI MH2
    {"CCF", "100 ft3"}, {"hL", "100 liter"},
    {"igal", "4.54609 liter"},        // UK Units of Measurement Regulations, 1995
    {"iqt", "igal/4"}, {"ipt", "igal/8"}, {"ifloz", "igal/160"}, {"ibushel", "8 igal"}, {"iBBL", "36 igal"}, // the same
    // Gas volumes, as the ideal gas would fill them at 60 F and 1 atm
    {"SCF", "ft3"}, {"Sm3 60F", "m3"}, // GPA 2172, API MPMS ch. 14
    {"Nm3", "519.67 R m3/273.15 K"}, {"Nliter", "Nm3/1000"}, {"Ncm3", "Nm3/10^6"}, // DIN 1343
    {"Sm3", "519.67 R m3/288.15 K"}, {"Sliter", "Sm3/1000"}, // ISO 13443
    {"Sm3 20C", "519.67 R m3/293.15 K"}, {"Sliter 20C", "519.67 R liter/293.15 K"},
    {"Sm3 25C", "519.67 R m3/298.15 K"}, {"Sliter 25C", "519.67 R liter/298.15 K"}, // 40 CFR 50.3
    {"NCF", "519.67 R ft3/273.15 K"},
    {"SCF 68F", "519.67 ft3/527.67"}, // 40 CFR 60.2
    {"SCF 70F", "519.67 ft3/529.67"}, {"Sliter 70F", "519.67 liter/529.67"}, // CGA P-11
    {"SCF 14.65", "14.65 psi ft3/atm"}, {"SCF 14.73", "14.73 psi ft3/atm"}, // AGA Report 3
    {"SCF 15.025", "15.025 psi ft3/atm"}, // GPSA Engineering Data Book, section 1
    {"Nm3 1bar", "519.67 R bar m3/273.15 K atm"}, // IUPAC, 1982
    {"Sm3 15C 1bar", "519.67 R bar m3/288.15 K atm"}, {"Sm3 25C 1bar", "519.67 R bar m3/298.15 K atm"},
    {"Sm3 20C 1bar", "519.67 R bar m3/293.15 K atm"}, // ISO 1217
    // Mass
    {"g", "kg/1000"}, {"tonne", "1000 kg"}, // BIPM SI brochure, table 8
    {"lb", "0.45359237 kg"},          // international yard and pound agreement, 1959
    {"oz", "lb/16"}, {"grain", "lb/7000"}, {"cwt", "100 lb"}, {"ton", "2000 lb"}, {"lton", "2240 lb"}, // Handbook 44
    {"slug", "lbf sec2/ft"},          // NIST SP 811, B.8
    {"dwt", "24 grain"}, {"troyoz", "20 dwt"}, {"troylb", "12 troyoz"}, {"dram", "oz/16"}, // NIST Handbook 44, app. C
    {"stone", "14 lb"}, {"lcwt", "112 lb"}, // UK Weights and Measures Act, 1985
    {"carat", "200 mg"}, {"quintal", "100 kg"}, // CGPM 1907; NIST SP 811, B.8
    {"sack", "94 lb"},                // API, cement by the sack
    {"spgr", "water60F"}, {"API", "water60F"}, // API MPMS ch. 11.4; of API only the value at 10 degrees
    // Pressure
    {"Pa", "N/m2"}, {"bar", "10^5 Pa"}, // BIPM SI brochure, table 4; NIST SP 811, B.8
    {"atm", "101325 Pa"},             // CGPM 1954
    {"torr", "atm/760"},              // NIST SP 811, B.8
    {"kg/cm2", "kgf/cm2"}, {"ata", "kgf/cm2"}, {"ate", "ata", "atm/ata"}, // ISO 80000-4, annex: technical atmosphere
    {"psi", "lbf/in2"}, {"psia", "psi"}, {"ksi", "1000 psi"}, // NIST SP 811, B.8
    {"in H2O 60F", "water60F gn in"}, // API MPMS ch. 11.4
    {"in H2O 68F", "water68F gn in"}, {"ft H2O 68F", "water68F gn ft"}, {"mm H2O 68F", "water68F gn mm"},
    {"ft H2O 60F", "water60F gn ft"}, // API MPMS ch. 11.4
    {"in Hg 60F", "3376.85 Pa"},      // NIST SP 811, B.8
    {"ksig", "ksi", "atm/ksi"},
    // Force
    {"N", "kg m/sec2"}, {"dyne", "g cm/sec2"}, // BIPM SI brochure, table 4; NIST SP 811, B.8
    {"gf", "g gn"}, {"kgf", "kg gn"}, {"tonnef", "tonne gn"}, {"lbf", "lb gn"}, {"ozf", "oz gn"}, // NIST SP 811, B.8
    {"tonf", "ton gn"}, {"ltonf", "lton gn"}, {"kip", "1000 lbf"}, {"pdl", "lb ft/sec2"}, // NIST SP 811, B.8
    // Energy and power
    {"J", "N m"}, {"W", "J/sec"},     // BIPM SI brochure, table 4
    {"erg", "dyne cm"},               // NIST SP 811, B.8
    {"cal", "4.1868 J"},              // Fifth International Conference on the Properties of Steam, 1956
    {"calth", "4.184 J"},             // NIST SP 811, B.8
    {"BTU", "cal lb F/g K"}, {"BTUth", "calth lb F/g K"}, // 1 BTU/lb-F = 1 cal/g-K, ISO 80000-5, annex
    {"CHU", "cal lb/g"},              // the heat for a pound and a degree Celsius
    {"therm", "10^5 BTU"},            // Council Directive 80/181/EEC
    {"toe", "10 Gcal"},               // IEA, Energy Statistics Manual
    {"tce", "7 Gcal"},                // UN International Recommendations for Energy Statistics
    {"boe", "5.8 10^6 BTU"},          // EIA
    {"quad", "10^15 BTU"}, {"Dth", "10 therm"}, {"thermie", "Mcal"}, {"ton-hr", "12000 BTU"}, // EIA, GPSA, ASHRAE
    {"thermUS", "105480400 J"},       // NIST SP 811, B.8: exact
    {"tTNT", "4.184 10^9 J"},         // NIST SP 811, B.8
    {"eV", "e V"},                    // BIPM SI brochure, table 8
    {"ft-lb", "ft lbf"}, {"kg-m", "kgf m"}, {"g-cm", "gf cm"}, // work: here "lb", "kg" and "g" are forces
    {"HP", "550 ft lbf/sec"},         // NIST SP 811, B.8
    {"VA", "W"}, {"VAR", "W"}, {"KVA", "kW"}, {"KVAR", "kW"}, {"x 10^6KVAR", "10^6 KVAR"}, // IEC 80000-6
    // Torque
    {"kg-cm", "kgf cm"}, {"in-lb", "in lbf"}, {"in-oz", "in ozf"},
    {"ft-oz", "ft ozf"},
    // Viscosity
    {"P", "0.1 Pa sec"}, {"St", "cm2/sec"}, // NIST SP 811, B.8
    // Insulation of clothing
    {"clo", "0.155 m2 K/W"},          // ASHRAE 55
    // Root of a cohesive energy density
    {"sqrtPa", "Pa^0.5"}, {"sqrtMPa", "MPa^0.5"},
    {"hildebrand", "calth^0.5/cm3^0.5"}, // Hildebrand and Scott, 1950
    // Currency
    {"USD", "$"}, {"cent", "$/100"}, {"mill", "$/1000"}, // Coinage Act, 1792
    {"OXcredits", "$"},
    // Angle and rotation
    {"rev", "2 pi rad"}, {"deg", "pi rad/180"}, {"arcmin", "deg/60"}, {"arcsec", "arcmin/60"}, // ISO 80000-3
    {"grad", "pi rad/200"},           // NIST SP 811, B.8
    {"quadrant", "rev/4"}, {"angmil", "rev/6400"}, // STANAG 2118
    {"rpm", "rev/min"}, {"rps", "rev/sec"}, {"rph", "rev/hr"},
    // Electricity
    {"A", "coulomb/sec"}, {"V", "W/A"}, {"ohm", "V/A"}, // BIPM SI brochure, table 4
    {"gigohm", "10^9 ohm"},
    {"megohm", "10^6 ohm"}, {"microhm", "ohm/10^6"}, // IEEE/ASTM SI 10: the vowel of the prefix goes
    {"C-m", "coulomb m"},
    {"debye", "coulomb m/10^21 299792458"}, // 1e-18 statcoulomb cm; c of the BIPM SI brochure, 2.2
    // Flow of water at 60 F through a valve: volume rate over the root of pressure drop and specific gravity
    {"Kv", "Cv min m3 psi^0.5/hr gal bar^0.5"}, {"CvUK", "Cv igal/gal"}, // IEC 60534-1, ISA 75.01
    {"Av", "Cv min m3 psi^0.5/sec gal Pa^0.5 999.016^0.5"}, // IEC 60534-1: m3/sec by the root of Pa m3/kg
};

// Names that stand in tokens and definitions and are no units of the file.
inline const std::vector<Definition> partDefinitions = {
    {"x", "1"},                       // the sign of "x 10^6 J"
    {"pi", "3.14159265358979323846264338327950288"},
    {"gn", "9.80665 m/sec2"},         // CGPM 1901
    {"Hg", "13595.1 gn kg/m3"},       // conventional mercury at 0 C, BS 2520
    {"H2O", "1000 gn kg/m3"},         // conventional water at 4 C, NIST SP 811, B.8
    {"water60F", "999.016 kg/m3"},    // API MPMS ch. 11.4
    {"water68F", "998.2071 kg/m3"},   // at 20 C, IAPWS and CRC handbook
    {"S", "A/V"}, {"mho", "A/V"},     // BIPM SI brochure, table 4; mho is the older name
    {"mol", "kmol/kg"},               // behind the name of a mass
    {"PS", "75 kgf m/sec"}, {"EHP", "746 W"}, // NIST SP 811, B.8
    {"ftlb", "ft-lb"}, {"kgm", "kg-m"}, {"gcm", "g-cm"}, // of their millions
    {"esu", "coulomb/10 299792458"},  // statcoulomb, c of the BIPM SI brochure, 2.2
    {"e", "1.602176634 coulomb/10^19"}, // BIPM SI brochure, 2.2; CODATA 2018
    {"s", "sec"}, {"Kg", "kg"},       // other spellings
    {"inch", "in"}, {"newton", "N"},
    {"meter", "m"}, {"gram", "g"}, {"volt", "V"}, {"ampere", "A"}, // behind a prefix in words
};

// clang-format on

struct Value {
    long double size = 1;
    std::array<double, std::size(dimensions)> powers{};
};
using MaybeValue = std::optional<Value>;

inline MaybeValue product(const std::string &text);
inline std::set<std::string> used; // names of the tables that a calculation came by

inline MaybeValue powered(MaybeValue value, long double power) {
    if (!value)
        return value;
    value->size = std::pow(value->size, power);
    for (double &dimension : value->powers)
        dimension *= static_cast<double>(power);
    return value;
}

inline const Definition *rowOf(const std::vector<Definition> &rows, const std::string &name) {
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const Definition &d) { return d.name == name; });
    return row == rows.end() ? nullptr : &*row;
}

// The base units at the one end, the tables at the other.
inline MaybeValue named(const std::string &name) {
    for (size_t i = 0; i < std::size(dimensions); ++i) {
        if (name == dimensions[i]) {
            Value unit;
            unit.powers[i] = 1;
            return unit;
        }
    }
    const Definition *const unit = rowOf(unitDefinitions, name);
    const Definition *const row = unit ? unit : rowOf(partDefinitions, name);
    if (!row)
        return {};
    used.insert(name);
    return product(row->text);
}

inline MaybeValue prefixed(const std::string &name) {
    for (const Prefix &prefix : prefixes) {
        const bool fits = name.rfind(prefix.name, 0) == 0;
        if (MaybeValue rest = fits ? named(name.substr(std::strlen(prefix.name))) : MaybeValue{}) {
            rest->size *= prefix.size;
            return rest;
        }
    }
    return {};
}

inline MaybeValue factor(const std::string &text) {
    const size_t mark = text.find('^'), last = text.size() - 1;
    if (mark != std::string::npos)
        return powered(factor(text.substr(0, mark)), std::strtold(text.c_str() + mark + 1, nullptr));
    char *end;
    const long double number = std::strtold(text.c_str(), &end);
    if (*end == '\0')
        return Value{number, {}};
    if (const MaybeValue whole = named(text))
        return whole;
    if (std::isdigit(static_cast<unsigned char>(text[last])))
        return powered(factor(text.substr(0, last)), text[last] - '0');
    return prefixed(text);
}

// What the tables name as a whole is not taken apart.
inline MaybeValue product(const std::string &text) {
    if (const MaybeValue whole = named(text))
        return whole;
    Value result;
    long double power = 1;
    for (size_t at = 0, end = 0; end != std::string::npos; at = end + 1) {
        end = text.find_first_of(" -/", at);
        const MaybeValue by = end == at ? MaybeValue{} : powered(factor(text.substr(at, end - at)), power);
        if (!by)
            return {};
        result.size *= by->size;
        for (size_t i = 0; i < result.powers.size(); ++i)
            result.powers[i] += by->powers[i];
        if (end != std::string::npos && text[end] == '/')
            power = -1;
    }
    return result;
}

struct Unit {
    Value value;
    long double offset;
};

// What is no product is a gauge pressure: the token of an absolute one and "g".
inline std::optional<Unit> derived(const std::string &token) {
    if (const MaybeValue value = product(token)) {
        const Definition *const row = rowOf(unitDefinitions, token);
        return Unit{*value, row ? product(row->offset).value().size : 0};
    }
    const MaybeValue absolute = product(token.substr(0, token.size() - 1)), atmosphere = product("atm");
    if (token.back() != 'g' || !absolute || absolute->powers != atmosphere.value().powers)
        return {};
    return Unit{*absolute, atmosphere->size / absolute->size};
}

#endif

// What people type: everyday tasks, texts that are refused, and how the door treats numbers, prefixes, case and order.
#include <atomic>
#include <cmath>
#include <thread>

#include "catalogue/units.h"
#include "tests/entry/fields.h"
#include "tests/library_fixture.h"
#include "uom/catalogue.h"
#include "uom/entry.h"

namespace {

struct Entries : ShippedTest {};

// The number in front of a text, which is taken off.
double takeNumber(std::string &text) {
    size_t used;
    const double number = std::stod(text, &used);
    text = text.substr(used);
    return number;
}

TEST_F(Entries, DoEverydayTasks) {
    std::ifstream file(UOM_TEST_DIR "/entry/tasks.txt");
    int tasks = 0;
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line[0] == '#')
            continue;
        std::vector<std::string> fields = fieldsOf(line, '|');
        ASSERT_EQ(5u, fields.size()) << line;
        ++tasks;
        const double value = takeNumber(fields[1]), expected = std::stod(fields[3]);
        UomConversion *conversion = nullptr;
        UomEntry entry;
        ASSERT_EQ(0, uom_NewConversionFromEntries(fields[0].c_str(), fields[1].c_str(), fields[2].c_str(), &conversion,
                                                  &entry))
            << line << '\n'
            << entry.message;
        EXPECT_NEAR(expected, uom_ConvertOne(conversion, value), 1e-14 * std::fabs(expected) + 1e-13) << line;
        uom_FreeConversion(conversion);
    }
    EXPECT_GE(tasks, 60);
}

// "0 units x scale", or "1 message".
std::string read(const char *classString, const char *text) {
    UomEntry entry;
    const int32_t status = uom_ReadEntry(classString, text, &entry);
    if (status != 0)
        return joined(status, entry.message);
    std::string result = entry.units;
    if (!std::isnan(entry.value))
        result = joined(entry.value, result);
    return entry.scale == 1.0 ? result : joined(result, "x", entry.scale);
}

TEST_F(Entries, ReadWhatIsMeant) {
    const struct {
        const char *classString, *text, *expected;
    } cases[] = {
        // Silently something else in the classical reading.
        {"Leng", "µm", "m x 1e-06"},
        {"Mass", "\xCE\xBCg", "g x 1e-06"},
        {"PresGradient", "psi/100ft", "psi/ft x 0.01"},
        {"MassRate", "1000 lb/hr", "1000 lb/hr"},
        {"Pres", "mPa", "Pa x 0.001"},
        {"Power", "mW", "W x 0.001"},
        // Case means what it means in SI, and is free elsewhere.
        {"Leng", "Mm", "m x 1e+06"},
        {"KVis", "MSt", "St x 1e+06"},
        {"Pres", "KPA", "kPa"},
        {"Energy", "btu", "BTU"},
        {"Mass", "LB", "lb"},
        // Multipliers of the catalogue.
        {"Power", "MM BTU/hr", "MM BTU/hr"},
        {"VapVolRate", "MM scf/d", "MM SCF/day"},
        {"MassRate", "k*kg/hr", "k*kg/hr"},
        // The two meanings of a second "/" and of a late "*".
        {"Htco", "W/m2/K", "W/m2-K"},
        {"Htco", "W/m2*K", "W/m2-K"},
        {"Visc", "kg/m/s", "kg/m-sec"},
        {"Torque", "kg*m2/s2", "N-m"},
        // Names that are quotients themselves.
        {"MassFlux", "kg/cm2/s", "kg/cm2-sec"},
        {"Pres", "kg/cm2", "kg/cm2"},
        // Scales of pressures.
        {"Pres", "kPaa", "kPa"},
        {"Pres", "psi gauge", "psig"},
        {"Pres", "hPa(g)", "mbarg"},
        {"Pres", "GPa(g)", "kPag x 1e+06"},
        {"Pres", "in Hg vac", "in Hgg x -1"},
        // Exponents in all spellings.
        {"Accel", "m/s**2", "m/sec2"},
        {"Accel", "m s^-2", "m/sec2"},
        {"Accel", "m\xC2\xB7s\xE2\x81\xBB\xC2\xB2", "m/sec2"},
        {"Area", "sq. ft", "ft2"},
        {"ActVol", "meters cubed", "m3"},
        // Groups and bases are left to the classical reader, and looked at behind it.
        {"Pres/VolRate 2", "kpa/(m3/sec)2", "kPa/(m3/sec)2"},
        {"Rate", "lb/hr", "lb/hr"},
        {"Rate", "kmol/h", "g-mol/hr x 1000"},
        // Numbers.
        {"Mass", "-1.5e3 kg", "-1500 kg"},
        {"Mass", "-5x10^3 kg", "-5000 kg"},
        {"Mass",
         " 1.5\xC2\xB7"
         "10\xE2\x81\xBB\xC2\xB3 kg",
         "0.0015 kg"},
        {"Energy", "10^6 BTU", "BTU x 1e+06"},
        {"MassPrice", "$/100lb", "$/lb x 0.01"},
        // Dimensionless has the empty unit text; a long name may have blanks.
        // What the trades write.
        {"Pres", "10 kpsi", "10 psi x 1000"},
        {"Pres", "bar \xC3\xBC", "barg"},
        {"Pres", "at\xC3\xBC", "ate"},
        {"Pres", "kg / cm2 g", "kg/cm2g"},
        {"Temp", "20 degrees F", "20 F"},
        {"StdLiqVol", "5 million bbl", "5 BBL x 1e+06"},
        {"Htco", "W/m^2.K", "W/m2-K"},
        {"MassFlux", "kg.m-2.s-1", "kg/m2-sec"},
        {"Leng", "6\"", "6 in"},
        {"UA", "mJ/hr-K", "kW/K x 2.77778e-10"},
        {"Energy", "kWhr", "kW-hr"},
        {"StdVapVol", "NM3", "Nm3"},
        {"Density", "gr/gal", "grain/gal"},
        {"Pres", "kpa-g", "kPag"},
        {"Pres", "lbs/in2 gauge", "psig"},
        {"Cp", "BTU/lb°F", "BTU/lb-F"},
        {"Htco", "kcal/m²h°C", "kcal/hr-m2-C"},
        {"MassFlux", "kg/m²s", "kg/m2-sec"},
        {"Potential", "13.8 kv", "13.8 V x 1000"},
        {"Potential", "13.8 KV", "13.8 V x 1000"},
        {"Pres", "PA", "Pa"},
        {"VolRate", "gallon(s)/min", "gal/min"},
        {"ActVolRate", "Am3/h", "m3/hr"},
        {"Power", "Mw", "MW"},
        {"Energy", "Mwh", "W-hr x 1e+06"},
        {"SolubilityParam", "MPa^1/2", "sqrtMPa"},
        {"MoleDensity", "5 mM", "5 g-mol/m3"},
        {"Power", "5 tons", "5 BTU/hr x 12000"},
        {"Dimensionless", " 5 ", "5 "},
        {"Dimensionless", "", ""},
        {"Mass Rate", "kg/h", "kg/hr"},
        {"GasLiqRatio", "Sm3/Sm3", "Sm3/m3"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(c.expected, read(c.classString, c.text)) << c.classString << ' ' << c.text;
}

// Texts whose wrong reading has a class as well: nothing but the grammar keeps it out.
TEST_F(Entries, FindTheQuantityOfAText) {
    const struct {
        const char *text, *expected;
    } cases[] = {
        {"miles/hr", "Velocity mile/hr"},
        {"lbs/hr", "MassRate lb/hr"},
        {"mPas", "Visc mPa-s"},
        {"um2", "Area micron2"},
        {"hm2", "Area hectare"},
        {"10\xE2\x81\xB6 Btu/h", "Power BTU/hr x 1e+06"},
        {"m/s/s", "Accel m/sec2"},
        {"bbl/d/psi", "ProdIndex BBL/day-psi"},
        {"FT/S", "Velocity ft/sec"},
        {"us gpm", "VolRate gal/min"},
        {"R/min", "TempRate R/min"},
        {"Pa-m3/s", "LeakRate Pa-m3/sec"},
        {"foot-pounds/minute", "Power ft-lb/min"},
        {"lb-mole/hr", "MoleRate lb-mol/hr"},
        {"KMOL/H", "MoleRate g-mol/hr x 1000"},
        {"kNm3/h", "VapVolRate Nm3/hr x 1000"},
        {"ACFM", "ActVolRate ft3/min"},
        {"psid", "PresDiff psi"},
        {"W/mK", "Cond W/m-K"},
        {"mole percent", "MoleFrac percent"},
        {"500 \xC2\xB5S/cm", "ElecConductivity 500 uS/cm"},
    };
    for (const auto &c : cases) {
        UomEntry entry;
        EXPECT_EQ(0, uom_ReadEntry(nullptr, c.text, &entry)) << c.text << ": " << entry.message;
        EXPECT_EQ(c.expected, joined(entry.classString, read(nullptr, c.text))) << c.text;
    }
    for (const char *text :
         {"1 500 kg/h", "1.5.2 m", "5 ft 3 in", "m3/h 24", "1/2 in", "pJ", "nm3/h", "Mm3/d", "m3s/hr"})
        EXPECT_EQ('1', read(nullptr, text)[0]) << text << ' ' << read(nullptr, text);
}

TEST_F(Entries, RefuseWhatIsNotClear) {
    const struct {
        const char *classString, *text, *message, *suggestion;
        int32_t position, length;
    } cases[] = {
        {"Pres", "kPs", "\"kPs\" is no unit that is known here.", "kPa", 0, 3},
        {"MassRate", "µg/hx", "\"hx\" is no unit that is known here.", "", 4, 2},
        {"Presure", "kPa", "\"Presure\" is no class of quantities.", "Pres", 0, 0},
        {"Pres/Nothing", "kPa", "\"Pres/Nothing\" is no class of quantities.", "", 0, 0},
        {"Pres", "SCFM", "\"SCFM\" is no unit of Pres; it is one of VapVolRate.", "", 0, 4},
        {"VolRate", "SCFM",
         "\"SCFM\" is an amount of gas, told by its volume under standard conditions, and no unit of VolRate.", "", 0,
         4},
        {"Power", "mw", "This can mean a mega or a milli of W: write it in the case of its symbol.", "", 0, 2},
        {"Leng", "MM", "This can mean mm, or M as the prefix of m: write it in the case of its symbol.", "", 0, 2},
        {"Velocity", "m/s2", "\"m/s2\" is no unit of Velocity; it is one of Accel.", "m/sec", 0, 4},
        {"Pres", "1,000 kPa",
         "A comma in a number can mean two things: write it without, or with a point for decimals.", "1000 kPa", 1, 1},
        {"Pres", "1,5 bar", "A comma in a number can mean two things: write it without, or with a point for decimals.",
         "1.5 bar", 1, 1},
        {"Pres", "5", "The unit is missing.", "", 1, 0},
        {"Pres", "kPa)", "No parenthesis was opened for this one.", "", 3, 1},
        {"MassRate", "kg/(hr", "The parenthesis is not closed.", "", 3, 1},
        {"MassRate", "kg/", "The text ends where a unit is expected.", "", 3, 0},
        {"MassRate", "kg/0hr", "A number in a unit text is to be a factor other than 0.", "", 3, 1},
        {"Area", "ft^2.5", "An exponent is to be a whole number of at most two digits, and not 0.", "", 2, 3},
        {"Pres/VolRate 2", "kpa/(m3/sec)3", "The power of \"m3\" is -3 here, and -2 in Pres/VolRate 2.",
         "kPa/(m3/sec)2", 5, 2},
        {"Area", "m0", "An exponent is to be a whole number of at most two digits, and not 0.", "", 1, 1},
        {"Pres", "5.10^3 Pa", "Of numbers, 10 alone may have a power: write 5e3 or 5*10^3.", "", 0, 4},
        {"Temp", "5 % C", "A fraction of a unit is no unit: \"percent\" stands by itself.", "", 2, 1},
        {"Visc", "20 MPA-S", "This can mean mPa-s, or M as the prefix of Pa-s: write it in the case of its symbol.", "",
         3, 5},
        {"ActVolRate", "300 ML/MIN",
         "In capitals M can mean mega or milli: write the units in the case of their symbols.", "", 4, 2},
        {"Energy", "30 mwh", "This can mean a mega or a milli of Wh: write it in the case of its symbol.", "", 3, 3},
        {"Pres", "psia (g)", "The pressure in front has another scale.", "", 5, 3},
        {"Pres", "bara g", "The pressure in front has another scale.", "", 5, 1},
        {"MassRate", "MT/d", "This can mean tonne, or Mt (a million tonnes): write which.", "", 0, 2},
        {"VolRate", "3 Mgal/d", "This can mean 1000 gal, or 1000000 gal: write which.", "", 2, 4},
        // What was silently something else.
        {"MassFrac", "mole%", "\"mole%\" is no unit of MassFrac; it is one of MoleFrac.", "", 0, 5},
        {"VolFrac", "mg/kg", "\"mg/kg\" is no unit of VolFrac; it is one of MassFrac or Frac.", "", 0, 5},
        {"VolRate", "MGal/d", "This can mean 1000 gal, or 1000000 gal: write which.", "", 0, 4},
        {"Mass", "Mtons", "This can mean 2000000 lb, or Mt (a million tonnes): write which.", "", 0, 5},
        {"Energy", "Cal", "This can mean cal, or kcal (the calorie of food): write which.", "", 0, 3},
        {"Pres", "mpaa", "Written so it is not \"MPaa\": m means milli, and M mega.", "", 0, 4},
        {"Energy", "mwhr", "This can mean a mega or a milli of Whr: write it in the case of its symbol.", "", 0, 4},
        {"Pres", "MBar", "This can mean a mega or a milli of Bar: write it in the case of its symbol.", "", 0, 4},
        {"Time", "Msec", "Written so it is not \"msec\": m means milli, and M mega.", "", 0, 4},
        {"Angle", "Grad", "This can mean a degree, as in German, gon, or Grad (a billion rad): write which.", "", 0, 4},
        {"SpEnthalpy", "cal/gr", "This can mean a gram or a grain: write which.", "", 4, 2},
        {"Torque", "NM", "This can mean N-m, nm, or nautical miles: write which.", "", 0, 2},
        {"Mole", "PMOL", "\"PMOL\" is no unit that is known here.", "", 0, 4},
        {"ActVol", "ACFS", "\"ACFS\" is no unit that is known here.", "", 0, 4},
        {"Visc", "PASS", "\"PASS\" is no unit that is known here.", "", 0, 4},
        {nullptr, "6\"", "This can mean an inch, or a second of angle: write which.", "", 1, 1},
        {"Density", "gr/cc", "This can mean a gram or a grain: write which.", "", 0, 2},
        {"Leng", "5 mM", "This can mean mm, or mmol/liter: write which.", "", 2, 2},
        {"ActVolRate", "sft3/min", "This can mean ft2, ftUS (a survey foot), or with a power SCF: write which.", "", 0,
         3},
        {"Pres", "5 kPa^1/2", "An exponent is to be a whole number of at most two digits, and not 0.", "", 5, 3},
        {"Power", "hp(S)",
         "A word in parentheses behind a unit may be a remark: a product is written with \"-\" or \"*\".", "", 2, 3},
        {"Leng", "cupm", "\"cupm\" is no unit that is known here.", "", 0, 4},
        {"Mass", "kges", "\"kges\" is no unit that is known here.", "", 0, 4},
        // No unit of another kind, and no other prefix, is suggested.
        {"Pres", "10 Mpsi", "\"Mpsi\" is no unit that is known here.", "", 3, 4},
        {nullptr, "5 kDa", "\"kDa\" is no unit that is known here.", "", 2, 3},
        {"Mass", "10 20 kg", "A second number stands behind the first: write a number without blanks.", "", 3, 1},
        {"MassRate", "5 lb*hr", "The power of \"hr\" is 1 here, and -1 in MassRate.", "5 lb/hr", 5, 2},
        {"MassRate", "lb", "\"lb\" is no unit of MassRate; it is one of Mass.", "lb/hr", 0, 2},
        {"Leng 2", "kPa-s", "\"kPa-s\" is no unit of Leng 2; it is one of Visc.", "", 0, 5},
        {"Temp", "20 C°", "\"C°\" is no unit that is known here.", "", 3, 3},
        {"Pres", "5 µ", "\"µ\" is no unit that is known here.", "", 2, 2},
        {"Pres", "5 kPa/×", "\"×\" is no sign of a unit text, or not at this place.", "", 6, 2},
        {"Mass Rate", "5 kPa", "\"kPa\" is no unit of MassRate; it is one of Pres, PresAbs or PresDiff.", "", 2, 3},
        {"Pres", "k\xFFPa", "The text holds a byte that is no sign of a unit text.", "", 1, 1},
    };
    for (const auto &c : cases) {
        UomEntry entry;
        EXPECT_EQ(1, uom_ReadEntry(c.classString, c.text, &entry)) << c.text << ": " << entry.units;
        EXPECT_EQ(joined(c.message, c.suggestion, c.position, c.length),
                  joined(entry.message, entry.suggestion, entry.position, entry.length))
            << c.classString << ' ' << c.text;
        EXPECT_STREQ(entry.message, uom_GetLastErrorMessage());
    }
}

TEST_F(Entries, ConvertTwoTexts) {
    const struct {
        const char *classString, *from, *to;
        int32_t status;
        const char *message;
    } cases[] = {
        {nullptr, "psi", "kPa", 0, ""},
        {nullptr, "F", "C", 0, "Read as Temp; as TempDiff, 1 F is 0.555556 C."},
        {nullptr, "kg/cm2(g)", "bar(g)", 0, ""},
        {nullptr, "SG", "kg/m3", 0, "Read as PetroDensity; as VaporDensity, 1 SG is 1.223 kg/m3."},
        {nullptr, "xyz", "kPa", 3, "\"xyz\" is no unit that is known here."},
        {nullptr, "kPa", "xyz", 4, "\"xyz\" is no unit that is known here."},
        {nullptr, "kPa", "ft", 1, "\"kPa\" is a unit of Pres and \"ft\" of Leng: they do not convert into each other."},
        {nullptr, "SCFM", "m3/h", 1,
         "\"m3/h\" tells no standard conditions, which \"SCFM\" has: write it with SCF, Sm3 or Nm3, or name the "
         "class."},
        {nullptr, "SCFM", "lb/hr", 1,
         "\"SCFM\" is a unit of VapVolRate and \"lb/hr\" of MassRate: they do not convert into each other."},
        {nullptr, "psig2-ft", "kPa2-m", 3, "\"psig2-ft\" is a unit of no class."},
        {nullptr, "kPa2-m", "kPa2-s", 3, "\"kPa2-m\" is a unit of no class."},
        {nullptr, "ACFM", "m3/h", 0, ""},
        {nullptr, "g", "m/s2", 0, ""},
        {nullptr, "wt%", "mol%", 1,
         "\"wt%\" is a unit of MassFrac and \"mol%\" of MoleFrac: they do not convert into each other."},
        {"MoleRate", "SCFM", "lbmol/h", 0, ""},
        {"VapVolRate", "SCFM", "lbmol/h", 0, ""},
        {"MassRate", "SCFM", "lb/h", 3, "\"SCFM\" is no unit of MassRate; it is one of VapVolRate."},
        {"MassRate", "SCFM", "lbmol/h", 3, "\"SCFM\" is no unit of MassRate; it is one of VapVolRate."},
    };
    for (const auto &c : cases) {
        UomConversion *conversion;
        UomEntry entry;
        EXPECT_EQ(c.status, uom_NewConversionFromEntries(c.classString, c.from, c.to, &conversion, &entry)) << c.from;
        EXPECT_STREQ(c.message, entry.message);
        EXPECT_EQ(c.status == 0, conversion != nullptr);
        if (c.status != 0) {
            EXPECT_EQ(std::string(c.message), lastError());
        }
        uom_FreeConversion(conversion);
    }
    UomConversion *conversion;
    EXPECT_EQ(2, uom_NewConversionFromEntries("Presure", "psi", "kPa", &conversion, nullptr));
    EXPECT_EQ(1, uom_NewConversionFromEntries(nullptr, nullptr, "kPa", &conversion, nullptr));
}

// The canonical text of every token is read, and means itself.
TEST_F(Entries, ReadEveryUnitOfEveryList) {
    for (int32_t c = CLASS_DIMENSIONLESS; c < catalogue().classes.count; ++c) {
        const UomClassRow *row = class_Row(catalogue(), c);
        for (const int32_t *units = uom_GetClassUnits(catalogue(), c); units && *units && row->token; ++units) {
            const char *token = unit_Token(catalogue(), *units);
            UomEntry entry;
            const int32_t status = uom_ReadEntry(row->token, token, &entry);
            const bool gas = status != 0 && std::strstr(entry.message, "amount of gas");
            if (c == CLASS_DIMENSIONLESS) // without a text of its own
                token = "";
            if (c != CLASS_BASIS && !gas) {
                EXPECT_EQ(joined(0, token, 1), joined(status, entry.units, entry.scale))
                    << row->token << ' ' << entry.message;
            }
        }
    }
}

std::string rows(UomTable *table, size_t most) {
    std::string text;
    for (uint32_t i = 0; i < table_Count(table) && i < most; ++i)
        text += (i > 0 ? "; " : "") + std::string(table_GetText(table, i));
    tbl_Free(table);
    return text;
}

TEST_F(Entries, FindClassesAndWords) {
    EXPECT_EQ("Pres; PresAbs; PresDiff", rows(uom_GetEntryClasses("250 kPa"), 3));
    EXPECT_EQ("", rows(uom_GetEntryClasses("xyz"), 3));
    EXPECT_EQ("ActVolRate", rows(uom_GetEntryClasses("ACFM"), 3)) << "an alias of that class alone";
    EXPECT_EQ("Mass; Accel", rows(uom_GetEntryClasses("g"), 5)) << "and what others call so";
    EXPECT_EQ(nullptr, uom_GetEntryClasses(nullptr));
    EXPECT_EQ("alias\tVapVolRate\tSCFM\tSCF/min", rows(uom_Search("SCFM", 1), 1));
    EXPECT_EQ("class\tHtco\tHtco\tHeat Transfer Coefficient", rows(uom_Search("heat transfer", 1), 1));
    EXPECT_EQ("unit\tPres\tkPa\tKilopascal", rows(uom_Search("kilopascal", 1), 1));
    EXPECT_EQ("unit\tPres\tkPa\tKilopascal", rows(uom_Search("kilopascl", 1), 1)) << "one letter is missing";
    EXPECT_EQ("text\tVolRate\tbarrel per day\tBBL/day", rows(uom_Search("barrel per day", 5), 5));
    EXPECT_EQ("text\tLeng\tµm\t1e-06 m", rows(uom_Search(" µm ", 5), 5));
    EXPECT_EQ("", rows(uom_Search("5 µm", 5), 5));
    EXPECT_EQ("", rows(uom_Search("", 5), 5));
    EXPECT_EQ("C; K; F; R", rows(uom_GetChoices("Temp"), 9));
    EXPECT_NE("", rows(uom_GetChoices("MassFlux"), 3));
    EXPECT_EQ(nullptr, uom_GetChoices("Presure"));
}

// Gas as an amount: 1 atm, 60 F and 0 C, R = 8.31446261815324; and what is no pair.
TEST_F(Entries, CountGasInMoles) {
    const struct {
        const char *classString, *from, *to;
        int32_t status;
        double expected;
    } cases[] = {
        {"", "BTU/SCF", "kJ/mol", 0, 1.05505585262 / (0.028316846592 * 101325 / (8.31446261815324 * 519.67 / 1.8))},
        {"", "MM SCF/day", "kmol/h", 0, 1e6 * 0.028316846592 / 24 * 101.325 / (8.31446261815324 * 519.67 / 1.8)},
        {"", "kmol/h", "k*Nm3/hr", 0, 1e-3 / (101.325 / (8.31446261815324 * 273.15))},
        {"", "mol/Nm3", "%", 0, 100 * 8.31446261815324 * 273.15 / 101325},
        {"", "kg/Nm3", "g/mol", 0, 1000 / (101325 / (8.31446261815324 * 273.15))},
        {"", "CFM", "lb-mol/hr", 1, 0},
        {"Rate", "gpm", "SCFM", 1, 0},
        {"Rate", "lb/hr", "kg/sec", 0, 0.45359237 / 3600},
        {"VapVolRate", "SCFM", "m3/hr", 0, 0.028316846592 * 60},
        {"", "0 m", "ft", 3, 0},
        {"", "psi", "0 kPa", 4, 0},
        {"Leng", "0 m", "ft", 3, 0},
        {"Leng", "12 in", "3 ft", 0, 1.0 / 3},
        {"Nope", "m", "ft", 2, 0},
        {"PetroDensity", "2 API", "kg/m3", 1, 0},
        // Groups inside of groups, which the classical walk does not convert by their powers.
        {"((Leng) 2) 3", "((ft)2)3", "((m)2)3", 0, 0.3048 * 0.3048 * 0.3048 * 0.3048 * 0.3048 * 0.3048},
        {"(Mass/(Leng Time)) 2", "(kg/(ft-sec))2", "(kg/(m-sec))2", 0, 1 / (0.3048 * 0.3048)},
        {"1/((Temp) 2)", "1/((F)2)", "1/((K)2)", 0, 3.24},
    };
    for (const auto &c : cases) {
        UomConversion *conversion;
        UomEntry entry;
        EXPECT_EQ(c.status, uom_NewConversionFromEntries(c.classString, c.from, c.to, &conversion, &entry))
            << c.from << ' ' << entry.message;
        EXPECT_EQ(c.status != 0, *entry.message != '\0') << c.from << ' ' << entry.message;
        if (conversion) {
            EXPECT_NEAR(c.expected, uom_ConvertOne(conversion, 1.0), 1e-14 * c.expected) << c.from;
        }
        uom_FreeConversion(conversion);
    }
}

// Whatever was typed, a message is UTF-8: a long word is cut between characters, and what is none is a question mark.
TEST_F(Entries, TellInUtf8) {
    std::string typed = "x", quoted = "x";
    for (int i = 0; i < 50; ++i)
        typed += "µ";
    for (int i = 0; i < 29; ++i) // 59 bytes: another character would be cut apart at the 60th
        quoted += "µ";
    EXPECT_EQ("1 \"" + quoted + "\" is no unit that is known here.", read("Pres", typed.c_str()));
    EXPECT_EQ("1 \"Pr??s?\" is no class of quantities.", read("Pr\xFF\xC2s\n", "kPa"));
    UomConversion *conversion;
    UomEntry entry;
    EXPECT_EQ(1, uom_NewConversionFromEntries("Pres", nullptr, "kPa", &conversion, &entry));
    EXPECT_STREQ("There is no text to read.", entry.message);
}

// Numbers all of them, and of different things.
TEST_F(Entries, KeepRatiosApart) {
    const struct {
        const char *classString, *from, *to;
        double expected; // NaN: refused
    } cases[] = {
        {nullptr, "mole %", "wt%", NAN},
        {nullptr, "mg/kg", "ppmv", NAN},
        {nullptr, "mL/L", "mg/kg", NAN},
        {nullptr, "mol/mol", "ppmw", NAN},
        {"Frac", "2 g/kg", "L/m3", NAN},
        {"Frac", "2 g/kg", "ppm", 2000},
        {nullptr, "ppm", "ppmv", 1},
        {nullptr, "kg/kg", "wt%", 100},
        {nullptr, "kJ/kJ", "%", 100},
        {nullptr, "mL/L", "m3/m3", 0.001},
        {nullptr, "BTU/kWh", "kJ/kWh", 1.05505585262},
    };
    for (const auto &c : cases) {
        UomConversion *conversion = nullptr;
        UomEntry entry;
        const int32_t status = uom_NewConversionFromEntries(c.classString, c.from, c.to, &conversion, &entry);
        EXPECT_EQ(std::isnan(c.expected), status != 0) << c.from << ' ' << c.to;
        EXPECT_EQ(status != 0, *entry.message != '\0') << c.from << ' ' << c.to;
        if (conversion) {
            EXPECT_NEAR(c.expected, uom_ConvertOne(conversion, 1.0), 1e-14 * c.expected) << c.from << ' ' << c.to;
        }
        uom_FreeConversion(conversion);
    }
}

TEST_F(Entries, TakeAliasesOfTheHost) {
    const std::string text = "// ours\nbucket = 10 liter\n[MassRate, ]\nbucket = 3 kg/hr // here\n[]\nround = round\n";
    EXPECT_EQ("1 \"bucket\" is no unit that is known here.", read("ActVol", "bucket"));
    ASSERT_EQ(0, uom_ReadAliasText(text.data(), text.size()));
    EXPECT_EQ("liter x 10", read("ActVol", "bucket"));
    EXPECT_EQ("kg/hr x 3", read("MassRate", "bucket"));
    EXPECT_EQ("1 The alias \"round\" stands for no unit text.", read("ActVol", "round"));
    EXPECT_EQ(1, uom_ReadAliasText(nullptr, 3));
    for (const char *alias : {"tubful = 60 liter", "thimble = 2 cm3"}) // lines by themselves
        ASSERT_EQ(0, uom_ReadAliasText(alias, std::strlen(alias)));
    EXPECT_EQ("liter x 60", read("ActVol", "tubful"));
    EXPECT_EQ("thimble\t2 cm3\t; tubful\t60 liter\t; round\tround\t; bucket\t3 kg/hr\tMassRate; bucket\t10 liter\t",
              rows(uom_GetAliases(), 5));
}

// Thousands of aliases of one name: each goes before the one before it, in its class.
TEST_F(Entries, TakeManyAliasesOfOneName) {
    std::string text;
    for (int i = 1; i <= 3000; ++i)
        text += (i % 2 ? "[Mass]\nbucket = " : "[Leng]\nBucket = ") + std::to_string(i) + (i % 2 ? " kg\n" : " m\n");
    ASSERT_EQ(0, uom_ReadAliasText(text.data(), text.size()));
    EXPECT_EQ("kg x 2999", read("Mass", "bucket"));
    EXPECT_EQ("m x 3000", read("Leng", "Bucket"));
}

// Aliases come from their file, beside the data file, whatever that holds; their compounds are looked up among no units.
TEST(EntriesWithoutUnits, AreRefused) {
    UomCatalogue *own = uom_NewCatalogue();
    uom_UseCatalogue(own);
    const char aliases[] = "x/y = 3\n";
    for (const char *data : {static_cast<const char *>(nullptr), "", "BEGINUOMLIST\nENDUOMLIST\n"}) {
        ASSERT_EQ(0, data ? uom_InitText(data, std::strlen(data), 0, nullptr) : 0);
        ASSERT_EQ(0, uom_ReadAliasText(aliases, sizeof aliases - 1));
        UomEntry entry;
        EXPECT_EQ(1, uom_ReadEntry(nullptr, "x/y", &entry));
        EXPECT_STREQ("", entry.units);
        tbl_Free(uom_Search("x/y", 3));
        uom_Cleanup();
    }
    uom_FreeCatalogue(own);
}

TEST_F(Entries, WithstandAnyText) {
    for (const char *piece : {"(", "m-", "1e", "\xC2", "kg/", "^2", "MM ", "%", "\xEF\xBB\xBF", "9"}) {
        std::string text;
        while (text.size() < 10000)
            text += piece;
        UomEntry entry;
        EXPECT_EQ(1, uom_ReadEntry("Pres", text.c_str(), &entry)) << piece;
        EXPECT_NE("", std::string(entry.message));
        EXPECT_EQ(1, uom_ReadEntry(text.c_str(), "kPa", &entry)) << piece;
        EXPECT_LE(entry.position + entry.length, static_cast<int32_t>(text.size()));
    }
    EXPECT_EQ(1, uom_ReadEntry("Pres", nullptr, nullptr));
    EXPECT_EQ(1, uom_ReadEntry(nullptr, nullptr, nullptr));
}

const char *const pieces[] = {"kPa",
                              "m",
                              "ft",
                              "lb",
                              "mol",
                              "hr",
                              "s",
                              "SCF",
                              "%",
                              "API",
                              "psig",
                              "F",
                              "MM ",
                              "k*",
                              "/",
                              "-",
                              "*",
                              " ",
                              "(",
                              ")",
                              "^",
                              "2",
                              "^-1",
                              "\xC2\xB2",
                              "\xE2\x81\xBB\xC2\xB9",
                              " per ",
                              "sq ",
                              "cubic ",
                              " squared",
                              "(g)",
                              " abs",
                              "g",
                              "a",
                              "\xC2\xB5",
                              "k",
                              "M",
                              "1000",
                              "1.5e3 ",
                              "0",
                              "e",
                              "S",
                              "K",
                              "MPA",
                              "mw",
                              "mW",
                              "moles",
                              "psid",
                              " vac",
                              "x 10^6 BTU",
                              "GW",
                              "gpm",
                              "W",
                              "kg",
                              "Nm3",
                              "miles",
                              "inch",
                              "BTU",
                              "ton",
                              "Pas",
                              "kgK",
                              "\xC2\xB0",
                              "C",
                              ",",
                              ".",
                              "+",
                              "per cent",
                              "milli",
                              "xyz",
                              "$",
                              "1/",
                              "day",
                              "bbl",
                              "API",
                              "lbf",
                              "cm2",
                              "\xE2\x82\x82",
                              "foot-pound",
                              "rad/s",
                              "wt",
                              "kPs",
                              "hours",
                              "(",
                              "**3"};
const char *const classStrings[] = {"",     "Pres",          "MassRate",    "Power", "Rate",        "Pres/VolRate 2",
                                    "Htco", "(Leng Mass) 2", "VapVolRate",  "Frac",  "PresDiff",    "VolRate",
                                    "Temp", "Area / Time",   "GasLiqRatio", "Nope",  "PetroDensity"};

// What holds for every text: what is read says itself, what is refused is told, in words and by its place.
void checkPromises(const char *classString, const std::string &text) {
    UomEntry entry, again;
    const int32_t status = uom_ReadEntry(classString, text.c_str(), &entry);
    SCOPED_TRACE(std::string(classString) + "|" + text + "|" + entry.units + "|" + entry.message + "|" +
                 entry.suggestion);
    ASSERT_LE(entry.position + entry.length, static_cast<int32_t>(text.size()));
    if (status != 0) {
        EXPECT_NE('\0', *entry.message);
        if (*entry.suggestion && uoms_IsClassValid(classString)) {
            EXPECT_EQ(0, uom_ReadEntry(classString, entry.suggestion, &again)) << again.message;
        }
        return;
    }
    EXPECT_EQ("", std::string(entry.message) + entry.suggestion);
    EXPECT_EQ(0, uoms_ValidateUOM(entry.classString, entry.units)) << uom_GetLastErrorMessage();
    EXPECT_EQ(0, uom_ReadEntry(entry.classString, entry.units, &again)) << again.message;
    EXPECT_EQ(joined(entry.units, 1), joined(again.units, again.scale));
    EXPECT_TRUE(std::isfinite(entry.scale) && entry.scale != 0.0);
}

TEST_F(Entries, KeepTheirPromisesForAnyText) {
    uint32_t random = 7;
    const auto next = [&](size_t count) {
        random = random * 1664525u + 1013904223u;
        return (random >> 8) % count;
    };
    std::string before = "kPa";
    for (int i = 0; i < 20000 && !HasFailure(); ++i) {
        std::string text;
        for (size_t n = next(6) + 1; n > 0; --n)
            text += pieces[next(std::size(pieces))];
        const char *classString = classStrings[next(std::size(classStrings))];
        checkPromises(classString, text);
        UomConversion *conversion;
        UomEntry entry;
        const int32_t status =
            uom_NewConversionFromEntries(classString, text.c_str(), before.c_str(), &conversion, &entry);
        EXPECT_EQ(status == 0, conversion != nullptr);
        EXPECT_TRUE(status == 0 || *entry.message) << classString << '|' << text << '|' << before << '|' << status;
        uom_FreeConversion(conversion);
        before = text;
    }
}

// All that interfaces offer is read by its class.
TEST_F(Entries, ReadEveryChoice) {
    std::vector<std::string> classes = {"Pres/VolRate 2", "Mass / Leng Time"};
    for (int32_t c = CLASS_DIMENSIONLESS; c < catalogue().classes.count; ++c)
        classes.push_back(class_Token(catalogue(), c));
    for (const std::string &name : classes) {
        UomTable *choices = uom_GetChoices(name.c_str());
        for (uint32_t i = 0; i < table_Count(choices); ++i) {
            UomEntry entry;
            const int32_t status = uom_ReadEntry(name.c_str(), table_GetText(choices, i), &entry);
            EXPECT_TRUE(status == 0 || name == "Basis" || std::strstr(entry.message, "amount of gas"))
                << name << '|' << table_GetText(choices, i) << '|' << entry.message;
        }
        tbl_Free(choices);
    }
    EXPECT_EQ(nullptr, uom_GetChoices(nullptr));
}

// The first of them makes the index of names, whoever that is.
TEST_F(Entries, AreReadFromManyThreads) {
    std::vector<std::thread> threads;
    std::atomic<int> wrong = 0;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] {
            for (int n = 0; n < 200; ++n)
                wrong += read("Htco", "BTU/ft2-hr-F") != "BTU/hr-ft2-F";
        });
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(0, wrong);
}

} // namespace

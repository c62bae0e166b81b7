// The shipped aliases: that their file has the form that it states, and that each means what is said of it publicly.
#include <map>

#include "catalogue/class_table.h"
#include "catalogue/units.h"
#include "tests/catalogue/public_definitions.h"
#include "tests/catalogue/shipped_file.h"
#include "tests/library_fixture.h"

namespace {

struct Alias {
    std::string name, text, classes;
};

struct Meaning {
    const char *names, *definition, *offset = "0", *classes = "";
};

// What the names mean, in base units of the SI, with the offset in the unit's own scale. The numbers are of NIST SP
// 811, B.8, of NIST Handbook 44, app. C, and of the sources that stand beside the aliases.
// clang-format off
const Meaning meanings[] = {
    {"s|second", "1 sec"}, {"minute", "60 sec"}, {"h|hour", "3600 sec"}, {"d", "86400 sec"}, {"wk", "604800 sec"},
    {"fortnight", "1209600 sec"}, {"yr|annum", "31536000 sec"}, {"Julian year", "31557600 sec"},
    {"kelvin|degree kelvin|deg K", "1 K"},
    {"deg C|°C|℃|Celsius|degree C|degree Celsius|degrees Celsius|centigrade|degree centigrade", "1 K", "273.15"},
    {"deg F|°F|℉|Fahrenheit|degree F|degree Fahrenheit|degrees Fahrenheit", "5 K/9", "459.67"},
    {"deg R|°R|Rankine|degree Rankine|degrees Rankine", "5 K/9"}, {"meter|metre", "1 m"}, {"kilometre", "1000 m"},
    {"centimetre", "0.01 m"}, {"millimetre", "0.001 m"}, {"micrometre", "0.000001 m"}, {"nanometre", "0.000000001 m"},
    {"angstrom|ångström|Å", "0.0000000001 m"}, {"inch|inches", "0.0254 m"}, {"thou", "0.0000254 m"},
    {"foot|feet|lineal foot|linear foot", "0.3048 m"}, {"yard", "0.9144 m"},
    {"mi|statute mile|mile (statute)", "1609.344 m"}, {"nautical mile|nautical mile (international)|mile (nautical)|nmi", "1852 m"},
    {"US survey foot|ft (US survey)|survey foot|foot (US survey)", "1200 m/3937"},
    {"US survey mile|mi (US survey)|survey mile|mile (US survey)", "6336000 m/3937"}, {"rod|perch", "5.0292 m"}, {"hand", "0.1016 m"},
    {"ha", "10000 m2"}, {"are", "100 m2"}, {"sq m", "1 m2"}, {"sq km", "10^6 m2"}, {"sq cm", "0.0001 m2"},
    {"sq mm", "0.000001 m2"}, {"sq in", "0.00064516 m2"}, {"sq ft|sf", "0.09290304 m2"}, {"sq yd", "0.83612736 m2"},
    {"sq mi|mi2", "2589988.110336 m2"}, {"US survey acre|ac (US survey)|acre (US survey)", "43560 1200^2 m2/3937^2"},
    {"cmil|circular mil", "pi 0.0000254^2 m2/4"}, {"MCM", "250 pi 0.0000254^2 m2", "0", "Area FineArea"},
    {"mD", "0.0000000001 m2/101325"}, {"nD", "0.0000000000000001 m2/101325"},
    {"D", "0.0000001 m2/101325", "0", "Permeability FineArea"}, {"L|l|ltr|litre", "0.001 m3"},
    {"cc|ccm|cu cm", "0.000001 m3"}, {"stere|cu m", "1 m3"}, {"cu in", "0.000016387064 m3"},
    {"cu ft|cf|standard cubic foot|standard cubic feet|std ft3", "0.028316846592 m3"}, {"cu yd", "0.764554857984 m3"},
    {"MCF|MSCF", "28.316846592 m3"}, {"MMCF|MMSCF", "28316.846592 m3"}, {"BCF|BSCF", "28316846.592 m3"},
    {"TCF|TSCF", "28316846592 m3"}, {"hundred cubic feet|hundred-cubic foot", "2.8316846592 m3"},
    {"gallon|US gal|US gallon|USG|gallon (US)|gallons (US)|gallon (US liquid)", "0.003785411784 m3"},
    {"imperial gallon|imp gal|gal (UK)|UK gal|UK gallon|gallon (UK)|gallon (imperial)", "0.00454609 m3"},
    {"barrel|bbl (oil)|oil barrel|barrel (oil)|barrel (petroleum)|petroleum barrel|stb", "0.158987294928 m3"},
    {"MBBL|kbbl", "158.987294928 m3"}, {"MMBBL", "158987.294928 m3"}, {"quart|qt (US)|US quart|quart (US)", "0.000946352946 m3"},
    {"pint|pt (US)|US pint|pint (US)", "0.000473176473 m3"},
    {"fl oz|fl oz (US)|fluid ounce|US fluid ounce|fluid ounce (US)", "0.0000295735295625 m3"},
    {"US cup|cup (US)", "0.0002365882365 m3"}, {"tablespoon|tbsp (US)|tablespoon (US)", "0.00001478676478125 m3"},
    {"teaspoon|tsp (US)|teaspoon (US)", "0.00000492892159375 m3"}, {"fluid dram|fl dr (US)|fluid dram (US)", "0.0000036966911953125 m3"},
    {"imperial quart|qt (UK)|UK quart|quart (UK)", "0.0011365225 m3"}, {"imperial pint|pt (UK)|UK pint|pint (UK)", "0.00056826125 m3"},
    {"imperial fluid ounce|fl oz (UK)|UK fluid ounce|fluid ounce (UK)", "0.0000284130625 m3"},
    {"bu|bu (US)|US bushel|bushel (US)", "0.03523907016688 m3"}, {"imperial bushel|bu (UK)|bushel (UK)|UK bushel", "0.03636872 m3"},
    {"dry gallon", "0.00440488377086 m3"}, {"dry quart|qt dry (US)|quart dry (US)", "0.001101220942715 m3"}, {"dry pint|pt dry (US)|pint dry (US)", "0.0005506104713575 m3"},
    {"dry barrel|bbl dry (US)|barrel dry (US)", "0.115627123584 m3"}, {"beer barrel|barrel (beer)", "0.117347765304 m3"},
    {"imperial barrel|bbl (UK)|barrel (UK)", "0.16365924 m3"}, {"acre foot|ac-ft", "1233.48183754752 m3"},
    {"acre inch|ac-in", "102.79015312896 m3"}, {"board foot|bd ft", "0.002359737216 m3"},
    {"standard cubic meter|standard cubic metre|SCM", "288.70555555555555556 m3/288.15"},
    {"normal cubic meter|m3N|normal cubic metre|m3 (n)", "288.70555555555555556 m3/273.15"},
    {"NL|normal liter|normal litre", "0.28870555555555555556 m3/273.15"},
    {"Nml|Ncc", "0.00028870555555555555556 m3/273.15"}, {"gram|gms|gm|gramme", "0.001 kg"}, {"kilogramme", "1 kg"},
    {"t|te|metric ton|metric tonne|ton (metric)", "1000 kg"},
    {"lbm|pound|pound-mass|pound mass|pound (avoirdupois)", "0.45359237 kg"}, {"klb", "453.59237 kg"},
    {"ounce|ounce (avoirdupois)", "0.028349523125 kg"}, {"gr", "0.00006479891 kg"},
    {"troy ounce|oz t|ounce (troy)", "0.0311034768 kg"}, {"troy pound", "0.3732417216 kg"},
    {"pennyweight|pwt", "0.00155517384 kg"}, {"ton|ton (US)|short ton|ton (short)|US ton|net ton", "907.18474 kg"},
    {"long ton|ton (UK)|ton (long)|UK ton|imperial ton|gross ton", "1016.0469088 kg"},
    {"hundredweight|cwt (US)|hundredweight (US)|short hundredweight|hundredweight (short)|cental", "45.359237 kg"},
    {"long hundredweight|cwt (UK)|hundredweight (UK)|hundredweight (long)", "50.80234544 kg"}, {"metric carat|ct", "0.0002 kg"},
    {"mol|mole|g mol|gram mole", "0.001 kmol"}, {"kg mol|kgmole|kilogram mole", "1 kmol"},
    {"lb mol|lbmole|pound mole|pound-mole", "0.45359237 kmol"}, {"newton", "1 kg m/sec2"}, {"dyn", "0.00001 kg m/sec2"},
    {"pound-force|pound force", "0.45359237 9.80665 kg m/sec2"},
    {"kilogram-force|kilogram force|kilopond|kp", "9.80665 kg m/sec2"},
    {"gram-force|gram force|pond", "0.00980665 kg m/sec2"}, {"tf|ton-force (metric)|metric ton-force|tonne-force", "9806.65 kg m/sec2"},
    {"ounce-force", "0.028349523125 9.80665 kg m/sec2"}, {"poundal", "0.45359237 0.3048 kg m/sec2"},
    {"short ton-force|tonf (US)|ton-force (short)|ton-force (US)", "907.18474 9.80665 kg m/sec2"},
    {"long ton-force|tonf (UK)|ton-force (long)|ton-force (UK)", "1016.0469088 9.80665 kg m/sec2"},
    {"kilopound-force|kipf|kip-force|klbf", "453.59237 9.80665 kg m/sec2"}, {"pascal", "1 kg/m sec2"}, {"barye", "0.1 kg/m sec2"},
    {"bara", "100000 kg/m sec2"}, {"kPaa", "1000 kg/m sec2"}, {"MPaa", "10^6 kg/m sec2"}, {"mbara", "100 kg/m sec2"},
    {"atma|atmosphere|standard atmosphere|atmosphere (standard)", "101325 kg/m sec2"},
    {"at|atmosphere technical|technical atmosphere|atmosphere (technical)|kgf/cm2|kgf/cm2a|kg/cm2a|ksc", "98066.5 kg/m sec2"},
    {"kgf/cm2g|kscg", "98066.5 kg/m sec2", "1.0332274527998857918"},
    {"lbf/in2|pound-force per square inch|pounds-force per square inch", "0.45359237 9.80665 kg/0.0254^2 m sec2"},
    {"psf|pound-force per square foot", "0.45359237 9.80665 kg/0.3048^2 m sec2"},
    {"psfg", "0.45359237 9.80665 kg/0.3048^2 m sec2", "2116.2166236739370150"},
    {"ksf", "453.59237 9.80665 kg/0.3048^2 m sec2"}, {"osi|oz/in2", "0.028349523125 9.80665 kg/0.0254^2 m sec2"},
    {"osig|oz/in2g", "0.028349523125 9.80665 kg/0.0254^2 m sec2", "235.13518040821517891"},
    {"lb/in2|pound per square inch|pounds per square inch",
     "0.45359237 9.80665 kg/0.0254^2 m sec2", "0", "Pres PresAbs PresDiff"},
    {"lb/ft2|pound per square foot|pounds per square foot",
     "0.45359237 9.80665 kg/0.3048^2 m sec2", "0", "Pres PresAbs PresDiff"},
    {"inHg|inches mercury|in. Hg|inches of Hg|inches Hg|inHg (32F)|inch Hg|inch of mercury|inches of mercury|inch of mercury (32F)|inch mercury (32F)",
     "13595.1 9.80665 0.0254 kg/m sec2"},
    {"inch of mercury (60F)|inHg (60F)|inch mercury (60F)", "3376.85 kg/m sec2"},
    {"mmHg|mmHg (0 C)|millimeter of mercury|millimetre of mercury|millimeter mercury (0C)", "13.5951 9.80665 kg/m sec2"},
    {"cmHg|cmHg (0C)|centimeter of mercury|centimetre of mercury|centimeter mercury (0C)", "135.951 9.80665 kg/m sec2"},
    {"umHg|micron of mercury", "0.0135951 9.80665 kg/m sec2"},
    {"inH2O|in of water|inch of water column|inches of water column|inches H2O|inH2O (4C)|in WC|inch WC|inAq|inch of water|inches of water|inch of water (4C)|inch water (4C)",
     "1000 9.80665 0.0254 kg/m sec2"},
    {"inch of water (60F)|inH2O (60F)|inch water (60F)", "999.016 9.80665 0.0254 kg/m sec2"},
    {"ftH2O (60F)|foot water (60F)", "999.016 9.80665 0.3048 kg/m sec2"},
    {"inch of water (68F)|inch water (68F)", "998.2071 9.80665 0.0254 kg/m sec2"},
    {"ftH2O|ft of water|ft WC|ftH2O (4C)|foot of water|feet of water|foot of water (4C)|foot water (4C)", "1000 9.80665 0.3048 kg/m sec2"},
    {"mmH2O|mmAq|mm of water|mm WC|millimeter water (4C)|mmH2O (4C)|millimeter of water|millimetre of water", "9.80665 kg/m sec2"},
    {"cmH2O|cmH2O (4C)|cm WC|centimeter of water|centimetre of water|centimeter water (4C)", "98.0665 kg/m sec2"},
    {"mH2O|m WC|meter of water|metre of water", "9806.65 kg/m sec2"},
    {"iwg|in wg|inWG|inch water gauge", "249.08891 kg/m sec2", "406.78246173223848908"},
    {"mmWG|mm wg", "9.80665 kg/m sec2", "10332.274527998857918"}, {"mWG", "9806.65 kg/m sec2", "10.332274527998857918"},
    {"joule|newton meter|newton-meter|newton metre", "1 kg m2/sec2"},
    {"calorie|cal (IT)|calorie (IT)|gram calorie", "4.1868 kg m2/sec2"},
    {"calorie (th)|cal (th)|thermochemical calorie", "4.184 kg m2/sec2"}, {"kilocalorie (IT)|kcal (IT)|food calorie", "4186.8 kg m2/sec2"},
    {"kilocalorie (th)|kcal (th)", "4184 kg m2/sec2"},
    {"British thermal unit|British thermal unit (IT)|Btu (IT)", "1055.05585262 kg m2/sec2"},
    {"British thermal unit (th)|Btu (th)", "4.184 453.59237 kg m2/1.8 sec2"}, {"kBtu", "1055055.85262 kg m2/sec2"},
    {"MMBtu|mega Btu (IT)|dekatherm|decatherm", "1055055852.62 kg m2/sec2"}, {"therm (EC)", "105505585.262 kg m2/sec2"},
    {"therm (US)", "105480400 kg m2/sec2"}, {"Celsius heat unit", "4186.8 0.45359237 kg m2/sec2"},
    {"Wh|Whr|watt hour|watt-hour", "3600 kg m2/sec2"},
    {"hp-h|horsepower hour|horsepower-hour", "550 0.3048 0.45359237 9.80665 3600 kg m2/sec2"},
    {"ton hour|ton-hour (refrigeration)", "12000 1055.05585262 kg m2/sec2"}, {"barrel of oil equivalent", "5800000 1055.05585262 kg m2/sec2"},
    {"MBOE", "5800000000 1055.05585262 kg m2/sec2"}, {"MMBOE", "5800000000000 1055.05585262 kg m2/sec2"},
    {"tonne of oil equivalent|ton of oil equivalent", "41868000000 kg m2/sec2"},
    {"tonne of coal equivalent|ton of coal equivalent", "29307600000 kg m2/sec2"},
    {"ton of TNT", "4184000000 kg m2/sec2"}, {"electron volt|electron-volt", "1.602176634 kg m2/10^19 sec2"},
    {"ft-lbf|lbf-ft|foot pound|foot-pound|foot pound-force|foot-pound-force", "0.3048 0.45359237 9.80665 kg m2/sec2"},
    {"lbf-in|in-lbf|inch pound|inch-pound", "0.0254 0.45359237 9.80665 kg m2/sec2"},
    {"ozf-in|oz-in", "0.0254 0.028349523125 9.80665 kg m2/sec2"}, {"kgf-m", "9.80665 kg m2/sec2"},
    {"kgf-cm", "0.0980665 kg m2/sec2"}, {"gf-cm", "0.0000980665 kg m2/sec2"}, {"N-mm", "0.001 kg m2/sec2"},
    {"lb-ft", "0.3048 0.45359237 9.80665 kg m2/sec2", "0", "Torque Energy"},
    {"lb-in", "0.0254 0.45359237 9.80665 kg m2/sec2", "0", "Torque"},
    {"m-kg", "9.80665 kg m2/sec2", "0", "Torque Energy"}, {"watt|volt-ampere|volt ampere", "1 kg m2/sec3"},
    {"GW", "10^9 kg m2/sec3"},
    {"horsepower|horsepower (550 ft*lbf/s)|bhp|horsepower (mechanical)|mechanical horsepower", "550 0.3048 0.45359237 9.80665 kg m2/sec3"},
    {"PS|metric hp|metric horsepower|horsepower (metric)", "75 9.80665 kg m2/sec3"},
    {"EHP|electric horsepower|horsepower (electric)", "746 kg m2/sec3"},
    {"boilerHP|BoHP|boiler horsepower|horsepower (boiler)", "9809.5 kg m2/sec3"},
    {"TR|RT|ton (refrigeration)|USRT|ton of refrigeration|refrigeration ton", "12000 1055.05585262 kg m2/3600 sec3"},
    {"BTUH", "1055.05585262 kg m2/3600 sec3"}, {"MBH|MBTUH", "1055055.85262 kg m2/3600 sec3"},
    {"MMBTUH", "1055055852.62 kg m2/3600 sec3"}, {"poise", "0.1 kg/m sec"}, {"poiseuille|kg/m-s", "1 kg/m sec"},
    {"kg/m-h", "1 kg/3600 m sec"}, {"lb/hr-ft|lb/ft-h", "0.45359237 kg/3600 0.3048 m sec"},
    {"lb/ft-s", "0.45359237 kg/0.3048 m sec"}, {"reyn", "0.45359237 9.80665 kg/0.0254^2 m sec"},
    {"cps", "0.001 kg/m sec", "0", "Visc"}, {"stokes|stoke|cm2/s", "0.0001 m2/sec"}, {"m2/s", "1 m2/sec"},
    {"m2/h", "1 m2/3600 sec"}, {"mm2/s", "0.000001 m2/sec"}, {"ft2/s", "0.09290304 m2/sec"},
    {"ft2/h", "0.09290304 m2/3600 sec"}, {"W/mK", "1 kg m/sec3 K"},
    {"BTU/ft-hr-F|BTU/h-ft-F", "1055.05585262 9 kg m/5 3600 0.3048 sec3 K"},
    {"kcal/m-hr-C|kcal/h-m-C", "4186.8 kg m/3600 sec3 K"}, {"W/m2K", "1 kg/sec3 K"},
    {"BTU/ft2-hr-F|BTU/h-ft2-F", "1055.05585262 9 kg/5 3600 0.3048^2 sec3 K"},
    {"kcal/m2-hr-C|kcal/h-m2-C", "4186.8 kg/3600 sec3 K"}, {"m2K/W", "1 sec3 K/kg"},
    {"ft2-hr-F/BTU|h-ft2-F/BTU", "5 3600 0.3048^2 sec3 K/1055.05585262 9 kg"},
    {"m2-hr-C/kcal|h-m2-C/kcal", "3600 sec3 K/4186.8 kg"}, {"kJ/kgK|J/gK", "1000 m2/sec2 K"},
    {"kcal/kgC|Btu/lbF", "4186.8 m2/sec2 K"}, {"dyn/cm", "0.001 kg/sec2"}, {"%|pct|per cent", "0.01"}, {"‰", "0.001"},
    {"parts per million", "0.000001"}, {"parts per billion", "0.000000001"},
    {"wtpct", "0.01", "0", "MassFrac"}, {"ppm (w)|ppm (wt)|ppm w|ppm wt|wppm", "0.000001", "0", "MassFrac"},
    {"ppb w|ppb (w)", "0.000000001", "0", "MassFrac"}, {"gr/lb", "1/7000", "0", "MassFrac"},
    {"kg/kg|lb/lb", "1", "0", "MassFrac"},
    {"molpct", "0.01", "0", "MoleFrac"}, {"mol/mol", "1", "0", "MoleFrac"},
    {"volpct", "0.01", "0", "VolFrac"}, {"m3/m3", "1", "0", "VolFrac"}, {"mL/L", "0.001", "0", "VolFrac"},
    {"uL/L", "0.000001", "0", "VolFrac"}, {"ppm v|ppm (v)|ppm vol|vppm", "0.000001", "0", "MoleFrac VolFrac"},
    {"ppb v|ppb (v)", "0.000000001", "0", "MoleFrac VolFrac"},
    {"°API|deg API|API gravity|SG|sp gr|specific gravity", "999.016 kg/m3"},
    {"ppg", "0.45359237 kg/0.003785411784 m3"}, {"pcf", "0.45359237 kg/0.028316846592 m3"},
    {"ptb", "0.45359237 kg/158.987294928 m3"}, {"gpg", "0.00006479891 kg/0.003785411784 m3"},
    {"gpm|US gpm", "0.003785411784 m3/60 sec"}, {"gph", "0.003785411784 m3/3600 sec"},
    {"gpd", "0.003785411784 m3/86400 sec"}, {"MGD", "3785.411784 m3/86400 sec"}, {"igpm|UK gpm", "0.00454609 m3/60 sec"},
    {"igpd", "0.00454609 m3/86400 sec"}, {"MIGD", "4546.09 m3/86400 sec"},
    {"BPD|BPSD|B/D|bopd|bwpd|stb/d", "0.158987294928 m3/86400 sec"}, {"BPH", "0.158987294928 m3/3600 sec"},
    {"BPM", "0.158987294928 m3/60 sec"}, {"KBPD|kbd|kb/d|MBPD", "158.987294928 m3/86400 sec"},
    {"MM BPD", "158987.294928 m3/86400 sec"}, {"LPM", "0.001 m3/60 sec"}, {"LPH", "0.001 m3/3600 sec"},
    {"LPS", "0.001 m3/sec"}, {"MLD", "1000 m3/86400 sec"}, {"cumec", "1 m3/sec"},
    {"cusec|cfs", "0.028316846592 m3/sec"}, {"LMH", "0.001 m/3600 sec"},
    {"gfd", "0.003785411784 m/0.09290304 86400 sec"}, {"SCFM|CFM", "0.028316846592 m3/60 sec"},
    {"SCFH|CFH", "0.028316846592 m3/3600 sec"}, {"SCFD|CFD", "0.028316846592 m3/86400 sec"},
    {"MSCFD|MCFD", "28.316846592 m3/86400 sec"}, {"MM SCFD|MMCFD", "28316.846592 m3/86400 sec"},
    {"BSCFD", "28316846.592 m3/86400 sec"}, {"MSCFH", "28.316846592 m3/3600 sec"},
    {"NCMH", "288.70555555555555556 m3/273.15 3600 sec"}, {"SCMH", "288.70555555555555556 m3/288.15 3600 sec"},
    {"MMSCMD", "288705555.55555555556 m3/288.15 86400 sec"},
    {"slpm|slm|nlpm", "0.28870555555555555556 m3/273.15 60 sec"},
    {"sccm", "0.00028870555555555555556 m3/273.15 60 sec"}, {"CMH", "1 m3/3600 sec"}, {"CMM", "1 m3/60 sec"},
    {"ACFM|ICFM", "0.028316846592 m3/60 sec", "0", "ActVolRate"},
    {"ACFH", "0.028316846592 m3/3600 sec", "0", "ActVolRate"}, {"ACMH", "1 m3/3600 sec", "0", "ActVolRate"},
    {"PPH", "0.45359237 kg/3600 sec"}, {"KPPH", "453.59237 kg/3600 sec"}, {"TPH", "1000 kg/3600 sec"},
    {"TPD|MTPD", "1000 kg/86400 sec"}, {"STPD", "907.18474 kg/86400 sec"}, {"LTPD", "1016.0469088 kg/86400 sec"},
    {"KTA|ktpa|kt/a", "1000000 kg/31536000 sec"}, {"MTPA", "1000000000 kg/31536000 sec"},
    {"boepd", "5800000 1055.05585262 kg m2/86400 sec3"}, {"kph|kmh", "1000 m/3600 sec"}, {"mph", "1609.344 m/3600 sec"},
    {"fps", "0.3048 m/sec"}, {"fpm", "0.3048 m/60 sec"}, {"knot", "1852 m/3600 sec"},
    {"mpy", "0.0000254 m/31536000 sec"}, {"standard gravity|acceleration of gravity", "9.80665 m/sec2"}, {"radian", "1 rad"},
    {"degree|°", "pi rad/180"}, {"arcminute|minute of arc", "pi rad/10800"},
    {"arcsecond|second of arc", "pi rad/648000"}, {"gon|gradian", "pi rad/200"}, {"revolution|circle|turn", "2 pi rad"},
    {"rev/min|r/min|revolutions per minute", "pi rad/30 sec"}, {"rev/s", "2 pi rad/sec"}, {"rad/s", "1 rad/sec"},
    {"deg/s", "pi rad/180 sec"}, {"Hz|cycle/second|hertz|cycles per second", "1/sec"}, {"Hz|hertz", "2 pi rad/sec", "0", "Rotation"},
    {"volt", "1 kg m2/coulomb sec2"}, {"ampere|amp", "1 coulomb/sec"}, {"Ω", "1 kg m2/coulomb^2 sec"},
    {"S", "1 coulomb^2 sec/kg m2", "0", "ElecConductivity"}, {"siemens|mho", "1 coulomb^2 sec/kg m2"}, {"coulomb", "1 coulomb"}, {"Ah", "3600 coulomb"},
    {"micromho/cm|micromhos/cm", "0.0001 coulomb^2 sec/kg m3"},
    {"CU", "0.000000000001 coulomb^2 sec/kg m3", "0", "ElecConductivity"},
    {"D", "coulomb m/10^21 299792458", "0", "Dipole"}, {"Kvs", "Kv", "0", "FlowConductance"},
    {"MPa^0.5|MPa^1/2|MPa^(1/2)|MPa**0.5|(J/cm3)^0.5|(J/cm3)^1/2", "1000 kg^0.5/m^0.5 sec", "0", "SolubilityParam"},
    {"(cal/cm3)^0.5|(cal/cm3)^1/2|(cal/cc)^0.5", "4184000^0.5 kg^0.5/m^0.5 sec", "0", "SolubilityParam"}, {"dollar|US dollar|US$", "1 $"},
    {"k$|kUSD", "1000 $"}, {"MM$|mmUSD", "1000000 $"},
    {"darcies", "0.0000001 m2/101325"}, {"MWe|MWt|MWth", "10^6 kg m2/sec3"}, {"kWe|kWth", "1000 kg m2/sec3"},
    {"t/a|t/y|tpa", "1000 kg/31536000 sec"}, {"mmpy|mm/y|mm/a", "0.001 m/31536000 sec"},
    {"MMSm3", "519670000 m3/1.8 288.15"}, {"wt %|wt. %|wt-%|% wt|% w/w|% (w/w)|mass %|mass percent|weight %|weight percent", "0.01", "0", "MassFrac"},
    {"mass fraction", "1", "0", "MassFrac"}, {"mole fraction", "1", "0", "MoleFrac"}, {"volume fraction", "1", "0", "VolFrac"},
    {"mol %|mol. %|mol-%|mole %|mole percent|mol percent|% mol", "0.01", "0", "MoleFrac"}, {"ppm (mol)", "0.000001", "0", "MoleFrac"},
    {"vol %|vol. %|vol-%|volume %|volume percent|% vol|% v|% v/v|% (v/v)|LV%", "0.01", "0", "VolFrac"},
    {"rod (US survey)|rd (US survey)", "19800 m/3937"}, {"chain (US survey)|ch (US survey)", "79200 m/3937"},
    {"link (US survey)", "792 m/3937"}, {"furlong (US survey)", "792000 m/3937"},
    {"fathom (US survey)", "7200 m/3937"}, {"fur", "201.168 m"}, {"league", "4828.032 m"}, {"uin", "0.0000000254 m"},
    {"astronomical unit", "149597870700 m"}, {"light year", "299792458 31557600 m"},
    {"nautical league|nautical league (international)", "5556 m"}, {"ac", "4046.8564224 m2"}, {"rood", "1011.7141056 m2"},
    {"barn", "m2/10^28"}, {"gill (US)|gi (US)", "0.00011829411825 m3"}, {"peck (US)|pk (US)", "0.00880976754172 m3"},
    {"ton register|register ton", "2.8316846592 m3"}, {"quintal (metric)", "100 kg"},
    {"stone (UK)|st (UK)", "6.35029318 kg"}, {"kn", "1852 m/3600 sec", "0", "Velocity"}, {"g", "9.80665 m/sec2", "0", "Accel"}, {"Gal", "0.01 m/sec2", "0", "Accel"},
    {"mGal", "0.00001 m/sec2", "0", "Accel"}, {"r", "2 pi rad", "0", "Rotation AngAccel Angle"},
    {"'|minute", "pi rad/10800", "0", "Angle"}, {"\"|second", "pi rad/648000", "0", "Angle"},
    {"right angle", "pi rad/2"}, {"C", "1 coulomb", "0", "Charge"}, {"abcoulomb", "10 coulomb"},
    {"abampere|biot", "10 coulomb/sec"},
    {"US bbl|US barrel", "0.158987294928 m3"}, {"gal (US)", "0.003785411784 m3"}, {"imp gpm", "0.00454609 m3/60 sec"},
    {"kgal", "3.785411784 m3"}, {"lb.mol", "0.45359237 kmol"}, {"pounds-force", "0.45359237 9.80665 kg m/sec2"},
    {"kilograms-force", "9.80665 kg m/sec2"},
    {"ft lb|ft lbs|foot pounds|foot-pounds|foot pounds-force", "0.3048 0.45359237 9.80665 kg m2/sec2"},
    {"degrees C|deg. C", "1 K", "273.15"}, {"deg. F", "5 K/9", "459.67"},
    {"British thermal units", "1055.05585262 kg m2/sec2"}, {"metric tons", "1000 kg"}, {"short tons", "907.18474 kg"},
    {"long tons", "1016.0469088 kg"}, {"nautical miles", "1852 m"}, {"imperial gallons", "0.00454609 m3"},
    {"tons of refrigeration", "12000 1055.05585262 kg m2/3600 sec3"},
    {"normal cubic meters|Nm^3", "519.67 m3/1.8 273.15"}, {"Sm^3|std m3", "519.67 m3/1.8 288.15"},
    {"millimeters of mercury|mm of Hg", "13.5951 9.80665 kg/m sec2"},
    {"centimeters of mercury", "135.951 9.80665 kg/m sec2"}, {"in of Hg", "13595.1 0.0254 9.80665 kg/m sec2"},
    {"meters of water", "9806.65 kg/m sec2"}, {"millimeters of water", "9.80665 kg/m sec2"},
    {"in. H2O|in w.c.|inches WC|inches WG", "25.4 9.80665 kg/m sec2"}, {"hp (metric)", "75 9.80665 kg m2/sec3"},
    {"cycles", "2 pi rad"},
    {"BCFD", "28316846.592 m3/86400 sec"},
    {"SCMD", "519.67 m3/1.8 288.15 86400 sec"}, {"KBD", "158.987294928 m3/86400 sec"}, {"MSTB", "158.987294928 m3"},
    {"MMSTB", "158987.294928 m3"}, {"MM kcal", "4186800000 kg m2/sec2"}, {"million BTU", "1055055852.62 kg m2/sec2"},
    {"mcg", "0.000000001 kg"}, {"cbm|KL", "1 m3"}, {"KLD", "1 m3/86400 sec"}, {"lts|lit", "0.001 m3"}, {"hrs", "3600 sec"},
    {"lbs", "0.45359237 kg"}, {"kgs", "1 kg"}, {"Mlbs", "453.59237 kg"}, {"klbmol", "453.59237 kg-mol"},
    {"MMlbmol", "453592.37 kg-mol"}, {"ktonne", "1000000 kg"}, {"Mtonne", "1000000000 kg"},
    {"MMTPA|Mt/a", "1000000000 kg/31536000 sec"}, {"ktoe", "41868000000000 kg m2/sec2"}, {"Mtoe", "41868000000000000 kg m2/sec2"},
    {"mdarcy|millidarcies", "0.0000000001 m2/101325"}, {"million gallons", "3785.411784 m3"},
    {"million kcal|Mio kcal", "4186800000 kg m2/sec2"}, {"kWhr", "3600000 kg m2/sec2"}, {"MWhr", "3600000000 kg m2/sec2"},
    {"hph", "550 0.3048 0.45359237 9.80665 3600 kg m2/sec2"}, {"KBTUH", "1055055.85262 kg m2/3600 sec3"},
    {"BTU/lbF|BTU/LBF", "4186.8 m2/sec2 K"}, {"shp", "550 0.3048 0.45359237 9.80665 kg m2/sec3"},
    {"kHP", "550000 0.3048 0.45359237 9.80665 kg m2/sec3"}, {"hp (M)", "75 9.80665 kg m2/sec3"}, {"hp (E)", "746 kg m2/sec3"},
    {"kW (e)|kW (th)", "1000 kg m2/sec3"}, {"MW (e)|MW (th)", "1000000 kg m2/sec3"},
    {"tons (refrigeration)", "12000 1055.05585262 kg m2/3600 sec3"}, {"ton|tons", "12000 1055.05585262 kg m2/3600 sec3", "0", "Power"},
    {"ps", "75 9.80665 kg m2/sec3", "0", "Power"}, {"degrees K", "1 K"}, {"oC", "1 K", "273.15"}, {"oF", "5 K/9", "459.67"},
    {"delta K", "1 K", "0", "TempDiff"}, {"delta C", "1 K", "273.15", "TempDiff"}, {"delta F", "5 K/9", "459.67", "TempDiff"},
    {"std cfm", "0.028316846592 m3/60 sec"}, {"kscf", "28.316846592 m3"},
    {"kscfd", "28.316846592 m3/86400 sec"}, {"kscfm|kcfm", "28.316846592 m3/60 sec"}, {"MMSCFH", "28316.846592 m3/3600 sec"},
    {"MSCMD", "519670 m3/1.8 288.15 86400 sec"}, {"MMSCM", "519670000 m3/1.8 288.15"},
    {"MCFH", "28.316846592 m3/3600 sec"}, {"BLPD|BPCD", "0.158987294928 m3/86400 sec"}, {"MBOPD", "158.987294928 m3/86400 sec"},
    {"kg/a", "1 kg/31536000 sec"}, {"m3/a", "1 m3/31536000 sec"}, {"MWh/a", "3600000000 kg m2/31536000 sec3"},
    {"GWh/a", "3600000000000 kg m2/31536000 sec3"}, {"$/a", "$/31536000 sec"}, {"h/a", "3600/31536000"},
    {"kpsi", "453.59237 9.80665 kg/0.0254^2 m sec2"}, {"mb", "100 kg/m sec2"}, {"PAS", "1 kg/m sec", "0", "Visc"},
    {"\"Hg|in-Hg", "13595.1 9.80665 0.0254 kg/m sec2"}, {"mm of mercury|millimetres of mercury", "13.5951 9.80665 kg/m sec2"},
    {"\"H2O|\"WC|in. w.c.|in. wc|iwc|in water|inches water column", "25.4 9.80665 kg/m sec2"},
    {"ft of H2O|feet H2O", "304.8 9.80665 kg/m sec2"}, {"mm w.c.|mm WS", "9.80665 kg/m sec2"}, {"m WS", "9806.65 kg/m sec2"},
    {"mm w.g.", "9.80665 kg/m sec2", "10332.274527998857918"},
    {"lbs/in2|lb/sq in|lbs/sq in", "0.45359237 9.80665 kg/0.0254^2 m sec2", "0", "Pres PresAbs PresDiff"},
    {"kg/sq cm|kg/cm^2|kgf/cm^2", "98066.5 kg/m sec2", "0", "Pres PresAbs PresDiff"},
    {"kg/cm^2g", "98066.5 kg/m sec2", "1.0332274527998857918", "Pres PresAbs PresDiff"},
    {"KV", "1000 kg m2/coulomb sec2", "0", "Potential"}, {"GM/CC", "1000 kg/m3", "0", "Density"},
    {"Am3|acm", "1 m3", "0", "ActVol ActVolRate"}, {"acf", "0.028316846592 m3", "0", "ActVol ActVolRate"},
    {"acfd", "0.028316846592 m3/86400 sec", "0", "ActVolRate"}, {"Sm3/Sm3", "519.67/1.8 288.15", "0", "GasLiqRatio"},
    {"min-1|min^-1", "2 pi rad/60 sec", "0", "Rotation"}, {"M", "1 kg-mol/m3", "0", "MoleDensity"},
    {"mM", "0.001 kg-mol/m3", "0", "MoleDensity"}, {"uM", "0.000001 kg-mol/m3", "0", "MoleDensity"},
    {"nM", "0.000000001 kg-mol/m3", "0", "MoleDensity"},
    {"ft.lb|lb.ft|pound-foot|pound foot", "0.3048 0.45359237 9.80665 kg m2/sec2", "0", "Torque Energy"},
    // What else engineers type.
    {"degrees F|deg Fahrenheit", "5 K/9", "459.67"},
    {"degrees R|degree R|deg Rankine", "5 K/9"},
    {"degree K|degrees Kelvin|deg Kelvin", "1 K"},
    {"deg Celsius", "1 K", "273.15"},
    {"atue", "98066.5 kg/m sec2", "1.0332274527998857"},
    {"barue", "100000 kg/m sec2", "1.01325"},
    {"mbarue", "100 kg/m sec2", "1013.25"},
    {"mm water|mmCE", "9.80665 kg/m sec2"},
    {"cm WS|cm w.c.", "98.0665 kg/m sec2"},
    {"m w.c.|mCE", "9806.65 kg/m sec2"},
    {"ft w.c.|ft. H2O|feet water", "304.8 9.80665 kg/m sec2"},
    {"inch H2O|inch water column", "25.4 9.80665 kg/m sec2"},
    {"in. wg|in. w.g.|in w.g.", "25.4 9.80665 kg/m sec2", "406.78246173223848908"},
    {"klbm|Mlbm", "453.59237 kg"},
    {"MMlbm", "453592.37 kg"},
    {"Mlbmol", "453.59237 kg-mol"},
    {"kgph", "1 kg/3600 sec"},
    {"kgpd", "1 kg/86400 sec"},
    {"lbph", "0.45359237 kg/3600 sec"},
    {"MTPH", "1000 kg/3600 sec"},
    {"MTPY", "1000 kg/31536000 sec"},
    {"STPH", "907.18474 kg/3600 sec"},
    {"kt/y", "1000000 kg/31536000 sec"},
    {"Mt/y", "1000000000 kg/31536000 sec"},
    {"STBD|stbpd", "0.158987294928 m3/86400 sec"},
    {"MBD|MSTBD", "158.987294928 m3/86400 sec"},
    {"MMSCFPD", "28316.846592 m3/86400 sec"},
    {"USGPH", "0.003785411784 m3/3600 sec"},
    {"MMGD", "3785.411784 m3/86400 sec"},
    {"KLPD", "1 m3/86400 sec"},
    {"CMD", "1 m3/86400 sec"},
    {"imp. gal", "0.00454609 m3"},
    {"U.S. gal|U.S. gallon|gal US", "0.003785411784 m3"},
    {"gpm US|gpm (US)|U.S. gpm", "0.003785411784 m3/60 sec"},
    {"gpm (UK)|imp. gpm", "0.00454609 m3/60 sec"},
    {"troy oz", "0.0311034768 kg"},
    {"hp (mech)|brake horsepower", "550 0.3048 0.45359237 9.80665 kg m2/sec3"},
    {"hp metric", "75 9.80665 kg m2/sec3"},
    {"hp (electric)|electric hp", "746 kg m2/sec3"},
    {"boiler hp", "9809.5 kg m2/sec3"},
    {"ton ref|ton refrigeration|tons of cooling", "12000 1055.05585262 kg m2/3600 sec3"},
    {"std cu ft", "0.028316846592 m3"},
    {"standard cfm", "0.028316846592 m3/60 sec"},
    {"std atm", "101325 kg/m sec2"},
    {"standard liters per minute|standard liter per minute|standard litre per minute|standard litres per minute|standard liters/min|standard liter/min", "0.28870555555555555556 m3/273.15 60 sec"},
    {"standard cubic centimeters per minute|standard cubic centimeter per minute", "0.00028870555555555555556 m3/273.15 60 sec"},
    {"kts", "1852 m/3600 sec"},
    {"actual cfm", "0.028316846592 m3/60 sec", "0", "ActVolRate"},
    {"ACMM", "1 m3/60 sec", "0", "ActVolRate"},
    {"\"", "0.0254 m", "0", "Leng FineLeng"},
    {"'", "0.3048 m", "0", "Leng FineLeng"},
};
// clang-format on

std::string lowered(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), str_Lower);
    return text;
}

std::string packed(std::string text) {
    text.erase(std::remove(text.begin(), text.end(), ' '), text.end());
    return text;
}

std::vector<std::string> partsOf(const std::string &text, char mark) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, mark);)
        parts.push_back(part);
    return parts;
}

// As the head of the file states it. Each alias has its classes, without any being of all.
std::vector<Alias> shippedAliases() {
    const std::string data = UOM_TEST_DATA;
    std::ifstream file(data.substr(0, data.rfind('/')) + "/aliases.txt");
    EXPECT_TRUE(file.is_open());
    std::vector<Alias> aliases;
    std::string classes;
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line.compare(0, 2, "//") == 0)
            continue;
        if (line.front() == '[' && line.back() == ']') {
            classes = line.substr(1, line.size() - 2);
            continue;
        }
        const size_t mark = line.find(" = ");
        EXPECT_NE(std::string::npos, mark) << line;
        if (mark == std::string::npos)
            continue;
        const std::string text = line.substr(mark + 3, line.find(" // ") - mark - 3);
        EXPECT_EQ(text.find_last_not_of(" \t\r"), text.size() - 1) << line;
        aliases.push_back({line.substr(0, mark), text, classes});
    }
    EXPECT_EQ("", classes) << "the last binding is open";
    return aliases;
}

class CatalogueShippedAliases : public ShippedTest {};

// Whether the class, or one that it is made of, has the unit in its list.
bool lists(const uom::Catalogue &catalogue, int32_t classId, int32_t unit) {
    for (const int32_t *units = uom_GetClassUnits(catalogue, classId); units && *units; ++units)
        if (*units == unit)
            return true;
    const auto &components = class_Row(catalogue, classId)->baseClass;
    return std::any_of(std::begin(components), std::end(components),
                       [&](int32_t component) { return component > 0 && lists(catalogue, component, unit); });
}

TEST_F(CatalogueShippedAliases, BindToClassesAndHideNothing) {
    std::map<std::string, std::string> tokens, exact, free;
    for (const Fields &fields : shippedUnits())
        tokens.emplace(lowered(packed(fields[0])), fields[0]);
    for (const Alias &alias : shippedAliases()) {
        SCOPED_TRACE(alias.name + " [" + alias.classes + "]");
        for (const std::string &name : partsOf(alias.classes, ' '))
            EXPECT_LT(0, class_Find(catalogue(), name.c_str(), 1)) << name;
        // In all places, or in one class, a spelling is there once.
        const std::string spelling = packed(alias.name);
        for (const std::string &name : partsOf(alias.classes.empty() ? "-" : alias.classes, ' ')) {
            EXPECT_TRUE(exact.emplace(name + ":" + spelling, alias.text).second);
            // In other letters it may be something else only where it is a single one.
            const auto other = free.emplace(name + ":" + lowered(spelling), alias.text).first;
            EXPECT_TRUE(other->second == alias.text || spelling.size() == 1) << other->second;
        }
        // A token that reads alike is the same, or of no list of the classes that the alias is bound to. The units of
        // Basis are no units that anybody writes.
        const auto token = tokens.find(lowered(spelling));
        if (token == tokens.end() || token->second == "Mole")
            continue;
        if (!alias.classes.empty()) {
            for (const std::string &name : partsOf(alias.classes, ' '))
                EXPECT_FALSE(lists(catalogue(), class_Find(catalogue(), name.c_str(), 1),
                                   unit_FindToken(catalogue(), token->second.c_str())))
                    << name << " has " << token->second;
            continue;
        }
        const std::optional<Unit> unit = derived(token->second), same = derived(alias.text);
        ASSERT_TRUE(unit && same);
        EXPECT_EQ(unit->value.powers, same->value.powers) << token->second;
        EXPECT_EQ(unit->value.size, same->value.size) << token->second;
        EXPECT_EQ(unit->offset, same->offset) << token->second;
    }
}

// A token of the catalogue as a whole, with its offset, else a product.
TEST_F(CatalogueShippedAliases, MeanWhatIsPubliclySaid) {
    std::map<std::pair<std::string, std::string>, const Meaning *> known;
    for (const Meaning &meaning : meanings)
        for (const std::string &name : partsOf(meaning.names, '|'))
            EXPECT_TRUE(known.emplace(std::make_pair(name, meaning.classes), &meaning).second) << name;
    const std::vector<Alias> aliases = shippedAliases();
    for (const Alias &alias : aliases) {
        SCOPED_TRACE(alias.name + " = " + alias.text);
        const auto row = known.find({alias.name, alias.classes});
        ASSERT_NE(row, known.end()) << "the table does not know it";
        const MaybeValue expected = product(row->second->definition);
        ASSERT_TRUE(expected) << row->second->definition;
        const std::optional<Unit> unit = derived(alias.text);
        ASSERT_TRUE(unit) << "not a text of units";
        EXPECT_EQ(expected->powers, unit->value.powers);
        EXPECT_NEAR(1.0, static_cast<double>(unit->value.size / expected->size), 1e-15);
        const double offset = std::strtod(row->second->offset, nullptr);
        EXPECT_NEAR(offset, static_cast<double>(unit->offset), 1e-15 * std::fabs(offset));
    }
    EXPECT_EQ(known.size(), aliases.size()) << "the table has names that the file has not";
}

// Each part of a text is a token of the catalogue, and with a class the text as a whole is read by it.
TEST_F(CatalogueShippedAliases, AreTextsOfCatalogueUnits) {
    std::set<std::string> tokens;
    for (const Fields &fields : shippedUnits())
        tokens.insert(fields[0]);
    for (const Alias &alias : shippedAliases()) {
        SCOPED_TRACE(alias.name + " = " + alias.text);
        const std::string text = alias.text.substr(alias.text.find_first_not_of("0123456789. "));
        std::vector<std::string> parts = {text};
        for (const char mark : {'/', '-'}) {
            std::vector<std::string> finer;
            for (const std::string &part : parts)
                for (const std::string &piece : tokens.count(part) ? std::vector{part} : partsOf(part, mark))
                    finer.push_back(piece);
            parts = finer;
        }
        for (const std::string &part : parts) {
            EXPECT_NE("ton", part) << "start-up names it otherwise in some modes";
            const std::string base = part.substr(0, part.find_last_not_of("0123456789") + 1);
            EXPECT_TRUE(part.empty() || tokens.count(part) || tokens.count(base)) << part;
        }
        // A reciprocal is a part of the class's texts.
        const bool part = alias.text.rfind("1/", 0) == 0;
        const std::vector<std::string> classes = partsOf(part ? "" : alias.classes, ' ');
        EXPECT_TRUE(classes.empty() || std::any_of(classes.begin(), classes.end(),
                                                   [&](const std::string &name) {
                                                       return uoms_ValidateUOM(name.c_str(), text.c_str()) == 0;
                                                   }))
            << lastError();
    }
}

} // namespace

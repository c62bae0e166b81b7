// Two typed texts to a conversion.
#include <algorithm>
#include <cmath>

#include "catalogue/class_table.h"
#include "catalogue/units.h"
#include "conversion/prepared.h"
#include "entry/entry.h"
#include "support/message.h"
#include "support/numbers.h"
#include "support/text.h"
#include "uomstruct/chain.h"
#include "uomstruct/class_string.h"
#include "uomstruct/unit_string.h"

namespace uom {

namespace {

enum PairStatus : int32_t {
    PAIR_DONE = UOM_DONE,
    PAIR_REFUSED = UOM_REFUSED,
    PAIR_BAD_CLASS = 2,
    PAIR_BAD_FROM = 3,
    PAIR_BAD_TO = 4,
    PAIR_NO_MEMORY = UOM_NO_MEMORY
};

// One of the two texts under a class.
struct Side {
    UomEntry entry;
    Wide scale;
};

struct Pair {
    const Catalogue &catalogue;
    const Words &words;
    const char *texts[2];
    Reading readings[2];
    Side sides[2];
};

// --- with a class

// A text under a class, its number in front being a factor. False with the entry's message.
bool readSide(Pair &pair, int32_t which, const char *classString) {
    Side &side = pair.sides[which];
    if (uom_ReadEntry(pair.catalogue, classString, pair.texts[which], &side.entry) != UOM_DONE)
        return false;
    side.scale = wide_OfConstant(side.entry.scale);
    if (std::isnan(side.entry.value))
        return true;
    if (side.entry.value == 0.0 || !std::isfinite(side.entry.value)) {
        str_FormatBounded(side.entry.message, sizeof side.entry.message,
                          "A number in a unit text is to be a factor other than 0.");
        error_Set("%s", side.entry.message);
        return false;
    }
    side.scale = side.scale * wide_OfConstant(side.entry.value);
    return true;
}

int32_t convertUnder(Pair &pair, UomConversion **out) {
    ParsedChain from(pair.catalogue, pair.sides[0].entry.classString);
    ParsedChain to(from);
    if (!from.chain || !to.chain ||
        chain_FillFromText(pair.catalogue, from.chain, pair.sides[0].entry.units, STYLE_TOKEN) != UOM_DONE ||
        chain_FillFromText(pair.catalogue, to.chain, pair.sides[1].entry.units, STYLE_TOKEN) != UOM_DONE)
        return PAIR_REFUSED;
    return prepared_NewScaled(pair.catalogue, from.chain, to.chain, pair.sides[0].scale, pair.sides[1].scale, out);
}

// What a text measures whatever the class; null when it is not read without one.
const Measure *measureOf(Pair &pair, int32_t which) {
    UomEntry entry;
    Reading &reading = pair.readings[which];
    const bool read = entry_Read(pair.catalogue, pair.words, CLASS_NONE, pair.texts[which], true, reading, entry);
    return read && reading.count > 0 ? &reading.measures[0] : nullptr;
}

bool holdsGas(Pair &pair, int32_t which) {
    const Measure *measure = measureOf(pair, which);
    return measure && measure->gas;
}

bool isPlain(const Reading &reading) {
    const Measure &measure = reading.measures[0];
    return measure.known && !measure.shifted && !measure.formula && !reading.products[0].scale;
}

// A rate that is counted by volume may be one of a gas or of a liquid: the two do not mix.
bool refuseGasAndLiquid(Pair &pair, const char *classString) {
    const int32_t classId = class_Find(pair.catalogue, classString, STYLE_TOKEN);
    if (classId < CLASS_DIMENSIONLESS || classId >= pair.words.classCount || pair.words.classes[classId].slots > 0)
        return false;
    if (holdsGas(pair, 0) == holdsGas(pair, 1))
        return false;
    error_Set("\"%s\" and \"%s\" do not convert into each other: one is an amount of gas, told by its volume under "
              "standard conditions.",
              pair.texts[0], pair.texts[1]);
    return true;
}

const char *nameOf(Ratios ratios) {
    static constexpr struct {
        Ratios ratio;
        const char *name;
    } names[] = {{RATIO_OF_MASSES, "masses"}, {RATIO_OF_AMOUNTS, "amounts"}, {RATIO_OF_VOLUMES, "volumes"}};
    for (const auto &row : names)
        if (ratios & row.ratio)
            return row.name;
    return "other quantities";
}

// "mg/kg" and "mL/L" as fractions: numbers both, and not of the same.
bool refuseRatios(Pair &pair, const char *classString) {
    const int32_t classId = class_Find(pair.catalogue, classString, STYLE_TOKEN);
    if (classId < CLASS_DIMENSIONLESS || classId >= pair.words.classCount || pair.words.classes[classId].slots == 0 ||
        pair.words.classes[classId].dimension != Dimension{})
        return false;
    const Measure *from = measureOf(pair, 0), *to = measureOf(pair, 1);
    if (!from || !to || !ratio_Differs(from->ratios, to->ratios))
        return false;
    char message[sizeof UomEntry::message];
    str_FormatBounded(message, sizeof message,
                      "\"%.60s\" and \"%.60s\" do not convert into each other: one is a ratio of %s, the other of %s.",
                      pair.texts[0], pair.texts[1], nameOf(from->ratios), nameOf(to->ratios));
    error_Set("%s", message);
    return true;
}

// The classical walk does not count the powers of a group inside of another as they are written.
bool hasGroupInGroup(std::string_view classString) {
    int32_t depth = 0;
    for (const char c : classString) {
        depth += c == '(' ? 1 : c == ')' ? -1 : 0;
        if (depth > 1)
            return true;
    }
    return false;
}

// By what the units of the two sides measure, as the class has them.
int32_t convertMeasured(const Pair &pair, UomConversion **out) {
    Pair units = {pair.catalogue, pair.words, {pair.sides[0].entry.units, pair.sides[1].entry.units}, {}, {}};
    Wide sizes[2];
    for (int32_t which = 0; which < 2; ++which) {
        if (!measureOf(units, which) || !isPlain(units.readings[which])) {
            error_Set("A class with a group inside of another is not converted here: write its powers without.");
            return PAIR_REFUSED;
        }
        sizes[which] = product_ExactSize(pair.catalogue, pair.words, units.readings[which].products[0]);
        sizes[which] = sizes[which] * pair.sides[which].scale;
    }
    return prepared_NewProduct(sizes[0] / sizes[1], out);
}

int32_t readGiven(Pair &pair, const char *classString, UomConversion **out, UomEntry *entry) {
    for (int32_t which = 0; which < 2; ++which) {
        if (readSide(pair, which, classString))
            continue;
        if (entry)
            *entry = pair.sides[which].entry;
        const int32_t classId = class_Find(pair.catalogue, classString, STYLE_TOKEN);
        const bool known = class_IsValid(pair.catalogue, classId) || uoms_IsClassValid(pair.catalogue, classString);
        error_Set("%s", pair.sides[which].entry.message);
        return !known ? PAIR_BAD_CLASS : which == 0 ? PAIR_BAD_FROM : PAIR_BAD_TO;
    }
    const bool refused = refuseGasAndLiquid(pair, classString) || refuseRatios(pair, classString);
    const int32_t status = refused                        ? PAIR_REFUSED
                           : hasGroupInGroup(classString) ? convertMeasured(pair, out)
                                                          : convertUnder(pair, out);
    if (status == PAIR_REFUSED)
        str_CopyBounded(pair.sides[0].entry.message, sizeof pair.sides[0].entry.message, error_Text());
    if (entry)
        *entry = pair.sides[0].entry;
    return status;
}

// --- without one

bool isNearer(const ClassFit *fits, const ClassFit *than) {
    const int32_t a = static_cast<int32_t>(fits[0].fit.kind) + static_cast<int32_t>(fits[1].fit.kind);
    const int32_t b = static_cast<int32_t>(than[0].fit.kind) + static_cast<int32_t>(than[1].fit.kind);
    return a < b;
}

bool fitsBoth(const Pair &pair, int32_t classId, ClassFit *fits, bool firstOnly = true) {
    const ClassShape &shape = pair.words.classes[classId];
    if (!shape.shown || shape.slots == 0)
        return false;
    for (const Reading &reading : pair.readings)
        if (!entry_IsPossible(reading, shape))
            return false;
    for (int32_t which = 0; which < 2; ++which) {
        fits[which] =
            entry_Fit(pair.catalogue, pair.words, pair.readings[which], shape_OfClass(pair.words, classId), firstOnly);
        if (fits[which].fit.kind == FitKind::NONE || fits[which].ambiguous)
            return false;
    }
    return true;
}

// The offset of a unit under a class, in units of its size.
double shiftOf(const Pair &pair, int32_t classId, const Fit &fit) {
    const UomUnit *unit = unit_Record(pair.catalogue, fit.units[0]);
    return unit && class_Row(pair.catalogue, classId)->hasOffset ? unit->offset * unit->factor : 0.0;
}

bool areNear(double a, double b, double size) {
    return std::fabs(a - b) <= 1e-9 * size;
}

// One of the first unit in the second one under a class.
bool convertOne(const Pair &pair, int32_t classId, double *result) {
    Pair under = {pair.catalogue, pair.words, {pair.texts[0], pair.texts[1]}, {}, {}};
    const char *token = class_Token(pair.catalogue, classId);
    UomConversion *conversion = nullptr;
    if (!readSide(under, 0, token) || !readSide(under, 1, token) || convertUnder(under, &conversion) != UOM_DONE)
        return false;
    *result = prepared_One(*conversion, 1.0);
    mem_Free(conversion);
    return true;
}

// Gravities of oils and of gases are two formulas for one name.
bool hasFormula(const Pair &pair, int32_t classId) {
    return class_Row(pair.catalogue, classId)->baseClass[0] == CLASS_PETRO_MASS;
}

bool convertsAlike(const Pair &pair, int32_t a, const ClassFit *ofA, int32_t b, const ClassFit *ofB) {
    if (hasFormula(pair, a) || hasFormula(pair, b)) {
        double first, second;
        return !convertOne(pair, a, &first) || !convertOne(pair, b, &second) || areNear(first, second, first);
    }
    if (pair.words.classes[a].slots > 1 || pair.words.classes[b].slots > 1)
        return true;
    const double shifts[] = {shiftOf(pair, a, ofA[0].fit), shiftOf(pair, a, ofA[1].fit), shiftOf(pair, b, ofB[0].fit),
                             shiftOf(pair, b, ofB[1].fit)};
    double size = 0.0;
    for (const double shift : shifts)
        size += std::fabs(shift);
    return areNear(shifts[0] - shifts[1], shifts[2] - shifts[3], size);
}

// What one would be under the other class: "Read as Temp; as TempDiff, 1 F is 0.555556 C."
void noteOther(Pair &pair, int32_t classId, int32_t other, UomEntry &entry) {
    double result;
    if (!convertOne(pair, other, &result))
        return;
    char number[32];
    num_FormatDouble(number, sizeof number, "%.6g", result);
    const bool numbered = !std::isnan(pair.sides[0].entry.value);
    str_FormatBounded(entry.message, sizeof entry.message, "Read as %s; as %s, %s%.60s is %s %.60s.",
                      class_Token(pair.catalogue, classId), class_Token(pair.catalogue, other), numbered ? "" : "1 ",
                      pair.texts[0], number, pair.texts[1]);
}

struct Choice {
    int32_t classId = CLASS_NONE;
    ClassFit fits[2];
};

Choice chooseClass(const Pair &pair, bool firstOnly) {
    Choice best;
    for (int32_t c = CLASS_DIMENSIONLESS; c < pair.words.classCount; ++c) {
        Choice choice;
        choice.classId = c;
        if (fitsBoth(pair, c, choice.fits, firstOnly) &&
            (best.classId == CLASS_NONE || isNearer(choice.fits, best.fits)))
            best = choice;
    }
    return best;
}

int32_t findOther(const Pair &pair, const Choice &best) {
    for (int32_t c = CLASS_DIMENSIONLESS; c < pair.words.classCount; ++c) {
        ClassFit fits[2];
        if (c != best.classId && fitsBoth(pair, c, fits) && fits[0].fit.kind <= FitKind::DIRECT_TIMES &&
            fits[1].fit.kind <= FitKind::DIRECT_TIMES && !convertsAlike(pair, best.classId, best.fits, c, fits))
            return c;
    }
    return CLASS_NONE;
}

// --- gas volumes and moles

constexpr double GAS_CONSTANT = 8.31446261815324; // kJ/(kmol K), exact
constexpr double STANDARD_TEMPERATURE = 519.67;   // R, which is 60 F: what the volumes of the catalogue count at
constexpr double RANKINES = 1.8;                  // to a kelvin
constexpr double STANDARD_PRESSURE = 101.325;     // kPa

// kmol in a cubic meter of gas at 60 F and one atmosphere.
Wide molesOfVolume() {
    return wide_OfConstant(STANDARD_PRESSURE) * wide_OfConstant(RANKINES) /
           (wide_OfConstant(GAS_CONSTANT) * wide_OfConstant(STANDARD_TEMPERATURE));
}

// The power at which gas volumes stand in a product.
int32_t gasPower(const Words &words, const Product &product) {
    int32_t power = 0;
    for (int32_t i = 0; i < product.count; ++i)
        if (words.units[product.terms[i].unit].gas)
            power += product.terms[i].exponent;
    return power;
}

// The dimension with gas volumes counted as the amounts that they are.
Dimension asAmounts(const Words &words, const Product &product, const Measure &measure) {
    const int32_t power = gasPower(words, product);
    Dimension dimension = measure.dimension;
    dimension[AXIS_LENGTH] = static_cast<int16_t>(dimension[AXIS_LENGTH] - 3 * power);
    dimension[AXIS_AMOUNT] = static_cast<int16_t>(dimension[AXIS_AMOUNT] + power);
    return dimension;
}

// The size of a product with its gas volumes as kmol.
Wide amountOf(const Pair &pair, const Product &product) {
    return product_ExactSize(pair.catalogue, pair.words, product) *
           wide_SignedPower(molesOfVolume(), gasPower(pair.words, product));
}

bool isOfNoClass(const Pair &pair, int32_t which) {
    UomEntry entry;
    return uom_ReadEntry(pair.catalogue, nullptr, pair.texts[which], &entry) != UOM_DONE;
}

// Gas by its volume and in moles, and products that no class knows: by what they measure.
bool convertProducts(const Pair &pair, UomConversion **out, int32_t *status) {
    const Product &from = pair.readings[0].products[0], &to = pair.readings[1].products[0];
    const Measure &a = pair.readings[0].measures[0], &b = pair.readings[1].measures[0];
    if (!isPlain(pair.readings[0]) || !isPlain(pair.readings[1]) ||
        asAmounts(pair.words, from, a) != asAmounts(pair.words, to, b))
        return false;
    if (!a.gas && !b.gas && !(isOfNoClass(pair, 0) && isOfNoClass(pair, 1)))
        return false;
    *status = prepared_NewProduct(amountOf(pair, from) / amountOf(pair, to), out);
    return true;
}

// Of two texts the one that tells a volume where the other tells an amount of gas by its volume; -1 when that is not so.
int32_t bareVolume(const Pair &pair) {
    const Measure &a = pair.readings[0].measures[0], &b = pair.readings[1].measures[0];
    if (a.gas == b.gas || !a.known || !b.known || a.dimension != b.dimension)
        return -1;
    return a.gas ? 1 : 0;
}

int32_t refuseBareVolume(Pair &pair, int32_t which, UomEntry *entry) {
    UomEntry &refused = pair.sides[which].entry;
    str_FormatBounded(
        refused.message, sizeof refused.message,
        "\"%.60s\" tells no standard conditions, which \"%.60s\" has: write it with SCF, Sm3 or Nm3, or name "
        "the class.",
        pair.texts[which], pair.texts[1 - which]);
    error_Set("%s", refused.message);
    if (entry)
        *entry = refused;
    return PAIR_REFUSED;
}

// --- both

// Reads a text without a class as far as it goes. False with the entry's message.
bool readAlone(Pair &pair, int32_t which) {
    UomEntry &entry = pair.sides[which].entry;
    entry_Begin(entry);
    if (entry_Read(pair.catalogue, pair.words, CLASS_NONE, pair.texts[which], true, pair.readings[which], entry) &&
        pair.readings[which].count > 0)
        return true;
    // The same again for its message, with suggestions.
    UomEntry told;
    if (uom_ReadEntry(pair.catalogue, nullptr, pair.texts[which], &told) != UOM_DONE)
        entry = told;
    else if (!*entry.message) // a number that is no factor
        str_CopyBounded(entry.message, sizeof entry.message, pair.readings[which].complaint.message);
    error_Set("%s", entry.message);
    return false;
}

// The entry of the first text by itself.
void takeFirst(const Pair &pair, UomEntry *entry) {
    UomEntry first;
    if (entry && uom_ReadEntry(pair.catalogue, nullptr, pair.texts[0], &first) == UOM_DONE)
        *entry = first;
}

// Of a class that counts gas by volume or in moles, where the other text counts it the other way.
int32_t readGivenAmount(Pair &pair, const char *classString, UomConversion **out, UomEntry *entry) {
    int32_t status = readGiven(pair, classString, out, entry);
    if (status != PAIR_BAD_FROM && status != PAIR_BAD_TO)
        return status;
    Pair other = {pair.catalogue, pair.words, {pair.texts[0], pair.texts[1]}, {}, {}};
    const bool fits = readSide(other, status == PAIR_BAD_FROM ? 1 : 0, classString);
    const char *complaint = pair.sides[status == PAIR_BAD_FROM ? 0 : 1].entry.message;
    if (fits && readAlone(other, 0) && readAlone(other, 1) && convertProducts(other, out, &status)) {
        takeFirst(other, entry);
        return status;
    }
    error_Set("%s", complaint);
    return status;
}

// A class in which both texts are something by aliases of its own: "g" and "m/s2" as accelerations.
int32_t classOfAliases(Pair &pair) {
    int32_t tried[64], count = 0;
    for (int32_t i = 0; i < pair.words.aliasCount; ++i)
        for (const int32_t *classId = pair.words.aliases[i].classes; *classId != CLASS_NONE; ++classId) {
            if (count == 64 || std::find(tried, tried + count, *classId) != tried + count)
                continue;
            tried[count++] = *classId;
            const char *token = class_Token(pair.catalogue, *classId);
            if (readSide(pair, 0, token) && readSide(pair, 1, token))
                return *classId;
        }
    return CLASS_NONE;
}

int32_t readAny(Pair &pair, UomConversion **out, UomEntry *entry) {
    for (int32_t which = 0; which < 2; ++which) {
        if (readAlone(pair, which))
            continue;
        if (entry)
            *entry = pair.sides[which].entry;
        return which == 0 ? PAIR_BAD_FROM : PAIR_BAD_TO;
    }
    if (const int32_t bare = bareVolume(pair); bare >= 0)
        return refuseBareVolume(pair, bare, entry);
    Choice best = chooseClass(pair, true);
    if (best.classId == CLASS_NONE)
        best = chooseClass(pair, false);
    if (best.classId != CLASS_NONE) {
        const int32_t status = readGiven(pair, class_Token(pair.catalogue, best.classId), out, entry);
        if (status == PAIR_DONE && entry)
            if (const int32_t other = findOther(pair, best); other != CLASS_NONE)
                noteOther(pair, best.classId, other, *entry);
        return status;
    }
    int32_t status;
    if (convertProducts(pair, out, &status)) {
        takeFirst(pair, entry);
        return status;
    }
    if (const int32_t classId = classOfAliases(pair); classId != CLASS_NONE)
        return readGiven(pair, class_Token(pair.catalogue, classId), out, entry);
    // Each by itself tells its own fault; two that are well belong to different quantities.
    for (int32_t which = 0; which < 2; ++which)
        if (uom_ReadEntry(pair.catalogue, nullptr, pair.texts[which], &pair.sides[which].entry) != UOM_DONE) {
            if (entry)
                *entry = pair.sides[which].entry;
            return which == 0 ? PAIR_BAD_FROM : PAIR_BAD_TO;
        }
    UomEntry &first = pair.sides[0].entry;
    char from[64], to[64];
    str_CopyBounded(from, sizeof from, pair.texts[0]);
    str_CopyBounded(to, sizeof to, pair.texts[1]);
    str_FormatBounded(first.message, sizeof first.message,
                      "\"%s\" is a unit of %s and \"%s\" of %s: they do not convert into each other.", from,
                      first.classString, to, pair.sides[1].entry.classString);
    error_Set("%s", first.message);
    if (entry)
        *entry = first;
    return PAIR_REFUSED;
}

} // namespace

int32_t uom_NewConversionFromEntries(const Catalogue &catalogue, const char *classString, const char *from,
                                     const char *to, UomConversion **out, UomEntry *entry) {
    if (out)
        *out = nullptr;
    if (entry)
        entry_Begin(*entry);
    if (!from || !to || !out) {
        error_Set("Invalid input arguments detected in function uom_NewConversionFromEntries().");
        if (entry)
            str_CopyBounded(entry->message, sizeof entry->message, "There is no text to read.");
        return PAIR_REFUSED;
    }
    const Words *words = words_Of(catalogue);
    if (!words) {
        error_Set("Memory is exhausted: the conversion was not made.");
        return PAIR_NO_MEMORY;
    }
    Pair pair = {catalogue, *words, {from, to}, {}, {}};
    return str_IsEmpty(classString) ? readAny(pair, out, entry) : readGivenAmount(pair, classString, out, entry);
}

} // namespace uom

#include "entry/product.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iterator>

#include "catalogue/class_table.h"
#include "catalogue/units.h"
#include "entry/prefixes.h"
#include "entry/word_reader.h"
#include "support/numbers.h"
#include "support/text.h"
#include "uomstruct/unit_scan.h"

namespace uom {

namespace {

constexpr int32_t DEEPEST = 12;       // parentheses, and aliases of aliases
constexpr int32_t HIGHEST_POWER = 99; // in a text
constexpr int32_t MOST_DIGITS = 18;   // of a number that is kept to the last digit
constexpr int32_t SHORTEST_NAME = 3;  // that is no symbol

void skipBlanks(TextReader &reader) {
    while (reader.at(reader.place) == ' ')
        ++reader.place;
}

Wide powerOfTen(int32_t power) {
    return wide_SignedPower(wide_Of(10.0), power);
}

void multiply(Product &product, const Wide &factor, int32_t exponent) {
    product.number = product.number * wide_SignedPower(factor, exponent);
}

// --- numbers and exponents

bool isNumberStart(const TextReader &reader, int32_t place) {
    return str_IsDigit(reader.at(place)) || (reader.at(place) == '.' && str_IsDigit(reader.at(place + 1)));
}

// Whether the digits of a marked exponent go on as a fraction, "^1/2": "^3/100lb" is a quotient.
bool isFractionAt(const TextReader &reader, int32_t place, bool marked) {
    if (!marked || reader.at(place) != '/' || !str_IsDigit(reader.at(place + 1)))
        return false;
    for (++place; str_IsDigit(reader.at(place));)
        ++place;
    return !text_IsLetter(reader.at(place));
}

// An exponent behind a unit or a parenthesis: "2", "^2", "**2", "^-1", "-1" directly behind a letter.
bool readExponent(TextReader &reader, int32_t *exponent) {
    *exponent = 1;
    int32_t i = reader.place;
    bool marked = false;
    if (reader.at(i) == '^')
        marked = true, ++i;
    else if (reader.at(i) == '*' && reader.at(i + 1) == '*')
        marked = true, i += 2;
    else if (reader.at(i) == '*' || !(str_IsDigit(reader.at(i)) ||
                                      ((reader.at(i) == '-' || reader.at(i) == '+') && str_IsDigit(reader.at(i + 1)))))
        return true;
    const bool open = marked && reader.at(i) == '(';
    i += open ? 1 : 0;
    const bool negative = reader.at(i) == '-';
    if (negative || reader.at(i) == '+')
        ++i;
    // Superscripts bring a mark of their own: "^-1" of "^^-1" is one.
    if (marked && reader.at(i) == '^')
        ++i;
    int32_t value = 0;
    const int32_t first = i;
    while (str_IsDigit(reader.at(i)) && value <= HIGHEST_POWER)
        value = 10 * value + (reader.at(i++) - '0');
    if (i == first || value == 0 || value > HIGHEST_POWER || (reader.at(i) == '.' && str_IsDigit(reader.at(i + 1))) ||
        isFractionAt(reader, i, marked))
        return word_Refuse(reader, reader.place, i + 1,
                           "An exponent is to be a whole number of at most two digits, and not 0.");
    if (open && reader.at(i++) != ')')
        return word_Refuse(reader, reader.place, i, "The parenthesis of the exponent is not closed.");
    reader.place = i;
    *exponent = negative ? -value : value;
    return true;
}

bool add(TextReader &reader, const Term &term) {
    if (term.exponent == 0)
        return true;
    Product &product = reader.product;
    if (product.count == Product::LIMIT)
        return word_Refuse(reader, term.place, term.end, "The text holds more units than any quantity has.");
    product.terms[product.count++] = term;
    return true;
}

bool readProduct(TextReader &reader, int32_t sign, char close);

// The units of an alias take the place of its name.
bool addAlias(TextReader &reader, const Alias &alias, int32_t exponent, int32_t place, int32_t end) {
    if (reader.depth >= DEEPEST)
        return word_Refuse(reader, place, place + 1, "The alias \"%s\" leads back to itself.", alias.name);
    FoldedText text;
    const bool folded = fold_Text(text, alias.unitText);
    Product meaning;
    meaning.number = wide_Of(1.0);
    Complaint complaint;
    TextReader inner = {reader.catalogue, reader.words,     text, text.length, 0, {}, meaning,
                        complaint,        reader.depth + 1, 0};
    if (!folded || !readProduct(inner, 1, '\0') || inner.place < text.length)
        return word_Refuse(reader, place, place + 1, "The alias \"%s\" stands for no unit text.", alias.name);
    multiply(reader.product, meaning.number, exponent);
    for (int32_t i = 0; i < meaning.count; ++i)
        if (!add(reader, {meaning.terms[i].unit, meaning.terms[i].multiplier, meaning.terms[i].exponent * exponent,
                          place, end}))
            return false;
    if (meaning.scale)
        reader.product.scale = meaning.scale;
    else if (meaning.count == 1 && word_SaysAbsolute(reader, alias.name, meaning.terms[0].unit))
        reader.product.scale = 'a';
    return true;
}

bool addWord(TextReader &reader, const Word &word, int32_t exponent) {
    if (word.power != 0)
        multiply(reader.product, powerOfTen(word.power), exponent);
    if (word.scale)
        reader.product.scale = word.scale;
    const WordName &name = *word.match.name;
    ++reader.product.words;
    reader.product.otherCase = reader.product.otherCase || !word.match.exactCase;
    if (reader.at(word.begin) == 'M' && !word.multiplier && prefix_OfSymbol(word.power ? "Mm" : name.text).power == 6)
        reader.product.mega = {word.begin, word.match.end};
    if (name.kind == NameKind::ALIAS && word.match.bound)
        reader.product.bound = &reader.words.aliases[name.target];
    if (name.kind == NameKind::ALIAS)
        return addAlias(reader, reader.words.aliases[name.target], exponent, word.begin, word.match.end);
    return add(reader, {name.target, word.multiplier, exponent, word.begin, word.match.end});
}

// --- words that are no units

struct KeyWord {
    std::string_view text;
    int32_t value;
};
constexpr KeyWord powersInFront[] = {{"square", 2}, {"sq", 2}, {"cubic", 3}, {"cu", 3}};
constexpr KeyWord counts[] = {{"thousand", 3}, {"million", 6}, {"billion", 9}}; // powers of ten
constexpr KeyWord powersBehind[] = {{"squared", 2}, {"square", 2}, {"cubed", 3}};
constexpr KeyWord scaleMarks[] = {
    {"(g)", 'g'},      {"[g]", 'g'},  {"(gauge)", 'g'}, {"gauge", 'g'},        {"gage", 'g'},     {"(ga)", 'g'},
    {"(a)", 'a'},      {"[a]", 'a'},  {"(abs)", 'a'},   {"abs.", 'a'},         {"absolute", 'a'}, {"(absolute)", 'a'},
    {"abs", 'a'},      {"(v)", 'v'},  {"(vac)", 'v'},   {"vacuum", 'v'},       {"vac.", 'v'},     {"vac", 'v'},
    {"(vacuum)", 'v'}, {"(d)", 'd'},  {"diff", 'd'},    {"differential", 'd'}, {"d", 'd'},        {"g", 'g'},
    {"a", 'a'},        {"-g", 'g'},   {"_g", 'g'},      {"(e)", 'g'},          {"-a", 'a'},       {"_a", 'a'},
    {"ue", 'g'},       {"(ue)", 'g'}, // German: bar ü
};

// The entry that stands at this place and ends there; the place behind it in `end`.
template <size_t N>
const KeyWord *findKeyWord(const TextReader &reader, const KeyWord (&words)[N], int32_t place, int32_t *end) {
    const std::string_view text = word_Ahead(reader, place);
    for (const KeyWord &word : words) {
        if (!str_StartsNoCase(text, word.text))
            continue;
        *end = place + static_cast<int32_t>(word.text.size());
        if (!text_IsLetter(word.text.back()) || !(text_IsLetter(reader.at(*end)) || str_IsDigit(reader.at(*end))))
            return &word;
    }
    return nullptr;
}

// "sq ft", "cubic meter", "cu. in": the power of the unit behind, which is to be a length.
const KeyWord *takePowerInFront(TextReader &reader) {
    int32_t end;
    const KeyWord *word = findKeyWord(reader, powersInFront, reader.place, &end);
    if (!word || (reader.at(end) != ' ' && reader.at(end) != '.' && reader.at(end) != '-'))
        return nullptr;
    while (reader.at(end) == ' ' || reader.at(end) == '.' || reader.at(end) == '-')
        ++end;
    reader.place = end;
    return word;
}

// "million bbl": a number in front of a unit, as a word.
void takeCount(TextReader &reader, int32_t sign) {
    int32_t end;
    const KeyWord *word = findKeyWord(reader, counts, reader.place, &end);
    if (!word || reader.at(end) != ' ' || word_Longest(reader, reader.place).end > end)
        return; // a name may begin so: "million BTU"
    multiply(reader.product, powerOfTen(word->value), sign);
    reader.product.hasNumber = true;
    reader.place = end;
    skipBlanks(reader);
}

bool takePowerBehind(TextReader &reader, int32_t *exponent) {
    int32_t place = reader.place, end;
    while (reader.at(place) == ' ')
        ++place;
    const KeyWord *word = place > reader.place ? findKeyWord(reader, powersBehind, place, &end) : nullptr;
    // "pound square foot" has a unit behind the word: that one is meant.
    if (!word || (word->text == "square" && reader.at(end) == ' '))
        return false;
    *exponent *= word->value;
    reader.place = end;
    return true;
}

// The scale that the units of the text tell by themselves: "psia", "barg", "bara".
char scaleOf(const TextReader &reader) {
    if (reader.product.scale || reader.product.count != 1)
        return reader.product.scale;
    const Term &term = reader.product.terms[0];
    return word_OwnScale(reader, term.unit);
}

// False for a mark that speaks against the unit in front.
bool takeScaleMark(TextReader &reader) {
    int32_t place = reader.place, end;
    while (reader.at(place) == ' ')
        ++place;
    const KeyWord *mark = findKeyWord(reader, scaleMarks, place, &end);
    if (!mark || reader.product.count == 0)
        return true;
    const Dimension pressure = dimension_OfClass(reader.catalogue, CLASS_PRES).dimension;
    if (product_Measure(reader.words, reader.product).dimension != pressure)
        return true;
    int32_t rest = end;
    while (reader.at(rest) == ' ')
        ++rest;
    // A mark is the last thing of a text: "kPa g/s" has a gram in it.
    if (rest < reader.length)
        return true;
    const char scale = static_cast<char>(mark->value), own = scaleOf(reader);
    if (own && own != scale) {
        word_Refuse(reader, place, end, "The pressure in front has another scale.");
        return false;
    }
    reader.product.scale = scale;
    reader.place = end;
    return true;
}

// --- the product

bool readNumberFactor(TextReader &reader, int32_t sign) {
    const int32_t begin = reader.place;
    Wide number;
    double value;
    if (!product_ReadNumber(reader.text, &reader.place, &number, &value) || value == 0.0)
        return word_Refuse(reader, begin, reader.place, "A number in a unit text is to be a factor other than 0.");
    if (reader.at(reader.place) == '^' || (reader.at(reader.place) == '*' && reader.at(reader.place + 1) == '*')) {
        int32_t exponent;
        if (value != 10.0)
            return word_Refuse(reader, begin, reader.place,
                               "Of numbers, 10 alone may have a power: write 5e3 or 5*10^3.");
        if (!readExponent(reader, &exponent))
            return false;
        multiply(reader.product, number, sign * exponent);
    } else {
        multiply(reader.product, number, sign);
    }
    reader.product.hasNumber = true;
    return true;
}

bool readGroup(TextReader &reader, int32_t sign) {
    const int32_t open = reader.place++;
    Product &product = reader.product;
    const int32_t first = product.count;
    const Wide before = product.number;
    product.number = wide_Of(1.0);
    if (++reader.depth > DEEPEST)
        return word_Refuse(reader, open, open + 1, "The text has too many parentheses in each other.");
    if (!readProduct(reader, 1, ')'))
        return false;
    --reader.depth;
    if (reader.at(reader.place) != ')')
        return word_Refuse(reader, open, open + 1, "The parenthesis is not closed.");
    ++reader.place;
    int32_t exponent;
    if (!readExponent(reader, &exponent))
        return false;
    exponent *= sign;
    const Wide inner = product.number;
    product.number = before;
    multiply(product, inner, exponent);
    for (int32_t i = first; i < product.count; ++i) {
        product.terms[i].exponent *= exponent;
        if (std::abs(product.terms[i].exponent) > HIGHEST_POWER)
            return word_Refuse(reader, open, reader.place,
                               "An exponent is to be a whole number of at most two digits.");
    }
    return true;
}

// Whether what stands directly behind a word may: no letter, but behind a power a temperature ("W/m2K"), below the line a
// time ("kg/m2s"), or the scale of a pressure ("kgf/cm2g").
bool mayFollow(const TextReader &reader, const Word &word, int32_t behindName, int32_t sign) {
    const char next = reader.at(reader.place);
    if (!str_IsLetter(next) || word.joined)
        return true;
    const bool power = reader.place > behindName || str_IsDigit(reader.at(reader.place - 1));
    return power && std::strchr(sign < 0 ? "KCFRagksh" : "KCFRagk", next) && !str_IsLetter(reader.at(reader.place + 1));
}

// A single word in parentheses behind a unit is a remark ("hp(S)", "Nm3 (dry)") and no factor. "(s)" makes a plural of
// a name.
bool takeNote(TextReader &reader, const Word &word) {
    int32_t open = reader.place;
    while (reader.at(open) == ' ')
        ++open;
    if (reader.at(open) != '(')
        return true;
    const int32_t end = word_EndOfLetters(reader, open + 1);
    if (reader.at(end) != ')')
        return true;
    if (open == reader.place && end == open + 2 && str_Lower(reader.at(open + 1)) == 's' &&
        word.match.end - word.begin >= SHORTEST_NAME) {
        reader.place = end + 1;
        return true;
    }
    return word_Refuse(
        reader, open, end + 1,
        "A word in parentheses behind a unit may be a remark: a product is written with \"-\" or \"*\".");
}

bool readWord(TextReader &reader, int32_t sign) {
    takeCount(reader, sign);
    const KeyWord *power = takePowerInFront(reader);
    Word word;
    if (!word_Find(reader, word))
        return false;
    reader.place = word.match.end;
    int32_t exponent = 1;
    const int32_t behindName = reader.place;
    if (!readExponent(reader, &exponent))
        return false;
    if (!mayFollow(reader, word, behindName, sign))
        return word_Refuse(reader, reader.place, word_EndOfLetters(reader, reader.place),
                           "A unit follows without a sign between: write \"-\" or \"*\".");
    takePowerBehind(reader, &exponent);
    if (power)
        exponent *= power->value;
    // An abbreviation's full stop.
    if (reader.at(reader.place) == '.' && !text_IsLetter(reader.at(reader.place + 1)) &&
        !str_IsDigit(reader.at(reader.place + 1)))
        ++reader.place;
    if (!addWord(reader, word, sign * exponent) || !takeScaleMark(reader))
        return false;
    return takeNote(reader, word);
}

bool readFactor(TextReader &reader, int32_t sign) {
    if (reader.at(reader.place) == '(' && !word_Longest(reader, reader.place).name)
        return readGroup(reader, sign);
    if (isNumberStart(reader, reader.place))
        return readNumberFactor(reader, sign);
    if (text_IsLetter(reader.at(reader.place)) || reader.at(reader.place) == '(')
        return readWord(reader, sign);
    if (reader.place >= reader.length)
        return word_Refuse(reader, reader.length, reader.length, "The text ends where a unit is expected.");
    char sign1[64];
    str_CopyBounded(sign1, sizeof sign1, fold_Typed(reader.text, reader.place, reader.place + 1));
    return word_Refuse(reader, reader.place, reader.place + 1,
                       "\"%s\" is no sign of a unit text, or not at this place.", sign1);
}

// "per" as a word.
bool takePer(TextReader &reader) {
    int32_t end;
    static constexpr KeyWord per[] = {{"per", 1}};
    if (!findKeyWord(reader, per, reader.place, &end))
        return false;
    if (word_Longest(reader, reader.place).end > end) // "per cent"
        return false;
    reader.place = end;
    return true;
}

// Whether "/", "*" or "per" stands in front, blanks between.
bool isBehindSign(const TextReader &reader) {
    int32_t place = reader.place;
    while (place > 0 && reader.at(place - 1) == ' ')
        --place;
    const char sign = place > 0 ? reader.at(place - 1) : '\0';
    return sign == '/' || sign == '*' || (place >= 3 && word_EndsIn(reader, place, "per"));
}

// Factors and the signs between them, up to the end or the closing parenthesis.
bool readProduct(TextReader &reader, int32_t sign, char close) {
    bool below = false;
    int32_t slashes = 0;
    skipBlanks(reader);
    // "1/hr", "/hr" and "per hour".
    if (reader.at(reader.place) == '/' || takePer(reader)) {
        reader.place += reader.at(reader.place) == '/' ? 1 : 0;
        below = true;
        ++slashes;
        skipBlanks(reader);
    }
    for (bool numberMayStand = true;; numberMayStand = false) {
        if (isNumberStart(reader, reader.place) && !numberMayStand && !isBehindSign(reader))
            return word_Refuse(reader, reader.place, reader.place + 1,
                               "A number behind a unit means nothing: an exponent stands at its unit.");
        if (!readFactor(reader, below ? -sign : sign))
            return false;
        skipBlanks(reader);
        const char c = reader.at(reader.place);
        if (c == '\0' || c == close)
            return true;
        if (c == '/' || takePer(reader)) {
            reader.place += c == '/' ? 1 : 0;
            if (++slashes > 1)
                reader.product.hasSecondSlash = true;
            below = slashes == 1 || !reader.way.slashTurns || !below;
        } else if (c == '*') {
            ++reader.place;
            reader.product.hasLateStar = reader.product.hasLateStar || below;
            below = below && reader.way.starStays;
        } else if (c == '-' || (c == '.' && text_IsLetter(reader.at(reader.place + 1)))) {
            ++reader.place; // binds tighter than "/"
        } else if (c == ')' || c == '^') {
            return word_Refuse(reader, reader.place, reader.place + 1,
                               c == ')' ? "No parenthesis was opened for this one."
                                        : "An exponent stands behind a unit.");
        }
        skipBlanks(reader);
    }
}

bool isFraction(const TextReader &reader, const Term &term) {
    return uom_GetUnitListIndex(reader.catalogue, CLASS_FRAC, term.unit) >= 0;
}

// "% C" is no hundredth of a degree: a fraction stands by itself, or above the line alone.
bool refuseFraction(TextReader &reader) {
    const Term *fraction = nullptr, *other = nullptr;
    for (int32_t i = 0; i < reader.product.count; ++i) {
        const Term &term = reader.product.terms[i];
        if (isFraction(reader, term))
            fraction = &term;
        else if (term.exponent > 0)
            other = &term;
    }
    return fraction && other &&
           !word_Refuse(reader, fraction->place, fraction->end,
                        "A fraction of a unit is no unit: \"%s\" stands by itself.",
                        unit_Token(reader.catalogue, fraction->unit));
}

// "gr" is the grain of those who have pounds, gallons and cubic feet, and others write it for gram.
bool refuseGrains(TextReader &reader) {
    constexpr std::string_view besideGrains[] = {"lb", "gal", "ft3", "SCF"};
    const Term *grain = nullptr, *other = nullptr;
    for (int32_t i = 0; i < reader.product.count; ++i) {
        const Term &term = reader.product.terms[i];
        const std::string_view token = unit_Token(reader.catalogue, term.unit);
        if (str_EqualNoCase(str_Head(word_Ahead(reader, term.place), static_cast<size_t>(term.end - term.place)), "gr"))
            grain = &term;
        else if (std::find(std::begin(besideGrains), std::end(besideGrains), token) == std::end(besideGrains))
            other = &term;
    }
    return grain && other &&
           !word_Refuse(reader, grain->place, grain->end, "This can mean a gram or a grain: write which.");
}

// Where all letters are capitals, and units were read that are not written so, an M may be a milli as well.
bool refuseCapitals(TextReader &reader, int32_t begin) {
    const Product &product = reader.product;
    if (product.mega.begin < 0 || !product.otherCase || product.words < 2)
        return false;
    const std::string_view typed = word_Ahead(reader, begin);
    if (std::any_of(typed.begin(), typed.end(), str_IsSmallLetter))
        return false;
    return !word_Refuse(reader, product.mega.begin, product.mega.end,
                        "In capitals M can mean mega or milli: write the units in the case of their symbols.");
}

} // namespace

bool product_ReadNumber(const FoldedText &text, int32_t *place, Wide *number, double *value) {
    int32_t i = *place;
    const char *c = text.text;
    double mantissa = 0.0;
    int32_t digits = 0, power = 0;
    bool any = false, exact = true;
    for (bool behind = false; i < text.length; ++i) {
        if (c[i] == '.' && !behind && str_IsDigit(c[i + 1])) {
            behind = true;
            continue;
        }
        if (c[i] == '.' && !behind && any && !text_IsLetter(c[i + 1])) {
            behind = true; // "5."
            continue;
        }
        if (!str_IsDigit(c[i]))
            break;
        any = true;
        if (digits < MOST_DIGITS - 3) {
            mantissa = 10.0 * mantissa + (c[i] - '0');
            digits += mantissa > 0.0 ? 1 : 0;
            power -= behind ? 1 : 0;
        } else {
            exact = exact && c[i] == '0';
            power += behind ? 0 : 1;
        }
    }
    if (!any)
        return false;
    // "1e3" but not "1 eV" or "2 each".
    if (i < text.length && (c[i] == 'e' || c[i] == 'E')) {
        int32_t j = i + 1;
        const bool negative = c[j] == '-';
        j += c[j] == '-' || c[j] == '+' ? 1 : 0;
        if (str_IsDigit(c[j])) {
            int32_t exponent = 0;
            for (; str_IsDigit(c[j]); ++j)
                exponent = exponent < 10000 ? 10 * exponent + (c[j] - '0') : exponent;
            power += negative ? -exponent : exponent;
            i = j;
        }
    }
    char typed[FoldedText::LIMIT];
    str_CopyBounded(typed, sizeof typed, std::string_view(c + *place, static_cast<size_t>(i - *place)));
    *value = num_LeadingDouble(typed);
    *number =
        exact && mantissa > 0.0 ? wide_Of(mantissa) * powerOfTen(power) : wide_Of(std::isfinite(*value) ? *value : 0.0);
    *place = i;
    return std::isfinite(*value);
}

bool product_Read(const Catalogue &catalogue, const Words &words, const FoldedText &text, int32_t begin,
                  int32_t classId, const Way &way, Product &product, Complaint &complaint) {
    product = {};
    product.number = wide_Of(1.0);
    complaint = {};
    TextReader reader = {catalogue, words, text, text.length, classId, way, product, complaint, 0, begin};
    return readProduct(reader, 1, '\0') && !refuseFraction(reader) && !refuseGrains(reader) &&
           !refuseCapitals(reader, begin);
}

Measure product_Measure(const Words &words, const Product &product) {
    Measure measure = {{}, wide_Rounded(product.number), true, false, false, false, RATIO_OF_ANY};
    for (int32_t i = 0; i < product.count; ++i) {
        const Term &term = product.terms[i];
        const UnitQuantity &unit = words.units[term.unit];
        measure.known = measure.known && unit.known;
        // A temperature in a quotient is a difference; a gauge pressure never is one.
        const bool alone = product.count == 1 && term.exponent == 1;
        measure.shifted = measure.shifted || (unit.shifted && (alone || unit.dimension[AXIS_TEMPERATURE] == 0));
        measure.gas = measure.gas || unit.gas;
        measure.ratios &= unit.dimension == Dimension{} ? unit.ratios : ratios_OfPart(unit.dimension, term.exponent);
        measure.formula = measure.formula || unit.formula;
        measure.dimension = dimension_Times(measure.dimension, unit.dimension, term.exponent);
        const double power = num_PowInt(unit.size, term.exponent);
        measure.size = term.exponent < 0 ? measure.size / power : measure.size * power;
        if (term.multiplier)
            measure.size *= std::pow(multiplier_Factor(term.multiplier), term.exponent);
    }
    if (measure.ratios == 0 || measure.dimension != Dimension{})
        measure.ratios = RATIO_OF_ANY;
    return measure;
}

Wide unit_ExactSize(const Catalogue &catalogue, const Words &words, int32_t unit, int32_t multiplier) {
    return wide_OfConstant(unit_Record(catalogue, unit)->factor) * wide_OfConstant(words.units[unit].base) *
           wide_Of(multiplier_Factor(multiplier));
}

Wide product_ExactSize(const Catalogue &catalogue, const Words &words, const Product &product) {
    Wide size = product.number;
    for (int32_t i = 0; i < product.count; ++i) {
        const Term &term = product.terms[i];
        size = size * wide_SignedPower(unit_ExactSize(catalogue, words, term.unit, term.multiplier), term.exponent);
    }
    return size;
}

} // namespace uom

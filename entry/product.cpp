#include "entry/product.h"

#include <cmath>
#include <cstring>

#include "catalogue/class_table.h"
#include "catalogue/units.h"
#include "entry/prefixes.h"
#include "support/numbers.h"
#include "support/text.h"
#include "uomstruct/unit_scan.h"

namespace uom {

namespace {

constexpr int32_t NO_MATCH = -1;
constexpr int32_t LONGEST_NAME = 80;
constexpr int32_t DEEPEST = 12;       // parentheses, and aliases of aliases
constexpr int32_t HIGHEST_POWER = 99; // in a text
constexpr int32_t MOST_DIGITS = 18;   // of a number that is kept to the last digit

bool isLetter(char c) {
    return str_IsLetter(c) || c == '%' || c == '$' || c == '\'' || c == '"' || c == '#';
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// A name of the index in the text: the characters that it takes, and what it names.
struct Match {
    int32_t end = NO_MATCH;
    const WordName *name = nullptr;
    bool exactCase = false;
    bool bound = false; // to classes, and none is given
};

struct Reader {
    const Catalogue &catalogue;
    const Words &words;
    const FoldedText &text;
    int32_t length;
    int32_t classId;
    Way way;
    Product &product;
    Complaint &complaint;
    int32_t depth;
    int32_t place;

    char at(int32_t i) const { return i < length ? text.text[i] : '\0'; }
};

bool refuse(Reader &reader, int32_t begin, int32_t end, const char *format, const char *detail = "") {
    if (*reader.complaint.message)
        return false;
    reader.complaint.begin = begin;
    reader.complaint.end = end;
    str_FormatBounded(reader.complaint.message, sizeof reader.complaint.message, format, detail);
    return false;
}

void skipBlanks(Reader &reader) {
    while (reader.at(reader.place) == ' ')
        ++reader.place;
}

Wide powerOfTen(int32_t power) {
    const Wide magnitude = wide_Power(wide_Of(10.0), static_cast<uint64_t>(power < 0 ? -power : power));
    return power < 0 ? wide_Of(1.0) / magnitude : magnitude;
}

void multiply(Product &product, const Wide &factor, int32_t exponent) {
    const Wide power = wide_Power(factor, static_cast<uint64_t>(exponent < 0 ? -exponent : exponent));
    product.number = exponent < 0 ? product.number / power : product.number * power;
}

// --- names

// Whether the name stands at this place, whatever the case: a blank of the name may miss in the text, but not the other
// way round.
bool stands(const WordName &name, const char *text, int32_t length, bool *exactCase) {
    *exactCase = true;
    int32_t i = 0;
    for (const char *c = name.text; *c; ++c) {
        if (*c == ' ') {
            while (i < length && text[i] == ' ')
                ++i;
            continue;
        }
        if (i >= length || str_Lower(text[i]) != str_Lower(*c))
            return false;
        *exactCase = *exactCase && text[i] == *c;
        ++i;
    }
    return i == length;
}

bool isBoundToOthers(const Reader &reader, const WordName &name) {
    if (name.kind != NameKind::ALIAS)
        return false;
    const int32_t *classes = reader.words.aliases[name.target].classes;
    if (*classes == 0)
        return false;
    for (; *classes != 0; ++classes)
        if (*classes == reader.classId)
            return false;
    return true;
}

// Names of amounts ("kg-mol") stay whole, since their parts mean something else.
bool isCompound(const Reader &reader, const WordName &name) {
    if (!std::strpbrk(name.text, "/-"))
        return false;
    const int32_t number = name.kind == NameKind::ALIAS
                               ? unit_FindToken(reader.catalogue, reader.words.aliases[name.target].unitText)
                               : name.target;
    const UnitQuantity &unit = reader.words.units[number > NO_UNIT ? number : NO_UNIT];
    return !unit.known || unit.dimension[AXIS_AMOUNT] == 0;
}

// What the hash finds between two places, the name in its exact case before one in another.
Match findName(Reader &reader, int32_t begin, int32_t end, uint32_t hash, bool exactOnly = false) {
    Match match;
    words_Find(reader.words, hash, [&](const WordName &name) {
        bool exactCase;
        if (!stands(name, reader.text.text + begin, end - begin, &exactCase))
            return false;
        if (exactOnly && !exactCase)
            return false;
        const bool bound = isBoundToOthers(reader, name);
        if (bound && reader.classId != CLASS_NONE)
            return false;
        if (isCompound(reader, name)) {
            reader.product.hasCompound = true;
            if (reader.way.splitNames)
                return false;
        }
        // Where no class is given, a name that is bound to classes is the last choice.
        if (!match.name || (exactCase && !match.exactCase && !bound) || (match.bound && !bound))
            match = {end, &name, exactCase, bound};
        return match.exactCase && !match.bound;
    });
    return match;
}

// A name ends where letters, digits or other signs give way to each other.
bool isBoundary(const Reader &reader, int32_t place) {
    const char before = reader.at(place - 1), behind = reader.at(place);
    if (before == ' ')
        return false;
    return !((isLetter(before) && isLetter(behind)) || (isDigit(before) && isDigit(behind)));
}

// One name for exactly this stretch.
Match nameOf(Reader &reader, int32_t begin, int32_t end, bool exactOnly = false) {
    uint32_t hash = WORD_HASH;
    for (int32_t i = begin; i < end; ++i)
        hash = words_HashOn(hash, reader.at(i));
    return findName(reader, begin, end, hash, exactOnly);
}

constexpr int32_t SHORTEST_PLURAL = 3; // letters of a name that takes an s

bool endsIn(const Reader &reader, int32_t end, std::string_view tail) {
    const int32_t begin = end - static_cast<int32_t>(tail.size());
    return begin >= 0 && str_EqualNoCase(std::string_view(reader.text.text + begin, tail.size()), tail);
}

// A name without what grammar put behind it: the s of a plural, the e of "lb-mole". "kPas" is no plural of a pressure.
Match changedName(Reader &reader, int32_t begin, int32_t end) {
    Match match;
    const char before = reader.at(end - 2), last = str_Lower(reader.at(end - 1));
    if (last == 'e' && endsIn(reader, end, "mole"))
        match = nameOf(reader, begin, end - 1);
    else if (last == 's' && str_IsLetter(before) && end - 1 - begin >= SHORTEST_PLURAL && !endsIn(reader, end, "Pas")) {
        match = nameOf(reader, begin, end - 1);
        for (const std::string_view tail : {std::string_view("es"), std::string_view("moles")})
            if (!match.name && endsIn(reader, end, tail))
                match = nameOf(reader, begin, end - 2);
    }
    if (match.name)
        match.end = end;
    return match;
}

// The longest name at this place.
Match longestName(Reader &reader, int32_t begin) {
    Match longest;
    uint32_t hash = WORD_HASH;
    const int32_t last = begin + LONGEST_NAME < reader.length ? begin + LONGEST_NAME : reader.length;
    for (int32_t end = begin; end < last;) {
        hash = words_HashOn(hash, reader.at(end++));
        if (!isBoundary(reader, end))
            continue;
        Match match = findName(reader, begin, end, hash);
        if (!match.name && end - begin > 1)
            match = changedName(reader, begin, end);
        // "R/min" is rankine by minute: an alias that is a quotient in another case is no better than its parts.
        const bool otherCase = match.name && !match.exactCase && longest.exactCase &&
                               match.name->kind == NameKind::ALIAS && std::strchr(match.name->text, '/');
        if (match.name && !otherCase)
            longest = match;
    }
    return longest;
}

// A word as it is meant: a name behind a prefix, or a run of letters that is none.
struct Word {
    Match match;
    int32_t begin = 0;
    int32_t power = 0; // of ten, of the prefix
    int32_t multiplier = 0;
    char scale = '\0';
    bool joined = false; // to another one, without a sign between
};

int32_t endOfLetters(const Reader &reader, int32_t begin) {
    while (isLetter(reader.at(begin)))
        ++begin;
    return begin;
}

std::string_view ahead(const Reader &reader, int32_t place) {
    return {reader.text.text + place, static_cast<size_t>(reader.length - place)};
}

// The size of what a name names alone, NaN when it is not one plain unit.
double sizeOf(const Reader &reader, const Match &match) {
    if (!match.name || match.name->kind == NameKind::ALIAS)
        return NAN;
    const UnitQuantity &unit = reader.words.units[match.name->target];
    return unit.known ? unit.size : NAN;
}

bool refuseTwoMeanings(Reader &reader, const Word &word, const char *other, int32_t otherEnd) {
    char meanings[128];
    char typed[64];
    str_CopyBounded(typed, sizeof typed,
                    str_Head(ahead(reader, word.begin + 1), static_cast<size_t>(otherEnd - word.begin - 1)));
    str_FormatBounded(meanings, sizeof meanings, "%s, or %c as the prefix of %s", word.match.name->text,
                      reader.at(word.begin), other ? other : typed);
    return refuse(reader, word.begin, otherEnd, "This can mean %s: write it in the case of its symbol.", meanings);
}

// In another case than its own, a name may be taken for a prefix and a symbol: "mw" is neither mW nor MW.
bool isAmbiguous(Reader &reader, const Word &word) {
    const PrefixedUnit other = prefix_IfCaseWereFree(ahead(reader, word.begin));
    if (other.prefixLength != 1 || other.rare || word.match.name->text[0] == reader.at(word.begin) ||
        std::strchr(word.match.name->text, ' '))
        return false;
    const Match behind = longestName(reader, word.begin + 1);
    if (!behind.name)
        return false;
    const double meant = sizeOf(reader, word.match);
    const double otherwise = sizeOf(reader, behind) * std::pow(10.0, other.power);
    if (std::fabs(meant / otherwise - 1.0) < 1e-9)
        return false;
    refuseTwoMeanings(reader, word, behind.name->text, word.match.end);
    return true;
}

// The unit behind a prefix; of symbols its own case counts.
bool takePrefixed(Reader &reader, Word &word, const PrefixedUnit &prefix, bool exactCase) {
    if (prefix.prefixLength == 0)
        return false;
    const int32_t begin = word.begin + prefix.prefixLength;
    const Match behind = nameOf(reader, begin, begin + prefix.unitLength, exactCase);
    if (!behind.name)
        return false;
    word.match = behind;
    word.power = prefix.power;
    return true;
}

bool isPressure(const Reader &reader, const Match &match) {
    if (!match.name || match.name->kind == NameKind::ALIAS)
        return false;
    return reader.words.units[match.name->target].dimension ==
           dimension_OfClass(reader.catalogue, CLASS_PRES).dimension;
}

// "MM BTU", "Mlb", "k*m3": thousands and millions as the catalogue writes them in front of this unit.
bool takeMultiplied(Reader &reader, Word &word) {
    for (const int32_t style : {1, 0}) {
        int32_t code;
        const char *rest;
        const char *head = reader.text.text + word.begin;
        if (multiplier_FindAtHead(head, style, &code, &rest) != 1)
            continue;
        const Match behind = longestName(reader, word.begin + static_cast<int32_t>(rest - head));
        if (!behind.name || behind.name->kind == NameKind::ALIAS)
            continue;
        const UomUnit *unit = unit_Record(reader.catalogue, behind.name->target);
        if (!unit || (unit->multiplierStyle == 1) != (style == 1))
            continue;
        word.match = behind;
        word.multiplier = code;
        return true;
    }
    return false;
}

// The letters from `begin` to `end` as one unit: a name or a prefixed symbol, its own case before another.
bool findStretch(Reader &reader, Word &word, int32_t end) {
    word.match = nameOf(reader, word.begin, end, true);
    if (word.match.name)
        return true;
    const std::string_view typed = str_Head(ahead(reader, word.begin), static_cast<size_t>(end - word.begin));
    if (takePrefixed(reader, word, prefix_OfSymbol(typed), true) && word.match.end == end)
        return true;
    word.power = 0;
    word.match = nameOf(reader, word.begin, end);
    return word.match.name && !isAmbiguous(reader, word);
}

// Units that people write without a sign between ("kgK", "Nm", "Pas"): a name in its own case, then one of these.
bool findJoinedWord(Reader &reader, Word &word) {
    const int32_t end = endOfLetters(reader, word.begin);
    const char last = reader.at(end - 1);
    if (end - word.begin < 2 || !std::strchr("KCFRsmh", last))
        return false;
    Word head = word;
    const std::string_view typed = str_Head(ahead(reader, word.begin), static_cast<size_t>(end - 1 - word.begin));
    head.match = nameOf(reader, word.begin, end - 1, true);
    if (!head.match.name && !(takePrefixed(reader, head, prefix_OfSymbol(typed), true) && head.match.end == end - 1))
        return false;
    // An s is a second behind these alone, a plural behind others.
    if (last == 's' && !std::strchr("aWNA", typed.back()))
        return false;
    word = head;
    word.match.end = end - 1;
    word.joined = true;
    return true;
}

// A pressure with the mark of its scale: "kPaa", "mbarg", "psid".
bool findMarkedPressure(Reader &reader, Word &word) {
    const int32_t end = endOfLetters(reader, word.begin);
    const char mark = str_Lower(reader.at(end - 1));
    if (end - word.begin < 3 || !std::strchr("agvd", mark))
        return false;
    Word stem = word;
    if (!findStretch(reader, stem, end - 1) || !isPressure(reader, stem.match))
        return false;
    word = stem;
    word.match.end = end;
    word.scale = mark;
    return true;
}

// "lbs", "kms": an s behind a symbol of two letters and more.
bool findPluralSymbol(Reader &reader, Word &word) {
    const int32_t end = endOfLetters(reader, word.begin);
    if (str_Lower(reader.at(end - 1)) != 's' || end - word.begin < 3)
        return false;
    Word stem = word;
    const bool capitals = str_Lower(reader.at(word.begin)) != reader.at(word.begin) && reader.at(end - 1) == 'S';
    if (!findStretch(reader, stem, end - 1) || !(stem.match.exactCase || capitals))
        return false;
    word = stem;
    word.match.end = end;
    return true;
}

// "Kilometers", "MICROBAR", "KWH": prefixes by name, and symbols of those who write in one case.
bool findPrefixedInAnyCase(Reader &reader, Word &word) {
    if (takePrefixed(reader, word, prefix_OfName(ahead(reader, word.begin)), false)) {
        if (str_Lower(reader.at(word.match.end)) == 's' && !str_IsLetter(reader.at(word.match.end + 1)))
            ++word.match.end;
        return true;
    }
    return takePrefixed(reader, word, prefix_IfCaseWereFree(ahead(reader, word.begin)), false);
}

// A word that is no name.
bool findChangedWord(Reader &reader, Word &word) {
    return takeMultiplied(reader, word) || findJoinedWord(reader, word) || findMarkedPressure(reader, word) ||
           findPluralSymbol(reader, word) || findPrefixedInAnyCase(reader, word);
}

// "mK" behind a sign is as often m K as a millikelvin.
bool isMeterKelvin(const Reader &reader, int32_t begin) {
    return reader.at(begin) == 'm' && reader.at(begin + 1) == 'K' && !isLetter(reader.at(begin + 2)) &&
           reader.product.count > 0;
}

bool refuseUnknown(Reader &reader, int32_t begin) {
    int32_t end = endOfLetters(reader, begin);
    if (end == begin)
        end = begin + 1;
    char typed[64];
    str_CopyBounded(typed, sizeof typed, str_Head(ahead(reader, begin), static_cast<size_t>(end - begin)));
    reader.complaint.unknownWord = !*reader.complaint.message;
    return refuse(reader, begin, end, "\"%s\" is no unit that is known here.", typed);
}

// "k*", "M ", "MM ": no unit is meant where a multiplier stands by itself.
bool isMultiplierSign(const Reader &reader, int32_t begin) {
    const std::string_view text = ahead(reader, begin);
    for (const std::string_view sign :
         {std::string_view("k*"), std::string_view("M*"), std::string_view("M "), std::string_view("MM ")})
        if (str_Head(text, sign.size()) == sign && str_Head(str_Behind(text, 2), 1) != "*")
            return true;
    return false;
}

// The word at the place: the name in its own case, then SI's reading of it, then the name in any case.
bool findWord(Reader &reader, Word &word) {
    word.begin = reader.place;
    if (isMultiplierSign(reader, word.begin) && takeMultiplied(reader, word))
        return true;
    const Match name = longestName(reader, word.begin);
    const PrefixedUnit prefix = prefix_OfSymbol(ahead(reader, word.begin));
    word.match = name;
    if (name.name && name.exactCase)
        return true;
    Word prefixed = word;
    if (!isMeterKelvin(reader, word.begin) && takePrefixed(reader, prefixed, prefix, true) &&
        (!name.name || name.end <= prefixed.match.end)) {
        // Of a prefix that nobody writes and a name in another case nobody knows which is meant.
        if (name.name && prefix.rare && name.end == prefixed.match.end)
            return refuseTwoMeanings(reader, word, prefixed.match.name->text, name.end);
        word = prefixed;
        return true;
    }
    if (name.name)
        return !isAmbiguous(reader, word);
    return findChangedWord(reader, word) || refuseUnknown(reader, word.begin);
}

// --- numbers and exponents

bool isNumberStart(const Reader &reader, int32_t place) {
    return isDigit(reader.at(place)) || (reader.at(place) == '.' && isDigit(reader.at(place + 1)));
}

// An exponent behind a unit or a parenthesis: "2", "^2", "**2", "^-1", "-1" directly behind a letter.
bool readExponent(Reader &reader, int32_t *exponent) {
    *exponent = 1;
    int32_t i = reader.place;
    bool marked = false;
    if (reader.at(i) == '^')
        marked = true, ++i;
    else if (reader.at(i) == '*' && reader.at(i + 1) == '*')
        marked = true, i += 2;
    else if (reader.at(i) == '*' ||
             !(isDigit(reader.at(i)) || ((reader.at(i) == '-' || reader.at(i) == '+') && isDigit(reader.at(i + 1)))))
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
    while (isDigit(reader.at(i)) && value <= HIGHEST_POWER)
        value = 10 * value + (reader.at(i++) - '0');
    if (i == first || value > HIGHEST_POWER || reader.at(i) == '.')
        return refuse(reader, reader.place, i + 1, "An exponent is to be a whole number of at most two digits.");
    if (open && reader.at(i++) != ')')
        return refuse(reader, reader.place, i, "The parenthesis of the exponent is not closed.");
    reader.place = i;
    *exponent = negative ? -value : value;
    return true;
}

bool add(Reader &reader, const Term &term) {
    if (term.exponent == 0)
        return true;
    Product &product = reader.product;
    if (product.count == Product::LIMIT)
        return refuse(reader, term.place, term.end, "The text holds more units than any quantity has.");
    product.terms[product.count++] = term;
    return true;
}

bool readProduct(Reader &reader, int32_t sign, char close);

// The units of an alias take the place of its name.
bool addAlias(Reader &reader, const Alias &alias, int32_t exponent, int32_t place, int32_t end) {
    if (reader.depth >= DEEPEST)
        return refuse(reader, place, place + 1, "The alias \"%s\" leads back to itself.", alias.name);
    FoldedText text;
    fold_Text(text, alias.unitText);
    Product meaning;
    meaning.number = wide_Of(1.0);
    Complaint complaint;
    Reader inner = {reader.catalogue, reader.words, text, text.length, 0, {}, meaning, complaint, reader.depth + 1, 0};
    if (!readProduct(inner, 1, '\0') || inner.place < text.length)
        return refuse(reader, place, place + 1, "The alias \"%s\" stands for no unit text.", alias.name);
    multiply(reader.product, meaning.number, exponent);
    for (int32_t i = 0; i < meaning.count; ++i)
        if (!add(reader, {meaning.terms[i].unit, meaning.terms[i].multiplier, meaning.terms[i].exponent * exponent,
                          place, end}))
            return false;
    if (meaning.scale)
        reader.product.scale = meaning.scale;
    return true;
}

bool addWord(Reader &reader, const Word &word, int32_t exponent) {
    if (word.power != 0)
        multiply(reader.product, powerOfTen(word.power), exponent);
    if (word.scale)
        reader.product.scale = word.scale;
    const WordName &name = *word.match.name;
    if (name.kind == NameKind::ALIAS && word.match.bound)
        reader.product.boundTo = reader.words.aliases[name.target].classes[0];
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
constexpr KeyWord powersBehind[] = {{"squared", 2}, {"square", 2}, {"cubed", 3}};
constexpr KeyWord scaleMarks[] = {
    {"(g)", 'g'},      {"[g]", 'g'},          {"(gauge)", 'g'}, {"gauge", 'g'},    {"gage", 'g'},
    {"(ga)", 'g'},     {"(a)", 'a'},          {"[a]", 'a'},     {"(abs)", 'a'},    {"abs.", 'a'},
    {"absolute", 'a'}, {"(absolute)", 'a'},   {"abs", 'a'},     {"(v)", 'v'},      {"(vac)", 'v'},
    {"vacuum", 'v'},   {"vac.", 'v'},         {"vac", 'v'},     {"(vacuum)", 'v'}, {"(d)", 'd'},
    {"diff", 'd'},     {"differential", 'd'}, {"d", 'd'},       {"g", 'g'},        {"a", 'a'},
};

// The entry that stands at this place and ends there; the place behind it in `end`.
template <size_t N>
const KeyWord *findKeyWord(const Reader &reader, const KeyWord (&words)[N], int32_t place, int32_t *end) {
    const std::string_view text = ahead(reader, place);
    for (const KeyWord &word : words) {
        if (!str_StartsNoCase(text, word.text))
            continue;
        *end = place + static_cast<int32_t>(word.text.size());
        if (!isLetter(word.text.back()) || !(isLetter(reader.at(*end)) || isDigit(reader.at(*end))))
            return &word;
    }
    return nullptr;
}

// "sq ft", "cubic meter", "cu. in": the power of the unit behind, which is to be a length.
const KeyWord *takePowerInFront(Reader &reader) {
    int32_t end;
    const KeyWord *word = findKeyWord(reader, powersInFront, reader.place, &end);
    if (!word || (reader.at(end) != ' ' && reader.at(end) != '.' && reader.at(end) != '-'))
        return nullptr;
    while (reader.at(end) == ' ' || reader.at(end) == '.' || reader.at(end) == '-')
        ++end;
    reader.place = end;
    return word;
}

bool takePowerBehind(Reader &reader, int32_t *exponent) {
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

void takeScaleMark(Reader &reader) {
    int32_t place = reader.place, end;
    while (reader.at(place) == ' ')
        ++place;
    const KeyWord *mark = findKeyWord(reader, scaleMarks, place, &end);
    if (!mark || reader.product.count == 0)
        return;
    const Dimension pressure = dimension_OfClass(reader.catalogue, CLASS_PRES).dimension;
    if (product_Measure(reader.words, reader.product).dimension != pressure)
        return;
    int32_t rest = end;
    while (reader.at(rest) == ' ')
        ++rest;
    // A mark is the last thing of a text: "kPa g/s" has a gram in it.
    if (rest < reader.length)
        return;
    reader.product.scale = static_cast<char>(mark->value);
    reader.place = end;
}

// --- the product

bool readNumberFactor(Reader &reader, int32_t sign) {
    const int32_t begin = reader.place;
    Wide number;
    double value;
    if (!product_ReadNumber(reader.text, &reader.place, &number, &value) || value == 0.0)
        return refuse(reader, begin, reader.place, "A number in a unit text is to be a factor other than 0.");
    if (reader.at(reader.place) == '^' || (reader.at(reader.place) == '*' && reader.at(reader.place + 1) == '*')) {
        int32_t exponent;
        if (!readExponent(reader, &exponent))
            return false;
        multiply(reader.product, number, sign * exponent);
    } else {
        multiply(reader.product, number, sign);
    }
    reader.product.hasNumber = true;
    return true;
}

bool readGroup(Reader &reader, int32_t sign) {
    const int32_t open = reader.place++;
    Product &product = reader.product;
    const int32_t first = product.count;
    const Wide before = product.number;
    product.number = wide_Of(1.0);
    if (++reader.depth > DEEPEST)
        return refuse(reader, open, open + 1, "The text has too many parentheses in each other.");
    if (!readProduct(reader, 1, ')'))
        return false;
    --reader.depth;
    if (reader.at(reader.place) != ')')
        return refuse(reader, open, open + 1, "The parenthesis is not closed.");
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
            return refuse(reader, open, reader.place, "An exponent is to be a whole number of at most two digits.");
    }
    return true;
}

// Whether what stands directly behind a word may: no letter, but behind a power a temperature ("W/m2K") or the scale of a
// pressure ("kgf/cm2g").
bool mayFollow(const Reader &reader, const Word &word, int32_t behindName) {
    const char next = reader.at(reader.place);
    if (!str_IsLetter(next) || word.joined)
        return true;
    const bool power = reader.place > behindName || isDigit(reader.at(reader.place - 1));
    return power && std::strchr("KCFRagk", next) && !str_IsLetter(reader.at(reader.place + 1));
}

bool readWord(Reader &reader, int32_t sign) {
    const KeyWord *power = takePowerInFront(reader);
    Word word;
    if (!findWord(reader, word))
        return false;
    reader.place = word.match.end;
    int32_t exponent = 1;
    const int32_t behindName = reader.place;
    if (!readExponent(reader, &exponent))
        return false;
    if (!mayFollow(reader, word, behindName))
        return refuse(reader, reader.place, endOfLetters(reader, reader.place),
                      "A unit follows without a sign between: write \"-\" or \"*\".");
    takePowerBehind(reader, &exponent);
    if (power)
        exponent *= power->value;
    // An abbreviation's full stop.
    if (reader.at(reader.place) == '.' && !isLetter(reader.at(reader.place + 1)) &&
        !isDigit(reader.at(reader.place + 1)))
        ++reader.place;
    if (!addWord(reader, word, sign * exponent))
        return false;
    takeScaleMark(reader);
    return true;
}

bool readFactor(Reader &reader, int32_t sign) {
    if (reader.at(reader.place) == '(' && !longestName(reader, reader.place).name)
        return readGroup(reader, sign);
    if (isNumberStart(reader, reader.place))
        return readNumberFactor(reader, sign);
    if (isLetter(reader.at(reader.place)) || reader.at(reader.place) == '(')
        return readWord(reader, sign);
    if (reader.place >= reader.length)
        return refuse(reader, reader.length, reader.length, "The text ends where a unit is expected.");
    const char sign1[2] = {reader.at(reader.place), '\0'};
    return refuse(reader, reader.place, reader.place + 1, "\"%s\" is no sign of a unit text, or not at this place.",
                  sign1);
}

// "per" as a word.
bool takePer(Reader &reader) {
    int32_t end;
    static constexpr KeyWord per[] = {{"per", 1}};
    if (!findKeyWord(reader, per, reader.place, &end))
        return false;
    if (longestName(reader, reader.place).end > end) // "per cent"
        return false;
    reader.place = end;
    return true;
}

// Whether "/", "*" or "per" stands in front, blanks between.
bool isBehindSign(const Reader &reader) {
    int32_t place = reader.place;
    while (place > 0 && reader.at(place - 1) == ' ')
        --place;
    const char sign = place > 0 ? reader.at(place - 1) : '\0';
    return sign == '/' || sign == '*' || (place >= 3 && endsIn(reader, place, "per"));
}

// Factors and the signs between them, up to the end or the closing parenthesis.
bool readProduct(Reader &reader, int32_t sign, char close) {
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
            return refuse(reader, reader.place, reader.place + 1,
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
        } else if (c == '-' || (c == '.' && isLetter(reader.at(reader.place + 1)))) {
            ++reader.place; // binds tighter than "/"
        } else if (c == ')' || c == '^') {
            return refuse(reader, reader.place, reader.place + 1,
                          c == ')' ? "No parenthesis was opened for this one." : "An exponent stands behind a unit.");
        }
        skipBlanks(reader);
    }
}

} // namespace

bool product_ReadNumber(const FoldedText &text, int32_t *place, Wide *number, double *value) {
    int32_t i = *place;
    const char *c = text.text;
    double mantissa = 0.0;
    int32_t digits = 0, power = 0;
    bool any = false, exact = true;
    for (bool behind = false; i < text.length; ++i) {
        if (c[i] == '.' && !behind && isDigit(c[i + 1])) {
            behind = true;
            continue;
        }
        if (c[i] == '.' && !behind && any && !isLetter(c[i + 1])) {
            behind = true; // "5."
            continue;
        }
        if (!isDigit(c[i]))
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
        if (isDigit(c[j])) {
            int32_t exponent = 0;
            for (; isDigit(c[j]); ++j)
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
    Reader reader = {catalogue, words, text, text.length, classId, way, product, complaint, 0, begin};
    return readProduct(reader, 1, '\0');
}

Measure product_Measure(const Words &words, const Product &product) {
    Measure measure = {{}, wide_Rounded(product.number), true, false, false, false};
    for (int32_t i = 0; i < product.count; ++i) {
        const Term &term = product.terms[i];
        const UnitQuantity &unit = words.units[term.unit];
        measure.known = measure.known && unit.known;
        // A temperature in a quotient is a difference; a gauge pressure never is one.
        const bool alone = product.count == 1 && term.exponent == 1;
        measure.shifted = measure.shifted || (unit.shifted && (alone || unit.dimension[AXIS_TEMPERATURE] == 0));
        measure.gas = measure.gas || unit.gas;
        measure.formula = measure.formula || unit.formula;
        measure.dimension = dimension_Times(measure.dimension, unit.dimension, term.exponent);
        const double power = num_PowInt(unit.size, term.exponent);
        measure.size = term.exponent < 0 ? measure.size / power : measure.size * power;
        if (term.multiplier)
            measure.size *= std::pow(multiplier_Factor(term.multiplier), term.exponent);
    }
    return measure;
}

} // namespace uom

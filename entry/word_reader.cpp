#include "entry/word_reader.h"

#include <cmath>
#include <cstring>

#include "catalogue/class_table.h"
#include "catalogue/units.h"
#include "entry/prefixes.h"
#include "support/numbers.h"
#include "support/text.h"
#include "uomstruct/unit_scan.h"

namespace uom {

bool text_IsLetter(char c) {
    return str_IsLetter(c) || c == '%' || c == '$' || c == '\'' || c == '"' || c == '#';
}

bool word_Refuse(TextReader &reader, int32_t begin, int32_t end, const char *format, const char *detail) {
    if (*reader.complaint.message)
        return false;
    reader.complaint.begin = begin;
    reader.complaint.end = end;
    str_FormatBounded(reader.complaint.message, sizeof reader.complaint.message, format, detail);
    return false;
}

bool word_EndsIn(const TextReader &reader, int32_t end, std::string_view tail) {
    const int32_t begin = end - static_cast<int32_t>(tail.size());
    return begin >= 0 && str_EqualNoCase(std::string_view(reader.text.text + begin, tail.size()), tail);
}

int32_t word_EndOfLetters(const TextReader &reader, int32_t begin) {
    while (text_IsLetter(reader.at(begin)))
        ++begin;
    return begin;
}

std::string_view word_Ahead(const TextReader &reader, int32_t place) {
    return {reader.text.text + place, static_cast<size_t>(reader.length - place)};
}

namespace {

constexpr int32_t LONGEST_NAME = 80;

size_t letterCount(const char *text) {
    size_t count = 0;
    while (str_IsLetter(text[count]))
        ++count;
    return count;
}

// TURNED: but for the case of a letter that makes a mega of a milli.
enum class Standing { NO, TURNED, OTHER_CASE, EXACT };

// How the name stands at this place, whatever the case: a blank of the name may miss in the text, but not the other way
// round.
Standing standing(const WordName &name, const char *text, int32_t length) {
    Standing found = Standing::EXACT;
    int32_t i = 0;
    for (const char *c = name.text; *c; ++c) {
        if (*c == ' ') {
            while (i < length && text[i] == ' ')
                ++i;
            continue;
        }
        if (i >= length || str_Lower(text[i]) != str_Lower(*c))
            return Standing::NO;
        if (text[i] != *c && found != Standing::TURNED) {
            found = Standing::OTHER_CASE;
            const size_t letters = c == name.text || !str_IsLetter(c[-1]) ? letterCount(c) : 0;
            if (letters > 1 &&
                prefix_IsTurned({c, letters}, str_Head({text + i, static_cast<size_t>(length - i)}, letters)))
                found = Standing::TURNED;
        }
        ++i;
    }
    return i == length ? found : Standing::NO;
}

enum class Binding { NONE, OWN, OTHERS }; // of an alias: to the class that is read, or to others

Binding bindingOf(const TextReader &reader, const WordName &name) {
    if (name.kind != NameKind::ALIAS)
        return Binding::NONE;
    const Alias &alias = reader.words.aliases[name.target];
    if (alias.classes[0] == 0)
        return Binding::NONE;
    return alias_IsOf(alias, reader.classId) ? Binding::OWN : Binding::OTHERS;
}

// The unit that a name names, NO_UNIT for an alias of more than one.
int32_t unitOf(const TextReader &reader, const WordName &name) {
    if (name.kind != NameKind::ALIAS)
        return name.target;
    const int32_t unit = unit_FindToken(reader.catalogue, reader.words.aliases[name.target].unitText);
    return unit > NO_UNIT ? unit : NO_UNIT;
}

// Names of amounts ("kg-mol") stay whole, since their parts mean something else.
bool isCompound(const TextReader &reader, const WordName &name) {
    if (!std::strpbrk(name.text, "/-"))
        return false;
    const UnitQuantity &unit = reader.words.units[unitOf(reader, name)];
    return !unit.known || unit.dimension[AXIS_AMOUNT] == 0;
}

// What the hash finds between two places. A name in its exact case goes before one in another, and then what the class
// calls so itself ("C" of a charge); where no class is given, a name that is bound to classes is the last choice.
Match findName(TextReader &reader, int32_t begin, int32_t end, uint32_t hash, bool exactOnly = false) {
    Match match;
    int32_t best = -1;
    words_Find(reader.words, hash, [&](const WordName &name) {
        const Standing found = standing(name, reader.text.text + begin, end - begin);
        const bool exactCase = found == Standing::EXACT;
        if (!exactCase && (exactOnly || found != Standing::OTHER_CASE))
            return false;
        const Binding binding = bindingOf(reader, name);
        if (binding == Binding::OTHERS && reader.classId != CLASS_NONE)
            return false;
        if (isCompound(reader, name)) {
            reader.product.hasCompound = true;
            if (reader.way.splitNames)
                return false;
        }
        const int32_t claim =
            (binding == Binding::OTHERS ? 0 : 4) + (exactCase ? 2 : 0) + (binding == Binding::OWN ? 1 : 0);
        if (claim > best) {
            match = {end, &name, exactCase, binding == Binding::OTHERS};
            best = claim;
        }
        return false;
    });
    return match;
}

// A name ends where letters, digits or other signs give way to each other.
bool isBoundary(const TextReader &reader, int32_t place) {
    const char before = reader.at(place - 1), behind = reader.at(place);
    if (before == ' ')
        return false;
    return !((text_IsLetter(before) && text_IsLetter(behind)) || (str_IsDigit(before) && str_IsDigit(behind)));
}

uint32_t hashOf(const TextReader &reader, int32_t begin, int32_t end) {
    uint32_t hash = WORD_HASH;
    for (int32_t i = begin; i < end; ++i)
        hash = words_HashOn(hash, reader.at(i));
    return hash;
}

// One name for exactly this stretch.
Match nameOf(TextReader &reader, int32_t begin, int32_t end, bool exactOnly = false) {
    return findName(reader, begin, end, hashOf(reader, begin, end), exactOnly);
}

constexpr int32_t SHORTEST_PLURAL = 3; // letters of a name that takes an s
constexpr std::string_view pluralsWithE[] = {"ches", "shes", "sses", "xes", "moles"};

// Whether an s behind what ends here is that of a plural: that of "SCFS" is a second.
bool takesPlural(const TextReader &reader, int32_t end) {
    const char before = reader.at(end - 1);
    return str_IsLetter(before) && str_Lower(before) != 's' && !word_EndsIn(reader, end, "CF");
}

// A name without what grammar put behind it: the s of a plural, the e of "lb-mole". "kPas" is no plural of a pressure.
Match changedName(TextReader &reader, int32_t begin, int32_t end) {
    Match match;
    const char last = str_Lower(reader.at(end - 1));
    if (last == 'e' && word_EndsIn(reader, end, "mole"))
        match = nameOf(reader, begin, end - 1);
    else if (last == 's' && takesPlural(reader, end - 1) && end - 1 - begin >= SHORTEST_PLURAL &&
             !word_EndsIn(reader, end, "Pas")) {
        match = nameOf(reader, begin, end - 1);
        for (const std::string_view tail : pluralsWithE)
            if (!match.name && word_EndsIn(reader, end, tail))
                match = nameOf(reader, begin, end - 2);
    }
    if (match.name)
        match.end = end;
    return match;
}

// The size of what a name names alone, NaN when it is not one plain unit.
double sizeOf(const TextReader &reader, const Match &match) {
    if (!match.name)
        return NAN;
    const UnitQuantity &unit = reader.words.units[unitOf(reader, *match.name)];
    return unit.known ? unit.size : NAN;
}

bool refuseTwoMeanings(TextReader &reader, const Word &word, const char *other, int32_t otherEnd) {
    char meanings[128];
    char typed[64];
    str_CopyBounded(typed, sizeof typed,
                    str_Head(word_Ahead(reader, word.begin + 1), static_cast<size_t>(otherEnd - word.begin - 1)));
    str_FormatBounded(meanings, sizeof meanings, "%s, or %c as the prefix of %s", word.match.name->text,
                      reader.at(word.begin), other ? other : typed);
    return word_Refuse(reader, word.begin, otherEnd, "This can mean %s: write it in the case of its symbol.", meanings);
}

// Whether the class that is read is one list of units, and has this one.
bool isOfClass(const TextReader &reader, const Match &match) {
    return reader.classId > CLASS_NONE && reader.classId < reader.words.classCount &&
           reader.words.classes[reader.classId].slots == 1 && match.name && match.name->kind != NameKind::ALIAS &&
           uom_GetUnitListIndex(reader.catalogue, reader.classId, match.name->target) >= 0;
}

// In another case than its own, a name may be taken for a prefix and a symbol: "mw" is neither mW nor MW.
bool isAmbiguous(TextReader &reader, Word &word) {
    const PrefixedUnit other = prefix_IfCaseWereFree(word_Ahead(reader, word.begin));
    if (other.prefixLength != 1 || other.rare || word.match.name->text[0] == reader.at(word.begin) ||
        std::strchr(word.match.name->text, ' '))
        return false;
    const Match behind = word_Longest(reader, word.begin + 1);
    if (!behind.name)
        return false;
    const bool isListed = isOfClass(reader, word.match), isOtherListed = isOfClass(reader, behind);
    if (isListed && !isOtherListed)
        return false;
    if (isOtherListed && !isListed) {
        word.match = behind;
        word.power = other.power;
        return false;
    }
    const double meant = sizeOf(reader, word.match);
    const double otherwise = sizeOf(reader, behind) * std::pow(10.0, other.power);
    if (std::fabs(meant / otherwise - 1.0) < 1e-9)
        return false;
    refuseTwoMeanings(reader, word, behind.name->text, word.match.end);
    return true;
}

// The unit behind a prefix; of symbols its own case counts.
bool takePrefixed(TextReader &reader, Word &word, const PrefixedUnit &prefix, bool exactCase) {
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

bool isPressureUnit(const TextReader &reader, int32_t unit) {
    return reader.words.units[unit].dimension == dimension_OfClass(reader.catalogue, CLASS_PRES).dimension;
}

bool isPressure(const TextReader &reader, const Match &match) {
    return match.name && match.name->kind != NameKind::ALIAS && isPressureUnit(reader, match.name->target);
}

// "MM BTU", "Mlb", "k*m3": thousands and millions as the catalogue writes them in front of this unit.
bool takeMultiplied(TextReader &reader, Word &word) {
    for (const int32_t style : {1, 0}) {
        int32_t code;
        const char *rest;
        const char *head = reader.text.text + word.begin;
        if (multiplier_FindAtHead(head, style, &code, &rest) != 1)
            continue;
        const Match behind = word_Longest(reader, word.begin + static_cast<int32_t>(rest - head));
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
bool findStretch(TextReader &reader, Word &word, int32_t end) {
    word.match = nameOf(reader, word.begin, end, true);
    if (word.match.name)
        return true;
    const std::string_view typed = str_Head(word_Ahead(reader, word.begin), static_cast<size_t>(end - word.begin));
    if (takePrefixed(reader, word, prefix_OfSymbol(typed), true) && word.match.end == end)
        return true;
    word.power = 0;
    word.match = nameOf(reader, word.begin, end);
    return word.match.name && !isAmbiguous(reader, word);
}

// What is written directly behind a unit: an s, m or h behind a few ("Pas", "Nm", "Wh"), a temperature behind amounts and
// lengths ("kgK").
struct Joint {
    char last;
    std::string_view behind;
};
constexpr Joint joints[] = {{'s', "aWNA"}, {'m', "Nf"}, {'h', "WAr"}};

// "lbf" and "kgf", which a length behind makes a torque: the f of "pcf" is a foot.
bool isForce(const TextReader &reader, const Match &match) {
    const Dimension &dimension = reader.words.units[unitOf(reader, *match.name)].dimension;
    return dimension[AXIS_MASS] == 1 && dimension[AXIS_LENGTH] == 1 && dimension[AXIS_TIME] == -2;
}

bool mayBeJoined(const TextReader &reader, const Word &head, char behind, char last) {
    for (const Joint &joint : joints)
        if (joint.last == last)
            return joint.behind.find(behind) != std::string_view::npos &&
                   (behind != 'f' || isForce(reader, head.match));
    if (head.match.name->kind == NameKind::ALIAS)
        return true;
    const Dimension &dimension = reader.words.units[head.match.name->target].dimension;
    return dimension[AXIS_MASS] + dimension[AXIS_AMOUNT] == 1 || dimension[AXIS_LENGTH] > 0;
}

// Units that people write without a sign between ("kgK", "Nm", "Pas"): a name in its own case, then one of these.
bool findJoinedWord(TextReader &reader, Word &word) {
    const int32_t end = word_EndOfLetters(reader, word.begin);
    const char last = reader.at(end - 1);
    if (end - word.begin < 2 || !std::strchr("KCFRsmh", last))
        return false;
    Word head = word;
    const std::string_view typed = str_Head(word_Ahead(reader, word.begin), static_cast<size_t>(end - 1 - word.begin));
    head.match = nameOf(reader, word.begin, end - 1, true);
    if (!head.match.name && !(takePrefixed(reader, head, prefix_OfSymbol(typed), true) && head.match.end == end - 1))
        return false;
    if (!mayBeJoined(reader, head, typed.back(), last))
        return false;
    word = head;
    word.match.end = end - 1;
    word.joined = true;
    return true;
}

// A pressure with the mark of its scale: "kPaa", "mbarg", "psid".
bool findMarkedPressure(TextReader &reader, Word &word) {
    const int32_t end = word_EndOfLetters(reader, word.begin);
    const char mark = str_Lower(reader.at(end - 1));
    if (end - word.begin < 3 || !std::strchr("agvd", mark))
        return false;
    Word stem = word;
    if (!findStretch(reader, stem, end - 1) || !isPressure(reader, stem.match) ||
        word_OwnScale(reader, stem.match.name->target))
        return false;
    word = stem;
    word.match.end = end;
    word.scale = mark;
    return true;
}

// "lbs", "kms": an s behind a symbol of two letters and more.
bool findPluralSymbol(TextReader &reader, Word &word) {
    const int32_t end = word_EndOfLetters(reader, word.begin);
    if (str_Lower(reader.at(end - 1)) != 's' || end - word.begin < 3 || !takesPlural(reader, end - 1))
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
bool findPrefixedInAnyCase(TextReader &reader, Word &word) {
    if (takePrefixed(reader, word, prefix_OfName(word_Ahead(reader, word.begin)), false)) {
        if (str_Lower(reader.at(word.match.end)) == 's' && !str_IsLetter(reader.at(word.match.end + 1)))
            ++word.match.end;
        return true;
    }
    const PrefixedUnit prefix = prefix_IfCaseWereFree(word_Ahead(reader, word.begin));
    if (prefix.rare || !takePrefixed(reader, word, prefix, false))
        return false;
    // "mwh" is neither mWh nor MWh. An M that begins a word as words begin, "MBar", says as little.
    const char first = reader.at(word.begin), second = reader.at(word.begin + 1);
    const bool isTitle = first == 'M' && str_Lower(second) != second && str_IsSmallLetter(reader.at(word.begin + 2));
    return (!isTitle && (first != 'm' || word.match.exactCase)) ||
           word_Refuse(reader, word.begin, word.match.end,
                       "This can mean a mega or a milli of %s: write it in the case of its symbol.",
                       word.match.name->text);
}

// A word that is no name.
bool findChangedWord(TextReader &reader, Word &word) {
    return takeMultiplied(reader, word) || findJoinedWord(reader, word) || findMarkedPressure(reader, word) ||
           findPluralSymbol(reader, word) || findPrefixedInAnyCase(reader, word);
}

// "mK" behind a sign is as often m K as a millikelvin.
bool isMeterKelvin(const TextReader &reader, int32_t begin) {
    return reader.at(begin) == 'm' && reader.at(begin + 1) == 'K' && !text_IsLetter(reader.at(begin + 2)) &&
           reader.product.count > 0;
}

// A name of which the typed letters make a milli of its mega, or a mega of its milli.
const char *turnedName(const TextReader &reader, int32_t begin, int32_t end) {
    const char *turned = nullptr;
    words_Find(reader.words, hashOf(reader, begin, end), [&](const WordName &name) {
        if (standing(name, reader.text.text + begin, end - begin) == Standing::TURNED)
            turned = name.text;
        return turned != nullptr;
    });
    return turned;
}

bool refuseUnknown(TextReader &reader, int32_t begin) {
    int32_t end = word_EndOfLetters(reader, begin);
    if (end == begin)
        end = begin + 1;
    if (const char *turned = turnedName(reader, begin, end))
        return word_Refuse(reader, begin, end, "Written so it is not \"%s\": m means milli, and M mega.", turned);
    char typed[64];
    str_CopyBounded(typed, sizeof typed, fold_Typed(reader.text, begin, end));
    reader.complaint.unknownWord = !*reader.complaint.message;
    return word_Refuse(reader, begin, end, "\"%s\" is no unit that is known here.", typed);
}

// "k*", "M ", "MM ": no unit is meant where a multiplier stands by itself.
bool isMultiplierSign(const TextReader &reader, int32_t begin) {
    const std::string_view text = word_Ahead(reader, begin);
    for (const std::string_view sign :
         {std::string_view("k*"), std::string_view("M*"), std::string_view("M "), std::string_view("MM ")})
        if (str_Head(text, sign.size()) == sign && str_Head(str_Behind(text, 2), 1) != "*")
            return true;
    return false;
}

// Words that the trades read in two ways. Behind the first letter the case of some is free, and an s may follow.
struct Disputed {
    std::string_view text;
    const char *meanings;
    bool anyCase = false;
    bool inPowers = true; // in front of a power as well
};
constexpr Disputed disputedWords[] = {
    {"MT", "tonne, or Mt (a million tonnes)"},
    {"Mton", "2000000 lb, or Mt (a million tonnes)", true},
    {"Mgal", "1000 gal, or 1000000 gal", true},
    {"MUSD", "1000 USD, or 1000000 USD", true},
    {"MDollar", "1000 $, or 1000000 $", true},
    {"M$", "1000 $, or 1000000 $"},
    {"TPA", "tonne/yr, or TPa"},
    {"KV", "kV, or Kv"},
    {"Cal", "cal, or kcal (the calorie of food)"},
    {"Cals", "cal, or kcal (the calorie of food)"},
    {"sft", "ft2, ftUS (a survey foot), or with a power SCF"},
    {"ct/kWh", "cent/kW-hr, or carat/kW-hr", true},
    {"ct/MWh", "cent/MW-hr, or carat/MW-hr", true},
    {"mM", "mm, or mmol/liter"},
    {"uM", "um, or umol/liter"},
    {"nM", "nm, or nmol/liter"},
    {"NM", "N-m, nm, or nautical miles", false, false},
    {"UM", "um, or umol/liter"},
    {"MMOL", "mmol, or Mmol (a million moles)"},
    {"nl", "nanoliter, or Nliter"},
    {"Grad", "a degree, as in German, gon, or Grad (a billion rad)"},
    {"gcal", "cal, or Gcal (a billion calories)"},
    {"\"", "an inch, or a second of angle"},
    {"'", "a foot, or a minute of angle"},
    {"lm", "a lumen, which is not known here, or liter-m"},
    {"cd", "a candela, which is not known here, or 0.01 day"},
};

// Where the class itself calls something so, nothing is in dispute.
bool isNameOfClass(TextReader &reader, int32_t begin, int32_t end) {
    const Match match = nameOf(reader, begin, end, true);
    return match.name && bindingOf(reader, *match.name) == Binding::OWN;
}

bool isDisputed(TextReader &reader, int32_t begin) {
    const std::string_view ahead = word_Ahead(reader, begin);
    for (const Disputed &word : disputedWords) {
        const size_t size = word.text.size();
        if (ahead.empty() || ahead[0] != word.text[0] || !str_StartsNoCase(ahead, word.text) ||
            (!word.anyCase && str_Head(ahead, size) != word.text))
            continue;
        int32_t end = begin + static_cast<int32_t>(size);
        if (word.anyCase && str_Lower(reader.at(end)) == 's')
            ++end;
        const bool raised = str_IsDigit(reader.at(end)) || reader.at(end) == '^';
        if (!text_IsLetter(reader.at(end)) && (word.inPowers || !raised) && !isNameOfClass(reader, begin, end))
            return !word_Refuse(reader, begin, end, "This can mean %s: write which.", word.meanings);
    }
    return false;
}

} // namespace

bool word_SaysAbsolute(const TextReader &reader, std::string_view name, int32_t unit) {
    return isPressureUnit(reader, unit) && name.back() == 'a' &&
           (name.size() < 2 || str_Lower(name[name.size() - 2]) != 'p');
}

char word_OwnScale(const TextReader &reader, int32_t unit) {
    if (reader.words.units[unit].shifted)
        return reader.words.units[unit].dimension[AXIS_TEMPERATURE] == 0 ? 'g' : '\0';
    return word_SaysAbsolute(reader, unit_Token(reader.catalogue, unit), unit) ? 'a' : '\0';
}

Match word_Longest(TextReader &reader, int32_t begin) {
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

bool word_Find(TextReader &reader, Word &word) {
    word.begin = reader.place;
    if (isDisputed(reader, word.begin))
        return false;
    if (isMultiplierSign(reader, word.begin) && takeMultiplied(reader, word))
        return true;
    const Match name = word_Longest(reader, word.begin);
    const PrefixedUnit prefix = prefix_OfSymbol(word_Ahead(reader, word.begin));
    word.match = name;
    if (name.name && name.exactCase)
        return true;
    Word prefixed = word;
    if (!isMeterKelvin(reader, word.begin) && takePrefixed(reader, prefixed, prefix, true) &&
        (!name.name || name.end <= prefixed.match.end)) {
        // Of a prefix that nobody writes and a name in another case nobody knows which is meant.
        if (name.name && prefix.rare && name.end == prefixed.match.end)
            return (isOfClass(reader, name) && !isOfClass(reader, prefixed.match)) ||
                   refuseTwoMeanings(reader, word, prefixed.match.name->text, name.end);
        word = prefixed;
        return true;
    }
    if (name.name)
        return !isAmbiguous(reader, word);
    return findChangedWord(reader, word) || refuseUnknown(reader, word.begin);
}

} // namespace uom

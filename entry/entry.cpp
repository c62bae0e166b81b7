#include "entry/entry.h"

#include <algorithm>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "catalogue/class_table.h"
#include "catalogue/units.h"
#include "entry/suggest.h"
#include "support/message.h"
#include "support/table.h"
#include "support/text.h"
#include "text/display_units.h"
#include "uomstruct/chain.h"
#include "uomstruct/class_string.h"
#include "uomstruct/unit_scan.h"
#include "uomstruct/unit_string.h"

namespace uom {

namespace {

void begin(UomEntry &entry) {
    std::memset(static_cast<void *>(&entry), 0, sizeof entry);
    entry.value = NAN;
    entry.scale = 1.0;
}

#if defined(__GNUC__)
__attribute__((format(printf, 2, 3)))
#endif
bool refuse(UomEntry &entry, const char *format, ...) {
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(entry.message, sizeof entry.message, format, arguments);
    va_end(arguments);
    return false;
}

void locate(UomEntry &entry, const FoldedText &folded, int32_t from, int32_t to) {
    from = std::clamp(from, 0, folded.length);
    to = std::clamp(to, from, folded.length);
    entry.position = folded.place[from];
    entry.length = folded.place[to] - folded.place[from];
}

bool refuseSigns(UomEntry &entry, const FoldedText &folded, const char *text) {
    if (folded.tooLong)
        return refuse(entry, "The text is longer than any unit text.");
    entry.position = folded.badPlace;
    entry.length = folded.badLength;
    char sign[8];
    str_CopyBounded(sign, sizeof sign, std::string_view(text + folded.badPlace, static_cast<size_t>(folded.badLength)));
    if (folded.badLength > 1)
        return refuse(entry, "The sign \"%s\" belongs to no unit text.", sign);
    return refuse(entry, "The text holds a byte that is no sign of a unit text.");
}

// --- the number in front

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// "1,000" and "1,5" are read differently in different countries.
bool refuseComma(UomEntry &entry, const FoldedText &folded, int32_t comma) {
    int32_t digits = 0;
    while (isDigit(folded.text[comma + 1 + digits]))
        ++digits;
    TextWriter writer(entry.suggestion, sizeof entry.suggestion);
    str_Write(writer, std::string_view(folded.text, static_cast<size_t>(comma)));
    if (digits != 3)
        str_Write(writer, '.');
    str_Write(writer, std::string_view(folded.text + comma + 1));
    locate(entry, folded, comma, comma + 1);
    return refuse(entry, "A comma in a number can mean two things: write it without, or with a point for decimals.");
}

// "1 500 kg" and "5 ft 3 in" have no one meaning.
bool refuseSecondNumber(UomEntry &entry, const FoldedText &folded, int32_t place) {
    TextWriter writer(entry.suggestion, sizeof entry.suggestion);
    int32_t end = place;
    while (end > 0 && folded.text[end - 1] == ' ')
        --end;
    str_Write(writer, std::string_view(folded.text, static_cast<size_t>(end)));
    str_Write(writer, std::string_view(folded.text + place));
    if (end == place) // "1.5.2"
        *entry.suggestion = '\0';
    locate(entry, folded, place, place + 1);
    return refuse(entry, "A second number stands behind the first: write a number without blanks.");
}

// Reads sign and number in front of the unit; a number that is a factor stays in the unit text.
bool readValue(Reading &reading, bool numberIsFactor, UomEntry &entry) {
    const FoldedText &folded = reading.folded;
    int32_t place = 0;
    while (folded.text[place] == ' ')
        ++place;
    reading.unitBegin = place;
    const bool negative = folded.text[place] == '-';
    if (negative || folded.text[place] == '+')
        ++place;
    Wide number;
    double value;
    const int32_t first = place;
    if (!product_ReadNumber(folded, &place, &number, &value)) {
        if (place == first && first == reading.unitBegin)
            return true;
        if (place > first) {
            locate(entry, folded, first, place);
            return refuse(entry, "The number is out of the range of numbers.");
        }
        locate(entry, folded, reading.unitBegin, reading.unitBegin + 1);
        return refuse(entry, "A sign stands in front of a number only.");
    }
    if (folded.text[place] == ',' && isDigit(folded.text[place + 1]))
        return refuseComma(entry, folded, place);
    const bool power = folded.text[place] == '^' || (folded.text[place] == '*' && folded.text[place + 1] == '*');
    if (power || numberIsFactor) {
        if (first == reading.unitBegin)
            return true;
        locate(entry, folded, reading.unitBegin, place);
        return refuse(entry, "A number in a unit text is to be a factor above 0.");
    }
    entry.value = negative ? -value : value;
    while (folded.text[place] == ' ')
        ++place;
    if (isDigit(folded.text[place]) || (folded.text[place] == '.' && isDigit(folded.text[place + 1])))
        return refuseSecondNumber(entry, folded, place);
    if (folded.text[place] == '/' && isDigit(folded.text[place + 1])) {
        locate(entry, folded, place, place + 1);
        return refuse(entry, "A fraction is to be written as a decimal number.");
    }
    if (folded.text[place] == '*') // "5 * m"
        ++place;
    while (folded.text[place] == ' ')
        ++place;
    reading.unitBegin = place;
    return true;
}

bool isEmpty(const Reading &reading) {
    for (int32_t i = reading.unitBegin; i < reading.folded.length; ++i)
        if (reading.folded.text[i] != ' ')
            return false;
    return true;
}

// --- the ways to read a text

bool isSameProduct(const Product &a, const Product &b) {
    if (a.count != b.count || wide_Rounded(a.number) != wide_Rounded(b.number))
        return false;
    for (int32_t i = 0; i < a.count; ++i)
        if (a.terms[i].unit != b.terms[i].unit || a.terms[i].multiplier != b.terms[i].multiplier ||
            a.terms[i].exponent != b.terms[i].exponent)
            return false;
    return true;
}

// Reads the text one way; one that means what another has meant before is not kept.
void tryWay(const Catalogue &catalogue, const Words &words, int32_t classId, const Way &way, Reading &reading) {
    if (reading.count == Reading::LIMIT)
        return;
    Product &product = reading.products[reading.count];
    Complaint complaint;
    if (!product_Read(catalogue, words, reading.folded, reading.unitBegin, classId, way, product, complaint)) {
        if (reading.count == 0 && !*reading.complaint.message)
            reading.complaint = complaint;
        return;
    }
    for (int32_t i = 0; i < reading.count; ++i)
        if (isSameProduct(reading.products[i], product))
            return;
    reading.measures[reading.count] = product_Measure(words, product);
    ++reading.count;
}

void readWays(const Catalogue &catalogue, const Words &words, int32_t classId, Reading &reading) {
    Way way;
    tryWay(catalogue, words, classId, way, reading);
    const Product first = reading.products[0];
    if (first.hasSecondSlash)
        tryWay(catalogue, words, classId, {true, false, false}, reading);
    if (first.hasLateStar)
        tryWay(catalogue, words, classId, {false, true, false}, reading);
    reading.whole = reading.count;
    if (first.hasCompound)
        tryWay(catalogue, words, classId, {false, false, true}, reading);
}

// --- messages about what does not fit

const char *nameOfClass(const Catalogue &catalogue, int32_t classId) {
    return class_Token(catalogue, classId);
}

void complain(const Words &words, const Catalogue &catalogue, const char *classString, bool numberIsFactor,
              const Reading &reading, UomEntry &entry);

struct Candidate {
    int32_t classId;
    ClassFit fit;
};

// Classes whose units are all millions: nobody means them who types no such unit.
bool isInMillions(int32_t classId) {
    return classId == CLASS_E6_ENERGY || classId == CLASS_E6_POWER;
}

// The lower the better: an alias knows its class.
int32_t rankOf(const Reading &reading, int32_t classId, const ClassFit &fit) {
    const bool bound = reading.products[fit.product].boundTo == classId;
    return bound ? -1 : static_cast<int32_t>(fit.fit.kind);
}

// The classes that read the text, the best first: up to `most`.
int32_t findClasses(const Catalogue &catalogue, const Words &words, const Reading &reading, Candidate *candidates,
                    int32_t most, bool firstOnly) {
    int32_t count = 0;
    for (int32_t c = CLASS_DIMENSIONLESS; c < words.classCount; ++c) {
        if (!words.classes[c].shown || words.classes[c].slots == 0)
            continue;
        const ClassFit fit = entry_Fit(catalogue, words, reading, shape_OfClass(words, c), firstOnly);
        if (fit.fit.kind == FitKind::NONE || (isInMillions(c) && fit.fit.kind > FitKind::DIRECT_TIMES))
            continue;
        int32_t place = count;
        const int32_t rank = rankOf(reading, c, fit);
        while (place > 0 && rankOf(reading, candidates[place - 1].classId, candidates[place - 1].fit) > rank)
            --place;
        if (place == most)
            continue;
        const int32_t kept = std::min(count, most - 1);
        for (int32_t i = kept; i > place; --i)
            candidates[i] = candidates[i - 1];
        candidates[place] = {c, fit};
        count = kept + 1;
    }
    return count;
}

// The same of the first way to read the text, which is that of arithmetic, or of the others where it is of no class.
int32_t findClasses(const Catalogue &catalogue, const Words &words, const Reading &reading, Candidate *candidates,
                    int32_t most) {
    const int32_t count = findClasses(catalogue, words, reading, candidates, most, true);
    return count > 0 ? count : findClasses(catalogue, words, reading, candidates, most, false);
}

constexpr int32_t TOLD_CLASSES = 3;

// "SCFM is no Pres; it is a VapVolRate."
void tellClasses(const Catalogue &catalogue, const Words &words, const char *classString, const Reading &reading,
                 UomEntry &entry) {
    Candidate candidates[TOLD_CLASSES];
    const int32_t count = findClasses(catalogue, words, reading, candidates, TOLD_CLASSES);
    char typed[64];
    str_CopyBounded(typed, sizeof typed, reading.folded.text + reading.unitBegin);
    locate(entry, reading.folded, reading.unitBegin, reading.folded.length);
    char classes[128] = "";
    TextWriter writer(classes, sizeof classes);
    for (int32_t i = 0; i < count; ++i) {
        str_Write(writer, i == 0 ? "" : i + 1 < count ? ", " : " or ");
        str_Write(writer, nameOfClass(catalogue, candidates[i].classId));
    }
    if (!classString)
        refuse(entry, "\"%s\" is a unit of no class.", typed);
    else if (count > 0)
        refuse(entry, "\"%s\" is no unit of %s; it is one of %s.", typed, classString, classes);
    else
        refuse(entry, "\"%s\" is no unit of %s.", typed, classString);
}

void tellGas(const char *classString, const Reading &reading, UomEntry &entry) {
    char typed[64];
    str_CopyBounded(typed, sizeof typed, reading.folded.text + reading.unitBegin);
    locate(entry, reading.folded, reading.unitBegin, reading.folded.length);
    refuse(entry, "\"%s\" is an amount of gas, told by its volume under standard conditions, and no unit of %s.", typed,
           classString ? classString : "a volume");
}

void tellAmbiguous(const Reading &reading, UomEntry &entry) {
    locate(entry, reading.folded, reading.unitBegin, reading.folded.length);
    refuse(entry,
           "The text can mean two things, since \"a/b/c\" may be a/(b c) or a/(b/c), and \"a/b*c\" may be (a/b) c or "
           "a/(b c): set parentheses.");
}

// A text with the word at the complaint replaced by a name that is known.
void suggestName(const Catalogue &catalogue, const Words &words, const char *classString, bool numberIsFactor,
                 const Reading &reading, UomEntry &entry) {
    const FoldedText &folded = reading.folded;
    const Complaint &complaint = reading.complaint;
    const std::string_view typed(folded.text, static_cast<size_t>(folded.length));
    const size_t from = static_cast<size_t>(complaint.begin), to = static_cast<size_t>(complaint.end);
    Suggestions suggestions;
    suggest_Names(words, str_Head(str_Behind(typed, from), to - from), suggestions);
    for (int32_t i = 0; i < suggestions.count; ++i) {
        char text[sizeof entry.suggestion];
        TextWriter writer(text, sizeof text);
        str_Write(writer, str_Head(typed, from));
        str_Write(writer, suggestions.names[i]);
        str_Write(writer, str_Behind(typed, to));
        if (writer.wanted >= sizeof text)
            continue;
        Reading other;
        UomEntry read;
        begin(read);
        const int32_t classId = classString ? class_Find(catalogue, classString, STYLE_TOKEN) : CLASS_NONE;
        if (!entry_Read(catalogue, words, classId, text, numberIsFactor, other, read) || other.count == 0)
            continue;
        const bool fits = classId == CLASS_NONE ||
                          entry_Fit(catalogue, words, other, shape_OfClass(words, classId)).fit.kind != FitKind::NONE;
        if (!fits)
            continue;
        str_CopyBounded(entry.suggestion, sizeof entry.suggestion, text);
        return;
    }
}

void complain(const Words &words, const Catalogue &catalogue, const char *classString, bool numberIsFactor,
              const Reading &reading, UomEntry &entry) {
    locate(entry, reading.folded, reading.complaint.begin, reading.complaint.end);
    refuse(entry, "%s", reading.complaint.message);
    if (reading.complaint.unknownWord)
        suggestName(catalogue, words, classString, numberIsFactor, reading, entry);
}

// --- the text of a fit

bool isParenthesis(const UomStructNode *node) {
    return node->baseClass == CLASS_OPEN || node->baseClass == CLASS_CLOSE;
}

// The exponents of a group that closes with a power.
void raiseGroup(Shape &shape, int32_t first, int32_t exponent) {
    for (int32_t slot = first; slot < shape.count; ++slot)
        shape.exponents[slot] *= exponent;
}

// The shape of a chain, its groups multiplied out. What stands behind a basis counts as `counted`; without one a chain
// with a basis is of no shape.
Shape shapeOfChain(const Catalogue &catalogue, const UomStructNode *chain, int32_t counted) {
    Shape shape = {};
    int32_t groups[Shape::LIMIT], depth = 0;
    bool behindBasis = false;
    for (const UomStructNode *node = chain; node; node = node->next) {
        if (shape.count == Shape::LIMIT || (node->baseClass == CLASS_BASIS && counted == CLASS_NONE))
            return {};
        if (node->baseClass == CLASS_OPEN && depth < Shape::LIMIT)
            groups[depth++] = shape.count;
        else if (node->baseClass == CLASS_CLOSE && depth > 0)
            raiseGroup(shape, groups[--depth], node->baseExponent == 0 ? 1 : node->baseExponent);
        else if (isParenthesis(node))
            return {};
        else if (node->baseClass != CLASS_BASIS) {
            shape.classes[shape.count] = behindBasis ? counted : node->baseClass;
            shape.exponents[shape.count++] = node->baseExponent;
        }
        behindBasis = node->baseClass == CLASS_BASIS;
    }
    shape.known = true;
    for (int32_t slot = 0; slot < shape.count; ++slot) {
        const BaseQuantity quantity = dimension_OfClass(catalogue, shape.classes[slot]);
        shape.known = shape.known && quantity.known;
        shape.dimension = dimension_Times(shape.dimension, quantity.dimension, shape.exponents[slot]);
    }
    return shape;
}

// Whether the two texts are one but for case and blanks.
bool isSameText(const char *a, const char *b) {
    for (;; ++a, ++b) {
        while (*a == ' ')
            ++a;
        while (*b == ' ')
            ++b;
        if (str_Lower(*a) != str_Lower(*b))
            return false;
        if (!*a)
            return true;
    }
}

// The typed text in the tokens of the catalogue, where each word of it is one unit.
bool writeInTokens(const Catalogue &catalogue, const Reading &reading, const Product &product, TextWriter &writer) {
    if (wide_Rounded(product.number) != 1.0 || product.hasNumber || product.scale)
        return false;
    int32_t place = reading.unitBegin;
    const char *text = reading.folded.text;
    for (int32_t i = 0; i < product.count; ++i) {
        const Term &term = product.terms[i];
        if (term.place < place)
            return false;
        str_Write(writer, std::string_view(text + place, static_cast<size_t>(term.place - place)));
        str_Write(writer, unit_Token(catalogue, term.unit));
        place = term.end;
    }
    str_Write(writer, std::string_view(text + place, static_cast<size_t>(reading.folded.length - place)));
    return writer.wanted < writer.size;
}

// Class strings with a basis: the classical reader reads them, and what it has read is to say the whole text.
bool readClassically(const Catalogue &catalogue, const char *classString, const Reading &reading, UomEntry &entry) {
    for (int32_t i = 0; i < reading.count; ++i) {
        char text[sizeof entry.units];
        TextWriter writer(text, sizeof text);
        if (!writeInTokens(catalogue, reading, reading.products[i], writer))
            continue;
        ParsedChain chain(catalogue, classString);
        char read[sizeof entry.units];
        if (!chain.chain || chain_FillFromText(catalogue, chain.chain, text, STYLE_TOKEN) != UOM_DONE)
            continue;
        uom_GetDisplayUnits(catalogue, chain.chain, read, sizeof read, STYLE_TOKEN);
        if (!isSameText(text, read))
            continue;
        str_CopyBounded(entry.units, sizeof entry.units, read);
        return true;
    }
    return false;
}

// --- classes whose quantity is counted by mole, mass or volume

// What a basis may count, as the class of the slot behind it.
constexpr int32_t countedClasses[] = {CLASS_MOLE, CLASS_MASS, CLASS_VAP_VOL, CLASS_LIQ_VOL};

// The units of a fit as a text: those above the line, then those below.
void writeFit(const Catalogue &catalogue, const Shape &shape, const Fit &fit, TextWriter &writer) {
    for (const int32_t sign : {1, -1}) {
        bool first = true;
        for (int32_t slot = 0; slot < shape.count; ++slot) {
            const int32_t exponent = shape.exponents[slot] * sign;
            const UomUnit *unit = unit_Record(catalogue, fit.units[slot]);
            if (exponent < 1 || !unit)
                continue;
            char multiplier[16] = "";
            multiplier_Write(fit.multipliers[slot], unit->multiplierStyle, multiplier, sizeof multiplier);
            char power[16] = "";
            if (exponent > 1)
                str_FormatBounded(power, sizeof power, "%d", static_cast<int>(exponent));
            str_Write(writer, !first ? "-" : sign < 0 ? "/" : "");
            str_Write(writer, multiplier);
            str_Write(writer, unit->token);
            str_Write(writer, power);
            first = false;
        }
    }
}

bool readCounted(const Catalogue &catalogue, const Words &words, const char *classString, const Reading &reading,
                 UomEntry &entry) {
    ParsedChain chain(catalogue, classString);
    for (const int32_t counted : countedClasses) {
        const Shape shape = shapeOfChain(catalogue, chain.chain, counted);
        const ClassFit fit = entry_Fit(catalogue, words, reading, shape);
        if (fit.fit.kind == FitKind::NONE || fit.ambiguous)
            continue;
        char text[sizeof entry.units];
        TextWriter writer(text, sizeof text);
        writeFit(catalogue, shape, fit.fit, writer);
        char read[sizeof entry.units];
        if (writer.wanted >= sizeof text || chain_FillFromText(catalogue, chain.chain, text, STYLE_TOKEN) != UOM_DONE)
            continue;
        uom_GetDisplayUnits(catalogue, chain.chain, read, sizeof read, STYLE_TOKEN);
        if (!isSameText(text, read))
            continue;
        entry.scale = wide_Rounded(fit.fit.scale);
        str_CopyBounded(entry.units, sizeof entry.units, read);
        return true;
    }
    return false;
}

// --- a text of a given class, and of any

bool readGiven(const Catalogue &catalogue, const Words &words, const char *classString, const char *text,
               UomEntry &entry) {
    FoldedText folded; // superscripts as digits
    if (fold_Text(folded, classString))
        classString = folded.text;
    if (std::strlen(classString) >= sizeof entry.classString)
        return refuse(entry, "The class string is longer than any class string.");
    str_CopyBounded(entry.classString, sizeof entry.classString, classString);
    const int32_t classId = class_Find(catalogue, classString, STYLE_TOKEN);
    Shape shape = shape_OfClass(words, classId);
    if (shape.count == 0) {
        ParsedChain chain(catalogue, classString);
        if (!chain.chain || uoms_IsClassValid(catalogue, classString) == 0) {
            if (const char *nearest = suggest_Class(catalogue, classString))
                str_CopyBounded(entry.suggestion, sizeof entry.suggestion, nearest);
            return refuse(entry, "\"%s\" is no class of quantities.", classString);
        }
        shape = shapeOfChain(catalogue, chain.chain, CLASS_NONE);
    }
    Reading reading;
    if (!entry_Read(catalogue, words, classId, text, false, reading, entry))
        return false;
    if (reading.count == 0) {
        complain(words, catalogue, classString, false, reading, entry);
        return false;
    }
    if (shape.count == 0) {
        if (readClassically(catalogue, classString, reading, entry) ||
            readCounted(catalogue, words, classString, reading, entry))
            return true;
        tellClasses(catalogue, words, classString, reading, entry);
        return false;
    }
    const ClassFit fit = entry_Fit(catalogue, words, reading, shape);
    if (fit.ambiguous) {
        tellAmbiguous(reading, entry);
        return false;
    }
    if (fit.fit.kind != FitKind::NONE)
        return entry_Finish(catalogue, classString, reading, fit, entry);
    if (fit.fit.refusedGas)
        tellGas(classString, reading, entry);
    else
        tellClasses(catalogue, words, classString, reading, entry);
    return false;
}

bool readAny(const Catalogue &catalogue, const Words &words, const char *text, UomEntry &entry) {
    Reading reading;
    if (!entry_Read(catalogue, words, CLASS_NONE, text, false, reading, entry))
        return false;
    if (reading.count == 0) {
        complain(words, catalogue, nullptr, false, reading, entry);
        return false;
    }
    Candidate best;
    if (findClasses(catalogue, words, reading, &best, 1) == 0) {
        tellClasses(catalogue, words, nullptr, reading, entry);
        return false;
    }
    if (best.fit.ambiguous) {
        tellAmbiguous(reading, entry);
        return false;
    }
    const char *token = nameOfClass(catalogue, best.classId);
    str_CopyBounded(entry.classString, sizeof entry.classString, token);
    return entry_Finish(catalogue, token, reading, best.fit, entry);
}

// All of an entry but its units, where there is nothing to say.
void accept(UomEntry &entry, const char *classString) {
    entry.value = NAN;
    entry.scale = 1.0;
    entry.position = entry.length = 0;
    entry.message[0] = entry.suggestion[0] = '\0';
    str_CopyBounded(entry.classString, sizeof entry.classString, classString);
}

// The commonest text by far: the token of a unit of the class, in its own case. Nothing else is looked at then.
bool isToken(const Catalogue &catalogue, const char *classString, const char *text, UomEntry &entry) {
    const int32_t unit = *text ? unit_FindToken(catalogue, text) : NO_UNIT;
    if (unit <= NO_UNIT || std::strcmp(unit_Token(catalogue, unit), text) != 0)
        return false;
    const int32_t classId = class_Find(catalogue, classString, STYLE_TOKEN);
    const UomClassRow *row = class_ValidRow(catalogue, classId);
    if (!row || row->baseClass[0] != 0 || classId < CLASS_DIMENSIONLESS ||
        uom_GetUnitListIndex(catalogue, classId, unit) < 0 || std::strlen(classString) >= sizeof entry.classString)
        return false;
    // A gas volume is judged elsewhere.
    if (classId == CLASS_LIQ_VOL || classId == CLASS_ACT_VOL)
        return false;
    str_CopyBounded(entry.units, sizeof entry.units, text);
    accept(entry, classString);
    return true;
}

// Whether the unit might be a gas volume in a place where it is none: such a text is judged with care.
bool mayBeForeignGas(const Catalogue &catalogue, const UomStructNode &node) {
    return (node.baseClass == CLASS_LIQ_VOL || node.baseClass == CLASS_ACT_VOL) &&
           std::strchr("SN", *unit_Token(catalogue, node.unit));
}

// Takes the head off the text if it stands there.
bool take(std::string_view &text, std::string_view head) {
    if (str_Head(text, head.size()) != head)
        return false;
    text.remove_prefix(head.size());
    return true;
}

// Takes the unit of a node off the text as the catalogue prints it: multiplier, token, power.
bool takeNode(const Catalogue &catalogue, const UomStructNode &node, std::string_view &text) {
    const UomUnit *unit = unit_Record(catalogue, node.unit);
    char multiplier[16] = "";
    if (unit && node.multiplier != 0)
        multiplier_Write(node.multiplier, unit->multiplierStyle, multiplier, sizeof multiplier);
    if (!unit || !take(text, multiplier) || !take(text, unit->token))
        return false;
    const int32_t power = std::abs(node.baseExponent);
    if (power > 9)
        return false;
    const char digit = static_cast<char>('0' + power);
    return power == 1 || take(text, std::string_view(&digit, 1));
}

// Whether the text is what the catalogue prints for a chain without groups: units above the line, then those below.
bool isPrinted(const Catalogue &catalogue, const UomStructNode *chain, std::string_view text) {
    bool any = false;
    for (const bool above : {true, false}) {
        bool first = true;
        for (const UomStructNode *node = chain; node; node = node->next) {
            if (isParenthesis(node) || node->baseClass == CLASS_BASIS || node->baseExponent == 0)
                return false;
            if ((node->baseExponent > 0) != above || node->unit == NO_UNIT) // none behind a whole quotient
                continue;
            if ((!first && !take(text, "-")) || (first && !above && (!any || !take(text, "/"))) ||
                !takeNode(catalogue, *node, text))
                return false;
            first = false;
            any = true;
        }
    }
    return any && text.empty();
}

// Units in the very form that the catalogue prints: then the classical reader has read all of the text.
bool isCanonical(const Catalogue &catalogue, const char *classString, const char *text, UomEntry &entry) {
    if ((!str_IsLetter(*text) && *text != '$') || std::strlen(classString) >= sizeof entry.classString)
        return false;
    ParsedChain chain(catalogue, classString);
    if (!chain.chain || chain_FillFromText(catalogue, chain.chain, text, STYLE_TOKEN) != UOM_DONE)
        return false;
    bool printed = isPrinted(catalogue, chain.chain, text);
    if (!printed && std::strchr(text, '(')) { // powers of classes are printed as groups
        uom_GetDisplayUnits(catalogue, chain.chain, entry.units, sizeof entry.units, STYLE_TOKEN);
        printed = std::strcmp(entry.units, text) == 0;
    }
    if (!printed || str_CopyBounded(entry.units, sizeof entry.units, text) != 0)
        return false;
    for (const UomStructNode *node = chain.chain; node; node = node->next)
        if (mayBeForeignGas(catalogue, *node))
            return false;
    accept(entry, classString);
    return true;
}

} // namespace

ClassFit entry_Fit(const Catalogue &catalogue, const Words &words, const Reading &reading, const Shape &shape,
                   bool firstOnly) {
    ClassFit best;
    for (int32_t i = 0; i < (firstOnly ? std::min(reading.count, 1) : reading.count); ++i) {
        if (i >= reading.whole && best.product >= 0)
            break; // names are taken apart only when nothing fits whole
        const Fit fit = fit_Product(catalogue, words, reading.products[i], reading.measures[i], shape);
        best.fit.refusedGas = best.fit.refusedGas || fit.refusedGas;
        if (fit.kind == FitKind::NONE)
            continue;
        if (best.product >= 0) {
            best.ambiguous = true;
            continue;
        }
        const bool refusedGas = best.fit.refusedGas;
        best.fit = fit;
        best.fit.refusedGas = refusedGas;
        best.product = i;
    }
    return best;
}

bool entry_Read(const Catalogue &catalogue, const Words &words, int32_t classId, const char *text, bool numberIsFactor,
                Reading &reading, UomEntry &entry) {
    reading.count = reading.whole = 0;
    if (!fold_Text(reading.folded, text))
        return refuseSigns(entry, reading.folded, text);
    if (!readValue(reading, numberIsFactor, entry))
        return false;
    if (isEmpty(reading)) {
        locate(entry, reading.folded, reading.unitBegin, reading.folded.length);
        return refuse(entry, "The unit is missing.");
    }
    readWays(catalogue, words, classId, reading);
    return true;
}

bool entry_Finish(const Catalogue &catalogue, const char *classString, const Reading &reading, const ClassFit &fit,
                  UomEntry &entry) {
    entry.scale = wide_Rounded(fit.fit.scale);
    ParsedChain chain(catalogue, classString);
    int32_t slot = 0;
    for (UomStruct node = chain.chain; node; node = node->next) {
        if (isParenthesis(node))
            continue;
        chain_SetUnit(catalogue, node, fit.fit.units[slot]);
        node->multiplier = fit.fit.multipliers[slot++];
    }
    uom_GetDisplayUnits(catalogue, chain.chain, entry.units, sizeof entry.units, STYLE_TOKEN);
    ParsedChain back(catalogue, classString);
    bool same = back.chain && chain_FillFromText(catalogue, back.chain, entry.units, STYLE_TOKEN) == UOM_DONE;
    for (UomStruct a = chain.chain, b = back.chain; same && a && b; a = a->next, b = b->next)
        same = a->unit == b->unit && a->multiplier == b->multiplier;
    if (same && std::isfinite(entry.scale) && entry.scale != 0.0)
        return true;
    locate(entry, reading.folded, reading.unitBegin, reading.folded.length);
    return refuse(entry, "The catalogue has no text for these units of %s.", classString);
}

int32_t uom_ReadEntry(const Catalogue &catalogue, const char *classString, const char *text, UomEntry *entry) {
    const bool any = str_IsEmpty(classString);
    if (text && entry && !any &&
        (isToken(catalogue, classString, text, *entry) || isCanonical(catalogue, classString, text, *entry)))
        return UOM_DONE;
    if (entry)
        begin(*entry);
    if (!text || !entry) {
        error_Set("Invalid input arguments detected in function uom_ReadEntry().");
        if (entry)
            refuse(*entry, "There is no text to read.");
        return UOM_REFUSED;
    }
    const Words *words = words_Of(catalogue);
    if (!words) {
        refuse(*entry, "Memory is exhausted.");
        error_Set("%s", entry->message);
        return UOM_NO_MEMORY;
    }
    const bool read =
        any ? readAny(catalogue, *words, text, *entry) : readGiven(catalogue, *words, classString, text, *entry);
    if (!read)
        error_Set("%s", entry->message);
    return read ? UOM_DONE : UOM_REFUSED;
}

UomTable *uom_GetEntryClasses(const Catalogue &catalogue, const char *text) {
    const Words *words = text ? words_Of(catalogue) : nullptr;
    UomTable *table = words ? table_Create(0, TABLE_TEXT) : nullptr;
    if (!table)
        return nullptr;
    Reading reading;
    UomEntry entry;
    begin(entry);
    if (!entry_Read(catalogue, *words, CLASS_NONE, text, false, reading, entry) || reading.count == 0)
        return table;
    constexpr int32_t MOST = 64;
    Candidate candidates[MOST];
    const int32_t count = findClasses(catalogue, *words, reading, candidates, MOST);
    for (int32_t i = 0; i < count; ++i)
        if (!table_PutText(table, TABLE_APPEND, nameOfClass(catalogue, candidates[i].classId))) {
            table_Free(table);
            return nullptr;
        }
    return table;
}

} // namespace uom

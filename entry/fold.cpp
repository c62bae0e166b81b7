#include "entry/fold.h"

#include <algorithm>

#include "support/text.h"

namespace uom {

namespace {

struct Sign {
    std::string_view typed; // UTF-8
    std::string_view plain;
};

// Sorted by use, not by code: a text has few of them.
constexpr Sign signs[] = {
    {"\xC2\xB5", "u"},       // micro sign
    {"\xCE\xBC", "u"},       // Greek mu
    {"\xC2\xB0", "deg "},    // degree sign; taken off in front of C, F, K and R
    {"\xC2\xBA", "deg "},    // masculine ordinal, typed for it
    {"\xCB\x9A", "deg "},    // ring above, typed for it
    {"\xE2\x84\x83", "C"},   // degree Celsius
    {"\xE2\x84\x89", "F"},   // degree Fahrenheit
    {"\xE2\x84\xAA", "K"},   // kelvin sign
    {"\xE2\x84\xAB", "ang"}, // angstrom sign
    {"\xC3\x85ngstr", "angstr"},
    {"\xC3\xA5ngstr", "angstr"},
    {"\xC3\xB6", "o"},
    {"\xC3\xBC", "ue"},
    {"\xC3\xA8", "e"},
    {"\xC3\xA9", "e"},
    {"\xC3\x85", "ang"},     // A with ring
    {"\xE2\x84\xA6", "ohm"}, // ohm sign
    {"\xCE\xA9", "ohm"},     // Greek omega
    {"\xC2\xB2", "2"},
    {"\xC2\xB3", "3"},
    {"\xC2\xB9", "1"},
    {"\xE2\x81\xB0", "0"},
    {"\xE2\x81\xB4", "4"},
    {"\xE2\x81\xB5", "5"},
    {"\xE2\x81\xB6", "6"},
    {"\xE2\x81\xB7", "7"},
    {"\xE2\x81\xB8", "8"},
    {"\xE2\x81\xB9", "9"},
    {"\xE2\x82\x80", "0"},
    {"\xE2\x82\x81", "1"},
    {"\xE2\x82\x82", "2"},
    {"\xE2\x82\x83", "3"},
    {"\xE2\x82\x84", "4"},
    {"\xE2\x81\xBB", "^-"}, // superscript minus
    {"\xE2\x81\xBA", "^"},  // superscript plus
    {"\xC2\xB7", "-"},      // middle dot: a product that binds as the hyphen does
    {"\xE2\x8B\x85", "-"},  // dot operator
    {"\xE2\x88\x99", "-"},  // bullet operator
    {"\xE2\x80\xA2", "-"},  // bullet
    {"\xC3\x97", "*"},      // multiplication sign
    {"\xE2\x9C\x95", "*"},  // multiplication x
    {"\xC3\xB7", "/"},      // division sign
    {"\xE2\x88\x95", "/"},  // division slash
    {"\xE2\x81\x84", "/"},  // fraction slash
    {"\xE2\x88\x92", "-"},  // minus sign
    {"\xE2\x80\x90", "-"},  // hyphen
    {"\xE2\x80\x91", "-"},  // non-breaking hyphen
    {"\xE2\x80\x93", "-"},  // en dash
    {"\xE2\x80\xB0", "permille"},
    {"\xC2\xA0", " "},     // no-break space
    {"\xE2\x80\xAF", " "}, // narrow no-break space
    {"\xE2\x80\x89", " "}, // thin space
    {"\xE2\x80\x82", " "}, // en space
    {"\xE2\x82\xAC", "EUR"},
    {"\xEF\xBB\xBF", ""}, // byte order mark
    {"\t", " "},
    {"\n", " "},
    {"\r", " "},
    {"\xE2\x80\xB2", "'"},
    {"\xE2\x80\xB3", "\""},
    {"\xC2\xBC", "1/4"},
};

bool startsWith(std::string_view text, std::string_view head) {
    return str_Head(text, head.size()) == head;
}

const Sign *findSign(std::string_view text) {
    for (const Sign &sign : signs)
        if (startsWith(text, sign.typed))
            return &sign;
    return nullptr;
}

// A digit of the upper line: of two bytes, or of three that begin with E2 81.
bool isSuperscript(const Sign &sign) {
    const bool digit = sign.plain.size() == 1 && str_IsDigit(sign.plain[0]);
    return digit && (sign.typed[0] == '\xC2' || sign.typed[1] == '\x81');
}

// Bytes of the UTF-8 character that the text begins with; 1 for what is none.
size_t characterSize(std::string_view text) {
    size_t size = 1;
    while (size < text.size() && str_IsInsideCharacter(text[size]))
        ++size;
    return size;
}

bool put(FoldedText &folded, std::string_view plain, size_t place) {
    for (const char c : plain) {
        if (folded.length + 1 >= FoldedText::LIMIT)
            return false;
        folded.text[folded.length] = c;
        folded.place[folded.length++] = static_cast<int32_t>(place);
    }
    return true;
}

// Names with a "/" in them have no blanks there: "kg / cm2 g".
bool putWithoutBlanks(FoldedText &folded, std::string_view plain, size_t place) {
    const auto last = [&folded] { return folded.length > 0 ? folded.text[folded.length - 1] : '\0'; };
    if (plain == " " && last() == '/')
        return true;
    while (plain == "/" && last() == ' ')
        --folded.length;
    return put(folded, plain, place);
}

// Whether a unit, with its power, is what stands last: "lb" of "BTU/lb°F", and not the number of "5°F".
bool endsInUnit(const FoldedText &folded) {
    int32_t end = folded.length;
    while (end > 0 && (str_IsDigit(folded.text[end - 1]) || folded.text[end - 1] == '^'))
        --end;
    const bool isNumber = end > 1 && str_Lower(folded.text[end - 1]) == 'e' && str_IsDigit(folded.text[end - 2]);
    return end > 0 && str_IsLetter(folded.text[end - 1]) && !isNumber;
}

// "deg C" is "C": only an angle keeps the word.
bool isDegreeOfTemperature(std::string_view behind) {
    while (!behind.empty() && behind.front() == ' ')
        behind.remove_prefix(1);
    if (behind.empty() || std::string_view("CFKRcfkr").find(behind.front()) == std::string_view::npos)
        return false;
    return behind.size() < 2 || !str_IsLetter(behind[1]);
}

} // namespace

int32_t fold_End(const FoldedText &folded, int32_t from, int32_t to) {
    while (to > from && to < folded.length && folded.place[to] == folded.place[to - 1])
        ++to;
    return folded.place[to];
}

std::string_view fold_Typed(const FoldedText &folded, int32_t from, int32_t to) {
    constexpr size_t MOST = 60;
    to = std::min(to, folded.length); // a word that is missing is said to be where the text ends
    from = std::min(from, to);
    const size_t begin = static_cast<size_t>(folded.place[from]);
    size_t size = static_cast<size_t>(fold_End(folded, from, to)) - begin;
    if (size > MOST)
        for (size = MOST; size > 0 && str_IsInsideCharacter(folded.typed[begin + size]);)
            --size;
    return str_Head(str_Behind(folded.typed, begin), size);
}

bool fold_Text(FoldedText &folded, std::string_view typed) {
    folded.typed = typed;
    folded.length = 0;
    folded.badPlace = -1;
    folded.tooLong = false;
    bool raised = false; // the character before was a superscript
    for (size_t i = 0; i < typed.size();) {
        const char c = typed[i];
        size_t size = 1;
        std::string_view plain(&typed[i], 1);
        const bool wasRaised = raised;
        raised = false;
        if (c < ' ' || c > '~') {
            const Sign *sign = findSign(str_Behind(typed, i));
            size = sign ? sign->typed.size() : characterSize(str_Behind(typed, i));
            if (!sign) {
                folded.badPlace = static_cast<int32_t>(i);
                folded.badLength = static_cast<int32_t>(size);
                folded.text[folded.length] = '\0';
                return false;
            }
            plain = sign->plain;
            // A power of a number: its digits would go on otherwise.
            if (isSuperscript(*sign) && folded.length > 0 && str_IsDigit(folded.text[folded.length - 1]) &&
                !wasRaised && !put(folded, "^", i))
                plain = "";
            raised = isSuperscript(*sign) || (!plain.empty() && plain[0] == '^');
            if (plain == "deg " && isDegreeOfTemperature(str_Behind(typed, i + size)))
                plain = endsInUnit(folded) ? "-" : "";
        }
        if (!putWithoutBlanks(folded, plain, i)) {
            folded.tooLong = true;
            folded.text[folded.length] = '\0';
            return false;
        }
        i += size;
    }
    folded.text[folded.length] = '\0';
    folded.place[folded.length] = static_cast<int32_t>(typed.size());
    return true;
}

} // namespace uom

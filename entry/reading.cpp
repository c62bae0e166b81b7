#include "entry/reading.h"

#include <algorithm>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "support/numbers.h"
#include "support/text.h"

namespace uom {

void entry_Begin(UomEntry &entry) {
    std::memset(static_cast<void *>(&entry), 0, sizeof entry);
    entry.value = NAN;
    entry.scale = 1.0;
}

bool entry_Refuse(UomEntry &entry, const char *format, ...) {
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(entry.message, sizeof entry.message, format, arguments);
    va_end(arguments);
    return false;
}

void entry_Locate(UomEntry &entry, const FoldedText &folded, int32_t from, int32_t to) {
    from = std::clamp(from, 0, folded.length);
    to = std::clamp(to, from, folded.length);
    entry.position = folded.place[from];
    entry.length = fold_End(folded, from, to) - folded.place[from];
}

namespace {

bool refuseSigns(UomEntry &entry, const FoldedText &folded, const char *text) {
    if (folded.tooLong)
        return entry_Refuse(entry, "The text is longer than any unit text.");
    entry.position = folded.badPlace;
    entry.length = folded.badLength;
    char sign[8];
    str_CopyBounded(sign, sizeof sign, std::string_view(text + folded.badPlace, static_cast<size_t>(folded.badLength)));
    if (folded.badLength > 1)
        return entry_Refuse(entry, "The sign \"%s\" belongs to no unit text.", sign);
    return entry_Refuse(entry, "The text holds a byte that is no sign of a unit text.");
}

// --- the number in front

// "1,000" and "1,5" are read differently in different countries.
bool refuseComma(UomEntry &entry, const FoldedText &folded, int32_t comma) {
    int32_t digits = 0;
    while (str_IsDigit(folded.text[comma + 1 + digits]))
        ++digits;
    TextWriter writer(entry.suggestion, sizeof entry.suggestion);
    str_Write(writer, std::string_view(folded.text, static_cast<size_t>(comma)));
    if (digits != 3)
        str_Write(writer, '.');
    str_Write(writer, std::string_view(folded.text + comma + 1));
    entry_Locate(entry, folded, comma, comma + 1);
    return entry_Refuse(entry,
                        "A comma in a number can mean two things: write it without, or with a point for decimals.");
}

// "1 500 kg" and "5 ft 3 in" have no one meaning.
bool refuseSecondNumber(UomEntry &entry, const FoldedText &folded, int32_t place) {
    TextWriter writer(entry.suggestion, sizeof entry.suggestion);
    int32_t end = place;
    while (end > 0 && folded.text[end - 1] == ' ')
        --end;
    str_Write(writer, std::string_view(folded.text, static_cast<size_t>(end)));
    str_Write(writer, std::string_view(folded.text + place));
    int32_t digits = 0;
    while (str_IsDigit(folded.text[place + digits]))
        ++digits;
    if (end == place || digits != 3 || folded.text[place + digits] == '^') // "1.5.2", "10 20 kg", "5 10^3 Pa"
        *entry.suggestion = '\0';
    entry_Locate(entry, folded, place, place + 1);
    return entry_Refuse(entry, "A second number stands behind the first: write a number without blanks.");
}

// "5x10^3", "5·10³", "5 * 10**-3": the power of ten behind a number, moving the place behind it. False without one.
bool takePowerOfTen(const FoldedText &folded, int32_t *place, int32_t *power) {
    int32_t i = *place;
    const auto skip = [&] {
        while (folded.text[i] == ' ')
            ++i;
    };
    skip();
    const bool dot = folded.text[i] == '-' && folded.place[i + 1] - folded.place[i] == 2; // U+00B7, as the product sign
    if (!dot && folded.text[i] != 'x' && folded.text[i] != 'X' && folded.text[i] != '*')
        return false;
    ++i;
    skip();
    if (std::strncmp(folded.text + i, "10", 2) != 0)
        return false;
    i += 2;
    if (folded.text[i] == '^')
        ++i;
    else if (std::strncmp(folded.text + i, "**", 2) == 0)
        i += 2;
    else
        return false;
    const bool negative = folded.text[i] == '-';
    i += negative || folded.text[i] == '+' ? 1 : 0;
    if (folded.text[i] == '^') // the mark of a superscript behind its sign
        ++i;
    if (!str_IsDigit(folded.text[i]))
        return false;
    for (*power = 0; str_IsDigit(folded.text[i]); ++i)
        *power = std::min(10 * *power + (folded.text[i] - '0'), 999);
    *power = negative ? -*power : *power;
    *place = i;
    return true;
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
            entry_Locate(entry, folded, first, place);
            return entry_Refuse(entry, "The number is out of the range of numbers.");
        }
        entry_Locate(entry, folded, reading.unitBegin, reading.unitBegin + 1);
        return entry_Refuse(entry, "A sign stands in front of a number only.");
    }
    if (folded.text[place] == ',' && str_IsDigit(folded.text[place + 1]))
        return refuseComma(entry, folded, place);
    int32_t power10 = 0;
    const int32_t behindNumber = place;
    if (!numberIsFactor && takePowerOfTen(folded, &place, &power10)) {
        char typed[FoldedText::LIMIT + 8];
        str_FormatBounded(typed, sizeof typed, "%.*se%d", static_cast<int>(behindNumber - first), folded.text + first,
                          static_cast<int>(power10));
        value = num_LeadingDouble(typed);
        if (!std::isfinite(value)) {
            entry_Locate(entry, folded, first, place);
            return entry_Refuse(entry, "The number is out of the range of numbers.");
        }
    }
    const bool power = folded.text[place] == '^' || (folded.text[place] == '*' && folded.text[place + 1] == '*');
    if (power || numberIsFactor) {
        if (first == reading.unitBegin)
            return true;
        entry_Locate(entry, folded, reading.unitBegin, place);
        return entry_Refuse(entry, "A number in a unit text is to be a factor above 0.");
    }
    entry.value = negative ? -value : value;
    while (folded.text[place] == ' ')
        ++place;
    if (str_IsDigit(folded.text[place]) || (folded.text[place] == '.' && str_IsDigit(folded.text[place + 1])))
        return refuseSecondNumber(entry, folded, place);
    if (folded.text[place] == '/' && str_IsDigit(folded.text[place + 1])) {
        entry_Locate(entry, folded, place, place + 1);
        return entry_Refuse(entry, "A fraction is to be written as a decimal number.");
    }
    if (folded.text[place] == '*') // "5 * m"
        ++place;
    while (folded.text[place] == ' ')
        ++place;
    reading.unitBegin = place;
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

} // namespace

bool entry_HasNoUnits(const Reading &reading) {
    for (int32_t i = reading.unitBegin; i < reading.folded.length; ++i)
        if (reading.folded.text[i] != ' ')
            return false;
    return true;
}

bool entry_IsPossible(const Reading &reading, const ClassShape &shape) {
    for (int32_t i = 0; i < reading.count; ++i)
        if (fit_IsPossible(reading.products[i], reading.measures[i], shape))
            return true;
    return false;
}

ClassFit entry_Fit(const Catalogue &catalogue, const Words &words, const Reading &reading, const Shape &shape,
                   bool firstOnly) {
    ClassFit best;
    for (int32_t i = 0; i < (firstOnly ? std::min(reading.count, 1) : reading.count); ++i) {
        if (i >= reading.whole && best.product >= 0)
            break; // names are taken apart only when nothing fits whole
        const Alias *bound = reading.products[i].bound;
        if (bound && !alias_IsOf(*bound, shape.classId))
            continue;
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
    if (entry_HasNoUnits(reading)) {
        if (classId == CLASS_DIMENSIONLESS)
            return true;
        entry_Locate(entry, reading.folded, reading.unitBegin, reading.folded.length);
        return entry_Refuse(entry, "The unit is missing.");
    }
    readWays(catalogue, words, classId, reading);
    return true;
}

} // namespace uom

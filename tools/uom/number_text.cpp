#include "number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

#if defined(UOM_TOOL_DRAGONBOX)
#include <dragonbox/dragonbox.h>
#endif

static char *writeSlowly(char *at, double value, int digits) {
    char *const end = at + LONGEST_NUMBER_TEXT;
    if (digits == FULL_PRECISION)
        return std::to_chars(at, end, value).ptr;
    return std::to_chars(at, end, value, std::chars_format::general, digits).ptr;
}

#if defined(UOM_TOOL_DRAGONBOX)

namespace {

// significand * 10^exponent; no zero ends the significand.
struct Decimal {
    uint64_t significand;
    int exponent;
};

constexpr int MOST_ROUNDED = 15; // digits; up to here the shortest decimal stands for the number

constexpr auto powersOfTen = [] {
    std::array<uint64_t, MOST_DIGITS> powers = {1};
    for (size_t i = 1; i < powers.size(); ++i)
        powers[i] = 10 * powers[i - 1];
    return powers;
}();

constexpr auto digitPairs = [] {
    std::array<char, 200> pairs = {};
    for (size_t i = 0; i < pairs.size() / 2; ++i) {
        pairs[2 * i] = static_cast<char>('0' + i / 10);
        pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return pairs;
}();

void writeTwo(char *at, uint32_t number) {
    std::memcpy(at, digitPairs.data() + 2 * number, 2);
}

// With zeros in front.
void writeEight(char *at, uint32_t number) {
    const uint32_t high = number / 10'000, low = number % 10'000;
    writeTwo(at, high / 100);
    writeTwo(at + 2, high % 100);
    writeTwo(at + 4, low / 100);
    writeTwo(at + 6, low % 100);
}

// The digits of a number and room behind them, so that always as many can be copied: a fixed count takes no call.
struct Digits {
    char text[2 * MOST_DIGITS];
    int count;
    const char *first;
};

char *copyDigits(char *at, const char *from, int count) {
    std::memcpy(at, from, MOST_DIGITS);
    return at + count;
}

void setDigits(Digits &digits, uint64_t significand) {
    constexpr uint64_t EIGHT = 100'000'000;
    const uint64_t top = significand / EIGHT;
    digits.text[0] = static_cast<char>('0' + top / EIGHT);
    writeEight(digits.text + 1, static_cast<uint32_t>(top % EIGHT));
    writeEight(digits.text + 9, static_cast<uint32_t>(significand % EIGHT));
    std::memset(digits.text + MOST_DIGITS, '0', MOST_DIGITS);
    digits.first = digits.text;
    while (*digits.first == '0')
        ++digits.first;
    digits.count = static_cast<int>(digits.text + MOST_DIGITS - digits.first);
}

int digitCount(uint64_t significand) {
    return static_cast<int>(std::upper_bound(powersOfTen.begin(), powersOfTen.end(), significand) -
                            powersOfTen.begin());
}

// Rounds the shortest decimal to so many digits. That is what the number itself rounds to, as no number of so few digits
// is between the two; but where the decimal is half-way, only the number can tell: false.
bool roundTo(Decimal &decimal, int digits) {
    const int surplus = digitCount(decimal.significand) - digits;
    if (surplus <= 0)
        return true;
    const uint64_t power = powersOfTen[static_cast<size_t>(surplus)], rest = decimal.significand % power;
    decimal.significand = decimal.significand / power + (rest > power / 2 ? 1 : 0);
    decimal.exponent += surplus;
    for (; decimal.significand % 10 == 0; ++decimal.exponent)
        decimal.significand /= 10;
    return rest != power / 2;
}

// Without an exponent. Null where there would have to be one, or might, and for numbers that std::to_chars has in full.
char *writePlain(char *at, const Decimal &decimal, int digitsWanted) {
    Digits digits;
    setDigits(digits, decimal.significand);
    const int point = digits.count + decimal.exponent; // so many digits in front of it
    const int most = std::min(digitsWanted == FULL_PRECISION ? digits.count + 3 : digitsWanted, MOST_ROUNDED);
    const int least = digits.count == 1 ? -2 : -3;
    if (point > most || point < least)
        return nullptr;
    if (point <= 0) {
        std::memcpy(at, "0.000", 5);
        return copyDigits(at + 2 - point, digits.first, digits.count);
    }
    at = copyDigits(at, digits.first, point); // with the zeros behind the last
    if (point >= digits.count)
        return at;
    *at++ = '.';
    return copyDigits(at, digits.first + point, digits.count - point);
}

char *writeQuickly(char *at, double value, int digits) {
    if (value == 0.0 || !std::isfinite(value) || digits > MOST_ROUNDED)
        return nullptr;
    const auto shortest = jkj::dragonbox::to_decimal(value);
    Decimal decimal = {shortest.significand, shortest.exponent};
    if (digits != FULL_PRECISION && !roundTo(decimal, digits))
        return nullptr;
    if (shortest.is_negative)
        *at++ = '-';
    return writePlain(at, decimal, digits);
}

} // namespace

#else

static char *writeQuickly(char *, double, int) {
    return nullptr;
}

#endif

char *writeNumber(char *at, double value, int digits) {
    char *const end = writeQuickly(at, value, digits);
    return end ? end : writeSlowly(at, value, digits);
}


#include "support/numbers.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <locale.h>

#include "support/text.h"

namespace uom {

constinit NumberConstants numConstants;

// Nothing is written where nothing was set: a start in one thread leaves conversions in others alone.
void num_InitConstants() {
    const NumberConstants atLoad;
    if (!(numConstants == atLoad))
        numConstants = atLoad;
}

bool num_EqualTol(double a, double b, double tolerance) {
    return num_EqualTol(numConstants, a, b, tolerance);
}

bool num_Equal(double a, double b) {
    return num_Equal(numConstants, a, b);
}

bool num_EqualTolF(float a, float b, float tolerance) {
    if (std::fabs(a) < numConstants.zeroLimitF)
        return std::fabs(b) < numConstants.zeroLimitF;
    const double wideA = a;
    return static_cast<float>(std::fabs(wideA - b) / std::fabs(wideA)) < tolerance;
}

bool num_EqualF(float a, float b) {
    return a == b || num_EqualTolF(a, b, numConstants.relativeTolF);
}

double num_PowInt(double x, int32_t n) {
    return num_PowWhile(x, num_Magnitude(n), [] { return true; });
}

int32_t num_IsIntegerText(const char *text) {
    if (str_IsEmpty(text))
        return 1;
    const char *digits = *text == '+' || *text == '-' ? text + 1 : text;
    for (const char *c = digits; *c; ++c)
        if (!str_IsDigit(*c))
            return 0;
    if (!*digits)
        return 1;
    errno = 0;
    const long value = std::strtol(text, nullptr, 10);
    return errno != ERANGE && value >= INT32_MIN && value <= INT32_MAX;
}

namespace {

// The columns and states of the number scanner. FAIL ends the scan.
enum Symbol { DIGIT, SIGN, POINT, EXPONENT_MARK, OTHER };
enum State : int8_t { START, AFTER_SIGN, WHOLE, AFTER_POINT, FRACTION, AFTER_E, AFTER_E_SIGN, EXPONENT, FAIL = -1 };

constexpr State transitions[8][5] = {
    /* START        */ {WHOLE, AFTER_SIGN, AFTER_POINT, AFTER_E, FAIL},
    /* AFTER_SIGN   */ {WHOLE, FAIL, AFTER_POINT, AFTER_E, FAIL},
    /* WHOLE        */ {WHOLE, FAIL, AFTER_POINT, AFTER_E, FAIL},
    /* AFTER_POINT  */ {FRACTION, FAIL, FAIL, AFTER_E, FAIL},
    /* FRACTION     */ {FRACTION, FAIL, FAIL, AFTER_E, FAIL},
    /* AFTER_E      */ {EXPONENT, AFTER_E_SIGN, FAIL, FAIL, FAIL},
    /* AFTER_E_SIGN */ {EXPONENT, FAIL, FAIL, FAIL, FAIL},
    /* EXPONENT     */ {EXPONENT, FAIL, FAIL, FAIL, FAIL},
};

Symbol symbolOf(char c) {
    if (str_IsDigit(c))
        return DIGIT;
    if (c == '+' || c == '-')
        return SIGN;
    if (c == '.')
        return POINT;
    return c == 'E' || c == 'e' ? EXPONENT_MARK : OTHER;
}

// The "C" locale for the life of a block, so that a host with a decimal comma reads and prints the same.
#if defined(__MINGW32__)

// MinGW's own functions: they know what others know (two digits of an exponent, hexadecimal numbers) and round as they
// do, and those of the system's old C library don't. They have the decimal point of the host.
struct ScopedCLocale {
    char point = *std::localeconv()->decimal_point;

    // A copy with the host's point for the one of the text, up to where the text has the host's: no number goes on there.
    // Numbers of a thousand digits and more are cut.
    double read(const char *text, char **end) const {
        if (point == '.')
            return std::strtod(text, end);
        char copy[1024];
        const std::string_view whole(text);
        str_CopyBounded(copy, sizeof copy, str_Head(whole, whole.find(point)));
        std::replace(copy, copy + std::strlen(copy), '.', point);
        const double value = std::strtod(copy, end);
        *end = const_cast<char *>(text) + (*end - copy);
        return value;
    }

    void print(char *out, size_t size, const char *format, double value) const {
        std::snprintf(out, size, format, value);
        if (char *mark = point == '.' ? nullptr : std::strchr(out, point))
            *mark = '.';
    }
};

#else

struct ScopedCLocale {
    ScopedCLocale(const ScopedCLocale &) = delete;
    ScopedCLocale &operator=(const ScopedCLocale &) = delete;
#if defined(_WIN32)
    _locale_t c;
    ScopedCLocale() : c(_create_locale(LC_ALL, "C")) {}
    ~ScopedCLocale() {
        _free_locale(c);
    }
    double read(const char *text, char **end) const {
        return _strtod_l(text, end, c);
    }
    void print(char *out, size_t size, const char *format, double value) const {
        _snprintf_l(out, size, format, c, value);
        out[size - 1] = '\0';
    }
#else
    locale_t c;
    locale_t saved;
    ScopedCLocale() : c(newlocale(LC_ALL_MASK, "C", nullptr)), saved(uselocale(c)) {}
    ~ScopedCLocale() {
        uselocale(saved);
        freelocale(c);
    }
    static double read(const char *text, char **end) {
        return std::strtod(text, end);
    }
    static void print(char *out, size_t size, const char *format, double value) {
        std::snprintf(out, size, format, value);
    }
#endif
};

#endif

} // namespace

int32_t num_ScanNumber(const char *text, int32_t *hasDigits, int32_t *hasExponent, int32_t *exponent, int32_t *used) {
    *hasDigits = *hasExponent = *exponent = *used = 0;
    if (!text)
        return 1;
    bool negative = false;
    State state = START;
    for (; *text; ++text) {
        const Symbol symbol = symbolOf(*text);
        state = transitions[state][symbol];
        if (state == FAIL)
            return 0;
        if (state == WHOLE || state == FRACTION)
            *hasDigits = 1;
        else if (state == AFTER_E)
            *hasExponent = 1;
        else if (state == AFTER_E_SIGN)
            negative = *text == '-';
        else if (state == EXPONENT && *exponent < INT32_MAX / 10)
            *exponent = *exponent * 10 + (*text - '0');
        else if (state == EXPONENT)
            *exponent = INT32_MAX;
        if (*used < INT32_MAX)
            ++*used;
    }
    if (negative)
        *exponent = -*exponent;
    return 1;
}

// A number whose mantissa has no digit: "", "-", "E3". False when the exponent is out of the range of powers
// of ten.
static bool powerOfTen(const char *text, bool hasExponent, int32_t exponent, double *out) {
    if (!hasExponent) {
        *out = 0.0;
        return true;
    }
    double value = 1.0;
    if (exponent >= 1 && exponent <= 307)
        value = std::pow(10.0, exponent);
    else if (exponent >= -306 && exponent <= -1)
        value = 1.0 / std::pow(10.0, -exponent);
    else if (exponent != 0)
        return false;
    *out = *text == '-' ? -value : value;
    return true;
}

int32_t num_TextToDouble(const char *text, double *out) {
    if (!text || !out)
        return -1;
    int32_t hasDigits, hasExponent, exponent, used;
    if (!num_ScanNumber(text, &hasDigits, &hasExponent, &exponent, &used))
        return used + 1;
    if (!hasDigits && powerOfTen(text, hasExponent != 0, exponent, out))
        return 0;
    char *end = nullptr;
    double value;
    bool outOfRange;
    {
        const ScopedCLocale locale;
        errno = 0;
        value = locale.read(text, &end);
        outOfRange = errno == ERANGE;
    }
    if (*end) {
        // An unfinished exponent or point at the very end is forgiven.
        if (!std::strchr("+-.Ee", end[std::strlen(end) - 1]))
            return static_cast<int32_t>(end - text) + 1;
    } else if (outOfRange || std::isinf(value)) {
        return -1;
    }
    *out = value;
    return 0;
}

// Plain decimals as data files hold them, "-459.67": at most 15 digits and a power of ten that a double holds exactly, so
// that one division or multiplication gives the nearest double. False for anything else.
static bool readPlainDecimal(const char *text, double *out) {
    static constexpr double powersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                             1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    const bool negative = *text == '-';
    const char *c = text + negative;
    const char *point = nullptr;
    int64_t digits = 0;
    int32_t count = 0;
    for (; str_IsDigit(*c) || (*c == '.' && !point); ++c) {
        if (*c == '.') {
            point = c;
            continue;
        }
        digits = digits * 10 + (*c - '0');
        if (++count > 15)
            return false;
    }
    if (count == 0 || (*c && !str_IsSpace(*c)))
        return false;
    const double value = static_cast<double>(digits) / powersOfTen[point ? c - point - 1 : 0];
    *out = negative ? -value : value;
    return true;
}

double num_LeadingDouble(const char *text) {
    double value;
    if (!text)
        return 0.0;
    if (readPlainDecimal(text, &value))
        return value;
    const ScopedCLocale locale;
    char *end;
    return locale.read(text, &end);
}

int32_t num_LeadingInt(const char *text) {
    return text ? static_cast<int32_t>(std::strtol(text, nullptr, 10)) : 0;
}

void num_FormatDouble(char *out, size_t size, const char *format, double value) {
    const ScopedCLocale locale;
    locale.print(out, size, format, value);
}

} // namespace uom

#include "text.h"

#include <algorithm>
#include <charconv>
#include <cstdio>

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

static char lowerCase(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    for (char &c : lower)
        c = lowerCase(c);
    return lower;
}

bool equalNoCase(std::string_view a, std::string_view b) {
    return lowerCase(a) == lowerCase(b);
}

static bool readBytesOfLine(std::streambuf &bytes, std::string &line, bool &afterReturn) {
    constexpr int END = std::char_traits<char>::eof();
    int byte = bytes.sbumpc();
    if (afterReturn && byte == '\n') // of the end of the last line; not waited for there
        byte = bytes.sbumpc();
    if (byte == END)
        return false;
    for (; byte != END && byte != '\n' && byte != '\r'; byte = bytes.sbumpc())
        line += static_cast<char>(byte);
    afterReturn = byte == '\r';
    return true;
}

bool LineReader::next(std::string &line) {
    line.clear();
    try {
        if (!readBytesOfLine(*from_.rdbuf(), line, afterReturn_))
            return false;
    } catch (const std::ios_base::failure &) { // of a directory, which opens but does not read
        from_.setstate(std::ios_base::badbit);
        return false;
    }
    if (first_ && line.starts_with(BYTE_ORDER_MARK))
        line.erase(0, BYTE_ORDER_MARK.size());
    first_ = false;
    return true;
}

// --- numbers

std::optional<double> parseNumber(std::string_view text) {
    text = trimmed(text);
    if (text.size() > 1 && text[0] == '+' && text[1] != '-')
        text.remove_prefix(1);
    double value;
    const char *end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || rest != end)
        return std::nullopt;
    return value;
}

std::string numberFault(std::string_view text) {
    text = trimmed(text);
    double ignored;
    const char *end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data() + text.starts_with('+'), end, ignored);
    return "\"" + std::string(text) + "\" is " +
           (error == std::errc::result_out_of_range && rest == end ? "beyond the range of numbers." : "not a number.");
}

std::string shortestNumber(double value) {
    return roundedNumber(value, FULL_PRECISION);
}

std::string roundedNumber(double value, int digits) {
    char text[LONGEST_NUMBER_TEXT];
    return {text, writeNumber(text, value, digits)};
}

// The length of the conversion at the head of a text that starts with "%": flags, width, precision, letter. 0
// if it is none for a double. Widths and precisions have three digits at most, which keeps the result small.
static size_t conversionLength(std::string_view text) {
    size_t at = std::min(text.find_first_not_of("+-# 0", 1), text.size());
    const auto skipDigits = [&] {
        const size_t first = at;
        while (at < text.size() && text[at] >= '0' && text[at] <= '9')
            ++at;
        return at - first <= 3;
    };
    if (!skipDigits())
        return 0;
    if (at < text.size() && text[at] == '.') {
        ++at;
        if (!skipDigits())
            return 0;
    }
    constexpr std::string_view letters = "eEfFgGaA";
    return at < text.size() && letters.find(text[at]) != std::string_view::npos ? at + 1 : 0;
}

bool isNumberFormat(std::string_view format) {
    int conversions = 0;
    for (size_t at = format.find('%'); at != std::string_view::npos; at = format.find('%', at)) {
        const std::string_view rest = format.substr(at);
        const size_t length = rest.starts_with("%%") ? 2 : conversionLength(rest);
        if (length == 0)
            return false;
        conversions += length > 2 || rest[1] != '%';
        at += length;
    }
    return conversions == 1;
}

std::string formatNumber(const std::string &format, double value) {
    const int length = std::snprintf(nullptr, 0, format.c_str(), value);
    if (length < 0)
        return {};
    std::string text(static_cast<size_t>(length) + 1, '\0');
    std::snprintf(text.data(), text.size(), format.c_str(), value);
    text.pop_back();
    return text;
}

// --- superscripts

static bool isContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

size_t utf8LengthOf(int lead) {
    return lead < 0xC2 || lead > 0xF4 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

// The length of the UTF-8 character at the head of a text, 0 when it isn't one.
static size_t utf8Length(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text[0]);
    const size_t length = utf8LengthOf(lead);
    if (length > text.size() || (length == 1 && lead >= 0x80))
        return 0;
    for (size_t i = 1; i < length; ++i)
        if (!isContinuation(text[i]))
            return 0;
    return length;
}

bool isUtf8(std::string_view text) {
    while (!text.empty()) {
        const size_t length = utf8Length(text);
        if (length == 0)
            return false;
        text.remove_prefix(length);
    }
    return true;
}

static bool isSuperscript(char latin1) {
    return latin1 == '\xB2' || latin1 == '\xB3';
}

std::string fromTerminal(std::string_view text) {
    std::string latin1;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\xC2' && i + 1 < text.size() && isSuperscript(text[i + 1]))
            ++i;
        latin1 += text[i];
    }
    return latin1;
}

std::string toTerminal(std::string_view text) {
    std::string utf8;
    while (!text.empty()) {
        if (isSuperscript(text[0]))
            utf8 += '\xC2';
        const size_t length = std::max<size_t>(utf8Length(text), 1);
        utf8 += text.substr(0, length);
        text.remove_prefix(length);
    }
    return utf8;
}

std::string toMessage(std::string_view text) {
    constexpr const char *digits = "0123456789ABCDEF";
    std::string shown;
    const std::string utf8 = toTerminal(text);
    for (size_t i = 0; i < utf8.size(); ++i) {
        auto c = static_cast<unsigned char>(utf8[i]);
        const bool isSecondSet = c == 0xC2 && i + 1 < utf8.size() && static_cast<unsigned char>(utf8[i + 1]) < 0xA0;
        if (isSecondSet)
            c = static_cast<unsigned char>(utf8[++i]);
        if (isSecondSet || (c < ' ' && c != '\n') || c == 0x7F)
            shown += std::string("\\x") + digits[c >> 4] + digits[c & 15];
        else
            shown += utf8[i];
    }
    return shown;
}

std::string toUtf8(std::string_view text) {
    std::string utf8;
    while (!text.empty()) {
        const size_t length = utf8Length(text);
        if (length == 0) {
            const auto latin1 = static_cast<unsigned char>(text[0]);
            utf8 += static_cast<char>(0xC0 | latin1 >> 6);
            utf8 += static_cast<char>(0x80 | (latin1 & 0x3F));
        }
        utf8 += text.substr(0, length);
        text.remove_prefix(std::max<size_t>(length, 1));
    }
    return utf8;
}

size_t shownWidth(std::string_view utf8) {
    return static_cast<size_t>(std::count_if(utf8.begin(), utf8.end(), [](char c) { return !isContinuation(c); }));
}

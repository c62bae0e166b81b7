// Numbers and superscripts, as they are read from and written to a terminal.
#ifndef UOM_TOOL_TEXT_H
#define UOM_TOOL_TEXT_H

#include <istream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "number_text.h"

std::string_view trimmed(std::string_view text); // without blanks, tabs, carriage returns and line feeds at the ends
std::string lowerCase(std::string_view text);
bool equalNoCase(std::string_view a, std::string_view b);

// What some editors put in front of a text file.
constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";

// The lines of a text, which end with a line feed, a carriage return or both; the first loses its byte-order mark.
class LineReader {
public:
    explicit LineReader(std::istream &from) : from_(from) {}
    bool next(std::string &line); // false at the end

private:
    std::istream &from_;
    bool first_ = true, afterReturn_ = false;
};

// The number that the whole text is, "+" and blanks at the ends allowed.
std::optional<double> parseNumber(std::string_view text);

// Why a text is no number that parseNumber reads.
std::string numberFault(std::string_view text);

// The shortest text that reads back as the same number.
std::string shortestNumber(double value);

// So many significant digits at most, without zeros at the end; FULL_PRECISION is the shortest text.
std::string roundedNumber(double value, int digits);

// Whether a printf format takes just one double, e.g. "%.6g" or "%8.2f kPa".
bool isNumberFormat(std::string_view format);
std::string formatNumber(const std::string &format, double value);

// The library's superscripts are the Latin-1 bytes 178 and 179, a terminal's are UTF-8. Other bytes stay.
std::string fromTerminal(std::string_view text);
std::string toTerminal(std::string_view text);

// The same for messages: control characters, which a terminal would obey, as "\\x1B". Line feeds stay.
std::string toMessage(std::string_view text);

// The same as UTF-8 throughout: what is none is taken for Latin-1, as the library's superscripts are.
std::string toUtf8(std::string_view text);

// The length of the UTF-8 character that a byte leads, 1 of one that leads none.
size_t utf8LengthOf(int lead);
bool isUtf8(std::string_view text);

// How many characters wide a terminal shows it.
size_t shownWidth(std::string_view utf8);

#endif

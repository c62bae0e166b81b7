// Bounded writing, blank trimming, tokens, and comparisons that ignore the case of ASCII letters.
//
// Nothing here looks at the host's locale. A destination size of 0 or above 0x7FFFFFFF is invalid: nothing is
// written but, where the size is not 0, an empty text.
#ifndef UOM_SUPPORT_TEXT_H
#define UOM_SUPPORT_TEXT_H

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace uom {

// Copies at most size - 1 characters and always terminates; null source copies as empty. 0, or 1 for a bad
// destination. Truncation is no error.
int32_t str_CopyBounded(char *out, size_t size, const char *source);
int32_t str_CopyBounded(char *out, size_t size, std::string_view source);

// Class and unit strings of more bytes than this are refused before anything else is done with them.
constexpr size_t STR_MAX_LENGTH = 65535;
constexpr size_t STR_SHOWN_SIZE = 65; // of what the message shows of such a text
bool str_IsTooLong(const char *text);

// Empties an output buffer of a caller; false when there is none.
inline bool str_Open(char *out, int32_t size) {
    if (!out || size < 1)
        return false;
    *out = '\0';
    return true;
}

// Copies behind what the destination holds. 1, and nothing changed, when it holds no terminator within size.
int32_t str_AppendBounded(char *out, size_t size, const char *source);

// printf into the destination; truncates and always terminates.
#if defined(__GNUC__)
__attribute__((format(printf, 3, 4)))
#endif
int32_t
str_FormatBounded(char *out, size_t size, const char *format, ...);

// A text in the making: pieces are appended as far as they fit, and `wanted` counts all of them.
struct TextWriter {
    char *out;
    size_t size;
    size_t wanted = 0;
    TextWriter(char *buffer, size_t bufferSize); // empties the buffer
};
void str_Write(TextWriter &writer, std::string_view piece);
void str_Write(TextWriter &writer, char c);

// A text of any length, of which nothing is looked at behind what fits.
void str_WriteBounded(TextWriter &writer, const char *text);

// Cuts trailing blanks, tabs and line feeds (not carriage returns) in place.
char *str_TrimRight(char *text);

// Moves the text down over leading blanks and tabs.
char *str_TrimLeft(char *text);

// Cuts one token from a writable text: null when there is none. A token may stand in single or double quotes,
// which are not part of it; its end mark is overwritten by a terminator.
char *str_NextToken(char *text, const char *delimiters);

// The same, with the place to look for the next token: behind the end mark, or the end of the text.
char *str_CutToken(char *text, const char *delimiters, char **rest);

// Whether a byte goes on with a UTF-8 character, and does not begin one.
inline bool str_IsInsideCharacter(char c) {
    return (static_cast<uint8_t>(c) & 0xC0) == 0x80;
}

// Letters, digits and white space of ASCII alone.
inline char str_Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}
inline char str_Upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}
inline bool str_IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
inline bool str_IsSmallLetter(char c) {
    return c >= 'a' && c <= 'z';
}
inline bool str_IsDigit(char c) {
    return c >= '0' && c <= '9';
}
inline bool str_IsSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// A null text equals nothing.
inline bool str_EqualNoCase(const char *a, const char *b) {
    if (!a || !b)
        return false;
    for (; *a == *b || str_Lower(*a) == str_Lower(*b); ++a, ++b)
        if (!*a)
            return true;
    return false;
}

// The same with the first letter in hand, in small letters: a long search meets few names that begin alike.
inline bool str_EqualNoCase(const char *a, const char *b, char firstOfB) {
    return a && str_Lower(*a) == firstOfB && str_EqualNoCase(a, b);
}

bool str_EqualNoCase(std::string_view a, std::string_view b);
bool str_StartsNoCase(std::string_view text, std::string_view head);

inline bool str_IsEmpty(const char *text) {
    return !text || !*text;
}

// Copies the text without its blanks; returns the length of the result.
size_t str_RemoveBlanks(char *out, size_t size, std::string_view source);

// Puts a question mark in the place of each byte that is no part of a UTF-8 character, and of each control character.
void str_MakeUtf8(char *text);

// Without blanks, tabs and carriage returns at the ends.
std::string_view str_Trimmed(std::string_view text);

// The text of a file without the byte-order mark that some editors put in front of it.
std::string_view str_WithoutMark(std::string_view text);

// What stands behind the first `count` characters.
inline std::string_view str_Behind(std::string_view text, size_t count) {
    text.remove_prefix(count < text.size() ? count : text.size());
    return text;
}

// The first `count` characters.
inline std::string_view str_Head(std::string_view text, size_t count) {
    return std::string_view(text.data(), count < text.size() ? count : text.size());
}

} // namespace uom

#endif

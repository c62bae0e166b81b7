
#include "support/text.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>

namespace uom {

static bool isBadSize(const char *out, size_t size) {
    return !out || size == 0 || size > 0x7FFFFFFF;
}

int32_t str_CopyBounded(char *out, size_t size, std::string_view source) {
    if (isBadSize(out, size)) {
        if (out && size != 0)
            *out = '\0';
        return 1;
    }
    const size_t length = source.size() < size ? source.size() : size - 1;
    if (length > 0)
        std::memmove(out, source.data(), length);
    out[length] = '\0';
    return 0;
}

int32_t str_CopyBounded(char *out, size_t size, const char *source) {
    return str_CopyBounded(out, size, source ? std::string_view(source) : std::string_view());
}

int32_t str_AppendBounded(char *out, size_t size, const char *source) {
    if (isBadSize(out, size)) {
        if (out && size != 0)
            *out = '\0';
        return 1;
    }
    const void *end = std::memchr(out, '\0', size);
    if (!end)
        return 1;
    const size_t used = static_cast<size_t>(static_cast<const char *>(end) - out);
    return str_CopyBounded(out + used, size - used, source);
}

int32_t str_FormatBounded(char *out, size_t size, const char *format, ...) {
    if (isBadSize(out, size)) {
        if (out && size != 0)
            *out = '\0';
        return 1;
    }
    va_list arguments;
    va_start(arguments, format);
    const int written = std::vsnprintf(out, size, format, arguments);
    va_end(arguments);
    if (written < 0)
        *out = '\0';
    return 0;
}

bool str_IsTooLong(const char *text) {
    return std::memchr(text, '\0', STR_MAX_LENGTH + 1) == nullptr;
}

TextWriter::TextWriter(char *buffer, size_t bufferSize) : out(buffer), size(bufferSize) {
    str_CopyBounded(out, size, std::string_view());
}

void str_Write(TextWriter &writer, std::string_view piece) {
    if (writer.wanted + 1 < writer.size)
        str_CopyBounded(writer.out + writer.wanted, writer.size - writer.wanted, piece);
    writer.wanted += piece.size();
}

void str_Write(TextWriter &writer, char c) {
    str_Write(writer, std::string_view(&c, 1));
}

void str_WriteBounded(TextWriter &writer, const char *text) {
    const size_t room = writer.wanted < writer.size ? writer.size - writer.wanted : 0;
    const void *end = std::memchr(text, '\0', room);
    str_Write(writer, std::string_view(text, end ? static_cast<size_t>(static_cast<const char *>(end) - text) : room));
}

char *str_TrimRight(char *text) {
    if (!text)
        return text;
    for (size_t length = std::strlen(text); length > 0; --length) {
        char &last = text[length - 1];
        if (last != ' ' && last != '\t' && last != '\n')
            break;
        last = '\0';
    }
    return text;
}

char *str_TrimLeft(char *text) {
    if (!text)
        return text;
    const size_t blanks = std::strspn(text, " \t");
    if (blanks > 0)
        std::memmove(text, text + blanks, std::strlen(text + blanks) + 1);
    return text;
}

char *str_CutToken(char *text, const char *delimiters, char **rest) {
    *rest = text;
    if (!text || !*text || !delimiters || !*delimiters)
        return nullptr;
    char *token = text + std::strspn(text, delimiters);
    *rest = token;
    if (!*token)
        return nullptr;
    const char quote[2] = {*token, '\0'};
    const bool quoted = *token == '\'' || *token == '"';
    if (quoted)
        *token++ = '\0';
    char *end = token + std::strcspn(token, quoted ? quote : delimiters);
    *rest = *end ? end + 1 : end;
    *end = '\0';
    return token;
}

char *str_NextToken(char *text, const char *delimiters) {
    char *rest;
    return str_CutToken(text, delimiters, &rest);
}

std::string_view str_WithoutMark(std::string_view text) {
    constexpr std::string_view MARK = "\xEF\xBB\xBF";
    return text.starts_with(MARK) ? str_Behind(text, MARK.size()) : text;
}

// Bytes of the UTF-8 character at this place, 0 for what is none: overlong forms and surrogates are none either.
static size_t utf8Size(const char *text) {
    const auto byte = [text](size_t i) { return static_cast<uint8_t>(text[i]); };
    const uint8_t first = byte(0);
    const size_t size = first < 0x80   ? 1
                        : first < 0xC2 ? 0
                        : first < 0xE0 ? 2
                        : first < 0xF0 ? 3
                        : first < 0xF5 ? 4
                                       : 0;
    for (size_t i = 1; i < size; ++i)
        if (!str_IsInsideCharacter(text[i]))
            return 0;
    const bool bad = (first == 0xE0 && byte(1) < 0xA0) || (first == 0xED && byte(1) > 0x9F) ||
                     (first == 0xF0 && byte(1) < 0x90) || (first == 0xF4 && byte(1) > 0x8F);
    return bad ? 0 : size;
}

void str_MakeUtf8(char *text) {
    while (*text) {
        const size_t size = utf8Size(text);
        if (size == 0 || static_cast<uint8_t>(*text) < ' ' || *text == 0x7F)
            *text = '?';
        text += size > 0 ? size : 1;
    }
}

std::string_view str_Trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    while (!text.empty() && blanks.find(text.back()) != std::string_view::npos)
        text.remove_suffix(1);
    while (!text.empty() && blanks.find(text.front()) != std::string_view::npos)
        text.remove_prefix(1);
    return text;
}

bool str_EqualNoCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && str_StartsNoCase(a, b);
}

bool str_StartsNoCase(std::string_view text, std::string_view head) {
    if (text.size() < head.size())
        return false;
    for (size_t i = 0; i < head.size(); ++i)
        if (str_Lower(text[i]) != str_Lower(head[i]))
            return false;
    return true;
}

size_t str_RemoveBlanks(char *out, size_t size, std::string_view source) {
    size_t length = 0;
    for (const char c : source)
        if (c != ' ' && length + 1 < size)
            out[length++] = c;
    out[length] = '\0';
    return length;
}

} // namespace uom

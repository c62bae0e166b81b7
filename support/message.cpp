
#include "support/message.h"

#include <cstdarg>

#include "support/text.h"

namespace uom {

static thread_local char lastError[LAST_ERROR_SIZE] = "";

// Not printf: that would walk the whole of a text of any length to count what it cuts.
void error_Set(const char *format, ...) {
    char text[LAST_ERROR_SIZE];
    TextWriter writer(text, sizeof text);
    va_list arguments;
    va_start(arguments, format);
    for (const char *c = format; *c; ++c) {
        if (*c != '%') {
            str_Write(writer, *c);
        } else if (*++c == 's') {
            str_WriteBounded(writer, va_arg(arguments, const char *));
        } else {
            char number[16];
            str_FormatBounded(number, sizeof number, "%d", va_arg(arguments, int));
            str_Write(writer, number);
        }
    }
    va_end(arguments);
    str_CopyBounded(lastError, sizeof lastError, text);
}

void error_Clear() {
    lastError[0] = '\0';
}

const char *error_Text() {
    return lastError;
}

} // namespace uom

// The last-error text: one for each thread, the only thing here that a call leaves behind below the exported functions.
#ifndef UOM_SUPPORT_MESSAGE_H
#define UOM_SUPPORT_MESSAGE_H

#include <cstddef>

namespace uom {

constexpr size_t LAST_ERROR_SIZE = 512;

// Writes the text of the calling thread, from a format that knows "%s" and "%d" alone. The arguments may point into the
// text that stands there.
#if defined(__GNUC__)
__attribute__((format(printf, 1, 2)))
#endif
void error_Set(const char *format, ...);
void error_Clear();

// The text of the calling thread; the same address for the thread's life. Never cleared by success but where an
// operation says so.
const char *error_Text();

} // namespace uom

#endif

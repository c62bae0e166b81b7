// A typed text in plain ASCII: the signs that people paste (superscripts, degree signs, micro, dashes) as what they mean.
#ifndef UOM_ENTRY_FOLD_H
#define UOM_ENTRY_FOLD_H

#include <cstdint>
#include <string_view>

namespace uom {

// `text` is ended by a zero byte; `place[i]` is the byte of the typed text that character i stands for, also for i =
// length.
struct FoldedText {
    static constexpr int32_t LIMIT = 512;
    std::string_view typed;
    char text[LIMIT];
    int32_t place[LIMIT];
    int32_t length = 0;
    int32_t badPlace = -1; // the first byte that was not understood
    int32_t badLength = 0;
    bool tooLong = false;
};

// False when the text holds what is no sign of a unit text (badPlace tells where), or is too long.
bool fold_Text(FoldedText &folded, std::string_view typed);

// Where what was typed for the characters from .. to ends: behind the whole of a sign that stands for several of them.
int32_t fold_End(const FoldedText &folded, int32_t from, int32_t to);

// What was typed for the characters from .. to, for a message: at most 60 bytes, no character cut apart.
std::string_view fold_Typed(const FoldedText &folded, int32_t from, int32_t to);

} // namespace uom

#endif

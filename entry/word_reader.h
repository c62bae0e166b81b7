// Words of a typed text: names of the catalogue as people write them, with prefixes, plurals and marks.
#ifndef UOM_ENTRY_WORD_READER_H
#define UOM_ENTRY_WORD_READER_H

#include <string_view>

#include "entry/product.h"

namespace uom {

constexpr int32_t NO_MATCH = -1;

// A name of the index in the text: the characters that it takes, and what it names.
struct Match {
    int32_t end = NO_MATCH;
    const WordName *name = nullptr;
    bool exactCase = false;
    bool bound = false; // to classes, and none is given
};

// The reader in the middle of a text.
struct TextReader {
    const Catalogue &catalogue;
    const Words &words;
    const FoldedText &text;
    int32_t length;
    int32_t classId;
    Way way;
    Product &product;
    Complaint &complaint;
    int32_t depth;
    int32_t place;

    char at(int32_t i) const { return i < length ? text.text[i] : '\0'; }
};

// A word as it is meant: a name behind a prefix, or a run of letters that is none.
struct Word {
    Match match;
    int32_t begin = 0;
    int32_t power = 0; // of ten, of the prefix
    int32_t multiplier = 0;
    char scale = '\0';
    bool joined = false; // to another one, without a sign between
};

// Whether the a at the end of a name is that of absolute: "bara", "kg/cm2a".
bool word_SaysAbsolute(const TextReader &reader, std::string_view name, int32_t unit);

// 'g' of a gauge pressure, 'a' of a pressure that is absolute by its name, else none.
char word_OwnScale(const TextReader &reader, int32_t unit);

bool text_IsLetter(char c); // and what stands for one in unit texts: "%", "$"

// Notes the first complaint, about these characters; always false.
bool word_Refuse(TextReader &reader, int32_t begin, int32_t end, const char *format, const char *detail = "");

// The text from a place on, and whether it ends so in front of one, in any case.
std::string_view word_Ahead(const TextReader &reader, int32_t place);
bool word_EndsIn(const TextReader &reader, int32_t end, std::string_view tail);

int32_t word_EndOfLetters(const TextReader &reader, int32_t begin);

// The longest name at this place; none has no name.
Match word_Longest(TextReader &reader, int32_t begin);

// The word at the place: the name in its own case, then SI's reading of it, then the name in any case. False with a
// complaint.
bool word_Find(TextReader &reader, Word &word);

} // namespace uom

#endif

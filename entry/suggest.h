// What somebody may have meant who typed what nobody knows.
#ifndef UOM_ENTRY_SUGGEST_H
#define UOM_ENTRY_SUGGEST_H

#include <string_view>

#include "entry/words.h"

namespace uom {

// The edits (a letter more, less, another, two swapped) between two words in any case; more than `most` is most + 1.
int32_t suggest_Edits(std::string_view a, std::string_view b, int32_t most);

// How many edits are allowed for a word of this length.
int32_t suggest_MostEdits(size_t length);

// The nearest names of units and aliases that begin as the typed word does, nearest first: few mistype the first letter.
struct Suggestion {
    const char *name;
    int32_t edits;
    int32_t place; // among the names
};
struct Suggestions {
    static constexpr int32_t LIMIT = 12;
    Suggestion names[LIMIT];
    int32_t count = 0;
};
void suggest_Names(const Words &words, std::string_view typed, Suggestions &suggestions);

// The nearest token of a class, null when none is near.
const char *suggest_Class(const Catalogue &catalogue, std::string_view typed);

} // namespace uom

#endif

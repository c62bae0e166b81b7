// The words of a catalogue that a typed text may hold: unit tokens, descriptions and aliases, and what each measures.
//
// The index is made of a catalogue when the first text is read, and dropped by whatever changes classes, units or
// aliases (catalogue_DropWords). It is one block.
//
// Thread safety
//   Reading threads may ask for the index at once: each makes one where none stands, and the first to hang it up wins.
//
// Invariants
//   1. names[0 .. nameCount) are in the order tokens, their singulars, aliases (the last first), descriptions, short
//      descriptions: the first of two equal names counts.
//   2. Each place of `places` is a name or -1, and at least half of them are -1. It is the first name of its hash; the
//      others hang behind it in their order, so that any number of equal names takes one place.
//   3. units[NO_UNIT] stands, and measures nothing, in a catalogue without units as well.
#ifndef UOM_ENTRY_WORDS_H
#define UOM_ENTRY_WORDS_H

#include <cstdint>
#include <string_view>

#include "catalogue/catalogue.h"
#include "entry/dimensions.h"

namespace uom {

enum class NameKind : uint8_t { TOKEN, ALIAS, DESCRIPTION };

struct WordName {
    const char *text;
    uint32_t hash;
    uint32_t letters; // a bit for each letter in it
    uint16_t length;
    NameKind kind;
    int32_t target; // a unit, or a place in `aliases`
    int32_t next;   // the next name of this hash, -1 behind the last
    int32_t nextOfLength;
};

struct Alias {
    static constexpr int32_t CLASSES = 8;
    const char *name;
    const char *unitText;
    int32_t classes[CLASSES]; // the aliases of these alone, ended by 0; none: of all
};

// Whether an alias counts in a class.
bool alias_IsOf(const Alias &alias, int32_t classId);

constexpr int32_t CLASS_SLOTS = 3;
struct ClassShape {
    int32_t slots = 0; // 0: of a kind that is read by the classical reader alone
    int32_t classes[CLASS_SLOTS];
    int32_t exponents[CLASS_SLOTS];
    Dimension dimension;
    Ratios ratios = RATIO_OF_ANY;
    bool known; // the dimension is
    bool shown; // to users
};

struct Words {
    static constexpr int32_t LENGTHS = 64;
    const UnitQuantity *units;
    const ClassShape *classes;
    const WordName *names;
    const int32_t *places;
    const Alias *aliases;
    uint32_t nameCount, mask;
    int32_t unitCount, classCount, aliasCount;
    int32_t firstOfLength[LENGTHS]; // the first name of so many characters, -1 for none
};

// The words of the catalogue; null when memory is exhausted.
const Words *words_Of(const Catalogue &catalogue);

// The hash of a name, case and blanks left out, a character at a time.
constexpr uint32_t WORD_HASH = 2166136261u;
uint32_t words_HashOn(uint32_t hash, char c);

// A bit for each letter of the name, whatever its case: what two names that are nearly one have in common.
uint32_t words_Letters(std::string_view name);

// Where a class string's nodes are slots, what they are: more than a class's row can hold.
struct Shape {
    static constexpr int32_t LIMIT = 20;
    int32_t classId = 0; // 0: of a class string
    int32_t count = 0;   // 0: of a kind that is read by the classical reader alone
    int32_t classes[LIMIT];
    int32_t exponents[LIMIT];
    Dimension dimension;
    Ratios ratios = RATIO_OF_ANY;
    bool known;
};

// Visits the names of this hash, the first first: visit(name) tells whether to stop.
template <class Visit> void words_Find(const Words &words, uint32_t hash, Visit visit) {
    uint32_t place = hash & words.mask;
    while (words.places[place] >= 0 && words.names[words.places[place]].hash != hash)
        place = (place + 1) & words.mask;
    for (int32_t i = words.places[place]; i >= 0; i = words.names[i].next)
        if (visit(words.names[i]))
            return;
}

// As catalogue.h and entry.h say of these names; here the catalogue stands in front.
int32_t uom_ReadAliasText(Catalogue &catalogue, const char *text, size_t length);

// A line of aliases: "name = unit text", or "[binding]" when it binds. All empty: a comment or a blank line.
struct AliasLine {
    std::string_view name, unitText, binding;
    bool binds;
};

// Takes the next line off a text of aliases. False at its end.
bool alias_NextLine(std::string_view &text, AliasLine &line);

} // namespace uom

#endif

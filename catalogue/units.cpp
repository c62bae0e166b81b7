#include "catalogue/units.h"

#include <bit>
#include <cassert>
#include <cstring>
#include <iterator>
#include <new>

#include "catalogue/class_table.h"
#include "support/memory.h"
#include "support/text.h"

namespace uom {

namespace {

// A list's index by first letter: for each of 26 letters and for all else, a bit for each unit of the list whose token
// begins with it, and the same again for keywords.
constexpr size_t INITIALS = 27;
constexpr size_t WORD_BITS = 64;

size_t initialOf(char c) {
    const char lower = str_Lower(c);
    return lower >= 'a' && lower <= 'z' ? static_cast<size_t>(lower - 'a') : INITIALS - 1;
}

// Enters the unit at this place of the list. A text may leave out a blank, so a name that begins with one may begin
// with anything.
void enterInitial(uint64_t *starts, size_t words, size_t place, const char *name) {
    if (str_IsEmpty(name))
        return;
    const bool anything = *name == ' ';
    const size_t first = anything ? 0 : initialOf(*name);
    const size_t last = anything ? INITIALS - 1 : first;
    for (size_t initial = first; initial <= last; ++initial)
        starts[initial * words + place / WORD_BITS] |= uint64_t{1} << (place % WORD_BITS);
}

const UomUnit *record(const Catalogue &catalogue, int32_t index) {
    return table_Record<UomUnit>(catalogue.units.records, index);
}

bool hasToken(const UomUnit *unit, std::string_view token) {
    return unit && unit->token && str_EqualNoCase(std::string_view(unit->token), token);
}

constexpr size_t NO_MATCH = SIZE_MAX;

// How much of the text the name takes where it stands there.
size_t matchWhole(const char *name, const char *text) {
    size_t length = 0;
    for (; name[length]; ++length)
        if (str_Lower(name[length]) != str_Lower(text[length]))
            return NO_MATCH;
    return length;
}

// The same with the name's blanks left out.
size_t matchPacked(const char *name, const char *text) {
    size_t length = 0;
    for (; *name; ++name) {
        if (*name == ' ')
            continue;
        if (str_Lower(*name) != str_Lower(text[length]))
            return NO_MATCH;
        ++length;
    }
    return length;
}

// As it stands or, where it does not, without its blanks: up to the first blank both are one.
size_t matchToken(const char *name, const char *text) {
    size_t length = 0;
    for (; name[length] && name[length] != ' '; ++length)
        if (str_Lower(name[length]) != str_Lower(text[length]))
            return NO_MATCH;
    if (!name[length])
        return length;
    size_t behind = matchWhole(name + length, text + length);
    if (behind == NO_MATCH)
        behind = matchPacked(name + length, text + length);
    return behind == NO_MATCH ? NO_MATCH : length + behind;
}

bool equalsName(const char *name, std::string_view text, bool blanksMayMiss) {
    if (!name)
        return false;
    if (str_EqualNoCase(std::string_view(name), text))
        return true;
    if (!blanksMayMiss || !std::strchr(name, ' '))
        return false;
    char packed[256];
    return str_EqualNoCase(std::string_view(packed, str_RemoveBlanks(packed, sizeof packed, name)), text);
}

} // namespace

UomUnit *unit_New(const char *token, const char *keyword, const char *description) {
    const char *texts[] = {token, keyword, description};
    size_t sizes[] = {0, 0, 0};
    size_t size = sizeof(UomUnit);
    for (size_t i = 0; i < std::size(texts); ++i)
        size += sizes[i] = texts[i] ? std::strlen(texts[i]) + 1 : 0;
    void *block = nullptr;
    if (mem_Malloc(&block, size) != 0)
        return nullptr;
    char *place = static_cast<char *>(block) + sizeof(UomUnit);
    for (size_t i = 0; i < std::size(texts); place += sizes[i], ++i)
        if (texts[i])
            texts[i] = static_cast<const char *>(std::memcpy(place, texts[i], sizes[i]));
    return new (block) UomUnit{0, texts[0], texts[1], texts[2], 0, 0.0, 0.0};
}

const char *unit_Token(const Catalogue &catalogue, int32_t unit) {
    const UomUnit *found = unit_Record(catalogue, unit);
    return found && found->token ? found->token : "";
}

int32_t unit_FindToken(const Catalogue &catalogue, std::string_view token) {
    const int32_t count = static_cast<int32_t>(table_Count(catalogue.units.records));
    const int32_t found = names_Find(catalogue.units.tokens, token, count,
                                     [&](int32_t i) { return hasToken(record(catalogue, i), token); });
    return found < 0 ? NO_UNIT : found;
}

int32_t unit_FindJoined(const Catalogue &catalogue, std::string_view head, std::string_view tail) {
    char name[128];
    str_CopyBounded(name, sizeof name, head);
    const size_t used = std::strlen(name);
    str_CopyBounded(name + used, sizeof name - used, tail);
    return unit_FindToken(catalogue, name);
}

void unit_DropIndex(Catalogue &catalogue) {
    names_Free(catalogue.units.tokens);
}

void unit_IndexList(const Catalogue &catalogue, UomClassRow *row) {
    catalogue_DropWords(catalogue);
    mem_Free(row->starts);
    row->starts = nullptr;
    const int32_t *units = row->uomChoices ? row->uomChoices : row->uomList;
    size_t count = 0;
    while (units && units[count] != NO_UNIT)
        ++count;
    const size_t words = (count + WORD_BITS - 1) / WORD_BITS;
    void *block = nullptr;
    mem_Calloc(&block, 2 * INITIALS * words, sizeof(uint64_t));
    uint64_t *starts = static_cast<uint64_t *>(block);
    for (size_t i = 0; starts && i < count; ++i) {
        const UomUnit *unit = record(catalogue, units[i]);
        enterInitial(starts, words, i, unit ? unit->token : nullptr);
        enterInitial(starts + INITIALS * words, words, i, unit ? unit->keyword : nullptr);
    }
    row->starts = starts;
    row->startWords = static_cast<int32_t>(words);
}

void unit_IndexTokens(Catalogue &catalogue) {
    catalogue_DropWords(catalogue);
    unit_DropIndex(catalogue);
    const uint32_t count = table_Count(catalogue.units.records);
    for (uint32_t i = 0; i < table_Count(catalogue.classes.rows); ++i)
        if (UomClassRow *row = class_Row(catalogue, static_cast<int32_t>(i)))
            unit_IndexList(catalogue, row);
    if (!names_Reset(catalogue.units.tokens, count))
        return;
    for (uint32_t i = 0; i < count; ++i) {
        const UomUnit *unit = record(catalogue, static_cast<int32_t>(i));
        if (unit && unit->token)
            names_Add(catalogue.units.tokens, unit->token, static_cast<int32_t>(i),
                      [&](int32_t other) { return hasToken(record(catalogue, other), unit->token); });
    }
}

// How much of the text the unit's name takes.
static size_t matchUnit(const UomUnit *unit, const char *text, bool byKeyword) {
    const char *name = !unit ? nullptr : byKeyword ? unit->keyword : unit->token;
    if (!name)
        return NO_MATCH;
    return byKeyword ? matchWhole(name, text) : matchToken(name, text);
}

// The longest match so far; the first in the list wins among equals.
struct LongestMatch {
    const Catalogue &catalogue;
    const char *text;
    bool byKeyword;
    int32_t unit = NO_UNIT;
    size_t length = 0;
};

static void tryUnit(LongestMatch &longest, int32_t unit) {
    assert(unit >= 0 && unit < longest.catalogue.units.count);
    const size_t matched = matchUnit(record(longest.catalogue, unit), longest.text, longest.byKeyword);
    if (matched == NO_MATCH || matched <= longest.length)
        return;
    longest.unit = unit;
    longest.length = matched;
}

// Tries the units that begin like the text, in the order of the list.
static void tryIndexed(LongestMatch &longest, const UomClassRow &row, const int32_t *units) {
    assert(units == (row.uomChoices ? row.uomChoices : row.uomList)); // what the index was made of
    const size_t words = static_cast<size_t>(row.startWords);
    const size_t initial = initialOf(*longest.text) + (longest.byKeyword ? INITIALS : 0);
    for (size_t word = 0; word < words; ++word)
        for (uint64_t bits = row.starts[initial * words + word]; bits != 0; bits &= bits - 1)
            tryUnit(longest, units[word * WORD_BITS + static_cast<size_t>(std::countr_zero(bits))]);
}

int32_t uom_ScanUnitToken(const Catalogue &catalogue, int32_t classId, const char *text, int32_t style,
                          int32_t *length) {
    *length = 0;
    const int32_t *units = uom_GetClassUnits(catalogue, classId);
    if (!units || !text)
        return NO_UNIT;
    LongestMatch longest = {catalogue, text, style == STYLE_KEYWORD};
    const UomClassRow &row = *class_Row(catalogue, classId);
    if (row.starts)
        tryIndexed(longest, row, units);
    for (; !row.starts && *units != NO_UNIT; ++units)
        tryUnit(longest, *units);
    *length = static_cast<int32_t>(longest.length);
    return longest.unit;
}

int32_t unit_CopyList(int32_t **out, const int32_t *units) {
    *out = nullptr;
    if (!units || *units == NO_UNIT)
        return 0;
    size_t count = 1;
    while (units[count - 1] != NO_UNIT)
        ++count;
    *out = mem_NewArray<int32_t>(count);
    if (!*out)
        return 11;
    std::memcpy(*out, units, count * sizeof **out);
    return 0;
}

int32_t unit_ResolveList(const Catalogue &catalogue, int32_t **out, const UomTable *tokens) {
    *out = nullptr;
    const uint32_t count = table_Count(tokens);
    int32_t *units = mem_NewArray<int32_t>(size_t{count} + 1);
    if (!units)
        return 11;
    uint32_t kept = 0;
    for (uint32_t i = 0; i < count; ++i) {
        const char *token = table_GetText(tokens, i);
        const int32_t unit = str_IsEmpty(token) ? NO_UNIT : unit_FindToken(catalogue, token);
        if (unit != NO_UNIT)
            units[kept++] = unit;
    }
    units[kept] = NO_UNIT;
    if (kept == 0) {
        mem_Free(units);
        return 0;
    }
    *out = units;
    return 0;
}

int32_t uom_GetUnitType(const Catalogue &catalogue, const char *text) {
    return str_IsEmpty(text) ? NO_UNIT : unit_FindToken(catalogue, text);
}

int32_t uom_GetUnitFromString(const Catalogue &catalogue, int32_t classId, char *text, int32_t mode) {
    if (!text || !uom_GetClassUnits(catalogue, classId))
        return NO_UNIT;
    return unit_FindByName(catalogue, classId, str_TrimRight(text), mode);
}

int32_t unit_FindByName(const Catalogue &catalogue, int32_t classId, std::string_view text, int32_t style) {
    const int32_t *units = uom_GetClassUnits(catalogue, classId);
    if (!units)
        return NO_UNIT;
    text = str_Head(text, text.find_last_not_of(" \t\n") + 1);
    const bool byKeyword = style == STYLE_KEYWORD;
    for (; *units != NO_UNIT; ++units) {
        const UomUnit *unit = record(catalogue, *units);
        if (unit && equalsName(byKeyword ? unit->keyword : unit->token, text, !byKeyword))
            return *units;
    }
    return NO_UNIT;
}

UomTable *uom_GetUnitList(const Catalogue &catalogue, int32_t classId) {
    const int32_t *units = class_IsValid(catalogue, classId) ? uom_GetClassUnits(catalogue, classId) : nullptr;
    if (!units)
        return nullptr;
    UomTable *list = table_Create(0, TABLE_TEXT);
    for (; list && *units != NO_UNIT; ++units)
        if (!table_PutText(list, TABLE_APPEND, unit_Token(catalogue, *units))) {
            table_Free(list);
            return nullptr;
        }
    return list;
}

int32_t uom_GetUnitIndices(const Catalogue &catalogue, int32_t classId, int32_t *units, int32_t n) {
    if (!units || n < 1)
        return 1;
    std::memset(units, 0, static_cast<size_t>(n) * sizeof *units);
    if (!class_IsValid(catalogue, classId))
        return 1;
    const int32_t *list = uom_GetClassUnits(catalogue, classId);
    for (int32_t i = 0; list && i < n && list[i] != NO_UNIT; ++i)
        units[i] = list[i];
    return 0;
}

int32_t uom_GetUnitListIndex(const Catalogue &catalogue, int32_t classId, int32_t unit) {
    const int32_t *list = class_IsValid(catalogue, classId) && unit_IsValid(catalogue, unit)
                              ? uom_GetClassUnits(catalogue, classId)
                              : nullptr;
    for (int32_t i = 0; list && list[i] != NO_UNIT; ++i)
        if (list[i] == unit)
            return i;
    return -1;
}

void uom_GetUnitDescription(const Catalogue &catalogue, int32_t unit, char *out, int32_t size) {
    if (!out || size < 1)
        return;
    const UomUnit *found = unit_Record(catalogue, unit);
    str_CopyBounded(out, static_cast<size_t>(size), found ? found->description : nullptr);
}

int32_t uom_GetUnitTextLen(const Catalogue &catalogue, int32_t unit) {
    return static_cast<int32_t>(std::strlen(unit_Token(catalogue, unit)));
}

int32_t uom_GetConvConstants(const Catalogue &catalogue, int32_t unit, double *offset, double *factor) {
    const UomUnit *found = unit_Record(catalogue, unit);
    if (offset)
        *offset = found ? found->offset : 0.0;
    if (factor)
        *factor = found ? found->factor : 1.0;
    return found ? 0 : 1;
}

int32_t uom_SetConvConstants(Catalogue &catalogue, int32_t unit, double offset, double factor) {
    UomUnit *found = unit_Record(catalogue, unit);
    if (!found)
        return 1;
    catalogue_DropWords(catalogue);
    found->offset = offset;
    found->factor = factor;
    return 0;
}

} // namespace uom

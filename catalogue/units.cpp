#include "catalogue/units.h"

#include <bit>
#include <cstring>

#include "catalogue/class_table.h"
#include "catalogue/state.h"
#include "support/memory.h"
#include "support/name_index.h"
#include "support/text.h"

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

NameIndex tokenIndex;

const UomUnit *record(int32_t index) {
    return tbl_Record<UomUnit>(uomUnitTable, index);
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

bool unit_IsValid(int32_t unit) {
    return unit > UOM_NULL && unit < uomUnitCount;
}

UomUnit *unit_Record(int32_t unit) {
    return unit_IsValid(unit) ? tbl_Record<UomUnit>(uomUnitTable, unit) : nullptr;
}

const char *unit_Token(int32_t unit) {
    const UomUnit *found = unit_Record(unit);
    return found && found->token ? found->token : "";
}

int32_t unit_FindToken(std::string_view token) {
    const int32_t count = static_cast<int32_t>(tbl_Count(uomUnitTable));
    const int32_t found = names_Find(tokenIndex, token, count, [=](int32_t i) { return hasToken(record(i), token); });
    return found < 0 ? UOM_NULL : found;
}

int32_t unit_FindJoined(std::string_view head, std::string_view tail) {
    char name[128];
    str_CopyBounded(name, sizeof name, head);
    const size_t used = std::strlen(name);
    str_CopyBounded(name + used, sizeof name - used, tail);
    return unit_FindToken(name);
}

void unit_DropIndex() {
    names_Free(tokenIndex);
}

void unit_IndexList(UomClassRow *row) {
    mem_Free(row->starts);
    row->starts = nullptr;
    const int32_t *units = row->uomChoices ? row->uomChoices : row->uomList;
    size_t count = 0;
    while (units && units[count] != UOM_NULL)
        ++count;
    const size_t words = (count + WORD_BITS - 1) / WORD_BITS;
    void *block = nullptr;
    mem_Calloc(&block, 2 * INITIALS * words, sizeof(uint64_t));
    uint64_t *starts = static_cast<uint64_t *>(block);
    for (size_t i = 0; starts && i < count; ++i) {
        const UomUnit *unit = record(units[i]);
        enterInitial(starts, words, i, unit ? unit->token : nullptr);
        enterInitial(starts + INITIALS * words, words, i, unit ? unit->keyword : nullptr);
    }
    row->starts = starts;
    row->startWords = static_cast<int32_t>(words);
}

void unit_IndexTokens() {
    unit_DropIndex();
    const uint32_t count = tbl_Count(uomUnitTable);
    for (uint32_t i = 0; i < tbl_Count(uomClassTable); ++i)
        if (UomClassRow *row = class_Row(static_cast<int32_t>(i)))
            unit_IndexList(row);
    if (!names_Reset(tokenIndex, count))
        return;
    for (uint32_t i = 0; i < count; ++i) {
        const UomUnit *unit = record(static_cast<int32_t>(i));
        if (unit && unit->token)
            names_Add(tokenIndex, unit->token, static_cast<int32_t>(i),
                      [=](int32_t other) { return hasToken(record(other), unit->token); });
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
    const char *text;
    bool byKeyword;
    int32_t unit = UOM_NULL;
    size_t length = 0;
};

static void tryUnit(LongestMatch &longest, int32_t unit) {
    const size_t matched = matchUnit(record(unit), longest.text, longest.byKeyword);
    if (matched == NO_MATCH || matched <= longest.length)
        return;
    longest.unit = unit;
    longest.length = matched;
}

// Tries the units that begin like the text, in the order of the list.
static void tryIndexed(LongestMatch &longest, const UomClassRow &row, const int32_t *units) {
    const size_t words = static_cast<size_t>(row.startWords);
    const size_t initial = initialOf(*longest.text) + (longest.byKeyword ? INITIALS : 0);
    for (size_t word = 0; word < words; ++word)
        for (uint64_t bits = row.starts[initial * words + word]; bits != 0; bits &= bits - 1)
            tryUnit(longest, units[word * WORD_BITS + static_cast<size_t>(std::countr_zero(bits))]);
}

int32_t uom_ScanUnitToken(int32_t classId, const char *text, int32_t style, int32_t *length) {
    *length = 0;
    const int32_t *units = uom_GetClassUnits(classId);
    if (!units || !text)
        return UOM_NULL;
    LongestMatch longest = {text, style == STYLE_KEYWORD};
    const UomClassRow &row = *class_Row(classId);
    if (row.starts)
        tryIndexed(longest, row, units);
    for (; !row.starts && *units != UOM_NULL; ++units)
        tryUnit(longest, *units);
    *length = static_cast<int32_t>(longest.length);
    return longest.unit;
}

int32_t unit_CopyList(int32_t **out, const int32_t *units) {
    *out = nullptr;
    if (!units || *units == UOM_NULL)
        return 0;
    size_t count = 1;
    while (units[count - 1] != UOM_NULL)
        ++count;
    *out = mem_NewArray<int32_t>(count);
    if (!*out)
        return 11;
    std::memcpy(*out, units, count * sizeof **out);
    return 0;
}

int32_t unit_ResolveList(int32_t **out, const UomTable *tokens) {
    *out = nullptr;
    const uint32_t count = tbl_Count(tokens);
    int32_t *units = mem_NewArray<int32_t>(size_t{count} + 1);
    if (!units)
        return 11;
    uint32_t kept = 0;
    for (uint32_t i = 0; i < count; ++i) {
        const char *token = tbl_GetText(tokens, i);
        const int32_t unit = str_IsEmpty(token) ? UOM_NULL : unit_FindToken(token);
        if (unit != UOM_NULL)
            units[kept++] = unit;
    }
    units[kept] = UOM_NULL;
    if (kept == 0) {
        mem_Free(units);
        return 0;
    }
    *out = units;
    return 0;
}

int32_t uom_GetUnitType(const char *text) {
    return str_IsEmpty(text) ? UOM_NULL : unit_FindToken(text);
}

int32_t uom_GetUnitFromString(int32_t classId, char *text, int32_t mode) {
    if (!text || !uom_GetClassUnits(classId))
        return UOM_NULL;
    return unit_FindByName(classId, str_TrimRight(text), mode);
}

int32_t unit_FindByName(int32_t classId, std::string_view text, int32_t style) {
    const int32_t *units = uom_GetClassUnits(classId);
    if (!units)
        return UOM_NULL;
    text = str_Head(text, text.find_last_not_of(" \t\n") + 1);
    const bool byKeyword = style == STYLE_KEYWORD;
    for (; *units != UOM_NULL; ++units) {
        const UomUnit *unit = record(*units);
        if (unit && equalsName(byKeyword ? unit->keyword : unit->token, text, !byKeyword))
            return *units;
    }
    return UOM_NULL;
}

UomTable *uom_GetUnitList(int32_t classId) {
    const int32_t *units = class_IsValid(classId) ? uom_GetClassUnits(classId) : nullptr;
    if (!units)
        return nullptr;
    UomTable *list = tbl_Create(0, TABLE_TEXT);
    for (; list && *units != UOM_NULL; ++units)
        if (!tbl_PutText(list, TABLE_APPEND, unit_Token(*units))) {
            tbl_Free(list);
            return nullptr;
        }
    return list;
}

int32_t uom_GetUnitIndices(int32_t classId, int32_t *units, int32_t n) {
    if (!units || n < 1)
        return 1;
    std::memset(units, 0, static_cast<size_t>(n) * sizeof *units);
    if (!class_IsValid(classId))
        return 1;
    const int32_t *list = uom_GetClassUnits(classId);
    for (int32_t i = 0; list && i < n && list[i] != UOM_NULL; ++i)
        units[i] = list[i];
    return 0;
}

int32_t uom_GetUnitListIndex(int32_t classId, int32_t unit) {
    const int32_t *list = class_IsValid(classId) && unit_IsValid(unit) ? uom_GetClassUnits(classId) : nullptr;
    for (int32_t i = 0; list && list[i] != UOM_NULL; ++i)
        if (list[i] == unit)
            return i;
    return -1;
}

void uom_GetUnitDescription(int32_t unit, char *out, int32_t size) {
    if (!out || size < 1)
        return;
    const UomUnit *found = unit_Record(unit);
    str_CopyBounded(out, static_cast<size_t>(size), found ? found->description : nullptr);
}

int32_t uom_GetUnitTextLen(int32_t unit) {
    return static_cast<int32_t>(std::strlen(unit_Token(unit)));
}

int32_t uom_GetConvConstants(int32_t unit, double *offset, double *factor) {
    const UomUnit *found = unit_Record(unit);
    if (offset)
        *offset = found ? found->offset : 0.0;
    if (factor)
        *factor = found ? found->factor : 1.0;
    return found ? 0 : 1;
}

int32_t uom_SetConvConstants(int32_t unit, double offset, double factor) {
    UomUnit *found = unit_Record(unit);
    if (!found)
        return 1;
    found->offset = offset;
    found->factor = factor;
    return 0;
}

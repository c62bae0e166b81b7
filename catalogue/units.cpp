#include "catalogue/units.h"

#include <cstring>

#include "catalogue/class_table.h"
#include "catalogue/state.h"
#include "support/memory.h"
#include "support/text.h"

namespace {

// An open hash of unit indices by token without regard to case; -1 marks a free place. The first unit of a
// token is entered first and found first.
int32_t *tokenIndex = nullptr;
uint32_t tokenIndexMask = 0;

uint32_t hashToken(std::string_view token) {
    uint32_t hash = 2166136261u;
    for (const char c : token)
        hash = (hash ^ static_cast<uint8_t>(str_Lower(c))) * 16777619u;
    return hash;
}

const UomUnit *record(int32_t index) {
    return tbl_Record<UomUnit>(uomUnitTable, index);
}

bool hasToken(const UomUnit *unit, std::string_view token) {
    return unit && unit->token && str_EqualNoCase(std::string_view(unit->token), token);
}

// How much of the text the unit's name takes, 0 when it does not stand there.
size_t matchHead(const char *name, std::string_view text, bool blanksMayMiss) {
    // Nearly every name parts from the text at its first letter.
    if (!name || text.empty() || (str_Lower(*name) != str_Lower(text.front()) && *name != ' '))
        return 0;
    const std::string_view whole(name);
    if (str_StartsNoCase(text, whole))
        return whole.size();
    if (!blanksMayMiss || !std::strchr(name, ' '))
        return 0;
    char packed[256];
    const std::string_view shorter(packed, str_RemoveBlanks(packed, sizeof packed, whole));
    return str_StartsNoCase(text, shorter) ? shorter.size() : 0;
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
    if (tokenIndex) {
        for (uint32_t place = hashToken(token) & tokenIndexMask; tokenIndex[place] >= 0;
             place = (place + 1) & tokenIndexMask)
            if (hasToken(record(tokenIndex[place]), token))
                return tokenIndex[place];
        return UOM_NULL;
    }
    const int32_t count = static_cast<int32_t>(tbl_Count(uomUnitTable));
    for (int32_t i = 0; i < count; ++i)
        if (hasToken(record(i), token))
            return i;
    return UOM_NULL;
}

int32_t unit_FindJoined(std::string_view head, std::string_view tail) {
    char name[128];
    str_CopyBounded(name, sizeof name, head);
    const size_t used = std::strlen(name);
    str_CopyBounded(name + used, sizeof name - used, tail);
    return unit_FindToken(name);
}

void unit_DropIndex() {
    mem_Free(tokenIndex);
    tokenIndex = nullptr;
}

void unit_IndexTokens() {
    unit_DropIndex();
    const uint32_t count = tbl_Count(uomUnitTable);
    uint32_t size = 64;
    while (size < 2 * count)
        size *= 2;
    int32_t *places = mem_NewArray<int32_t>(size);
    if (!places)
        return;
    std::memset(places, -1, size * sizeof *places);
    const uint32_t mask = size - 1;
    for (uint32_t i = 0; i < count; ++i) {
        const UomUnit *unit = record(static_cast<int32_t>(i));
        if (!unit || !unit->token)
            continue;
        uint32_t place = hashToken(unit->token) & mask;
        while (places[place] >= 0)
            place = (place + 1) & mask;
        places[place] = static_cast<int32_t>(i);
    }
    tokenIndex = places;
    tokenIndexMask = mask;
}

int32_t uom_ScanUnitToken(int32_t classId, const char *text, int32_t style, int32_t *length) {
    *length = 0;
    const int32_t *units = uom_GetClassUnits(classId);
    if (!units || !text)
        return UOM_NULL;
    const std::string_view view(text);
    const bool byKeyword = style == STYLE_KEYWORD;
    int32_t best = UOM_NULL;
    size_t bestLength = 0;
    for (; *units != UOM_NULL; ++units) {
        const UomUnit *unit = record(*units);
        if (!unit)
            continue;
        const size_t matched = matchHead(byKeyword ? unit->keyword : unit->token, view, !byKeyword);
        if (matched > bestLength) {
            best = *units;
            bestLength = matched;
        }
    }
    *length = static_cast<int32_t>(bestLength);
    return best;
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
    const int32_t *units = uom_GetClassUnits(classId);
    if (!units || !text)
        return UOM_NULL;
    str_TrimRight(text);
    const bool byKeyword = mode == STYLE_KEYWORD;
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

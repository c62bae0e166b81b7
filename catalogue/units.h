// Look-ups in the unit table.
#ifndef UOM_CATALOGUE_UNITS_H
#define UOM_CATALOGUE_UNITS_H

#include <cstddef>
#include <string_view>

#include "catalogue/class_rows.h"
#include "catalogue/records.h"
#include "catalogue/catalogue.h"
#include "support/table.h"

namespace uom {

// A unit index above UOM_NULL and below the count of units.
inline bool unit_IsValid(const Catalogue &catalogue, int32_t unit) {
    return unit > NO_UNIT && unit < catalogue.units.count;
}

// The record of a valid unit, else null.
inline const UomUnit *unit_Record(const Catalogue &catalogue, int32_t unit) {
    return unit_IsValid(catalogue, unit) ? table_Record<UomUnit>(catalogue.units.records, unit) : nullptr;
}
inline UomUnit *unit_Record(Catalogue &catalogue, int32_t unit) {
    return unit_IsValid(catalogue, unit) ? table_Record<UomUnit>(catalogue.units.records, unit) : nullptr;
}

// A record with copies of these texts, which may be null, in one block that mem_Free gives back. Null when memory is
// exhausted.
UomUnit *unit_New(const char *token, const char *keyword, const char *description);

// The token of a valid unit, else the empty text.
const char *unit_Token(const Catalogue &catalogue, int32_t unit);

// The first unit of the table with this token, whatever its class; UOM_NULL when there is none.
int32_t unit_FindToken(const Catalogue &catalogue, std::string_view token);

// The first unit whose token is the two texts joined, at most 127 characters.
int32_t unit_FindJoined(const Catalogue &catalogue, std::string_view head, std::string_view tail);

// The unit of the class whose token (style 2: keyword) is the text but for blanks, tabs and line feeds at its end. A
// token may be written without its blanks. UOM_NULL when there is none.
int32_t unit_FindByName(const Catalogue &catalogue, int32_t classId, std::string_view text, int32_t style);

// A unit of the class at the head of the text: the one with the longest token (style 2: keyword), the first
// in the list among equals. `length` is what it takes of the text, shorter than the token when the text
// leaves out its blanks. UOM_NULL and 0 when there is none.
int32_t uom_ScanUnitToken(const Catalogue &catalogue, int32_t classId, const char *text, int32_t style,
                          int32_t *length);

// The fast way of unit_FindToken. Built when the unit list has been read and after each change of a token;
// without it (or without the memory for it) a look-up walks the table.
void unit_IndexTokens(Catalogue &catalogue);
void unit_DropIndex(Catalogue &catalogue);

// The fast way of uom_ScanUnitToken. Built anew after each change of a row's lists, and with unit_IndexTokens; a scan
// goes without it when there is no memory.
void unit_IndexList(const Catalogue &catalogue, UomClassRow *row);

// A new copy of an array of units ended by 0; null for a null or empty one. 0, or 11 when memory is
// exhausted.
int32_t unit_CopyList(int32_t **out, const int32_t *units);

// The units that a text table names, in its order, unknown ones left out, as a new array ended by 0; null
// when none resolves. 0, or 11 when memory is exhausted.
int32_t unit_ResolveList(const Catalogue &catalogue, int32_t **out, const UomTable *tokens);

// As uom.h says of these names; here the catalogue stands in front.
int32_t uom_GetUnitType(const Catalogue &catalogue, const char *text);
int32_t uom_GetUnitFromString(const Catalogue &catalogue, int32_t classId, char *text, int32_t mode);
UomTable *uom_GetUnitList(const Catalogue &catalogue, int32_t classId);
int32_t uom_GetUnitIndices(const Catalogue &catalogue, int32_t classId, int32_t *units, int32_t n);
int32_t uom_GetUnitListIndex(const Catalogue &catalogue, int32_t classId, int32_t unit);
void uom_GetUnitDescription(const Catalogue &catalogue, int32_t unit, char *out, int32_t size);
int32_t uom_GetUnitTextLen(const Catalogue &catalogue, int32_t unit);
int32_t uom_GetConvConstants(const Catalogue &catalogue, int32_t unit, double *offset, double *factor);
int32_t uom_SetConvConstants(Catalogue &catalogue, int32_t unit, double offset, double factor);

} // namespace uom

#endif

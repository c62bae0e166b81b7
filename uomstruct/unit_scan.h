// The pieces of a unit string: a multiplier, a unit, an exponent, a group in parentheses.
#ifndef UOM_UOMSTRUCT_UNIT_SCAN_H
#define UOM_UOMSTRUCT_UNIT_SCAN_H

#include <cstdint>

#include "uom/uom.h"
#include "catalogue/catalogue.h"

namespace uom {

struct UomMultiplierRow {
    int32_t code;        // the power of ten; -99 ends the table
    const char *siText;  // in front of "*"
    const char *apiText; // in front of a unit, a blank between
    const char *longName;
};
extern const UomMultiplierRow uomMultipliers[];

// The row of a code, null when there is none.
const UomMultiplierRow *multiplier_Find(int32_t code);

// What a multiplier stands for, 1 for a code that is none.
double multiplier_Factor(int32_t code);

// Writes a multiplier as it stands in front of a unit of this multiplier style: "M ", "MM ", "k*", "M*"; leaves the buffer
// as it is for a code that is none.
void multiplier_Write(int32_t code, int32_t unitStyle, char *out, size_t size);

enum FillStatus : int32_t {
    FILL_DONE = UOM_DONE,
    FILL_BAD_ARGUMENT = UOM_FILL_BAD_ARGUMENT,
    FILL_NO_UNIT = UOM_FILL_NO_UNIT,
    FILL_TOO_SHORT = UOM_FILL_TOO_SHORT,
    FILL_TOO_LONG = UOM_FILL_TOO_LONG,
    FILL_BAD_MULTIPLIER = UOM_FILL_BAD_MULTIPLIER,
    FILL_BAD_EXPONENT = UOM_FILL_BAD_EXPONENT,
    FILL_NEEDS_PARENTHESES = UOM_FILL_NEEDS_PARENTHESES,
    FILL_TOO_DEEP = UOM_FILL_TOO_DEEP,
    FILL_OVERLONG = UOM_FILL_OVERLONG,
    FILL_NO_MEMORY = UOM_NO_MEMORY
};

// What stands at the head of a text, as a class reads it.
struct FoundUnit {
    FillStatus status; // done, no unit or bad multiplier
    int32_t consumed;
    int32_t multiplier;
    int32_t unit;
};

// uom_FindUnitFromString without its messages.
FoundUnit unit_FindAtHead(const Catalogue &catalogue, int32_t classId, const char *text, int32_t style);

// Writes the message of a failed unit_FindAtHead, as uom_FindUnitFromString does.
void unit_ExplainFailure(const Catalogue &catalogue, const FoundUnit &found, int32_t classId, const char *text);

// The message of a unit string that is longer than STR_MAX_LENGTH.
void unit_RefuseLength(const char *text);

// Digits behind optional white space, a "-" directly in front of them included. 1 with the value and the
// characters from `text` to the end of the digits; 0 with the value 1 when there are none. A value too large
// is held at the bound.
int32_t uom_ReadExponent(const char *text, int32_t *value, int32_t *length);

// Looks for a group ahead of the first unit name: 0 none, 1 a group, 2 a group with an exponent behind it.
// `open` and `close` are the offsets of its parentheses, -1 where not found.
int32_t uom_FindParenGroup(const char *text, int32_t *exponent, int32_t *open, int32_t *close);

// Where a unit's name can begin: a letter or "$".
bool unit_IsNameStart(char c);

// The normal form of a unit string: no leading and trailing blanks, none round "(", ")", "-", "/", inner runs
// as one, Latin-1 superscripts as digits. `out` holds as many bytes as the input with its terminator; returns
// the length.
int32_t unit_Normalize(char *out, const char *in);

// As uom.h says of these names; here the catalogue stands in front.
int32_t multiplier_FindAtHead(const char *text, int32_t format, int32_t *multiplier, const char **rest);
int32_t uom_FindUnitFromString(const Catalogue &catalogue, int32_t classId, const char *text, int32_t style,
                               int32_t *consumed, int32_t *multiplier, int32_t *unit);

} // namespace uom

#endif

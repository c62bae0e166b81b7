// The parser of unit strings, "kpa/(m3/sec)2"; uom_FillStructFromString is declared in uom.h.
#ifndef UOM_UOMSTRUCT_UNIT_STRING_H
#define UOM_UOMSTRUCT_UNIT_STRING_H

#include <cstdint>

#include "uom/uom.h"

constexpr int32_t MAX_GROUPS = 32;

// The sign of the units to come, and those saved at each "(" of the text that is still open.
struct SignStack {
    int32_t sign = 1;
    int32_t depth = 0;
    int32_t saved[MAX_GROUPS]; // `depth` of them
    bool tooDeep = false;      // more than MAX_GROUPS were opened: the parse fails
    SignStack() {}             // leaves `saved` as it is: most texts open nothing
};

// Gives the chain the units of a slate; of "Current" with the units that the chain fixes on top.
void chain_TakeSlate(UomStruct chain, int32_t slate);

// The next unit name: a letter, "$", or the end of the text; or the "(" behind `maxOpen` others. Parentheses
// and "/" on the way act on the signs. `opened` is 1 when a "(" was passed.
const char *uom_SkipToUnit(SignStack &signs, const char *text, int32_t maxOpen, int32_t *opened);

#endif

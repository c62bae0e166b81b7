// The parser of unit strings, "kpa/(m3/sec)2".
#ifndef UOM_UOMSTRUCT_UNIT_STRING_H
#define UOM_UOMSTRUCT_UNIT_STRING_H

#include <cstdint>

#include "uom/uom.h"
#include "catalogue/catalogue.h"

namespace uom {

constexpr int32_t MAX_GROUPS = 32;

// The sign of the units to come, and those saved at each "(" of the text that is still open.
struct SignStack {
    int32_t sign = 1;
    int32_t depth = 0;
    int32_t saved[MAX_GROUPS]; // `depth` of them
    bool tooDeep = false;      // more than MAX_GROUPS were opened: the parse fails
    SignStack() {}             // leaves `saved` as it is: most texts open nothing
};

// uom_FillStructFromString of a text that is no slate's name. REQUIRES: neither is null, and the text not too long.
int32_t chain_FillFromText(const Catalogue &catalogue, UomStruct chain, const char *uomString, int32_t style);

// The next unit name: a letter, "$", or the end of the text; or the "(" behind `maxOpen` others. Parentheses
// and "/" on the way act on the signs. `opened` is 1 when a "(" was passed.
const char *uom_SkipToUnit(SignStack &signs, const char *text, int32_t maxOpen, int32_t *opened);

} // namespace uom

#endif

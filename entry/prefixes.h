// The prefixes of the SI, and the units that take them.
#ifndef UOM_ENTRY_PREFIXES_H
#define UOM_ENTRY_PREFIXES_H

#include <cstdint>
#include <string_view>

namespace uom {

// A prefix in front of a metric unit.
struct PrefixedUnit {
    int32_t prefixLength = 0; // 0: none
    int32_t unitLength = 0;   // of the unit behind it
    int32_t power = 0;        // of ten
    bool rare = false;        // exa and beyond, and what nobody writes: a name in another case goes before it
};

// The prefix symbol, in its exact case, that the text begins with, when what is behind it (up to `end`) is a unit that
// takes it: of symbols the exact case counts.
PrefixedUnit prefix_OfSymbol(std::string_view text);

// The same of written names ("microbar", "megajoule"), in any case.
PrefixedUnit prefix_OfName(std::string_view text);

// Whether letters of a name are a mega or a milli in front of a metric unit and, as they were typed, would be the other
// one: "MPaa" as "mPaa" or "mpaa", "mDarcy" as "MDarcy". Those who write all in capitals may mean either by their M.
bool prefix_IsTurned(std::string_view name, std::string_view typed);

// Whether a prefix symbol and a unit symbol would be meant by the text if the unit's case were free ("mpa": milli, Pa).
PrefixedUnit prefix_IfCaseWereFree(std::string_view text);

} // namespace uom

#endif

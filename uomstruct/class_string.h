// The parser of class strings, "Pres/VolRate 2"; uoms_New and its relatives are declared in uom.h.
#ifndef UOM_UOMSTRUCT_CLASS_STRING_H
#define UOM_UOMSTRUCT_CLASS_STRING_H

#include <cstddef>
#include <cstdint>
#include "catalogue/catalogue.h"

namespace uom {

// Puts blanks round "/", parentheses and numbers, so that every token of a class string stands by itself; the
// Latin-1 superscripts become plain digits. `out` needs uom_SpacedSize bytes.
void uom_SpaceClassString(char *out, const char *in);
size_t uom_SpacedSize(const char *in);

// A basis in parentheses, "(Mass)", at the head of a text, blanks before it included: `consumed` is its length
// through the ")" and `unit` the unit of the class Basis, or 0 and UOM_NULL when the text is none. Always 0.
int32_t uom_ScanBasisSpec(const Catalogue &catalogue, const char *text, int32_t *consumed, int32_t style,
                          int32_t *unit);

// What uom.h says of these, in a catalogue.
UomStruct uoms_New(const Catalogue &catalogue, const char *classString);
int32_t uoms_IsClassValid(const Catalogue &catalogue, const char *classString);
int32_t uoms_GetDimensions(const Catalogue &catalogue, const char *classString, int32_t *dimensions);

} // namespace uom

#endif

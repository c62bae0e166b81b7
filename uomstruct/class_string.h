// The parser of class strings, "Pres/VolRate 2"; uoms_New and its relatives are declared in uom.h.
#ifndef UOM_UOMSTRUCT_CLASS_STRING_H
#define UOM_UOMSTRUCT_CLASS_STRING_H

#include <cstddef>
#include <cstdint>
#include "catalogue/catalogue.h"
#include "uomstruct/chain.h"

namespace uom {

// Puts blanks round "/", parentheses and numbers, so that every token of a class string stands by itself; the
// Latin-1 superscripts become plain digits. `out` needs uom_SpacedSize bytes.
void uom_SpaceClassString(char *out, const char *in);
size_t uom_SpacedSize(const char *in);

// A basis in parentheses, "(Mass)", at the head of a text, blanks before it included: `consumed` is its length
// through the ")" and `unit` the unit of the class Basis, or 0 and UOM_NULL when the text is none. Always 0.
int32_t uom_ScanBasisSpec(const Catalogue &catalogue, const char *text, int32_t *consumed, int32_t style,
                          int32_t *unit);

// Whether a class string is one name of letters alone: such a one is not taken apart.
bool classstring_IsName(const char *classString);

// uoms_New in a pool, and so without the heap but for long texts.
UomStruct chain_ParseIn(NodePool &pool, const Catalogue &catalogue, const char *classString);

// A working chain for the life of a block: of a class string, of one class, or like another one. Null where uoms_New
// would give null.
struct ParsedChain {
private:
    NodePool pool;

public:
    UomStruct chain;
    ParsedChain(const Catalogue &catalogue, const char *classString)
        : chain(chain_ParseIn(pool, catalogue, classString)) {}
    ParsedChain(const Catalogue &catalogue, int32_t classId) : chain(chain_OfClassIn(pool, catalogue, classId)) {}
    explicit ParsedChain(const ParsedChain &other) : chain(chain_CopyIn(pool, other.chain)) {}
    ParsedChain &operator=(const ParsedChain &) = delete;
};

// As uom.h says of these names; here the catalogue stands in front.
UomStruct uoms_New(const Catalogue &catalogue, const char *classString);
int32_t uoms_IsClassValid(const Catalogue &catalogue, const char *classString);
int32_t uoms_GetDimensions(const Catalogue &catalogue, const char *classString, int32_t *dimensions);

} // namespace uom

#endif

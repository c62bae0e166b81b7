// Chains as class strings, and the texts that a class row carries; what hosts reach is declared in uom.h.
#ifndef UOM_TEXT_CLASS_TEXT_H
#define UOM_TEXT_CLASS_TEXT_H

#include <cstdint>

#include "uom/uom.h"
#include "catalogue/catalogue.h"

namespace uom {

// A class string by its components: "Rate" gives "Basis Mole / Time". 2 when the class string fails, 1 when
// its first class is not composite, else 0.
int32_t uoms_GetComponentClass(const Catalogue &catalogue, const char *classString, int32_t size, char *out);

// Turns every node of a chain into a class of its own, as uoms_GetComponentClass prints it.
void chain_ToComponents(UomStruct chain);

// A class string in another style; an unknown name is the default style. 1 for a null or empty argument, 2
// when the class string fails, else 0.
int32_t uoms_GetClassStringInStyle(const Catalogue &catalogue, const char *classString, const char *styleName,
                                   int32_t size, char *out);

// The texts of all rows, row 0 included, in the style token, keyword or longname; null-terminated, owned by
// the caller, freed with table_FreeTextArray.
char **uoms_GetClassTextList(const Catalogue &catalogue, const char *styleName, int32_t *count);

// The common list that stands for the class, else the class text itself. 1 for a bad argument or class, else
// 0.
int32_t uoms_GetClassListName(const Catalogue &catalogue, const char *classText, int32_t size, char *out);

// The row's note. 1 for a bad argument or class, else 0.
int32_t uoms_GetClassNote(const Catalogue &catalogue, const char *classText, int32_t size, char *out);

// The definition of a custom class. 1 when the class string fails, 2 when the class has none, else 0.
int32_t uoms_GetClassDefinition(const Catalogue &catalogue, const char *classString, int32_t size, char *out);

// 1 when the text is the token or long name of a class, else UOM_NULL.
int32_t uoms_IsClassToken(const Catalogue &catalogue, const char *text);

// As uom.h says of these names; here the catalogue stands in front.
void uom_BuildClassString(const Catalogue &catalogue, UomStruct chain, char *out, int32_t size, int32_t style);

} // namespace uom

#endif

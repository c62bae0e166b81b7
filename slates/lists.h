// The lists of units that classes recognise and user interfaces offer. What hosts reach is declared in uom.h.
//
// Arrays of text that an operation hands out are null-terminated, the array and each text blocks of their
// own, owned by the caller and freed with uoms_FreeArray.
#ifndef UOM_SLATES_LISTS_H
#define UOM_SLATES_LISTS_H

#include <cstdint>

#include "uom/uom.h"
#include "catalogue/catalogue.h"

namespace uom {

// A class's own list of units, from a table of tokens; unknown tokens are left out, a null or empty table
// takes the list away. 1 for an unknown class, 11 when memory is exhausted, else 0.
int32_t uoms_SetClassList(Catalogue &catalogue, const char *classText, const UomTable *tokens);

// The same from an array of units ended by 0. 1 for a bad class.
int32_t uom_SetClassList(Catalogue &catalogue, int32_t classId, const int32_t *units);

// uoms_SetUOMChoices from an array of texts; a count below 1 restores the list. Always 0.
int32_t uoms_SetUOMChoiceArray(Catalogue &catalogue, const char *classText, int32_t count, const char *const *tokens);

// Put the application's lists for the class of a class string in force, and take them away again. 1 when the
// class string fails, else UOM_NULL and 0.
int32_t uoms_LoadApplicationList(Catalogue &catalogue, const char *classString);
int32_t uoms_LoadNormalList(Catalogue &catalogue, const char *classString);

// The tokens of the units of a base class; null for a composite class or one without a list.
char **uoms_GetUnitNames(const Catalogue &catalogue, const char *classText, int32_t *count);

// The list for an interface: of a base class its units, else the common list that the class names or that has
// the text for its name. Null, with a message, when there is none.
char **uoms_GetUOMList(const Catalogue &catalogue, const char *text, int32_t *count);

char **uoms_GetCommonListNames(const Catalogue &catalogue, int32_t *count);
char **uoms_GetSetNames(const Catalogue &catalogue, int32_t *count); // each in a block of 64 bytes
int32_t uoms_FreeArray(char **texts);                                // null is accepted; 0

// As uom.h says of these names; here the catalogue stands in front.
int32_t uoms_SetUOMChoices(Catalogue &catalogue, const char *classText, const UomTable *tokens);
int32_t uom_SetUOMChoices(Catalogue &catalogue, int32_t classId, const int32_t *units);
int32_t uom_LoadApplicationList(Catalogue &catalogue, UomStruct chain);
int32_t uom_LoadNormalList(Catalogue &catalogue, UomStruct chain);

} // namespace uom

#endif

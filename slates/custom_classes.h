// Classes made at run time; uoms_NewClass, uoms_DeleteClass and uoms_PutClassText are declared in uom.h.
#ifndef UOM_SLATES_CUSTOM_CLASSES_H
#define UOM_SLATES_CUSTOM_CLASSES_H

#include <cstdint>

#include "catalogue/class_rows.h"
#include "catalogue/catalogue.h"
#include "conversion/running.h"

namespace uom {

// Replace the row's listName and note; an empty or null text takes it away. 1 for an unknown class. Compiled
// rows have both, too.
int32_t uoms_PutClassListName(Catalogue &catalogue, const char *className, const char *text);
int32_t uoms_PutClassNote(Catalogue &catalogue, const char *className, const char *text);

bool uoms_IsClassComposite(const Catalogue &catalogue, const char *className);

// Frees a custom row with its texts and lists; null is accepted.
void class_FreeRow(UomClassRow *row);

// As uom.h says of these names; here the catalogue stands in front.
int32_t uoms_NewClass(Catalogue &catalogue, Running &running, const char *name, const char *definition);
int32_t uoms_DeleteClass(Catalogue &catalogue, Running &running, const char *name);
int32_t uoms_PutClassText(Catalogue &catalogue, const char *classText, const char *newText, int32_t style);

} // namespace uom

#endif

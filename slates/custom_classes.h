// Classes made at run time; uoms_NewClass, uoms_DeleteClass and uoms_PutClassText are declared in uom.h.
#ifndef UOM_SLATES_CUSTOM_CLASSES_H
#define UOM_SLATES_CUSTOM_CLASSES_H

#include <cstdint>

#include "catalogue/class_rows.h"

// Replace the row's listName and note; an empty or null text takes it away. 1 for an unknown class. Compiled
// rows have both, too.
int32_t uoms_PutClassListName(const char *className, const char *text);
int32_t uoms_PutClassNote(const char *className, const char *text);

bool uoms_IsClassComposite(const char *className);

// Frees a custom row with its texts and lists; null is accepted.
void class_FreeRow(UomClassRow *row);

#endif

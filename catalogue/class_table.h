// Look-ups in the class table. Numbers here are always rows of the table, never the older numbering.
#ifndef UOM_CATALOGUE_CLASS_TABLE_H
#define UOM_CATALOGUE_CLASS_TABLE_H

#include "catalogue/class_rows.h"
#include "support/table.h"
#include "catalogue/catalogue.h"

namespace uom {

enum TextStyle : int32_t {
    STYLE_DEFAULT = UOM_STYLE_DEFAULT,
    STYLE_TOKEN = UOM_STYLE_TOKEN,
    STYLE_KEYWORD = UOM_STYLE_KEYWORD,
    STYLE_TOKEN_SUPER = UOM_STYLE_TOKEN_SUPER,
    STYLE_TOKEN_UPPER = UOM_STYLE_TOKEN_UPPER,
    STYLE_LONG_NAME = UOM_STYLE_LONG_NAME,
    STYLE_HTML = UOM_STYLE_HTML
};

// A class number in range: at least 1 and below the count of classes.
inline bool class_IsValid(const Catalogue &catalogue, int32_t classId) {
    return classId >= 1 && classId < catalogue.classes.count;
}

// The row of a class, row 0 included; null past the end and while the library is not started.
inline const UomClassRow *class_Row(const Catalogue &catalogue, int32_t classId) {
    return table_Record<UomClassRow>(catalogue.classes.rows, classId);
}
inline UomClassRow *class_Row(Catalogue &catalogue, int32_t classId) {
    return table_Record<UomClassRow>(catalogue.classes.rows, classId);
}

// The row of a valid class, else null.
inline const UomClassRow *class_ValidRow(const Catalogue &catalogue, int32_t classId) {
    return class_IsValid(catalogue, classId) ? class_Row(catalogue, classId) : nullptr;
}
inline UomClassRow *class_ValidRow(Catalogue &catalogue, int32_t classId) {
    return class_IsValid(catalogue, classId) ? class_Row(catalogue, classId) : nullptr;
}

// The number of the class that a text names, 0 when there is none. Style 2 looks at keywords, any other at
// tokens and then at long names.
int32_t class_Find(const Catalogue &catalogue, const char *text, int32_t style);

// The fast way of class_Find to tokens and long names. Built with the class table and after each change of these texts,
// continued for a new last row, and cut back in front of its deletion; without it (or without the memory for it) a
// look-up walks the table.
void class_IndexTexts(Catalogue &catalogue);
void class_IndexLastRow(Catalogue &catalogue);
void class_UnindexLastRow(Catalogue &catalogue);
void class_DropIndex(Catalogue &catalogue);

// Replaces the long name of a custom class. 0, or 11 with the old name kept when memory is exhausted.
// REQUIRES: the row exists and owns its texts.
int32_t class_SetName(Catalogue &catalogue, int32_t classId, const char *name);

// Whether the class is expanded into components: its first or second slot is used.
bool class_IsComposite(const UomClassRow &row);

// A base class that only stands in composite ones: it is not listed among the classes.
bool class_IsInternalBase(int32_t classId);

// Whether people are offered the class: neither one that only stands in others nor one that serves the library alone.
bool class_IsOffered(const Catalogue &catalogue, int32_t classId);

// Whether a chain of the class holds a Basis node.
bool uom_ClassHasBasis(const Catalogue &catalogue, int32_t classId);

// The token of a valid class, else the empty text.
const char *class_Token(const Catalogue &catalogue, int32_t classId);

// The list of units that the class recognises: its choices, else its list, else null. Takes any number.
const int32_t *uom_GetClassUnits(const Catalogue &catalogue, int32_t classId);

// As uom.h says of these names; here the catalogue stands in front.
int32_t uom_GetClassType(const Catalogue &catalogue, const char *text, int32_t mode);
int32_t uom_GetUOMClassCount(const Catalogue &catalogue);
int32_t uom_GetClassTextLen(const Catalogue &catalogue, int32_t classId);
void uom_GetClassGUIWidths(const Catalogue &catalogue, int32_t classId, int32_t *width1, int32_t *width2);
int32_t uom_IsClassBase(const Catalogue &catalogue, int32_t classId);
int32_t class_IsBasis(int32_t classId);
int32_t uom_GetUnitMax(const Catalogue &catalogue, int32_t classId);

} // namespace uom

#endif

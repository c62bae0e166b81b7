// Typed texts: a number with a unit, and which quantity it is of. As entry.h says of these names; here the catalogue
// stands in front.
#ifndef UOM_ENTRY_ENTRY_H
#define UOM_ENTRY_ENTRY_H

#include "catalogue/catalogue.h"
#include "entry/fit.h"
#include "uom/entry.h"

namespace uom {

int32_t uom_ReadEntry(const Catalogue &catalogue, const char *classString, const char *text, UomEntry *entry);
UomTable *uom_GetEntryClasses(const Catalogue &catalogue, const char *text);
int32_t uom_NewConversionFromEntries(const Catalogue &catalogue, const char *classString, const char *from,
                                     const char *to, UomConversion **out, UomEntry *entry);

// A text as it was read, before it is known of which class.
struct Reading {
    static constexpr int32_t LIMIT = 4; // ways that mean different things, all of the text readable
    FoldedText folded;
    int32_t unitBegin = 0;   // in the folded text
    Product products[LIMIT]; // those that take names apart stand behind
    Measure measures[LIMIT];
    int32_t count = 0;
    int32_t whole = 0; // how many of them take no name apart
    Complaint complaint;
};

// What a reading is under a class.
struct ClassFit {
    Fit fit;
    int32_t product = -1;   // of the reading
    bool ambiguous = false; // another product fits, and means something else
};
// `firstOnly`: of the first way to read the text alone.
ClassFit entry_Fit(const Catalogue &catalogue, const Words &words, const Reading &reading, const Shape &shape,
                   bool firstOnly = false);

// Reads the typed text but for its class: the number in front, or the number as a factor. False with entry's message.
bool entry_Read(const Catalogue &catalogue, const Words &words, int32_t classId, const char *text, bool numberIsFactor,
                Reading &reading, UomEntry &entry);

// Writes the result of a fit. False when the text of the units would not be read as them.
bool entry_Finish(const Catalogue &catalogue, const char *classString, const Reading &reading, const ClassFit &fit,
                  UomEntry &entry);

} // namespace uom

#endif

// A typed text in all the ways in which it may be meant, and what it is under a class.
#ifndef UOM_ENTRY_READING_H
#define UOM_ENTRY_READING_H

#include "catalogue/catalogue.h"
#include "entry/fit.h"
#include "uom/entry.h"

namespace uom {

// An entry that says nothing yet.
void entry_Begin(UomEntry &entry);

// Writes the message of an entry; always false.
#if defined(__GNUC__)
__attribute__((format(printf, 2, 3)))
#endif
bool entry_Refuse(UomEntry &entry, const char *format, ...);

// Which of the folded characters the message is about.
void entry_Locate(UomEntry &entry, const FoldedText &folded, int32_t from, int32_t to);

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

// False when the text measures something else than the class does, in every way to read it.
bool entry_IsPossible(const Reading &reading, const ClassShape &shape);

// What a reading is under a class.
struct ClassFit {
    Fit fit;
    int32_t product = -1;   // of the reading
    bool ambiguous = false; // another product fits, and means something else
};
// `firstOnly`: of the first way to read the text alone.
ClassFit entry_Fit(const Catalogue &catalogue, const Words &words, const Reading &reading, const Shape &shape,
                   bool firstOnly = false);

// Whether there is nothing but the number, or nothing at all.
bool entry_HasNoUnits(const Reading &reading);

// Reads the typed text but for its class: the number in front, or the number as a factor. False with entry's message, as
// for a text without units, which Dimensionless alone allows.
bool entry_Read(const Catalogue &catalogue, const Words &words, int32_t classId, const char *text, bool numberIsFactor,
                Reading &reading, UomEntry &entry);

} // namespace uom

#endif

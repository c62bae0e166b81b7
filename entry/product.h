// A typed unit text as a product of catalogue units, each to a power, and a number.
//
// A text is read in up to four ways (Way), since some signs mean two things: a second "/", a "*" behind a "/", and a
// name that is itself a quotient ("kg/cm2", a pressure, or a kilogram by the square centimeter). Whoever knows the
// quantity tries them and takes the one that fits.
#ifndef UOM_ENTRY_PRODUCT_H
#define UOM_ENTRY_PRODUCT_H

#include <cstdint>

#include "catalogue/catalogue.h"
#include "conversion/wide.h"
#include "entry/fold.h"
#include "entry/words.h"

namespace uom {

struct Term {
    int32_t unit;
    int32_t multiplier; // code of a thousand or million in front of the unit, 0 without one
    int32_t exponent;
    int32_t place, end; // the word that it came from, in the folded text
};

// Which of the two meanings of a sign a reading takes.
struct Way {
    bool slashTurns = false; // a/b/c is a/(b/c), not a/(b c)
    bool starStays = false;  // a/b*c is a/(b c), not (a/b) c
    bool splitNames = false; // names that are quotients or products themselves are taken apart
};

struct Product {
    static constexpr int32_t LIMIT = 16;
    Term terms[LIMIT];
    int32_t count = 0;
    Wide number; // of the product; 1 without one
    bool hasNumber = false;
    const Alias *bound = nullptr; // an alias in it that belongs to classes, when none was given
    char scale = '\0'; // of a pressure: 'g' gauge, 'a' absolute, 'v' vacuum, 'd' difference, when a mark says so
    // How many words it holds, whether one is in another case than its name, and the last with a mega in front.
    int32_t words = 0;
    bool otherCase = false;
    struct {
        int32_t begin, end;
    } mega = {-1, -1};
    // What the text held that another Way would read in another way.
    bool hasSecondSlash = false, hasLateStar = false, hasCompound = false;
};

// What is wrong with a text, and where.
struct Complaint {
    char message[256] = "";
    int32_t begin = 0, end = 0; // in the folded text
    bool unknownWord = false;   // the text between is in no list
};

// Reads text[begin .. length) as a unit text. False with a complaint.
bool product_Read(const Catalogue &catalogue, const Words &words, const FoldedText &text, int32_t begin,
                  int32_t classId, const Way &way, Product &product, Complaint &complaint);

// Reads a number at `*place` ("250", "1.5e3", ".5", "1/2" not), moving it behind it. False without one.
bool product_ReadNumber(const FoldedText &text, int32_t *place, Wide *number, double *value);

// The dimension and the size of a product, in the base units; known is false when a unit tells none.
struct Measure {
    Dimension dimension;
    double size;
    bool known, shifted, gas, formula;
    Ratios ratios; // of a product without a dimension: what its units are
};
Measure product_Measure(const Words &words, const Product &product);

// A unit behind a multiplier, and a product, in the base units, without rounding.
Wide unit_ExactSize(const Catalogue &catalogue, const Words &words, int32_t unit, int32_t multiplier);
Wide product_ExactSize(const Catalogue &catalogue, const Words &words, const Product &product);

} // namespace uom

#endif

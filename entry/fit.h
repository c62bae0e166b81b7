// Whether a product is a unit text of a class, and which units of the class say it.
#ifndef UOM_ENTRY_FIT_H
#define UOM_ENTRY_FIT_H

#include <cstdint>

#include "entry/product.h"
#include "entry/words.h"
#include "support/text.h"

namespace uom {

// How well a product fits, the best first.
enum class FitKind : uint8_t {
    DIRECT,       // the units stand in the lists of the class's slots
    DIRECT_TIMES, // the same, and a number or prefix
    EQUAL,        // units of the class that are of the same size
    SCALED,       // no unit of the class is of this size: units of it times a number
    NONE
};

struct Fit {
    FitKind kind = FitKind::NONE;
    int32_t units[Shape::LIMIT]; // of the slots; NO_UNIT behind a unit that is a whole quotient
    int32_t multipliers[Shape::LIMIT];
    Wide scale;              // what one of the typed units is in those
    bool refusedGas = false; // only the rule that a gas volume is no actual or liquid volume stands in the way
};

// The shape of a class, or of a class string; count is 0 for kinds that the classical reader alone reads.
Shape shape_OfClass(const Words &words, int32_t classId);

// False when a product measures something else than what the class does, so that no unit of the class can be meant: a
// cheap question, for those who go through all classes.
bool fit_IsPossible(const Product &product, const Measure &measure, const ClassShape &shape);

// Whether two are ratios of things that are not counted alike: masses and moles, say.
bool ratio_Differs(Ratios a, Ratios b);

Fit fit_Product(const Catalogue &catalogue, const Words &words, const Product &product, const Measure &measure,
                const Shape &shape);

// A unit behind its thousand or million, as the catalogue prints it.
void unit_Write(const Catalogue &catalogue, int32_t unit, int32_t multiplier, TextWriter &writer);

// The units of a fit as a text, as the catalogue prints them: those above the line, then those below.
void fit_Write(const Catalogue &catalogue, const Shape &shape, const Fit &fit, TextWriter &writer);

} // namespace uom

#endif

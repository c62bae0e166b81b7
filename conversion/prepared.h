// Conversions prepared once and used many times: what uom/conversion.h says of them.
//
// Thread safety
//   A conversion never changes once it is made, and refers to nothing outside of its block: any number of threads may
//   use it at once. Making one reads the catalogue.
//
// Invariants
//   1. Each of `run` gives for each value, bit for bit, what `run.one` gives for it.
//   2. Of a LINE, line and exact are the same constants, and within the bounds that keep line's products off the ends of
//      the doubles' range; of a WIDE_LINE only exact counts.
//   3. Of a WALK, `count` resolved nodes lie behind the record, in its block.
#ifndef UOM_CONVERSION_PREPARED_H
#define UOM_CONVERSION_PREPARED_H

#include <cstddef>

#include "catalogue/catalogue.h"
#include "conversion/gravity.h"
#include "conversion/linear.h"
#include "conversion/resolved.h"
#include "support/fma.h"
#include "support/numbers.h"
#include "uom/conversion.h"

namespace uom {

// What does the work, chosen when a conversion is made.
struct Operations {
    double (*one)(const UomConversion *conversion, double value);
    void (*many)(const UomConversion *conversion, const double *in, double *out, size_t count);
    void (*floats)(const UomConversion *conversion, const float *in, float *out, size_t count);
    void (*strided)(const UomConversion *conversion, const char *in, ptrdiff_t inStep, char *out, ptrdiff_t outStep,
                    size_t count);
};

// y = (x + offset) * factor, as the kernels want it.
struct Line {
    double limit;      // what is below is no value
    double bound;      // up to this magnitude a value is neither null nor infinite
    double offset;     // the nearest double
    double factor;     // the nearest double; without an offset the next one towards 0
    double factorRest; // what it leaves of the factor
    double rest;       // what the offset leaves, times the factor
    double quick;      // from here on prepared_One takes its short way; NaN where there is none
};

enum class Form : int32_t {
    SAME,      // values come back as they are
    LINE,      // y = (x + offset) * factor
    WIDE_LINE, // the same with constants at the ends of the doubles' range
    WALK       // API gravity, and constants that are not numbers
};

// The conversion of two parallel filled chains. The statuses and messages of uom_NewConversion.
int32_t prepared_New(const Catalogue &catalogue, UomStruct from, UomStruct to, UomConversion **out);

// The same from a unit that is `before` units of the first chain to one that is `after` units of the second; neither is 0.
// A conversion that is not linear is refused unless both are 1.
int32_t prepared_NewScaled(const Catalogue &catalogue, UomStruct from, UomStruct to, const Wide &before,
                           const Wide &after, UomConversion **out);

// y = x * factor, a finite factor other than 0.
int32_t prepared_NewProduct(const Wide &factor, UomConversion **out);

// Null outputs are passed over. 0, or 5 when the conversion is not linear.
int32_t prepared_Constants(const UomConversion &conversion, double *factor, double *offset);

} // namespace uom

struct UomConversion {
    uom::Operations run;
    uom::Line line;
    uom::GravityLine gravity; // of a WALK with a kernel for it
    uom::Form form;
    uom::Linear exact;
    uom::NumberConstants numbers; // as they were
    size_t count;
};

namespace uom {

// a * b + c, rounded once. REQUIRES: the machine has the instruction, where there is one.
inline double prepared_Fused(double a, double b, double c) {
#if defined(__GNUC__) && defined(__x86_64__)
    // This file is compiled for machines without it, too, so the compiler would not use it.
    __asm__("vfmadd213sd %2, %1, %0" : "+x"(a) : "x"(b), "x"(c));
    return a;
#else
    return fma_Once(a, b, c);
#endif
}

// One value. A product, by far the most frequent, is spared the call through a pointer, which costs more than the rest.
inline double prepared_One(const UomConversion &conversion, double value) {
    const Line &line = conversion.line;
    if (value >= line.quick)
        return prepared_Fused(value, line.factor, value * line.factorRest);
    return conversion.run.one(&conversion, value);
}

} // namespace uom

#endif

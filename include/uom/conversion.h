/* Conversions prepared once and used many times, from any number of threads.
 *
 *     UomConversion *toPsi;
 *     if (uoms_NewConversion("Pres", "kPag", "psia", &toPsi) != 0)
 *         puts(uom_GetLastErrorMessage());
 *     double psi = uom_ConvertOne(toPsi, 250.0);
 *     uom_ConvertMany(toPsi, values, values, 1000000);
 *     uom_FreeConversion(toPsi);
 *
 * A conversion never changes once it is made. It holds the constants of its units and the atmospheric pressure of the
 * moment when it was made, and looks at no catalogue afterwards: it may outlive the one that it was made from.
 *
 * What it computes
 *   Every value, whatever its place in an array, becomes what uom_ConvertFromTo makes of it when no gravity waits. Groups
 *   with powers and groups behind "/" are right in arrays, too; of a group inside of another, a power does not count as
 *   it is written: "((Leng) 2) 3" is one to write as "Leng 6". Values below -1e35 (no value) and NaN are passed on.
 *   Linear conversions are better than the node by node walk of uom_ConvertFromTo: the result is within one unit in the
 *   last place, of the larger of |value x factor| and |offset x factor|, of the exact result, however long the chain. A
 *   constant of the catalogue counts as the shortest decimal that reads back as it (0.3048, 459.67) or, where that has 16
 *   digits and more, as the nearest fraction with a denominator up to 1000 that reads as it, if there is one (5/9).
 *   Where two offsets are nearly the same, what is left of them is within 1e-30 of the larger one.
 *   Nothing snaps to 0 near an offset, no result in between overflows or counts as no value, and no power is too high.
 *   Units that are the same on both sides give the value back bit for bit, whatever the walk would make of it.
 */
#ifndef UOM_CONVERSION_H
#define UOM_CONVERSION_H

#include <stddef.h>

#include "uom/uom.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef struct UomConversion UomConversion;

/* Prepares the conversion from the units of one filled chain to those of a parallel one; the chains stay the caller's.
 *   out  a new conversion, which its maker frees; null unless 0 is returned
 * Returns 0; 1 for a null argument, for chains that are not parallel (of other classes, lengths or exponents) and for
 * units that mean different kinds of amount (a mass rate and a mole rate, both of the class Rate); 11 when memory is
 * exhausted; each with a message. [reads] */
UOM_API int32_t uom_NewConversion(UomStruct from, UomStruct to, UomConversion **out);

/* The same from texts: a class string and two unit strings or names of slates, as uoms_ConvertArray takes them.
 * Returns 0, 1 and 11 as uom_NewConversion, or 2 class, 3 source units, 4 target units not understood, with the messages
 * of uoms_ConvertArray (for a class string with no class in it, "" or "/", the message stays what it was). [reads] */
UOM_API int32_t uoms_NewConversion(const char *classString, const char *fromUnits, const char *toUnits,
                                   UomConversion **out);

UOM_API void uom_FreeConversion(UomConversion *conversion); /* null is accepted [any] */

/* One value. A null conversion gives it back. [any] */
UOM_API double uom_ConvertOne(const UomConversion *conversion, double value);

/* `count` values. `in` may be `out`; arrays that overlap in another way are not allowed. A null conversion copies, and
 * nothing happens when an array is null. [any] */
UOM_API void uom_ConvertMany(const UomConversion *conversion, const double *in, double *out, size_t count);

/* The same for floats: each is converted as a double and rounded once. A value below -1e35 and NaN are passed on. [any] */
UOM_API void uom_ConvertManyFloat(const UomConversion *conversion, const float *in, float *out, size_t count);

/* The same for values that lie `inStep` and `outStep` bytes apart, e.g. a column of an array of records. Steps may be
 * negative or 0 and need not be multiples of a double's size; `in` may be `out` with the same steps, which are not 0 then.
 * [any] */
UOM_API void uom_ConvertStrided(const UomConversion *conversion, const double *in, ptrdiff_t inStep, double *out,
                                ptrdiff_t outStep, size_t count);

/* The constants of a linear conversion, y = (x + offset) * factor, each rounded to the nearest double; null outputs are
 * passed over. Returns 0; 1 for a null conversion; or 5 when the conversion is not linear or its constants are beyond the
 * range of doubles, and the outputs stay. [any] */
UOM_API int32_t uom_GetConversionConstants(const UomConversion *conversion, double *factor, double *offset);

#ifdef __cplusplus
}
#endif

#endif

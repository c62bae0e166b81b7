/* Several catalogues in one process, and which of them a thread works on.
 *
 * A process has a default catalogue, and may make others: a host that serves two sites with two atmospheric pressures
 * has one for each. All of uom.h, the start-up operations included, works on the catalogue in use by the calling thread.
 *
 *     UomCatalogue *site = uom_NewCatalogue();
 *     UomCatalogue *before = uom_UseCatalogue(site);
 *     uom_Init();                                     the catalogue of the site
 *     uoms_SetClassDefault("Current", "GaugePresBasis", "83.5");
 *     ... convert ...
 *     uom_UseCatalogue(before);
 *     uom_FreeCatalogue(site);
 *
 * Threads. The comment of each operation says what it does to the catalogue in use, in one word in brackets:
 *
 *   [reads]    the catalogue stays as it is: any number of threads may be in such calls at once
 *   [changes]  nothing else may be in this catalogue during the call, in no thread; other catalogues are free
 *   [any]      no catalogue is looked at
 *
 * Chains, tables and arrays are their makers': two threads may read one chain at once, and one that fills it has it for
 * itself. The last-error text and what a conversion leaves behind (the constants that uoms_CalculateConvConstants
 * answers, an API gravity that waits) are each thread's own. Units, classes and slates are numbered by catalogue: a
 * chain belongs to the catalogue that filled it, unless both have read the same file. The exported variables are those of
 * the default catalogue. How memory and numbers are handled is one for all.
 */
#ifndef UOM_CATALOGUE_H
#define UOM_CATALOGUE_H

#include <stddef.h>

#include "uom/uom.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef struct UomCatalogue UomCatalogue;

/* A new catalogue, not started and in nobody's use; null when memory is exhausted. Its maker frees it. [any] */
UOM_API UomCatalogue *uom_NewCatalogue(void);

/* Makes a catalogue that of the calling thread from now on; null is the default one, which every thread starts with.
 * Returns the one before, null for the default one. [any] */
UOM_API UomCatalogue *uom_UseCatalogue(UomCatalogue *catalogue);

/* Ends and frees a catalogue; null is accepted. No thread may be using it, but for the calling one, which has the default
 * one from then on. Chains, tables and prepared conversions that were made from it stay their makers'. [changes] */
UOM_API void uom_FreeCatalogue(UomCatalogue *catalogue);

/* Starts the catalogue in use as uom_Init2 does, from a data file in memory; does nothing, with 0, when it is started.
 *   text, length  the bytes of the file, which are not needed behind the call
 *   count, words  option words as those of uom_Init2; a path among them is passed over
 * Returns 0, 2, 3, 4 or 11 as uom_Init2, whose messages name the file "(text)"; 1, with a message, for a null text of a
 * length above 0 in a catalogue that is not started. There is no
 * data file then: the next start of this catalogue by uom_Init2 needs a path. [changes] */
UOM_API int32_t uom_InitText(const char *text, size_t length, int32_t count, const char *const *words);

#ifdef __cplusplus
}
#endif

#endif

/* What people type: numbers with units, units alone, and words to search with.
 *
 *     UomEntry entry;
 *     if (uom_ReadEntry("Pres", "250 kPag", &entry) == 0)
 *         printf("%g %s\n", entry.value, entry.units);
 *     else
 *         printf("%s\n", entry.message);
 *
 * These operations are strict where those of uom.h pass things over, and know what people write. Every character of a
 * text is read or named in the message; what could be meant in two ways is refused with both meanings.
 *
 *   Signs      UTF-8 or ASCII: micro, ohm and degree signs, superscripts, middle dot and multiplication sign, "^" and
 *              "**" in front of exponents, "*" and "-" and blanks between units, "/" and "per", parentheses, and
 *              "square", "cubic", "sq", "cu" in front of lengths.
 *   Names      unit tokens, their descriptions, aliases (aliases.txt beside the data file, and uom_ReadAliasText), with
 *              or without a plural s. "(g)", "(a)", "gauge", "abs" and their like behind a pressure, and "vac", which is
 *              positive below the atmosphere.
 *   Prefixes   of the SI, symbols and names, in front of metric units. A symbol counts in the case that the SI gives it:
 *              mW is never MW.
 *   Case       is free otherwise, where it can mean one thing only.
 *   Numbers    in a unit text are factors: psi/100ft, lb/24hr.
 *   Order      the parts of a quotient may stand in any order that fits the class. A second "/" divides again, unless
 *              only the other meaning, a/(b/c), fits the class; when both fit, the text is refused. The same holds for a
 *              "*" behind a "/". A hyphen, a blank and a middle dot bind tighter than "/".
 *   Gas        SCF, Nm3 and their like are amounts: they convert to and from moles, and are no units of liquid or actual
 *              volumes, on which the expansion of a gas between their conditions would act.
 *
 * The first reading of a catalogue, and the first after its classes, units or aliases have changed, makes an index of
 * their names; the others take no memory when they succeed. Threads as in catalogue.h says.
 */
#ifndef UOM_ENTRY_H
#define UOM_ENTRY_H

#include <stddef.h>

#include "uom/conversion.h"
#include "uom/uom.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef struct UomEntry {
    double value;             /* the number in front of the unit, NaN without one */
    char classString[128];    /* the quantity: as given, a long name as its token, or found */
    char units[256];          /* the unit text of the catalogue: uom_FillStructFromString reads it without loss */
    double scale;             /* what one of the typed units is in those: psi/100ft is 0.01 of psi/ft; else 1 */
    int32_t position, length; /* bytes of the typed text that the message is about */
    char message[256];        /* one sentence for whoever typed the text; empty when all is well */
    char suggestion[256];     /* a text that would be read, or empty */
} UomEntry;

/* Reads a number with a unit, or a unit alone: "250 kPag", "1.5e3 lb/hr", "kPag". The value in entry->units is
 * entry->value * entry->scale. Of Dimensionless a number alone, or nothing, is a whole text.
 *   classString  the quantity, a class or a class string; null or empty: any, the first class that reads the text best
 *   entry        filled in any case
 * Returns 0; 1 with a message, which uom_GetLastErrorMessage gives as well; 11 when memory is exhausted. [reads] */
UOM_API int32_t uom_ReadEntry(const char *classString, const char *text, UomEntry *entry);

/* Prepares the conversion from one typed unit to another, each of which may have a scale or a number in front, which is a
 * factor here. Without a class both texts decide: the first class that reads both best; when another one that reads both
 * would convert in another way (F to C as a difference), entry->message tells it, with the status 0. Gas volumes under
 * standard conditions convert to and from moles, 0.0422115 kmol/m3 at 60 F (R = 8.31446261815324 J/(mol K)). Products
 * that no class knows, kPa/(m3/sec)2, convert where they measure the same; the entry then has no class and no units.
 *   out    a new conversion, which its maker frees with uom_FreeConversion; null unless 0 is returned
 *   entry  of the text that is refused, else of the first text; may be null
 * Returns 0; 1 null arguments, or units that do not convert into each other; 2 class, 3 source, 4 target not understood;
 * 11 when memory is exhausted; each with a message. [reads] */
UOM_API int32_t uom_NewConversionFromEntries(const char *classString, const char *from, const char *to,
                                             UomConversion **out, UomEntry *entry);

/* The tokens of the classes that read a text, best first; an empty table when none does, null for a null text or when
 * memory is exhausted. The caller frees it with tbl_Free. [reads] */
UOM_API UomTable *uom_GetEntryClasses(const char *text);

/* Searches classes, units, aliases and slates by words, best first, at most so many: all words are to be found in a
 * token, keyword, name or description; a single word may be misspelt. Where nothing is found, words that read as units
 * are the one row ("barrel per day").
 * Rows of text: kind ("class", "unit", "alias", "slate", "text"), class, token, description, with tabs between; of an alias
 * and of a text the description is what it stands for. The caller frees
 * the table with tbl_Free; null for null words or when memory is exhausted. [reads] */
UOM_API UomTable *uom_Search(const char *words, int32_t most);

/* What a drop-down offers for a class or class string: its common list where it has one, the units of a base class, and
 * for any other what the slates use. The caller frees it with tbl_Free; null when the class is not understood or
 * memory is exhausted. [reads] */
UOM_API UomTable *uom_GetChoices(const char *classString);

/* All aliases, those that go before others of the name in front of them. Rows of text: alias, unit text, the tokens of the
 * classes that it is bound to with blanks between; with tabs between the three. The caller frees the table with tbl_Free;
 * null when memory is exhausted. [reads] */
UOM_API UomTable *uom_GetAliases(void);

/* Adds aliases to those of aliases.txt, in the same form, for as long as the catalogue stands; later ones go before
 * earlier ones. A line is "alias = unit text", "[Class Class]" binds those behind it to classes ("[]" ends that), and
 * "//" begins a comment.
 * Returns 0, 1 for a null text of a length above 0, 11 when memory is exhausted. [changes] */
UOM_API int32_t uom_ReadAliasText(const char *text, size_t length);

#ifdef __cplusplus
}
#endif

#endif

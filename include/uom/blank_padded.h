/* Operations for callers that pass texts as a pointer and a length, padded with blanks and without a
   terminator, and every other argument by address. They have C linkage and are part of the static library
   alone.

   A text is cut in silence at the size of its buffer, 31, 63 or 299 characters; its trailing blanks go. A
   length of 0x7FFFFFFF or above is an empty text. */
#ifndef UOM_BLANK_PADDED_H
#define UOM_BLANK_PADDED_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* uom_Dump with the value of `slate` as the options. */
int32_t uom_DumpFixed(const int32_t *slate, const char *path, uint32_t pathLength);

/* Status: that of uom_DeleteSet, or 1 when there is no such slate. A blank name is that of the unnamed slate. */
void uom_DeleteSetFixed(const char *name, uint32_t nameLength, int32_t *status);

/* The index, also returned. */
int32_t uom_NewSetFixed(const char *name, uint32_t nameLength, int32_t *index);

/* The status, also returned. */
int32_t uom_InitializeSetFixed(const char *name, uint32_t nameLength, const char *source, uint32_t sourceLength,
                               int32_t *status);
int32_t uoms_SetClassDefaultFixed(const char *slate, uint32_t slateLength, const char *className, uint32_t classLength,
                                  const char *units, uint32_t unitsLength, int32_t *status);

/* The result is filled up with blanks and has no terminator. */
void uoms_GetDisplayUnitsFixed(const char *className, uint32_t classLength, const char *slate, uint32_t slateLength,
                               const int32_t *style, char *out, uint32_t size);

/* What is wrong with the class or the units is in the last-error text alone. */
void uoms_ConvertArrayFixed(const int32_t *count, double *values, const char *className, uint32_t classLength,
                            const char *from, uint32_t fromLength, const char *to, uint32_t toLength);

/* Status: 0; -1 for a bad class, bad units and a conversion that is not linear. The outputs are always
   written. */
void uoms_CalculateConvConstantsFixed(const char *className, uint32_t classLength, const char *from,
                                      uint32_t fromLength, const char *to, uint32_t toLength, int32_t *status,
                                      double *factor, double *offset);

#ifdef __cplusplus
}
#endif

#endif

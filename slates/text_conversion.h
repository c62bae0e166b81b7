// As uom.h says of these names; here the catalogue stands in front.
#ifndef UOM_SLATES_TEXT_CONVERSION_H
#define UOM_SLATES_TEXT_CONVERSION_H

#include "catalogue/catalogue.h"
#include "conversion/running.h"
#include "uom/conversion.h"

namespace uom {

double uom_Convert(const Catalogue &catalogue, Running &running, double value, UomStruct chain, int32_t fromSlate,
                   int32_t toSlate);
double uom_ConvertFromCurrent(const Catalogue &catalogue, Running &running, double value, UomStruct chain);
double uom_ConvertToCurrent(const Catalogue &catalogue, Running &running, double value, UomStruct chain);
double uom_ConvertValue(const Catalogue &catalogue, Running &running, int32_t classId, int32_t *units,
                        int32_t fromSlate, int32_t toSlate, double value);
int32_t uoms_ConvertArray(const Catalogue &catalogue, Running &running, double *values, int32_t count,
                          const char *classString, const char *fromUnits, const char *toUnits);
int32_t uoms_CalculateConvConstants(const Catalogue &catalogue, Running &running, const char *classString,
                                    const char *fromUnits, const char *toUnits, double *factor, double *offset);

// What uom/conversion.h says of it, in a catalogue.
int32_t uoms_NewConversion(const Catalogue &catalogue, const char *classString, const char *fromUnits,
                           const char *toUnits, UomConversion **out);

} // namespace uom

#endif

// The properties of the library (the UOM server) and of a slate, by name and text. Hosts reach the slate
// properties through uoms_SetClassDefault and uoms_GetClassDefault, which take the five names as if they were
// classes.
#ifndef UOM_SLATES_PROPERTIES_H
#define UOM_SLATES_PROPERTIES_H

#include <cstdint>
#include "conversion/running.h"
#include "catalogue/catalogue.h"

namespace uom {

// "GaugePresBasis", "isSystem", "isHidden", "allowDelete", "allowModify", in any case.
int32_t uoms_IsSetProperty(const char *name);
char **uoms_GetSetPropertyList(int32_t *count); // freed with table_FreeTextArray
int32_t uoms_GetSetPropertyCount();

// 0; 1 for a null argument or an unknown slate; 2, with a message, for an unknown property. The slate's own
// basis reads as text in kPa and is not inherited.
int32_t uoms_GetSetProperty(const Catalogue &catalogue, const char *slateName, const char *property, int32_t length,
                            char *out);

// A basis is a number in kPa, or in Pa from 500 standard atmospheres in kPa (50662.5) up; blanking it makes
// the slate inherit when it had its own, and take 101.325 kPa when it had none. A flag is 0 or any other
// number.
int32_t uoms_PutSetProperty(Catalogue &catalogue, Running &running, const char *slateName, const char *property,
                            const char *value);

// "allowMultipliers" ("true" or "false"), "defaultDisplayStyle", "defaultScanClassStyle",
// "defaultScanUOMStyle" (the name of a style).
char **uoms_GetServerPropertyList(int32_t *count);
int32_t uoms_GetServerPropertyCount();
int32_t uoms_GetServerProperty(const Catalogue &catalogue, const char *name, int32_t length, char *out);

// 0, or 1 with a message; for "defaultDisplayStyle" the style that held before, from 1 to 6.
// "allowMultipliers" is known in exactly these letters only.
int32_t uoms_PutServerProperty(Catalogue &catalogue, const char *name, const char *value);

void uom_SetKestaOption(Catalogue &catalogue, int32_t value);
int32_t uom_GetUnitTotal(const Catalogue &catalogue);

} // namespace uom

#endif

// The defaults of one slate: written by number and by text, read back as text. Declared in uom.h but for
// these.
#ifndef UOM_SLATES_DEFAULTS_H
#define UOM_SLATES_DEFAULTS_H

#include <cstdint>

// Whether the slate's own default of the class reads exactly as the text, letters' case included.
int32_t uoms_IsClassDefault(const char *className, const char *slateName, const char *text);

#endif

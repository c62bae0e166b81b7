// Creation, copying and deletion of slates; the operations of hosts are declared in uom.h.
//
// The walks up the based-on chain differ in where they stop, and each is kept so:
//   active root, of uom_InitializeSet    a root system, a slate based on itself, a bad parent; bounded by the slates
//   uoms_GetSetRoot                      an empty or unknown parent, a repeated slate; 50 steps
//   uoms_IsSetDerivedFrom                a bad parent, a repeated slate; a list of 50
//   default look-ups (working units)     a stated unit, a repeated slate, a parent below 1; a list of 50
//   gauge basis, inherited property      a stated value, a slate based on itself, a bad parent; bounded by the slates
#ifndef UOM_SLATES_REGISTRY_H
#define UOM_SLATES_REGISTRY_H

#include <cstdint>
#include "catalogue/catalogue.h"
#include "conversion/running.h"

namespace uom {

// A new slate with a parent: 1 when it cannot be made, else 0.
int32_t uoms_NewSetBasedOn(Catalogue &catalogue, const char *name, const char *parent);

int32_t uoms_IsSetValid(const Catalogue &catalogue, const char *name);

// Each empties the buffer first and gives 1 for a null buffer or a length below 1.
// The parent's name; an unknown slate gives 0 and an empty text.
int32_t uoms_GetSetParent(const Catalogue &catalogue, const char *name, int32_t length, char *out);
// The name of the topmost slate; 1 for an unknown slate and when 50 steps do not reach it.
int32_t uoms_GetSetRoot(const Catalogue &catalogue, const char *name, int32_t length, char *out);

// Whether the ancestor is the slate itself or stands above it.
int32_t uoms_IsSetDerivedFrom(const Catalogue &catalogue, const char *name, const char *ancestor);

// The first text of the property, from the slate upward; only "GaugePresBasis" has one. Returns the buffer.
char *uoms_GetInheritedSetProperty(const Catalogue &catalogue, const char *property, const char *name, char *out,
                                   int32_t length);

// Whether the slate is English, Metric or SI.
bool slate_IsRootSystem(const Catalogue &catalogue, int32_t slate);

// As uom.h says of these names; here the catalogue stands in front.
int32_t uoms_NewSet(Catalogue &catalogue, const char *name);
int32_t uom_CheckDupSetName(const Catalogue &catalogue, const char *name);
UomTable *uom_GetSetList(const Catalogue &catalogue);
int32_t uom_GetCurrentSet(const Catalogue &catalogue);
int32_t uom_InitializeSet(Catalogue &catalogue, int32_t destination, int32_t source);
int32_t uom_InitializeCurrentSet(Catalogue &catalogue, int32_t source);
int32_t uoms_InitializeSet(Catalogue &catalogue, const char *destination, const char *source);
int32_t uoms_CopySet(Catalogue &catalogue, const char *destination, const char *source);
int32_t uom_DeleteSet(Catalogue &catalogue, int32_t slate);
int32_t uoms_DeleteSet(Catalogue &catalogue, const char *name);
void uoms_RenameSet(Catalogue &catalogue, const char *oldName, const char *newName);
int32_t uoms_ClearSet(Catalogue &catalogue, Running &running, const char *name);
int32_t uoms_PutSetBasedOn(Catalogue &catalogue, const char *name, const char *parent);
char *uom_GetSetBasedOn(const Catalogue &catalogue, int32_t slate, char *out);
char *uom_GetSetBasedOn2(const Catalogue &catalogue, int32_t slate, char *out, int32_t length);
char *uoms_GetSetBasedOn(const Catalogue &catalogue, const char *name, char *out);
char *uoms_GetSetBasedOn2(const Catalogue &catalogue, const char *name, char *out, int32_t length);

} // namespace uom

#endif

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

// A new slate with a parent: 1 when it cannot be made, else 0.
int32_t uoms_NewSetBasedOn(const char *name, const char *parent);

int32_t uoms_IsSetValid(const char *name);

// Each empties the buffer first and gives 1 for a null buffer or a length below 1.
// The parent's name; an unknown slate gives 0 and an empty text.
int32_t uoms_GetSetParent(const char *name, int32_t length, char *out);
// The name of the topmost slate; 1 for an unknown slate and when 50 steps do not reach it.
int32_t uoms_GetSetRoot(const char *name, int32_t length, char *out);

// Whether the ancestor is the slate itself or stands above it.
int32_t uoms_IsSetDerivedFrom(const char *name, const char *ancestor);

// The first text of the property, from the slate upward; only "GaugePresBasis" has one. Returns the buffer.
char *uoms_GetInheritedSetProperty(const char *property, const char *name, char *out, int32_t length);

// Whether the slate is English, Metric or SI.
bool slate_IsRootSystem(int32_t slate);

#endif

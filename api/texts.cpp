// The exported functions of one catalogue: the catalogue in use and the thread's scratch, and one call down.
#include "api/state.h"
#include "slates/slate_display.h"
#include "slates/unit_entry.h"
#include "text/class_text.h"
#include "text/display_units.h"
#include "text/keyword_text.h"
#include "text/related_classes.h"
#include "uom/uom.h"
#include "uomstruct/class_and_unit.h"
#include "uomstruct/unit_scan.h"

using uom::state_InUse;

int32_t uom_FillStructFromString(UomStruct chain, const char *uomString, int32_t style) {
    return uom::uom_FillStructFromString(state_InUse(), chain, uomString, style);
}

int32_t uom_FindUnitFromString(int32_t classId, const char *text, int32_t style, int32_t *consumed, int32_t *multiplier,
                               int32_t *unit) {
    return uom::uom_FindUnitFromString(state_InUse(), classId, text, style, consumed, multiplier, unit);
}

int32_t uom_UOMStringToStd(char *out, const char *in) {
    return uom::unit_ToStandard(out, in);
}

int32_t uom_FindUOMMultiplierFromString(const char *text, int32_t format, int32_t *multiplier, const char **rest) {
    return uom::multiplier_FindAtHead(text, format, multiplier, rest);
}

UomStruct uom_ClassAndUnitToStruct(const char *text, int32_t style) {
    return uom::uom_ClassAndUnitToStruct(state_InUse(), text, style);
}

UomStruct uom_StringToStruct(const char *text, int32_t classId, int32_t style) {
    return uom::uom_StringToStruct(state_InUse(), text, classId, style);
}

int32_t uom_FillStruct(UomStruct chain, int32_t classId, const char *text, int32_t style) {
    return uom::uom_FillStruct(state_InUse(), chain, classId, text, style);
}

char *uom_GetDisplayUnits(UomStruct chain, char *out, int32_t size, int32_t style) {
    return uom::uom_GetDisplayUnits(state_InUse(), chain, out, size, style);
}

int32_t uom_GetUOMMultiplierString(UomStruct node, char *out, int32_t size) {
    return uom::uom_GetUOMMultiplierString(state_InUse(), node, out, size);
}

char *uom_GetDisplayText(int32_t classId, int32_t *units, int32_t slate, char *out, int32_t size, int32_t style) {
    return uom::uom_GetDisplayText(state_InUse(), classId, units, slate, out, size, style);
}

char *uoms_GetDisplayUnits(const char *classString, const char *slateName, char *out, int32_t size, int32_t style) {
    return uom::uoms_GetDisplayUnits(state_InUse(), classString, slateName, out, size, style);
}

void uom_BuildClassString(UomStruct chain, char *out, int32_t size, int32_t style) {
    uom::uom_BuildClassString(state_InUse(), chain, out, size, style);
}

int32_t uoms_GetAbsoluteClass(const char *classString, char *out, int32_t size) {
    return uom::uoms_GetAbsoluteClass(state_InUse(), classString, out, size);
}

int32_t uoms_GetDifferenceClass(const char *classString, char *out, int32_t size) {
    return uom::uoms_GetDifferenceClass(state_InUse(), classString, out, size);
}

int32_t uoms_GetStandardClass(const char *classString, char *out, int32_t size) {
    return uom::uoms_GetStandardClass(state_InUse(), classString, out, size);
}

int32_t uoms_GetDifferenceUOM(const char *classString, const char *uomString, char *out, int32_t size) {
    return uom::uoms_GetDifferenceUOM(state_InUse(), classString, uomString, out, size);
}

char *uom_StructToOXString(UomStruct chain, char *out, int32_t size) {
    return uom::uom_StructToOXString(state_InUse(), chain, out, size);
}

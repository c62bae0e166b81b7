#include "catalogue/state.h"

#include <cstdarg>

#include "support/text.h"

int32_t uomInitDone = 0;
char uomDataFile[DATA_FILE_SIZE] = "";

int32_t uomModeKesta = -1;
int32_t uomModeVel2go = -1;
int32_t uomModeOrbex = -1;
int32_t uomAllowMult = -1;
int32_t uomModeQx71 = -1;
int32_t uomMoleQuantity = -1;

int32_t defaultScanClassStyle = 1;
int32_t defaultScanUOMStyle = 1;
int32_t defaultDisplayStyle = 1;

UomTable *uomClassTable = nullptr;
int32_t uomClassCount = 0;
UomTable *uomUnitTable = nullptr;
int32_t uomUnitCount = 0;
UomTable *uomSlateTable = nullptr;
UomTable *uomListTables[APPLICATION_LISTS] = {};
UomTable *uomExtraTables = nullptr;

int32_t uomCurrentSet = 0;
int32_t uomDefaultsInProgress = 0;

char uomLastError[LAST_ERROR_SIZE] = "";

double uomRunFactor = 0.0;
double uomRunOffset = 0.0;
int32_t uomRunLinear = 0;
int32_t uomApiPending = 0;
int32_t uomApiExponent = 0;
int32_t uomApiMultiplier = 0;

int32_t UOM_NULL = 0;
int32_t UOM_BASMOLE = 0;
int32_t UOM_BASMOLAR = 0;
int32_t UOM_BASMASS = 0;
int32_t UOM_BASLIQV = 0;
int32_t UOM_BASVAPV = 0;
int32_t UOM_BASACTV = 0;

int32_t UOM_SET_NULL = 0;
int32_t UOM_SET_ENGLISH = 0;
int32_t UOM_SET_METRIC = 0;
int32_t UOM_SET_SI = 0;
int32_t UOM_SET_INTERNAL = 0;
int32_t UOM_SET_OXINTERNAL = 0;
int32_t UOM_SET_CURRENT = 0;
int32_t UOM_SET_MAX = 0;

#define WELL_KNOWN(variable, token) int32_t variable = 0;
#include "catalogue/well_known_units.def"
#undef WELL_KNOWN

// Not printf: that would walk the whole of a text of any length to count what it cuts.
void error_Set(const char *format, ...) {
    char text[LAST_ERROR_SIZE];
    TextWriter writer(text, sizeof text);
    va_list arguments;
    va_start(arguments, format);
    for (const char *c = format; *c; ++c) {
        if (*c != '%') {
            str_Write(writer, *c);
        } else if (*++c == 's') {
            str_WriteBounded(writer, va_arg(arguments, const char *));
        } else {
            char number[16];
            str_FormatBounded(number, sizeof number, "%d", va_arg(arguments, int));
            str_Write(writer, number);
        }
    }
    va_end(arguments);
    str_CopyBounded(uomLastError, sizeof uomLastError, text);
}

void error_Clear() {
    uomLastError[0] = '\0';
}

const char *uom_GetLastErrorMessage(void) {
    return uomLastError;
}

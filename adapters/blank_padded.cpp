#include "uom/blank_padded.h"

#include <cstring>

#include "support/text.h"
#include "uom/uom.h"

namespace {

constexpr uint32_t BAD_LENGTH = 0x7FFFFFFF;

// A blank-padded text as the library takes it.
template <size_t Size> struct FixedText {
    char text[Size] = {};
    FixedText(const char *padded, uint32_t length) {
        const size_t copied = length < Size ? length : Size - 1;
        if (padded && length < BAD_LENGTH)
            std::memcpy(text, padded, copied);
        uom::str_TrimRight(text);
    }
};
using FixedName = FixedText<32>;
using FixedUnits = FixedText<64>;
using FixedPath = FixedText<300>;

void give(int32_t *out, int32_t value) {
    if (out)
        *out = value;
}

} // namespace

int32_t uom_DumpFixed(const int32_t *slate, const char *path, uint32_t pathLength) {
    const FixedPath file(path, pathLength);
    return uom_Dump(slate ? *slate : 0, file.text);
}

void uom_DeleteSetFixed(const char *name, uint32_t nameLength, int32_t *status) {
    const FixedName slate(name, nameLength);
    give(status, uoms_DeleteSet(slate.text));
}

int32_t uom_NewSetFixed(const char *name, uint32_t nameLength, int32_t *index) {
    const FixedName slate(name, nameLength);
    const int32_t made = uoms_NewSet(slate.text);
    give(index, made);
    return made;
}

int32_t uom_InitializeSetFixed(const char *name, uint32_t nameLength, const char *source, uint32_t sourceLength,
                               int32_t *status) {
    const FixedName slate(name, nameLength);
    const FixedName from(source, sourceLength);
    const int32_t result = uoms_InitializeSet(slate.text, from.text);
    give(status, result);
    return result;
}

int32_t uoms_SetClassDefaultFixed(const char *slate, uint32_t slateLength, const char *className, uint32_t classLength,
                                  const char *units, uint32_t unitsLength, int32_t *status) {
    const FixedName slateName(slate, slateLength);
    const FixedUnits classText(className, classLength);
    const FixedUnits unitText(units, unitsLength);
    const int32_t result = uoms_SetClassDefault(slateName.text, classText.text, unitText.text);
    give(status, result);
    return result;
}

void uoms_GetDisplayUnitsFixed(const char *className, uint32_t classLength, const char *slate, uint32_t slateLength,
                               const int32_t *style, char *out, uint32_t size) {
    const FixedUnits classText(className, classLength);
    const FixedName slateName(slate, slateLength);
    if (!out || size == 0 || size > BAD_LENGTH)
        return;
    uoms_GetDisplayUnits(classText.text, slateName.text, out, static_cast<int32_t>(size), style ? *style : 0);
    const size_t used = std::strlen(out);
    std::memset(out + used, ' ', size - used);
}

void uoms_ConvertArrayFixed(const int32_t *count, double *values, const char *className, uint32_t classLength,
                            const char *from, uint32_t fromLength, const char *to, uint32_t toLength) {
    const FixedUnits classText(className, classLength);
    const FixedUnits fromText(from, fromLength);
    const FixedUnits toText(to, toLength);
    uoms_ConvertArray(values, count ? *count : 0, classText.text, fromText.text, toText.text);
}

void uoms_CalculateConvConstantsFixed(const char *className, uint32_t classLength, const char *from,
                                      uint32_t fromLength, const char *to, uint32_t toLength, int32_t *status,
                                      double *factor, double *offset) {
    const FixedUnits classText(className, classLength);
    const FixedUnits fromText(from, fromLength);
    const FixedUnits toText(to, toLength);
    const int32_t result = uoms_CalculateConvConstants(classText.text, fromText.text, toText.text, factor, offset);
    give(status, result > 0 ? -1 : result);
}

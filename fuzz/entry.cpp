// Typed texts: the first line of the input is the class, the second a text, the third another.
#include <cstring>

#include "fuzz/input.h"
#include "uom/entry.h"

namespace {

// What a text was read as is read as itself.
void checkAgain(const UomEntry &entry) {
    UomEntry again;
    demand(uom_ReadEntry(entry.classString, entry.units, &again) == 0);
    demand(std::strcmp(again.units, entry.units) == 0 && again.scale == 1.0);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    return startShipped();
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const auto &[classString, from, to] = ClassAndTexts(data, size);
    UomEntry entry;
    if (uom_ReadEntry(classString.c_str(), from.c_str(), &entry) == 0)
        checkAgain(entry);
    else
        demand(entry.position >= 0 && entry.position + entry.length <= static_cast<int32_t>(from.size()));
    UomConversion *conversion = nullptr;
    if (uom_NewConversionFromEntries(classString.c_str(), from.c_str(), to.c_str(), &conversion, &entry) == 0)
        uom_ConvertOne(conversion, 1.0);
    uom_FreeConversion(conversion);
    tbl_Free(uom_GetEntryClasses(from.c_str()));
    tbl_Free(uom_Search(from.c_str(), 5));
    return 0;
}

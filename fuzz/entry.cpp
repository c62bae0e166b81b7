// Typed texts: the first line of the input is the class, the second a text, the third another.
#include <cstring>

#include "fuzz/input.h"
#include "uom/entry.h"

namespace {

// What a text was read as is read as itself.
void checkAgain(const UomEntry &entry) {
    UomEntry again;
    if (uom_ReadEntry(entry.classString, entry.units, &again) != 0 || std::strcmp(again.units, entry.units) != 0 ||
        again.scale != 1.0)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    const char *words[] = {"-f", UOM_FUZZ_DATA};
    return uom_Init2(2, words);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    std::string text(reinterpret_cast<const char *>(data), size);
    const std::string classString = takeLine(text), from = takeLine(text), to = takeLine(text);
    UomEntry entry;
    if (uom_ReadEntry(classString.c_str(), from.c_str(), &entry) == 0)
        checkAgain(entry);
    else if (entry.position < 0 || entry.position + entry.length > static_cast<int32_t>(from.size()))
        std::abort();
    UomConversion *conversion = nullptr;
    if (uom_NewConversionFromEntries(classString.c_str(), from.c_str(), to.c_str(), &conversion, &entry) == 0)
        uom_ConvertOne(conversion, 1.0);
    uom_FreeConversion(conversion);
    tbl_Free(uom_GetEntryClasses(from.c_str()));
    tbl_Free(uom_Search(from.c_str(), 5));
    return 0;
}

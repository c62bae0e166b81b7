// Bytes of a data file. What starts is used: each class shown and filled, each slate told; some reports printed.
#include "fuzz/input.h"
#include "uom/entry.h"

namespace {

void showClass(int32_t classId) {
    char token[64], units[256];
    uom_GetClassText(classId, token, sizeof token, UOM_STYLE_TOKEN);
    UomStruct chain = uom_CreateStruct(classId, 1, nullptr);
    for (int32_t slate = 0; slate < UOM_SET_MAX && slate < 8; ++slate) {
        uom_InitializeUnits(chain, slate);
        uom_GetDisplayUnits(chain, units, sizeof units, UOM_STYLE_TOKEN);
        uom_FillStructFromString(chain, units, UOM_STYLE_TOKEN);
        uom_Convert(20.0, chain, slate, UOM_SET_SI);
    }
    uom_Free(&chain);
    tbl_Free(uom_GetUnitList(classId));
    tbl_Free(uom_GetChoices(token));
}

void showSlate(const char *name) {
    for (const int32_t format : {0, 1, 2})
        tbl_Free(uoms_GetSetDefinition(name, format));
}

void use() {
    for (int32_t classId = 0; classId <= uom_GetUOMClassCount(); ++classId)
        showClass(classId);
    UomTable *const slates = uom_GetSetList();
    for (uint32_t i = 0; slates && i < slates->count && i < 8; ++i)
        showSlate(tbl_GetText(slates, i));
    tbl_Free(slates);
    UomEntry entry;
    uom_ReadEntry("Pres", "250 kPag", &entry);
    uom_ReadEntry(nullptr, "5 lb/hr", &entry);
    uom_Dump(UOM_REPORT_DEFINITIONS, "/dev/null");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const int32_t status = uom_InitText(reinterpret_cast<const char *>(data), size, 0, nullptr);
    demand(status == 0 || *uom_GetLastErrorMessage());
    if (status == UOM_DONE || status == UOM_START_BAD_CLASSES || status == UOM_START_BAD_UNITS)
        use();
    if (size % 8 == 0) // the rest of the time is better spent on other inputs
        uom_Dump(UOM_REPORT_FULL, "/dev/null");
    uom_Cleanup();
    return 0;
}

// Texts of slates: each line of the input is a line of a definition, put to a slate. What the slate then says of itself
// is put to another one; what that says makes a third one say the same.
#include "fuzz/input.h"

namespace {

UomTable *tableOf(std::string text) {
    UomTable *const table = tbl_Create(0, UOM_KIND_TEXT);
    while (!text.empty())
        tbl_PutText(table, UOM_APPEND, takeLine(text).c_str());
    return table;
}

void put(const char *name, UomTable *lines) {
    uoms_PutSetDefinition(name, lines);
    tbl_Free(lines);
}

// But for the name, which is the first line, and for the pressure: it is told in kPa, and one of 50662.5 is read as Pa.
std::string definition(const char *name) {
    UomTable *const lines = uoms_GetSetDefinition(name, 2);
    std::string text;
    for (uint32_t i = 1; lines && i < lines->count; ++i) {
        const std::string line = tbl_GetText(lines, i);
        text += line.rfind("GaugePresBasis=", 0) == 0 ? "" : line + "\n";
    }
    tbl_Free(lines);
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    uom_InitText(smallData().data(), smallData().size(), 0, nullptr);
    uoms_NewSet("Plant");
    uoms_PutSetBasedOn("Plant", "Metric");
    put("Plant", tableOf(std::string(reinterpret_cast<const char *>(data), size)));
    for (const int32_t format : {0, 1, 2, 3})
        tbl_Free(uoms_GetSetDefinition("Plant", format));
    char units[256];
    for (const char *classes : {"Temp", "Pres/MassRate 2", "GaugePresBasis"})
        uoms_GetDisplayUnits(classes, "Plant", units, sizeof units, UOM_STYLE_TOKEN);
    if (uom_GetSetType("Plant") >= 0) {
        uoms_NewSet("Copy");
        put("Copy", uoms_GetSetDefinition("Plant", 2));
        uoms_NewSet("Last");
        put("Last", uoms_GetSetDefinition("Copy", 2));
        demand(definition("Last") == definition("Copy"));
    }
    uom_Dump(UOM_REPORT_DEFINITIONS, "/dev/null");
    uom_Cleanup();
    return 0;
}

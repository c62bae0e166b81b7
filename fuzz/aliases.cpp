// Texts of aliases, read and used. The catalogue starts anew for each, with a few lines of data.
#include <cstring>
#include <string>

#include "uom/catalogue.h"
#include "uom/entry.h"

namespace {

constexpr const char *DATA = "BEGINUOMLIST\n"
                             "none NONE \"No Unit\" 0 0.0 1.0\n"
                             "m M \"Meter\" 0 0.0 1.0\n"
                             "sec SEC \"Second\" 0 0.0 1.0\n"
                             "ENDUOMLIST\n"
                             "BEGINLIST\nLeng\nm\nENDLIST\n"
                             "BEGINLIST\nTime\nsec\nENDLIST\n"
                             "ENDSELECTLISTS\n";

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const std::string text(reinterpret_cast<const char *>(data), size);
    uom_InitText(DATA, std::strlen(DATA), 0, nullptr);
    uom_ReadAliasText(text.data(), text.size());
    // Every name of the text is typed.
    UomEntry entry;
    for (size_t begin = 0; begin < text.size();) {
        const size_t end = text.find('\n', begin);
        const std::string line = text.substr(begin, end - begin);
        uom_ReadEntry(nullptr, line.substr(0, line.find('=')).c_str(), &entry);
        uom_ReadEntry("Velocity", line.c_str(), &entry);
        begin = end == std::string::npos ? text.size() : end + 1;
    }
    tbl_Free(uom_Search("m", 3));
    uom_Cleanup();
    return 0;
}

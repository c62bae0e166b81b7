// Class and unit strings with conversion: the first line of the input is a class string, the second and the third are unit
// strings. What reads is printed and read back; a prepared conversion accepts what the conversion of an array does.
#include "fuzz/input.h"
#include "uom/conversion.h"

namespace {

constexpr int32_t ROOM = 2048;

std::string unitsOf(UomStruct chain) {
    std::string out(ROOM, '\0');
    uom_GetDisplayUnits(chain, out.data(), ROOM, UOM_STYLE_TOKEN);
    return out.c_str();
}

std::string classesOf(UomStruct chain) {
    std::string out(ROOM, '\0');
    uom_BuildClassString(chain, out.data(), ROOM, UOM_STYLE_TOKEN);
    return out.c_str();
}

void print(UomStruct chain) {
    for (const int32_t size : {1, 2, 26, 64}) {
        std::vector<char> out(static_cast<size_t>(size));
        for (int32_t style = 1; style <= 6; ++style) {
            uom_GetDisplayUnits(chain, out.data(), size, style);
            if (size > 1)
                uom_BuildClassString(chain, out.data(), size, style);
        }
        if (size >= 26)
            uom_StructToOXString(chain, out.data(), size);
    }
}

// The parser counts parentheses, and takes ")(" for balanced, whose texts mean something else.
bool nests(UomStruct chain) {
    constexpr int32_t open = 1, close = 2;
    int depth = 0;
    for (; chain && depth >= 0; chain = chain->next)
        depth += chain->classId == open ? 1 : chain->classId == close ? -1 : 0;
    return depth == 0;
}

// A chain's own text makes a chain of the same text.
void readBack(UomStruct chain) {
    const std::string classes = classesOf(chain), units = unitsOf(chain);
    if (classes.size() >= ROOM - 1 || units.size() >= ROOM - 1 || !nests(chain))
        return;
    UomStruct again = uoms_New(classes.c_str());
    if (again && uom_FillStructFromString(again, units.c_str(), UOM_STYLE_TOKEN) == 0)
        demand(unitsOf(again) == units);
    uom_Free(&again);
}

void forms(const std::string &classes, const std::string &units) {
    std::vector<char> out(64);
    uoms_GetAbsoluteClass(classes.c_str(), out.data(), 64);
    uoms_GetDifferenceClass(classes.c_str(), out.data(), 64);
    uoms_GetStandardClass(classes.c_str(), out.data(), 64);
    uoms_GetDifferenceUOM(classes.c_str(), units.c_str(), out.data(), 64);
    uoms_GetBasis(classes.c_str(), units.c_str());
    int32_t dimensions[6];
    uoms_GetDimensions(classes.c_str(), dimensions);
    std::vector<char> normal(units.size() + 1);
    uom_UOMStringToStd(normal.data(), units.c_str());
    for (const int32_t style : {1, 2}) {
        UomStruct chain = uom_ClassAndUnitToStruct(units.c_str(), style);
        uom_Free(&chain);
        chain = uom_StringToStruct(units.c_str(), 64, style);
        uom_Free(&chain);
    }
}

void convert(const std::string &classes, const std::string &from, const std::string &to) {
    double values[] = {1.0, -40.0, -1e36, 1e300, 0.0}, factor = 0.0, offset = 0.0;
    const int32_t status = uoms_ConvertArray(values, 5, classes.c_str(), from.c_str(), to.c_str());
    uoms_CalculateConvConstants(classes.c_str(), from.c_str(), to.c_str(), &factor, &offset);
    UomConversion *conversion = nullptr;
    const int32_t prepared = uoms_NewConversion(classes.c_str(), from.c_str(), to.c_str(), &conversion);
    demand(prepared == status || (status == 0 && prepared == 1));
    demand((conversion != nullptr) == (prepared == 0));
    double results[5];
    uom_ConvertMany(conversion, values, results, 5);
    uom_FreeConversion(conversion);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    return startShipped();
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const auto &[classes, from, to] = ClassAndTexts(data, size);
    UomStruct chain = uoms_New(classes.c_str());
    demand((chain != nullptr) == (uoms_IsClassValid(classes.c_str()) == 1));
    const int32_t status = uom_FillStructFromString(chain, from.c_str(), UOM_STYLE_TOKEN);
    if (chain)
        demand((uoms_ValidateUOM(classes.c_str(), from.c_str()) == 0) == (status == 0));
    print(chain);
    if (status == 0)
        readBack(chain);
    uom_FillStructFromString(chain, to.c_str(), UOM_STYLE_KEYWORD);
    print(chain);
    uom_Free(&chain);
    forms(classes, from);
    convert(classes, from, to);
    return 0;
}

#include "class_names.h"

#include <cstdlib>

#include "library.h"
#include "text.h"

static int32_t findClass(int32_t first, int32_t end, const std::string &name, int32_t style) {
    for (int32_t c = first; c < end; ++c)
        if (equalNoCase(uom::classText(c, style), name))
            return c;
    return 0;
}

static int32_t findClass(int32_t first, int32_t end, const std::string &name) {
    if (name.empty())
        return 0;
    const int32_t byToken = findClass(first, end, name, UOM_STYLE_TOKEN);
    return byToken ? byToken : findClass(first, end, name, UOM_STYLE_LONG_NAME);
}

int32_t compiledClass(const std::string &name) {
    // The one alternative token that is not the work of start-up.
    return findClass(FIRST_CLASS, UOM_COMPILED_CLASSES, equalNoCase(name, "VapVol") ? "StdVapVol" : name);
}

int32_t customClass(const std::string &name) {
    return findClass(UOM_COMPILED_CLASSES, uom_GetUOMClassCount(), name);
}

std::string componentsOf(int32_t classId) {
    if (uom_IsClassBase(classId))
        return "";
    std::string text;
    int sign = 1;
    for (const UomStructNode &node : uom::Chain(uom_CreateStruct(classId, 1, nullptr))) {
        const int32_t exponent = node.baseExponent * sign;
        if (exponent < 0) {
            text += text.empty() ? "1 /" : " /";
            sign = -sign;
        }
        text += (text.empty() ? "" : " ") + uom::classText(node.baseClass);
        if (std::abs(exponent) != 1)
            text += " " + std::to_string(std::abs(exponent));
    }
    return text;
}

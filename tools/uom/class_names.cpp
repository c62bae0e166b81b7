#include "class_names.h"

#include "library.h"
#include "text.h"

static int32_t findClass(int32_t first, int32_t end, const std::string &name, int32_t style) {
    for (int32_t c = first; c < end; ++c)
        if (equalNoCase(classText(c, style), name))
            return c;
    return 0;
}

static int32_t findClass(int32_t first, int32_t end, const std::string &name) {
    if (name.empty())
        return 0;
    const int32_t byToken = findClass(first, end, name, TOKEN_STYLE);
    return byToken ? byToken : findClass(first, end, name, LONG_NAME_STYLE);
}

int32_t compiledClass(const std::string &name) {
    // The one alternative token that is not the work of start-up.
    return findClass(FIRST_CLASS, COMPILED_CLASSES, equalNoCase(name, "VapVol") ? "StdVapVol" : name);
}

int32_t customClass(const std::string &name) {
    return findClass(COMPILED_CLASSES, uom_GetUOMClassCount(), name);
}

#include "text/styles.h"

#include <iterator>

#include "catalogue/class_table.h"
#include "support/text.h"

namespace uom {

static const char *const styleNames[] = {"token", "keyword", "tokensuper", "tokenupper", "longname", "html"};
static_assert(std::size(styleNames) == STYLE_HTML, "A name for each style from 1 on.");

static bool isStyle(int32_t style) {
    return style >= STYLE_TOKEN && style <= STYLE_HTML;
}

void uom_StyleToName(int32_t style, char *out, int32_t size) {
    if (out && size > 0)
        str_CopyBounded(out, static_cast<size_t>(size), isStyle(style) ? styleNames[style - 1] : "");
}

int32_t uom_StyleFromName(const char *name, int32_t *style) {
    int32_t found = 0;
    for (int32_t code = STYLE_TOKEN; code <= STYLE_HTML; ++code)
        if (str_EqualNoCase(name, styleNames[code - 1]))
            found = code;
    if (style)
        *style = found;
    return found;
}

int32_t style_Effective(const Catalogue &catalogue, int32_t style) {
    return style > 0 ? style : catalogue.styles.display;
}

int32_t uom_SetDefaultDisplayStyle(Catalogue &catalogue, int32_t style) {
    const int32_t previous = catalogue.styles.display;
    if (isStyle(style))
        catalogue.styles.display = style;
    return previous;
}

int32_t uom_GetDefaultDisplayStyle(const Catalogue &catalogue) {
    return catalogue.styles.display;
}

void uom_SetAllowUOMMultipliers(Catalogue &catalogue, int32_t allow) {
    catalogue.modes.allowMult = allow;
}

int32_t uom_GetAllowUOMMultipliers(const Catalogue &catalogue) {
    return catalogue.modes.allowMult;
}

} // namespace uom

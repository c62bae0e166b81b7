#include "text/styles.h"

#include "catalogue/class_table.h"
#include "catalogue/state.h"
#include "support/text.h"

static const char *const styleNames[] = {"token", "keyword", "tokensuper", "tokenupper", "longname", "html"};

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

int32_t style_Effective(int32_t style) {
    return style > 0 ? style : defaultDisplayStyle;
}

int32_t uom_SetDefaultDisplayStyle(int32_t style) {
    const int32_t previous = defaultDisplayStyle;
    if (isStyle(style))
        defaultDisplayStyle = style;
    return previous;
}

int32_t uom_GetDefaultDisplayStyle(void) {
    return defaultDisplayStyle;
}

void uom_SetAllowUOMMultipliers(int32_t allow) {
    uomAllowMult = allow;
}

int32_t uom_GetAllowUOMMultipliers(void) {
    return uomAllowMult;
}

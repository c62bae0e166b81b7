#include "uomstruct/related_unit.h"

#include <string_view>

#include "catalogue/units.h"
#include "support/text.h"

namespace uom {

namespace {

constexpr size_t NAME_LENGTH = 127;

std::string_view nameOf(const Catalogue &catalogue, int32_t unit) {
    return str_Head(unit_Token(catalogue, unit), NAME_LENGTH);
}

// In front of the hyphen of work units there is none in their millions.
struct Spelling {
    std::string_view token, inMillions;
};
constexpr Spelling spellings[] = {{"g-cm", "gcm"}, {"kg-m", "kgm"}, {"ft-lb", "ftlb"}};

int32_t squared(const Catalogue &catalogue, int32_t unit) {
    return unit_NamedWith(catalogue, unit, "2");
}
int32_t cubed(const Catalogue &catalogue, int32_t unit) {
    return unit_NamedWith(catalogue, unit, "3");
}
int32_t rooted(const Catalogue &catalogue, int32_t unit) {
    return unit_NamedUpToLast(catalogue, unit, '2');
}
int32_t inMoles(const Catalogue &catalogue, int32_t unit) {
    return unit_NamedWith(catalogue, unit, "-mol");
}
int32_t inMass(const Catalogue &catalogue, int32_t unit) {
    return unit_NamedUpToFirst(catalogue, unit, '-');
}

struct RelatedRule {
    int32_t fromClass, toClass;
    int32_t (*rule)(const Catalogue &catalogue, int32_t unit);
};
const RelatedRule relatedRules[] = {
    {CLASS_LENG, CLASS_AREA, squared},
    {CLASS_LENG, CLASS_LIQ_VOL, cubed},
    {CLASS_LENG, CLASS_VAP_VOL, cubed},
    {CLASS_LENG, CLASS_ACT_VOL, cubed},
    {CLASS_AREA, CLASS_LENG, rooted},
    {CLASS_MASS, CLASS_MOLE, inMoles},
    {CLASS_MASS, CLASS_MOLAR, inMoles},
    {CLASS_MOLE, CLASS_MASS, inMass},
    {CLASS_MOLAR, CLASS_MASS, inMass},
    {CLASS_ENERGY, CLASS_E6_ENERGY, unit_NamedInMillions},
    {CLASS_ENERGY, CLASS_E6_POWER_TOP, unit_NamedInMillions},
    {CLASS_POWER_TOP, CLASS_E6_ENERGY, unit_NamedInMillions},
    {CLASS_POWER_TOP, CLASS_E6_POWER_TOP, unit_NamedInMillions},
};

int32_t named(const Catalogue &catalogue, std::string_view name) {
    return name.empty() ? NO_UNIT : unit_FindToken(catalogue, name);
}

} // namespace

int32_t unit_NamedWith(const Catalogue &catalogue, int32_t unit, const char *suffix) {
    const std::string_view name = nameOf(catalogue, unit);
    return name.empty() ? NO_UNIT : unit_FindJoined(catalogue, name, suffix);
}

int32_t unit_NamedUpToFirst(const Catalogue &catalogue, int32_t unit, char mark) {
    const std::string_view name = nameOf(catalogue, unit);
    return named(catalogue, str_Head(name, name.find(mark)));
}

int32_t unit_NamedUpToLast(const Catalogue &catalogue, int32_t unit, char mark) {
    const std::string_view name = nameOf(catalogue, unit);
    return named(catalogue, str_Head(name, name.rfind(mark)));
}

int32_t unit_NamedInMillions(const Catalogue &catalogue, int32_t unit) {
    std::string_view name = nameOf(catalogue, unit);
    if (name.empty())
        return NO_UNIT;
    for (const Spelling &spelling : spellings)
        if (name == spelling.token)
            name = spelling.inMillions;
    return unit_FindJoined(catalogue, "x 10^6 ", name);
}

int32_t uom_FindRelatedUnit(const Catalogue &catalogue, int32_t fromClass, int32_t unit, int32_t toClass,
                            int32_t *relatedUnit) {
    *relatedUnit = NO_UNIT;
    for (const RelatedRule &rule : relatedRules)
        if (rule.fromClass == fromClass && rule.toClass == toClass)
            *relatedUnit = rule.rule(catalogue, unit);
    return *relatedUnit == NO_UNIT;
}

} // namespace uom

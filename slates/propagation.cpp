#include "slates/propagation.h"

#include "catalogue/class_table.h"
#include "catalogue/slate_table.h"
#include "slates/defaults.h"
#include "slates/registry.h"
#include "slates/working_units.h"
#include "support/scoped.h"
#include "support/text.h"
#include "text/display_units.h"
#include "text/unit_text.h"
#include "uomstruct/class_string.h"
#include "uomstruct/related_unit.h"

namespace uom {

namespace {

constexpr int32_t TEXT_SIZE = 32; // of a unit's or class's text that a rule puts into another

// A default that was just stored, and the slate in which its rules write.
struct Trigger {
    Catalogue &catalogue;
    Running &running;
    int32_t slate;
    const UomSlate *record;
    int32_t unit;
    int32_t multiplier;
    bool hx;
};

// --- the two ways to write, and the text that a class resolves to

void setUnit(const Trigger &trigger, int32_t classId, int32_t unit, int32_t multiplier) {
    uom_SetClassDefault(trigger.catalogue, trigger.running, trigger.slate, classId, &unit, &multiplier);
}

// A unit that the file lacks makes a rule do nothing; withdrawing a default withdraws what depends on it.
void setFollowing(const Trigger &trigger, int32_t classId, int32_t unit) {
    if (unit > NO_UNIT || trigger.unit <= NO_UNIT)
        setUnit(trigger, classId, unit, trigger.multiplier);
}

void setText(const Trigger &trigger, const char *token, const char *text) {
    uoms_SetClassDefault(trigger.catalogue, trigger.running, trigger.record->name, token, text);
}

// With inheritance: a class that the slate leaves open gives its parent's unit.
struct ResolvedText {
    char text[TEXT_SIZE];
    ResolvedText(const Trigger &trigger, const char *token) {
        ParsedChain chain(trigger.catalogue, token);
        chain_TakeSlate(trigger.catalogue, chain.chain, trigger.slate);
        uom_GetDisplayUnits(trigger.catalogue, chain.chain, text, sizeof text, STYLE_TOKEN);
    }
};

struct UnitText {
    char text[TEXT_SIZE];
    UnitText(const Catalogue &catalogue, int32_t unit) {
        uom_GetUnitText(catalogue, unit, text, sizeof text, STYLE_TOKEN);
    }
};

void setOver(const Trigger &trigger, const char *token, const char *unit, const char *time) {
    char text[TEXT_SIZE + 8];
    str_FormatBounded(text, sizeof text, "%s/%s", unit, time);
    setText(trigger, token, text);
}

void setMomentum(const Trigger &trigger, const char *mass, const char *length) {
    char text[2 * TEXT_SIZE + 8];
    str_FormatBounded(text, sizeof text, "%s/%s/sec2", mass, length);
    setText(trigger, "RhoVV", text);
}

// --- rules of both families

struct TemperatureRule {
    NamedUnit unit, absolute;
};
const TemperatureRule temperatureRules[] = {{&NamedUnits::UOM_U_F, &NamedUnits::UOM_U_R},
                                            {&NamedUnits::UOM_U_C, &NamedUnits::UOM_U_K}};

void afterTemp(const Trigger &trigger) {
    const NamedUnits &named = trigger.catalogue.named;
    int32_t absolute = trigger.unit;
    for (const TemperatureRule &rule : temperatureRules)
        if (trigger.unit > NO_UNIT && trigger.unit == named.*rule.unit)
            absolute = named.*rule.absolute;
    setFollowing(trigger, CLASS_TEMP_ABS, absolute);
    setUnit(trigger, CLASS_TEMP_DIFF, trigger.unit, trigger.multiplier);
}

void afterTempHX(const Trigger &trigger) {
    setUnit(trigger, CLASS_TEMP_DIFF, trigger.unit, trigger.multiplier);
}

// A pressure default decides its absolute and difference forms. What the HX family does not list stands as it
// is.
struct PressureRule {
    NamedUnit unit, gaugeUnit, absolute, difference;
    bool inHX;
};
const PressureRule pressureRules[] = {
    {&NamedUnits::UOM_U_PA, &NamedUnits::UOM_U_PAG, &NamedUnits::UOM_U_PA, &NamedUnits::UOM_U_PA, false},
    {&NamedUnits::UOM_U_KPA, &NamedUnits::UOM_U_KPAG, &NamedUnits::UOM_U_KPA, &NamedUnits::UOM_U_KPA, false},
    {&NamedUnits::UOM_U_MPA, &NamedUnits::UOM_U_MPAG, &NamedUnits::UOM_U_MPA, &NamedUnits::UOM_U_MPA, false},
    {&NamedUnits::UOM_U_BAR, &NamedUnits::UOM_U_BARG, &NamedUnits::UOM_U_BAR, &NamedUnits::UOM_U_BAR, true},
    {&NamedUnits::UOM_U_MBAR, &NamedUnits::UOM_U_MBARG, &NamedUnits::UOM_U_MBAR, &NamedUnits::UOM_U_MBAR, false},
    {&NamedUnits::UOM_U_IN_HG, &NamedUnits::UOM_U_IN_HGG, &NamedUnits::UOM_U_IN_HG, &NamedUnits::UOM_U_IN_HG, false},
    {&NamedUnits::UOM_U_MM_HG, &NamedUnits::UOM_U_MM_HGG, &NamedUnits::UOM_U_MM_HG, &NamedUnits::UOM_U_MM_HG, false},
    {&NamedUnits::UOM_U_PSIA, &NamedUnits::UOM_U_PSIG, &NamedUnits::UOM_U_PSIA, &NamedUnits::UOM_U_PSI, true},
    {&NamedUnits::UOM_U_ATA, &NamedUnits::UOM_U_ATE, &NamedUnits::UOM_U_ATA, &NamedUnits::UOM_U_ATA, true},
    {&NamedUnits::UOM_U_KG_CM2, &NamedUnits::UOM_U_KG_CM2G, &NamedUnits::UOM_U_KG_CM2, &NamedUnits::UOM_U_KG_CM2,
     false},
};

void afterPres(const Trigger &trigger) {
    const NamedUnits &named = trigger.catalogue.named;
    int32_t absolute = trigger.unit;
    int32_t difference = trigger.unit;
    for (const PressureRule &rule : pressureRules) {
        const bool matches = trigger.unit == named.*rule.unit || trigger.unit == named.*rule.gaugeUnit;
        if (trigger.unit <= NO_UNIT || !matches || (trigger.hx && !rule.inHX))
            continue;
        absolute = named.*rule.absolute;
        difference = named.*rule.difference;
        break;
    }
    setFollowing(trigger, CLASS_PRES_ABS, absolute);
    setFollowing(trigger, CLASS_PRES_DIFF, difference);
}

void setMillions(const Trigger &trigger, int32_t classId) {
    const int32_t millions = unit_NamedInMillions(trigger.catalogue, trigger.unit);
    if (millions > NO_UNIT)
        setUnit(trigger, classId, millions, trigger.multiplier);
}

void afterEnergy(const Trigger &trigger) {
    setMillions(trigger, CLASS_E6_ENERGY);
}

void afterPowerTop(const Trigger &trigger) {
    setMillions(trigger, CLASS_E6_POWER_TOP);
}

// --- rules of ordinary slates

void afterLeng(const Trigger &trigger) {
    const int32_t area = unit_NamedWith(trigger.catalogue, trigger.unit, "2");
    if (area > NO_UNIT)
        setUnit(trigger, CLASS_AREA, area, 0);
    const int32_t volume = unit_NamedWith(trigger.catalogue, trigger.unit, "3");
    if (volume <= NO_UNIT)
        return;
    for (const int32_t classId : {CLASS_LIQ_VOL, CLASS_VAP_VOL, CLASS_ACT_VOL})
        setUnit(trigger, classId, volume, 0);
}

// --- rules of the HX family

void afterVapVol(const Trigger &trigger) {
    setOver(trigger, "VapVolRate", ResolvedText(trigger, "StdVapVol").text, "min");
}

// The rates are in these forms whatever time unit was chosen.
void afterTime(const Trigger &trigger) {
    afterVapVol(trigger);
    setOver(trigger, "Velocity", ResolvedText(trigger, "Leng").text, "sec");
}

struct FineRule {
    const char *length, *fineLength, *fineArea;
};
const FineRule fineRules[] = {{"ft", "in", "in2"}, {"m", "mm", "mm2"}};

void afterArea(const Trigger &trigger) {
    if (!uoms_IsSetDerivedFrom(trigger.catalogue, trigger.record->basedOn, "HXREPORT"))
        return;
    const int32_t length = unit_NamedUpToLast(trigger.catalogue, trigger.unit, '2');
    if (length <= NO_UNIT)
        return;
    setUnit(trigger, CLASS_LENG, length, 0);
    const UnitText name(trigger.catalogue, length);
    for (const FineRule &rule : fineRules) {
        if (!str_EqualNoCase(name.text, rule.length))
            continue;
        setText(trigger, "FineLeng", rule.fineLength);
        setText(trigger, "FineArea", rule.fineArea);
    }
    setOver(trigger, "Velocity", name.text, "sec");
    setMomentum(trigger, ResolvedText(trigger, "Mass").text, name.text);
}

void afterLiqVol(const Trigger &trigger) {
    char stated[TEXT_SIZE] = "";
    uoms_GetClassDefault(trigger.catalogue, trigger.record->name, "Density", stated, sizeof stated);
    if (*stated)
        return;
    const bool english = uoms_IsSetDerivedFrom(trigger.catalogue, trigger.record->name, "HXENGLISH") != 0;
    setText(trigger, "Density", english ? "lb/ft3" : "kg/m3");
}

void afterMass(const Trigger &trigger) {
    setMomentum(trigger, UnitText(trigger.catalogue, trigger.unit).text, ResolvedText(trigger, "Leng").text);
    afterLiqVol(trigger);
}

// The fouling unit is the inverse of the coefficient. The fourth turns K into C on the way, kept.
struct FoulingRule {
    const char *coefficient, *fouling;
};
const FoulingRule foulingRules[] = {
    {"BTU/hr-ft2-F", "hr-ft2-F/BTU"}, {"kJ/hr-m2-K", "hr-m2-K/kJ"}, {"kW/m2-K", "m2-K/kW"},
    {"kcal/hr-m2-K", "hr-m2-C/kcal"}, {"W/m2-K", "m2-K/W"},
};

void afterHtco(const Trigger &trigger) {
    const ResolvedText coefficient(trigger, "Htco");
    for (const FoulingRule &rule : foulingRules)
        if (str_EqualNoCase(coefficient.text, rule.coefficient))
            setText(trigger, "Foul", rule.fouling);
}

// Reached only by running the rules apart from a write, since a composite class sets off none.
void afterDensity(const Trigger &trigger) {
    const ResolvedText petro(trigger, "PetroDensity");
    if (str_EqualNoCase(petro.text, "API") || str_EqualNoCase(petro.text, "spgr"))
        return;
    setText(trigger, "PetroDensity", ResolvedText(trigger, "Density").text);
}

struct Rule {
    int32_t classId;
    void (*run)(const Trigger &trigger);
};
const Rule commonRules[] = {
    {CLASS_TEMP, afterTemp},     {CLASS_PRES, afterPres},          {CLASS_LENG, afterLeng},
    {CLASS_ENERGY, afterEnergy}, {CLASS_POWER_TOP, afterPowerTop},
};
const Rule hxRules[] = {
    {CLASS_TEMP, afterTempHX},        {CLASS_PRES, afterPres},       {CLASS_TIME, afterTime},
    {CLASS_AREA, afterArea},          {CLASS_LIQ_VOL, afterLiqVol},  {CLASS_VAP_VOL, afterVapVol},
    {CLASS_MASS, afterMass},          {CLASS_ENERGY, afterEnergy},   {CLASS_HTCO, afterHtco},
    {CLASS_POWER_TOP, afterPowerTop}, {CLASS_DENSITY, afterDensity},
};

template <size_t N> const Rule *findRule(const Rule (&rules)[N], int32_t classId) {
    for (const Rule &rule : rules)
        if (rule.classId == classId)
            return &rule;
    return nullptr;
}

// Judged by the parent: a family root is based on itself.
bool isInHXFamily(const Catalogue &catalogue, const UomSlate &slate) {
    for (const char *root : {"HXENGLISH", "HXMETRIC", "HXSI"})
        if (uoms_IsSetDerivedFrom(catalogue, slate.basedOn, root))
            return true;
    return false;
}

// Runs one rule of one family; what it writes is read as tokens whatever styles the host has chosen.
void run(Catalogue &catalogue, Running &running, const Rule *rule, bool hx, int32_t slate, const UomSlate &record,
         int32_t unit, int32_t multiplier) {
    if (!rule || isInHXFamily(catalogue, record) != hx)
        return;
    const ScopedValue<int32_t> classStyle(catalogue.styles.scanClass, STYLE_TOKEN);
    const ScopedValue<int32_t> unitStyle(catalogue.styles.scanUom, STYLE_TOKEN);
    rule->run({catalogue, running, slate, &record, unit, multiplier, hx});
}

} // namespace

int32_t uom_PropagateCommonRules(Catalogue &catalogue, Running &running, int32_t slate, int32_t classId,
                                 const int32_t *units, const int32_t *multipliers) {
    const UomSlate *record = slate_Record(catalogue, slate);
    if (!record || !class_IsValid(catalogue, classId) || !units || !multipliers)
        return 1;
    run(catalogue, running, findRule(commonRules, classId), false, slate, *record, units[0], multipliers[0]);
    return 0;
}

int32_t uom_PropagateHXRules(Catalogue &catalogue, Running &running, int32_t slate, int32_t classId,
                             const int32_t *units, const int32_t *multipliers) {
    const UomSlate *record = slate_Record(catalogue, slate);
    if (!record || !units || !multipliers)
        return 1;
    run(catalogue, running, findRule(hxRules, classId), true, slate, *record, units[0], multipliers[0]);
    return 0;
}

int32_t uom_PropagateClassDefault(Catalogue &catalogue, Running &running, int32_t slate, int32_t classId,
                                  const int32_t *units, const int32_t *multipliers) {
    if (catalogue.slates.rulesRunning)
        return 0;
    const ScopedValue<int32_t> guard(catalogue.slates.rulesRunning, 1);
    uom_PropagateCommonRules(catalogue, running, slate, classId, units, multipliers);
    uom_PropagateHXRules(catalogue, running, slate, classId, units, multipliers);
    return 0;
}

} // namespace uom

#include "slates/propagation.h"

#include "catalogue/class_table.h"
#include "catalogue/slate_table.h"
#include "catalogue/state.h"
#include "catalogue/units.h"
#include "slates/registry.h"
#include "support/scoped.h"
#include "support/text.h"
#include "uomstruct/chain.h"
#include "uomstruct/related_unit.h"
#include "uomstruct/unit_string.h"

namespace {

constexpr int32_t TEXT_SIZE = 32; // of a unit's or class's text that a rule puts into another

// A default that was just stored, and the slate in which its rules write.
struct Trigger {
    int32_t slate;
    const UomSlate *record;
    int32_t unit;
    int32_t multiplier;
    bool hx;
};

// --- the two ways to write, and the text that a class resolves to

void setUnit(const Trigger &trigger, int32_t classId, int32_t unit, int32_t multiplier) {
    uom_SetClassDefault(trigger.slate, classId, &unit, &multiplier);
}

// A unit that the file lacks makes a rule do nothing; withdrawing a default withdraws what depends on it.
void setFollowing(const Trigger &trigger, int32_t classId, int32_t unit) {
    if (unit > UOM_NULL || trigger.unit <= UOM_NULL)
        setUnit(trigger, classId, unit, trigger.multiplier);
}

void setText(const Trigger &trigger, const char *token, const char *text) {
    uoms_SetClassDefault(trigger.record->name, token, text);
}

// With inheritance: a class that the slate leaves open gives its parent's unit.
struct ResolvedText {
    char text[TEXT_SIZE];
    ResolvedText(const Trigger &trigger, const char *token) {
        const ScopedChain chain(uoms_New(token));
        chain_TakeSlate(chain.chain, trigger.slate);
        uom_GetDisplayUnits(chain.chain, text, sizeof text, STYLE_TOKEN);
    }
};

struct UnitText {
    char text[TEXT_SIZE];
    explicit UnitText(int32_t unit) { uom_GetUnitText(unit, text, sizeof text, STYLE_TOKEN); }
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
    const int32_t *unit, *absolute;
};
const TemperatureRule temperatureRules[] = {{&UOM_U_F, &UOM_U_R}, {&UOM_U_C, &UOM_U_K}};

void afterTemp(const Trigger &trigger) {
    int32_t absolute = trigger.unit;
    for (const TemperatureRule &rule : temperatureRules)
        if (trigger.unit > UOM_NULL && trigger.unit == *rule.unit)
            absolute = *rule.absolute;
    setFollowing(trigger, CLASS_TEMP_ABS, absolute);
    setUnit(trigger, CLASS_TEMP_DIFF, trigger.unit, trigger.multiplier);
}

void afterTempHX(const Trigger &trigger) {
    setUnit(trigger, CLASS_TEMP_DIFF, trigger.unit, trigger.multiplier);
}

// A pressure default decides its absolute and difference forms. What the HX family does not list stands as it
// is.
struct PressureRule {
    const int32_t *unit, *gaugeUnit, *absolute, *difference;
    bool inHX;
};
const PressureRule pressureRules[] = {
    {&UOM_U_PA, &UOM_U_PAG, &UOM_U_PA, &UOM_U_PA, false},
    {&UOM_U_KPA, &UOM_U_KPAG, &UOM_U_KPA, &UOM_U_KPA, false},
    {&UOM_U_MPA, &UOM_U_MPAG, &UOM_U_MPA, &UOM_U_MPA, false},
    {&UOM_U_BAR, &UOM_U_BARG, &UOM_U_BAR, &UOM_U_BAR, true},
    {&UOM_U_MBAR, &UOM_U_MBARG, &UOM_U_MBAR, &UOM_U_MBAR, false},
    {&UOM_U_IN_HG, &UOM_U_IN_HGG, &UOM_U_IN_HG, &UOM_U_IN_HG, false},
    {&UOM_U_MM_HG, &UOM_U_MM_HGG, &UOM_U_MM_HG, &UOM_U_MM_HG, false},
    {&UOM_U_PSIA, &UOM_U_PSIG, &UOM_U_PSIA, &UOM_U_PSI, true},
    {&UOM_U_ATA, &UOM_U_ATE, &UOM_U_ATA, &UOM_U_ATA, true},
    {&UOM_U_KG_CM2, &UOM_U_KG_CM2G, &UOM_U_KG_CM2, &UOM_U_KG_CM2, false},
};

void afterPres(const Trigger &trigger) {
    int32_t absolute = trigger.unit;
    int32_t difference = trigger.unit;
    for (const PressureRule &rule : pressureRules) {
        const bool matches = trigger.unit == *rule.unit || trigger.unit == *rule.gaugeUnit;
        if (trigger.unit <= UOM_NULL || !matches || (trigger.hx && !rule.inHX))
            continue;
        absolute = *rule.absolute;
        difference = *rule.difference;
        break;
    }
    setFollowing(trigger, CLASS_PRES_ABS, absolute);
    setFollowing(trigger, CLASS_PRES_DIFF, difference);
}

void setMillions(const Trigger &trigger, int32_t classId) {
    const int32_t millions = unit_NamedInMillions(trigger.unit);
    if (millions > UOM_NULL)
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
    const int32_t area = unit_NamedWith(trigger.unit, "2");
    if (area > UOM_NULL)
        setUnit(trigger, CLASS_AREA, area, 0);
    const int32_t volume = unit_NamedWith(trigger.unit, "3");
    if (volume <= UOM_NULL)
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
    if (!uoms_IsSetDerivedFrom(trigger.record->basedOn, "HXREPORT"))
        return;
    const int32_t length = unit_NamedUpToLast(trigger.unit, '2');
    if (length <= UOM_NULL)
        return;
    setUnit(trigger, CLASS_LENG, length, 0);
    const UnitText name(length);
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
    uoms_GetClassDefault(trigger.record->name, "Density", stated, sizeof stated);
    if (*stated)
        return;
    const bool english = uoms_IsSetDerivedFrom(trigger.record->name, "HXENGLISH") != 0;
    setText(trigger, "Density", english ? "lb/ft3" : "kg/m3");
}

void afterMass(const Trigger &trigger) {
    setMomentum(trigger, UnitText(trigger.unit).text, ResolvedText(trigger, "Leng").text);
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
bool isInHXFamily(const UomSlate &slate) {
    for (const char *root : {"HXENGLISH", "HXMETRIC", "HXSI"})
        if (uoms_IsSetDerivedFrom(slate.basedOn, root))
            return true;
    return false;
}

// Runs one rule of one family; what it writes is read as tokens whatever styles the host has chosen.
void run(const Rule *rule, bool hx, int32_t slate, const UomSlate &record, int32_t unit, int32_t multiplier) {
    if (!rule || isInHXFamily(record) != hx)
        return;
    const ScopedValue<int32_t> classStyle(defaultScanClassStyle, STYLE_TOKEN);
    const ScopedValue<int32_t> unitStyle(defaultScanUOMStyle, STYLE_TOKEN);
    rule->run({slate, &record, unit, multiplier, hx});
}

} // namespace

int32_t uom_PropagateCommonRules(int32_t slate, int32_t classId, const int32_t *units, const int32_t *multipliers) {
    const UomSlate *record = slate_Record(slate);
    if (!record || !class_IsValid(classId) || !units || !multipliers)
        return 1;
    run(findRule(commonRules, classId), false, slate, *record, units[0], multipliers[0]);
    return 0;
}

int32_t uom_PropagateHXRules(int32_t slate, int32_t classId, const int32_t *units, const int32_t *multipliers) {
    const UomSlate *record = slate_Record(slate);
    if (!record || !units || !multipliers)
        return 1;
    run(findRule(hxRules, classId), true, slate, *record, units[0], multipliers[0]);
    return 0;
}

int32_t uom_PropagateClassDefault(int32_t slate, int32_t classId, const int32_t *units, const int32_t *multipliers) {
    if (uomDefaultsInProgress)
        return 0;
    const ScopedValue<int32_t> guard(uomDefaultsInProgress, 1);
    uom_PropagateCommonRules(slate, classId, units, multipliers);
    uom_PropagateHXRules(slate, classId, units, multipliers);
    return 0;
}

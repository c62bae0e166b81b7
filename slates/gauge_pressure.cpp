// The atmospheric pressure that a slate assumes is the zero of the gauge units. The unit table has one offset
// a unit, so the slate that was set last counts for every conversion.
#include "slates/gauge_pressure.h"

#include "catalogue/slate_table.h"
#include "catalogue/units.h"

namespace uom {

namespace {

// The gauge units that follow the basis; the others keep the offsets of the data file.
const NamedUnit gaugeUnits[] = {&NamedUnits::UOM_U_KPAG, &NamedUnits::UOM_U_BARG,    &NamedUnits::UOM_U_ATE,
                                &NamedUnits::UOM_U_PSIG, &NamedUnits::UOM_U_KG_CM2G, &NamedUnits::UOM_U_MBARG};

bool hasBasis(const UomSlate &slate) {
    return !(slate.gaugePresBasis < 0.0);
}

} // namespace

int32_t uom_SetGaugePressureBasis(Catalogue &catalogue, int32_t slate) {
    const UomSlate *record = slate_Record(catalogue, slate);
    if (!record)
        return 1;
    const UomSlate *stating = slate_FindUpward(catalogue, slate, hasBasis);
    const double basis = stating ? stating->gaugePresBasis : STANDARD_ATMOSPHERE;
    const UomUnit *kpa = unit_Record(catalogue, catalogue.named.UOM_U_KPA);
    for (const NamedUnit gauge : gaugeUnits) {
        UomUnit *unit = unit_Record(catalogue, catalogue.named.*gauge);
        if (unit && kpa)
            unit->offset = basis * kpa->factor / unit->factor;
    }
    return 0;
}

} // namespace uom

// The atmospheric pressure that a slate assumes is the zero of the gauge units. The unit table has one offset
// a unit, so the slate that was set last counts for every conversion.
#include "catalogue/state.h"
#include "catalogue/units.h"
#include "catalogue/slate_table.h"

namespace {

// The gauge units that follow the basis; the others keep the offsets of the data file.
const int32_t *const gaugeUnits[] = {&UOM_U_KPAG, &UOM_U_BARG, &UOM_U_ATE, &UOM_U_PSIG, &UOM_U_KG_CM2G, &UOM_U_MBARG};

bool hasBasis(const UomSlate &slate) {
    return !(slate.gaugePresBasis < 0.0);
}

} // namespace

int32_t uom_SetGaugePressureBasis(int32_t slate) {
    const UomSlate *record = slate_Record(slate);
    if (!record)
        return 1;
    const UomSlate *stating = slate_FindUpward(slate, hasBasis);
    const double basis = stating ? stating->gaugePresBasis : STANDARD_ATMOSPHERE;
    const UomUnit *kpa = unit_Record(UOM_U_KPA);
    for (const int32_t *gauge : gaugeUnits) {
        UomUnit *unit = unit_Record(*gauge);
        if (unit && kpa)
            unit->offset = basis * kpa->factor / unit->factor;
    }
    return 0;
}

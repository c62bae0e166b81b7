#include "entry/fit.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "catalogue/class_table.h"
#include "catalogue/units.h"
#include "support/numbers.h"
#include "support/text.h"
#include "uomstruct/quotients.h"
#include "uomstruct/unit_scan.h"

namespace uom {

namespace {

// Two sizes that come from one definition by way of doubles agree so far; different units never do.
constexpr double SAME_SIZE = 1e-13;

struct Fitter {
    const Catalogue &catalogue;
    const Words &words;
    const Product &product;
    const Measure &measure;
    const Shape &shape;
    Fit fit;
    bool used[Product::LIMIT] = {};
};

bool isSame(double a, double b) {
    return std::fabs(a / b - 1.0) < SAME_SIZE;
}

bool isListed(const Fitter &fitter, int32_t classId, int32_t unit) {
    return uom_GetUnitListIndex(fitter.catalogue, classId, unit) >= 0;
}

// A gas volume stands for an amount: as the volume of a liquid or a volume at the conditions in the pipe it would be
// converted by the expansion of an ideal gas.
bool isForeignGas(const Fitter &fitter, int32_t classId, int32_t unit) {
    const UnitQuantity &quantity = fitter.words.units[unit];
    return quantity.gas && classId != CLASS_VAP_VOL;
}

int32_t takeTerm(Fitter &fitter, int32_t slot) {
    const int32_t classId = fitter.shape.classes[slot];
    for (int32_t i = 0; i < fitter.product.count; ++i) {
        const Term &term = fitter.product.terms[i];
        if (fitter.used[i] || term.exponent != fitter.shape.exponents[slot] || !isListed(fitter, classId, term.unit))
            continue;
        if (isForeignGas(fitter, classId, term.unit)) {
            fitter.fit.refusedGas = true;
            continue;
        }
        fitter.used[i] = true;
        fitter.fit.multipliers[slot] = term.multiplier;
        return term.unit;
    }
    fitter.fit.multipliers[slot] = 0;
    return NO_UNIT;
}

// Gives each slot a term of its own; true when that uses all of them.
bool assignTerms(Fitter &fitter, bool *filled) {
    std::fill_n(filled, fitter.shape.count, false);
    bool all = true;
    for (int32_t slot = 0; slot < fitter.shape.count; ++slot) {
        const int32_t unit = takeTerm(fitter, slot);
        fitter.fit.units[slot] = unit;
        filled[slot] = unit != NO_UNIT;
        all = all && filled[slot];
        if (unit == NO_UNIT || slot + 1 == fitter.shape.count ||
            !unit_IsWholeQuotient(fitter.catalogue, fitter.shape.classes[slot], unit))
            continue;
        fitter.fit.units[++slot] = NO_UNIT; // the unit holds it
        fitter.fit.multipliers[slot] = 0;
        filled[slot] = true;
    }
    for (int32_t i = 0; i < fitter.product.count; ++i)
        all = all && fitter.used[i];
    return all;
}

// --- by size

bool isPlain(const Fitter &fitter, int32_t slot, int32_t unit) {
    const UnitQuantity &quantity = fitter.words.units[unit];
    const UomClassRow &row = *class_Row(fitter.catalogue, fitter.shape.classes[slot]);
    const UomUnit *record = unit_Record(fitter.catalogue, unit);
    return record && quantity.known && !quantity.formula && !isForeignGas(fitter, row.index, unit) &&
           !(row.hasOffset && record->offset != 0.0);
}

// What the slots that have their unit, at their powers, measure.
double sizeOfFilled(const Fitter &fitter, const bool *filled) {
    double size = 1.0;
    for (int32_t slot = 0; slot < fitter.shape.count; ++slot)
        if (filled[slot] && fitter.fit.units[slot] != NO_UNIT)
            size *= std::pow(fitter.words.units[fitter.fit.units[slot]].size *
                                 multiplier_Factor(fitter.fit.multipliers[slot]),
                             fitter.shape.exponents[slot]);
    return size;
}

// How many of the typed units the token of a unit names.
int32_t likeness(const Fitter &fitter, int32_t unit) {
    int32_t count = 0;
    for (int32_t i = 0; i < fitter.product.count; ++i)
        if (std::strstr(unit_Token(fitter.catalogue, unit), unit_Token(fitter.catalogue, fitter.product.terms[i].unit)))
            ++count;
    return count;
}

// Chooses the unit of one slot so that the whole has the wanted size, where there is such a unit: of several the one
// that reads most like the text.
bool chooseBySize(Fitter &fitter, int32_t slot, double wanted) {
    int32_t best = -1;
    const int32_t *units = uom_GetClassUnits(fitter.catalogue, fitter.shape.classes[slot]);
    for (; units && *units != NO_UNIT; ++units) {
        const bool whole = unit_IsWholeQuotient(fitter.catalogue, fitter.shape.classes[slot], *units);
        if (whole || !isPlain(fitter, slot, *units) ||
            !isSame(std::pow(fitter.words.units[*units].size, fitter.shape.exponents[slot]), wanted))
            continue;
        const int32_t like = likeness(fitter, *units);
        if (like <= best)
            continue;
        best = like;
        fitter.fit.units[slot] = *units;
    }
    return best >= 0;
}

bool choosePlain(Fitter &fitter, int32_t slot) {
    const int32_t *units = uom_GetClassUnits(fitter.catalogue, fitter.shape.classes[slot]);
    for (; units && *units != NO_UNIT; ++units)
        if (isPlain(fitter, slot, *units) &&
            !unit_IsWholeQuotient(fitter.catalogue, fitter.shape.classes[slot], *units)) {
            fitter.fit.units[slot] = *units;
            return true;
        }
    return false;
}

Wide exactRatio(const Fitter &fitter) {
    Wide ratio = product_ExactSize(fitter.catalogue, fitter.words, fitter.product);
    for (int32_t slot = 0; slot < fitter.shape.count; ++slot) {
        const int32_t unit = fitter.fit.units[slot];
        if (unit != NO_UNIT)
            ratio = ratio /
                    wide_SignedPower(unit_ExactSize(fitter.catalogue, fitter.words, unit, fitter.fit.multipliers[slot]),
                                     fitter.shape.exponents[slot]);
    }
    return ratio;
}

constexpr double STANDARD_GRAVITY = 9.80665; // m/s2

// What the weight of something measures, times the same.
Dimension weightOf(Dimension dimension) {
    dimension[AXIS_LENGTH] = static_cast<int16_t>(dimension[AXIS_LENGTH] + 1);
    dimension[AXIS_TIME] = static_cast<int16_t>(dimension[AXIS_TIME] - 2);
    return dimension;
}

// "lb/sq in", "kg/cm^2": of a pressure the weight of the mass is meant.
bool isWeightByArea(const Fitter &fitter) {
    const Dimension weight = weightOf(fitter.measure.dimension);
    return fitter.shape.count == 1 && fitter.shape.exponents[0] == 1 && fitter.shape.dimension == weight &&
           weight == dimension_OfClass(fitter.catalogue, CLASS_PRES).dimension;
}

bool fitBySize(Fitter &fitter, bool *filled) {
    const Measure &measure = fitter.measure;
    const bool weight = isWeightByArea(fitter);
    if (!measure.known || measure.shifted || measure.formula || !fitter.shape.known ||
        fitter.shape.classes[0] == CLASS_DIMENSIONLESS || (measure.dimension != fitter.shape.dimension && !weight) ||
        !(measure.size > 0.0) || !std::isfinite(measure.size))
        return false;
    const bool hasGasSlot = std::find(fitter.shape.classes, fitter.shape.classes + fitter.shape.count,
                                      int32_t{CLASS_VAP_VOL}) != fitter.shape.classes + fitter.shape.count;
    // Nor may a gas volume stand for a liquid beside a slot that takes it.
    if (measure.gas && (!hasGasSlot || fitter.fit.refusedGas)) {
        fitter.fit.refusedGas = true;
        return false;
    }
    int32_t open = 0, last = 0;
    for (int32_t slot = 0; slot < fitter.shape.count; ++slot)
        if (!filled[slot]) {
            ++open;
            last = slot;
        }
    const double size = measure.size * (weight ? STANDARD_GRAVITY : 1.0);
    const double wanted = open == 1 ? size / sizeOfFilled(fitter, filled) : 0.0;
    if (open != 1 || !chooseBySize(fitter, last, wanted))
        for (int32_t slot = 0; slot < fitter.shape.count; ++slot)
            if (!filled[slot] && !choosePlain(fitter, slot))
                return false;
    std::fill_n(filled, fitter.shape.count, true);
    const bool equal = isSame(sizeOfFilled(fitter, filled), size);
    fitter.fit.kind = equal ? FitKind::EQUAL : FitKind::SCALED;
    const Wide gravity = wide_OfConstant(weight ? STANDARD_GRAVITY : 1.0);
    fitter.fit.scale = equal ? wide_Of(1.0) : exactRatio(fitter) * gravity;
    return true;
}

// --- pressures with a mark of their scale

// The unit of the class with or without an offset that is of the product's size, or the first of its kind.
int32_t unitOfScale(const Fitter &fitter, bool gauge) {
    const int32_t *units = uom_GetClassUnits(fitter.catalogue, fitter.shape.classes[0]);
    int32_t first = NO_UNIT;
    for (; units && *units != NO_UNIT; ++units) {
        const UnitQuantity &quantity = fitter.words.units[*units];
        if (!quantity.known || quantity.shifted != gauge)
            continue;
        if (isSame(quantity.size, fitter.measure.size))
            return *units;
        first = first == NO_UNIT ? *units : first;
    }
    return first;
}

bool fitPressure(Fitter &fitter) {
    const Dimension pressure = dimension_OfClass(fitter.catalogue, CLASS_PRES).dimension;
    const char mark = fitter.product.scale;
    const bool gauge = mark == 'g' || mark == 'v';
    if (fitter.shape.count != 1 || (mark == 'd' && fitter.shape.classes[0] != CLASS_PRES_DIFF) ||
        fitter.shape.dimension != pressure || !fitter.measure.known || fitter.measure.dimension != pressure ||
        (fitter.measure.shifted && !gauge))
        return false;
    const int32_t unit = unitOfScale(fitter, gauge);
    if (unit == NO_UNIT)
        return false;
    fitter.fit.units[0] = unit;
    fitter.fit.multipliers[0] = 0;
    const bool equal = isSame(fitter.words.units[unit].size, fitter.measure.size);
    fitter.fit.kind = equal ? FitKind::DIRECT : FitKind::SCALED;
    fitter.fit.scale = equal ? wide_Of(1.0) : exactRatio(fitter);
    if (fitter.product.scale == 'v') // positive below the atmosphere
        fitter.fit.scale = -fitter.fit.scale;
    return true;
}

} // namespace

Shape shape_OfClass(const Words &words, int32_t classId) {
    Shape shape = {};
    if (classId < 0 || classId >= words.classCount)
        return shape;
    const ClassShape &found = words.classes[classId];
    shape.classId = classId;
    shape.count = found.slots;
    std::copy_n(found.classes, found.slots, shape.classes);
    std::copy_n(found.exponents, found.slots, shape.exponents);
    shape.dimension = found.dimension;
    shape.ratios = found.ratios;
    shape.known = found.known;
    return shape;
}

bool ratio_Differs(Ratios a, Ratios b) {
    return (a & b) == 0;
}

bool fit_IsPossible(const Product &product, const Measure &measure, const ClassShape &shape) {
    return product.scale || !measure.known || !shape.known || measure.dimension == shape.dimension ||
           weightOf(measure.dimension) == shape.dimension;
}

Fit fit_Product(const Catalogue &catalogue, const Words &words, const Product &product, const Measure &measure,
                const Shape &shape) {
    Fitter fitter = {catalogue, words, product, measure, shape, {}};
    // Units that tell what they measure are in no list of a class that measures something else.
    if (!product.scale && measure.known && shape.known && measure.dimension != shape.dimension &&
        !isWeightByArea(fitter))
        return fitter.fit;
    if (ratio_Differs(measure.ratios, shape.ratios))
        return fitter.fit;
    if (shape.count == 0 || (product.count == 0 && shape.dimension != Dimension{}))
        return fitter.fit;
    if (product.scale) {
        fitPressure(fitter);
        return fitter.fit;
    }
    bool filled[Shape::LIMIT];
    if (assignTerms(fitter, filled)) {
        const bool one = !product.hasNumber && wide_Rounded(product.number) == 1.0;
        fitter.fit.kind = one ? FitKind::DIRECT : FitKind::DIRECT_TIMES;
        fitter.fit.scale = product.number;
        return fitter.fit;
    }
    fitBySize(fitter, filled);
    return fitter.fit;
}

void unit_Write(const Catalogue &catalogue, int32_t unit, int32_t multiplier, TextWriter &writer) {
    const UomUnit *record = unit_Record(catalogue, unit);
    char text[16] = "";
    multiplier_Write(multiplier, record->multiplierStyle, text, sizeof text);
    str_Write(writer, text);
    str_Write(writer, record->token);
}

void fit_Write(const Catalogue &catalogue, const Shape &shape, const Fit &fit, TextWriter &writer) {
    for (const int32_t sign : {1, -1}) {
        bool first = true;
        for (int32_t slot = 0; slot < shape.count; ++slot) {
            const int32_t exponent = shape.exponents[slot] * sign;
            const UomUnit *unit = unit_Record(catalogue, fit.units[slot]);
            if (exponent < 1 || !unit)
                continue;
            char power[16] = "";
            if (exponent > 1)
                str_FormatBounded(power, sizeof power, "%d", static_cast<int>(exponent));
            str_Write(writer, !first ? "-" : sign < 0 ? "/" : "");
            unit_Write(catalogue, fit.units[slot], fit.multipliers[slot], writer);
            str_Write(writer, power);
            first = false;
        }
    }
}

} // namespace uom

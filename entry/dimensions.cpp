#include "entry/dimensions.h"

#include <cstdlib>
#include <cstring>

#include "catalogue/class_table.h"

namespace uom {

namespace {

constexpr double CUBIC_CENTIMETER = 1e-6;

// Classes whose rows say something else, or nothing. A row counts amounts as masses, and angles as nothing.
struct Exception {
    const char *token;
    Dimension dimension;
    double size;
};
constexpr Exception exceptions[] = {
    {"StdLiqVol", {0, 3}, CUBIC_CENTIMETER},
    {"StdVapVol", {0, 3}, CUBIC_CENTIMETER},
    {"ActVol", {0, 3}, CUBIC_CENTIMETER},
    {"Mole", {0, 0, 0, 0, 0, 0, 1}, 1.0},
    {"Molar", {0, 0, 0, 0, 0, 0, 1}, 1.0},
    {"Angle", {0, 0, 0, 0, 0, 0, 0, 1}, 1.0},
    {"Rotation", {0, 0, -1, 0, 0, 0, 0, 1}, 1.0},
    {"FlowConductance", {0, 0, 0, 0, 0, 0, 0, 0, 1}, 1.0},
    {"Force", {1, 1, -2}, 1.0},
    {"ElecConductivity", {-1, -3, 1, 0, 2}, 1.0},
    {"Conductance", {-1, -2, 1, 0, 2}, 1.0},
    {"Capacitance", {-1, -2, 2, 0, 2}, 1.0},
    {"MomentOfArea", {0, 4}, 1.0},
};

const Exception *findException(const char *token) {
    for (const Exception &exception : exceptions)
        if (std::strcmp(exception.token, token) == 0)
            return &exception;
    return nullptr;
}

} // namespace

Dimension dimension_Times(const Dimension &a, const Dimension &b, int32_t power) {
    Dimension product = a;
    for (size_t i = 0; i < AXES; ++i)
        product[i] = static_cast<int16_t>(product[i] + b[i] * power);
    return product;
}

BaseQuantity dimension_OfClass(const Catalogue &catalogue, int32_t classId) {
    const UomClassRow *row = class_ValidRow(catalogue, classId);
    if (!row || !row->token || classId == CLASS_BASIS || row->baseClass[0] != 0)
        return {};
    if (const Exception *exception = findException(row->token))
        return {exception->dimension, exception->size, true};
    Dimension dimension = {};
    for (size_t i = 0; i < DIMENSIONS; ++i)
        dimension[i] = static_cast<int16_t>(row->dimension[i]);
    // A class of the data file with units of its own tells no dimension when the one that it copies has none.
    const bool known = dimension != Dimension{} || (row->kind & CLASS_CUSTOM) == 0;
    return {dimension, 1.0, known};
}

Ratios ratios_OfPart(const Dimension &dimension, int32_t power) {
    if (dimension[AXIS_AMOUNT] != 0)
        return RATIO_OF_AMOUNTS;
    if (dimension[AXIS_TIME] != 0)
        return RATIO_OF_OTHERS;
    if (dimension[AXIS_LENGTH] == 0)
        return dimension[AXIS_MASS] != 0 ? RATIO_OF_MASSES : RATIO_OF_OTHERS;
    const bool volume = dimension[AXIS_MASS] == 0 && std::abs(dimension[AXIS_LENGTH] * power) == 3;
    return volume ? RATIO_OF_VOLUMES : RATIO_OF_OTHERS;
}

} // namespace uom

// The 71 compiled classes, one a line. A number below 71 means the same class in every process, for all time.
//
// Columns: number, long name, token, alternative token, keyword, may stand with an exponent, units have an
// offset, internal, kind, exponents of mass, length, time, temperature, charge and currency, the two column
// widths for user interfaces, the number in the older numbering, and for a composite class its constituents
// and their exponents. A "WT" look-up answers 18, a "FRAC" look-up 34, an "MFRA" look-up 36: the duplicates
// are kept, the lowest row wins.
#include "catalogue/class_rows.h"

namespace uom {

namespace {

constexpr int32_t BASE = CLASS_SYSTEM | CLASS_BASE;
constexpr int32_t PAREN = CLASS_SYSTEM | CLASS_INTERNAL;
constexpr int32_t INNER = CLASS_SYSTEM | CLASS_BASE | CLASS_INTERNAL;
constexpr int32_t JOINT = CLASS_SYSTEM | CLASS_COMPOSITE;

struct Three {
    int32_t first = 0, second = 0, third = 0;
};
struct Six {
    int32_t mass, length, time, temperature, charge, currency;
};

constexpr UomClassRow row(int32_t index, const char *name, const char *token, const char *altToken, const char *keyword,
                          int32_t allowExponent, int32_t hasOffset, int32_t internalFlag, int32_t kind, Six d,
                          int32_t guiWidth1, int32_t guiWidth2, int32_t legacyNumber, Three baseClass = {},
                          Three baseExponent = {}) {
    return {index,
            name,
            token,
            altToken,
            keyword,
            nullptr,
            nullptr,
            nullptr,
            allowExponent,
            hasOffset,
            internalFlag,
            kind,
            {d.mass, d.length, d.time, d.temperature, d.charge, d.currency},
            guiWidth1,
            guiWidth2,
            legacyNumber,
            {baseClass.first, baseClass.second, baseClass.third},
            {baseExponent.first, baseExponent.second, baseExponent.third},
            nullptr,
            nullptr,
            nullptr,
            0};
}

} // namespace

// clang-format off
const UomClassRow uomStaticRows[STATIC_CLASSES] = {
    row(0, "", "", "", "", 0, 0, 0, BASE, {0, 0, 0, 0, 0, 0}, 0, 0, 0),
    row(1, "OpenParenthesis", "(", nullptr, "(", 1, 0, 0, PAREN, {0, 0, 0, 0, 0, 0}, 0, 0, 1),
    row(2, "CloseParenthesis", ")", nullptr, ")", 1, 0, 0, PAREN, {0, 0, 0, 0, 0, 0}, 0, 0, 2),
    row(3, "Dimensionless", "Dimensionless", nullptr, "NODM", 1, 0, 0, BASE, {0, 0, 0, 0, 0, 0}, 0, 0, 3),
    row(4, "Temperature", "Temp", nullptr, "TEMP", 0, 1, 0, BASE, {0, 0, 0, 1, 0, 0}, 100, 100, 4),
    row(5, "Absolute Temperature", "TempAbs", nullptr, "TABS", 1, 1, 0, BASE, {0, 0, 0, 1, 0, 0}, 100, 100, 5),
    row(6, "Temperature Difference", "TempDiff", nullptr, "TDIF", 1, 0, 0, BASE, {0, 0, 0, 1, 0, 0}, 100, 100, 6),
    row(7, "Pressure", "Pres", nullptr, "PRES", 0, 1, 0, BASE, {1, -1, -2, 0, 0, 0}, 100, 150, 7),
    row(8, "Absolute Pressure", "PresAbs", nullptr, "PABS", 1, 1, 0, BASE, {1, -1, -2, 0, 0, 0}, 100, 150, 8),
    row(9, "Pressure Difference", "PresDiff", nullptr, "PDIF", 1, 0, 0, BASE, {1, -1, -2, 0, 0, 0}, 100, 150, 9),
    row(10, "Time", "Time", nullptr, "TIME", 1, 0, 0, BASE, {0, 0, 1, 0, 0, 0}, 100, 100, 10),
    row(11, "Length", "Leng", nullptr, "LENG", 1, 0, 0, BASE, {0, 1, 0, 0, 0, 0}, 100, 100, 11),
    row(12, "Fine Length", "FineLeng", nullptr, "FLEN", 1, 0, 0, BASE, {0, 1, 0, 0, 0, 0}, 100, 100, 12),
    row(13, "Area", "Area", nullptr, "AREA", 1, 0, 0, BASE, {0, 2, 0, 0, 0, 0}, 100, 100, 13),
    row(14, "Fine Area", "FineArea", nullptr, "FARE", 1, 0, 0, BASE, {0, 2, 0, 0, 0, 0}, 100, 100, 14),
    row(15, "Liquid Volume", "StdLiqVol", nullptr, "LIQV", 1, 0, 0, BASE, {0, 3, 0, 0, 0, 0}, 100, 120, 15),
    row(16, "Vapor Volume", "StdVapVol", "VapVol", "VAPV", 1, 0, 0, BASE, {0, 3, 0, 0, 0, 0}, 100, 120, 16),
    row(17, "Actual Volume", "ActVol", nullptr, "ACTV", 1, 0, 0, BASE, {0, 3, 0, 0, 0, 0}, 100, 120, 17),
    row(18, "Mass", "Mass", nullptr, "WT", 1, 0, 0, BASE, {1, 0, 0, 0, 0, 0}, 100, 120, 18),
    row(19, "Mole", "Mole", nullptr, "WT", 1, 0, 0, BASE, {1, 0, 0, 0, 0, 0}, 100, 120, 19),
    row(20, "Molar", "Molar", nullptr, "WT", 1, 0, 0, BASE, {1, 0, 0, 0, 0, 0}, 100, 120, 0),
    row(21, "Energy", "Energy", nullptr, "ENER", 1, 0, 0, BASE, {1, 2, -2, 0, 0, 0}, 100, 150, 20),
    row(22, "E6Energy", "E6Energy", nullptr, nullptr, 1, 0, 0, BASE, {1, 2, -2, 0, 0, 0}, 100, 150, 21),
    row(23, "Viscosity", "Visc", nullptr, "VISC", 1, 0, 0, BASE, {1, -1, -1, 0, 0, 0}, 100, 150, 22),
    row(24, "Thermal Conductivity", "Cond", nullptr, "COND", 1, 0, 0, BASE, {1, 1, -3, -1, 0, 0}, 100, 150, 23),
    row(25, "Surface Tension", "Surf", nullptr, "SURF", 1, 0, 0, BASE, {1, 0, -2, 0, 0, 0}, 100, 120, 24),
    row(26, "Heat Transfer Coefficient", "Htco", nullptr, "HTCO", 1, 0, 0, BASE, {1, 0, -3, -1, 0, 0}, 100, 150, 25),
    row(27, "Heat Transfer Coeff * Area", "UA", nullptr, "UA", 1, 0, 0, BASE, {1, 2, -3, -1, 0, 0}, 100, 150, 26),
    row(28, "Radiative Heat Transfer Coeff * Area", "RUA", nullptr, "RUA", 1, 0, 0, BASE, {1, 2, -3, -4, 0, 0}, 100, 150, 27),
    row(29, "Fouling Coefficient", "Foul", nullptr, "FOUL", 1, 0, 0, BASE, {-1, 0, 3, 1, 0, 0}, 100, 150, 28),
    row(30, "Dipole Moment", "Dipole", nullptr, "DIPO", 1, 0, 0, BASE, {0, 1, 0, 0, 1, 0}, 100, 120, 29),
    row(31, "Kinematic Viscosity", "KVis", nullptr, "KVIS", 1, 0, 0, BASE, {0, 2, -1, 0, 0, 0}, 100, 100, 30),
    row(32, "Heat Capacity", "Cp", nullptr, "CP", 1, 0, 0, BASE, {0, 2, -2, -1, 0, 0}, 100, 150, 31),
    row(33, "Torque", "Torque", nullptr, "TORQ", 1, 0, 0, BASE, {1, 2, -2, 0, 0, 0}, 100, 100, 32),
    row(34, "Composition", "Frac", nullptr, "FRAC", 1, 0, 0, BASE, {0, 0, 0, 0, 0, 0}, 100, 120, 33),
    row(35, "Mass Composition", "MassFrac", nullptr, "WFRA", 1, 0, 0, BASE, {0, 0, 0, 0, 0, 0}, 100, 120, 34),
    row(36, "Mole Composition", "MoleFrac", nullptr, "MFRA", 1, 0, 0, BASE, {0, 0, 0, 0, 0, 0}, 100, 120, 35),
    row(37, "Volume Composition", "VolFrac", nullptr, "MFRA", 1, 0, 0, BASE, {0, 0, 0, 0, 0, 0}, 100, 120, 36),
    row(38, "Currency", "Currency", nullptr, "CURR", 1, 0, 0, BASE, {0, 0, 0, 0, 0, 1}, 100, 120, 37),
    row(39, "Rotation", "Rotation", nullptr, "ROT", 1, 0, 0, BASE, {0, 0, -1, 0, 0, 0}, 100, 120, 38),
    row(40, "Basis", "Basis", nullptr, "BASI", 1, 0, 1, BASE, {0, 0, 0, 0, 0, 0}, 100, 120, 39),
    row(41, "Electric Potential", "Potential", nullptr, "POT", 1, 0, 0, BASE, {1, 2, -2, 0, -1, 0}, 100, 120, 40),
    row(42, "Electric Current", "Current", nullptr, "CUR", 1, 0, 0, BASE, {0, 0, -1, 0, 1, 0}, 100, 120, 41),
    row(43, "Electric Resistance", "Resistance", nullptr, "RES", 1, 0, 0, BASE, {1, 2, -1, 0, -2, 0}, 100, 120, 42),
    row(44, "Angular Position", "Angle", nullptr, "ANGP", 1, 0, 0, BASE, {0, 0, 0, 0, 0, 0}, 100, 120, 43),
    row(45, "Flow Conductance", "FlowConductance", nullptr, "FLOW", 1, 0, 0, BASE, {0, 0, 0, 0, 0, 0}, 100, 120, 0),
    row(46, "Petro Mass", "PetroMass", nullptr, nullptr, 1, 0, 1, INNER, {1, 0, 0, 0, 0, 0}, 100, 150, 44),
    row(47, "Powertop", "PowerTop", nullptr, nullptr, 1, 0, 1, INNER, {1, 2, -2, 0, 0, 0}, 100, 150, 45),
    row(48, "E6Powertop", "E6PowerTop", nullptr, nullptr, 1, 0, 1, INNER, {1, 2, -2, 0, 0, 0}, 100, 150, 46),
    row(49, "Quantity", "Quantity", nullptr, nullptr, 1, 0, 1, JOINT, {0, 0, 0, 0, 0, 0}, 0, 0, 47, {40, 20}, {1, 1}),
    row(50, "Power", "Power", nullptr, "WORK", 1, 0, 0, JOINT, {0, 0, 0, 0, 0, 0}, 0, 0, 48, {47, 10}, {1, -1}),
    row(51, "E6Power", "E6Power", nullptr, "DUTY", 1, 0, 0, JOINT, {0, 0, 0, 0, 0, 0}, 0, 0, 49, {48, 10}, {1, -1}),
    row(52, "Density", "Density", nullptr, "LDEN", 1, 0, 0, JOINT, {0, 0, 0, 0, 0, 0}, 0, 0, 50, {18, 15}, {1, -1}),
    row(53, "Petro Density", "PetroDensity", nullptr, "PDEN", 1, 0, 0, JOINT, {0, 0, 0, 0, 0, 0}, 0, 0, 51, {46, 15}, {1, -1}),
    row(54, "Vapor Density", "VaporDensity", nullptr, "VDEN", 1, 0, 0, JOINT, {0, 0, 0, 0, 0, 0}, 0, 0, 0, {46, 16}, {1, -1}),
    row(55, "Liquid Specific Volume", "SpVol", nullptr, "SPVO", 1, 0, 0, JOINT, {0, 0, 0, 0, 0, 0}, 0, 0, 52, {15, 19}, {1, -1}),
    row(56, "Vapor Specific Volume", "VapSpVol", nullptr, "SPVV", 1, 0, 0, JOINT, {0, 0, 0, 0, 0, 0}, 0, 0, 53, {16, 19}, {1, -1}),
    row(57, "Rate", "Rate", nullptr, "RATE", 1, 0, 0, JOINT, {0, 0, 0, 0, 0, 0}, 0, 0, 54, {40, 20, 10}, {1, 1, -1}),
    row(58, "Velocity", "Velocity", nullptr, "VELO", 1, 0, 0, JOINT, {0, 0, 0, 0, 0, 0}, 0, 0, 55, {11, 10}, {1, -1}),
    row(59, "Inertia", "Inertia", nullptr, "INER", 1, 0, 0, JOINT, {0, 0, 0, 0, 0, 0}, 0, 0, 56, {18, 11}, {1, 2}),
    row(60, "Specific Enthalpy", "SpEnthalpy", nullptr, "ENTH", 1, 0, 0, JOINT, {0, 0, 0, 0, 0, 0}, 0, 0, 57, {21, 18}, {1, -1}),
    row(61, "Specific Entropy", "SpEntropy", nullptr, "ENTR", 1, 0, 0, JOINT, {0, 0, 0, 0, 0, 0}, 0, 0, 58, {21, 6, 18}, {1, -1, -1}),
    row(62, "Frequency", "Freq", nullptr, "FREQ", 1, 0, 0, JOINT, {0, 0, 0, 0, 0, 0}, 0, 0, 59, {10}, {-1}),
    row(63, "Basis Composition", "BasisFrac", nullptr, "FRAC", 1, 0, 0, JOINT, {0, 0, 0, 0, 0, 0}, 0, 0, 60, {40, 34}, {1, 1}),
    row(64, "Mass Rate", "MassRate", nullptr, "WTRA", 1, 0, 0, JOINT, {0, 0, 0, 0, 0, 0}, 0, 0, 61, {18, 10}, {1, -1}),
    row(65, "Mole Rate", "MoleRate", nullptr, "MRAT", 1, 0, 0, JOINT, {0, 0, 0, 0, 0, 0}, 0, 0, 62, {19, 10}, {1, -1}),
    row(66, "Volume Rate", "VolRate", nullptr, "LVRA", 1, 0, 0, JOINT, {0, 0, 0, 0, 0, 0}, 0, 0, 63, {15, 10}, {1, -1}),
    row(67, "Heating Value", "HeatVal", nullptr, "HVAL", 1, 0, 0, JOINT, {0, 0, 0, 0, 0, 0}, 0, 0, 64, {21, 16}, {1, -1}),
    row(68, "Cutpoint", "Cutpoint", nullptr, nullptr, 1, 0, 1, INNER, {1, 0, 0, 0, 0, 0}, 100, 150, 65),
    row(69, "Cake Resistance", "cakeRes", nullptr, "CRES", 1, 0, 0, JOINT, {0, 0, 0, 0, 0, 0}, 0, 0, 66, {11, 18}, {1, -1}),
    row(70, "Inverse Length", "InvLeng", nullptr, "ILEN", 1, 0, 0, JOINT, {0, 0, 0, 0, 0, 0}, 0, 0, 67, {11}, {-1}),
};
// clang-format on

} // namespace uom

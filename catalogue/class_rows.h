// The record of a class, the compiled rows, and the numbers that the rules of the library name.
#ifndef UOM_CATALOGUE_CLASS_ROWS_H
#define UOM_CATALOGUE_CLASS_ROWS_H

#include <cstdint>

#include "uom/uom.h"

namespace uom {

constexpr int32_t STATIC_CLASSES = UOM_COMPILED_CLASSES; // compiled rows; custom classes stand behind them
constexpr int32_t COMPOSITE_SLOTS = 3;                   // constituents that a class can have
constexpr int32_t DIMENSIONS = 6;                        // mass, length, time, temperature, charge, currency

// Bits of `kind`.
enum ClassKind : int32_t {
    CLASS_SYSTEM = 1,    // compiled
    CLASS_BASE = 2,      // has units of its own in the data file
    CLASS_INTERNAL = 4,  // not offered to users
    CLASS_COMPOSITE = 8, // defined by baseClass and baseExponent
    CLASS_CUSTOM = 16    // made at run time
};

enum ClassNumber : int32_t {
    CLASS_NONE = 0,
    CLASS_OPEN = 1,
    CLASS_CLOSE = 2,
    CLASS_DIMENSIONLESS = 3,
    CLASS_TEMP = 4,
    CLASS_TEMP_ABS = 5,
    CLASS_TEMP_DIFF = 6,
    CLASS_PRES = 7,
    CLASS_PRES_ABS = 8,
    CLASS_PRES_DIFF = 9,
    CLASS_TIME = 10,
    CLASS_LENG = 11,
    CLASS_AREA = 13,
    CLASS_LIQ_VOL = 15,
    CLASS_VAP_VOL = 16,
    CLASS_ACT_VOL = 17,
    CLASS_MASS = 18,
    CLASS_MOLE = 19,
    CLASS_MOLAR = 20,
    CLASS_ENERGY = 21,
    CLASS_E6_ENERGY = 22,
    CLASS_HTCO = 26,
    CLASS_CP = 32,
    CLASS_FRAC = 34,
    CLASS_BASIS = 40,
    CLASS_PETRO_MASS = 46,
    CLASS_POWER_TOP = 47,
    CLASS_E6_POWER_TOP = 48,
    CLASS_QUANTITY = 49,
    CLASS_POWER = 50,
    CLASS_E6_POWER = 51,
    CLASS_DENSITY = 52,
    CLASS_PETRO_DENSITY = 53,
    CLASS_VAPOR_DENSITY = 54,
    CLASS_SP_VOL = 55,
    CLASS_VAP_SP_VOL = 56,
    CLASS_RATE = 57,
    CLASS_VELOCITY = 58,
    CLASS_SP_ENTHALPY = 60,
    CLASS_BASIS_FRAC = 63,
    CLASS_CAKE_RES = 69
};

// In a compiled row the texts are literals but for listName and note; a custom row owns all but altToken. The
// rows are writable: the data file attaches unit lists, start-up renames by mode, hosts narrow the choices.
struct UomClassRow {
    int32_t index;
    const char *name;       // long name, for people
    const char *token;      // what class strings are made of
    const char *altToken;   // a second accepted token, or null
    const char *keyword;    // of keyword text, or null
    const char *definition; // class string of a custom class
    const char *listName;   // common list that stands for this class, or null
    const char *note;       // free text, or null
    int32_t allowExponent;
    int32_t hasOffset; // units convert with an additive offset
    int32_t internalFlag;
    int32_t kind;
    int32_t dimension[DIMENSIONS];
    int32_t guiWidth1;
    int32_t guiWidth2;
    int32_t legacyNumber; // answer of uom_GetClassType under "qx71"
    int32_t baseClass[COMPOSITE_SLOTS];
    int32_t baseExponent[COMPOSITE_SLOTS];
    int32_t *uomList;    // units that the class recognises, ended by 0; owned
    int32_t *uomChoices; // narrowed by the application, ended by 0; owned
    uint64_t *starts;    // which of the units begin with a letter, derived by unit_IndexList; owned, null without
    int32_t startWords;  // of a letter's bits
};

// Never changes: each catalogue works on a copy.
extern const UomClassRow uomStaticRows[STATIC_CLASSES];

} // namespace uom

#endif

// All that a started library knows, as one record.
//
// Thread safety
//   Whatever takes a `const Catalogue &` only reads: any number of such calls may run at once. Whatever takes a
//   `Catalogue &` changes the catalogue and has it for itself.
//
// Invariants, from the end of a start-up on
//   1. The row of class c is element c of classes.rows; those below STATIC_CLASSES are classes.compiled, the rows
//      behind them are blocks of their own.
//   2. Unit u is element u of units.records, and element 0 is a placeholder that means no unit.
//   3. Each index of names answers as a walk through its table would, or does not stand.
//   4. A slate's number is its place in slates.records; the unnamed slate is number 0.
#ifndef UOM_CATALOGUE_CATALOGUE_H
#define UOM_CATALOGUE_CATALOGUE_H

#include <atomic>
#include <cstdint>

#include "catalogue/class_rows.h"
#include "catalogue/records.h"
#include "support/memory.h"
#include "support/name_index.h"
#include "support/platform.h"

namespace uom {

constexpr int32_t NO_UNIT = 0;  // the value of UOM_NULL
constexpr int32_t NO_SLATE = 0; // the value of UOM_SET_NULL: the unnamed slate, which is never usable

struct ClassTable {
    UomTable *rows = nullptr; // borrowed; custom rows are owned by the custom classes
    int32_t count = 0;
    NameIndex tokens;                          // and alternative tokens
    NameIndex names;                           // long names
    UomClassRow compiled[STATIC_CLASSES] = {}; // this catalogue's copy
    bool copied = false;                       // the copy is made
};

struct UnitTable {
    UomTable *records = nullptr; // UomUnit records, owned
    int32_t count = 0;
    NameIndex tokens;
};

struct SlateTable {
    UomTable *records = nullptr; // UomSlate records, owned; made by the first slate
    NameIndex names;
    int32_t currentRoot = 0;  // root system from which "Current" descends; written by uom_InitializeSet
    int32_t rulesRunning = 0; // guard: 1 while a default's rules run
};

// The lists of the data file that class lists and interfaces draw on.
enum ApplicationList : int32_t {
    LIST_OX_TIME,
    LIST_OX_RATE_MASS,
    LIST_OX_RATE_MOLE,
    LIST_OX_RATE_LIQ_VOL,
    LIST_OX_RATE_VAP_VOL,
    LIST_OX_DENS_MASS,
    LIST_OX_DENS_LIQ_VOL,
    LIST_OX_DENS_MOLE,
    LIST_OX_DENS_VAP_VOL,
    LIST_OX_ENTHALPY_ENERGY,
    LIST_OX_ENTHALPY_MASS,
    LIST_OX_ENTHALPY_MOLE,
    LIST_DENS_PETRO_MASS,
    LIST_OX_LENGTH,
    LIST_OX_HEAT_CAP,
    LIST_KS_BASIS,
    LIST_OX_BASIS,
    LIST_OX_CAKERES_MASS,
    LIST_OX_CAKERES_LENGTH,
    APPLICATION_LISTS
};

struct Lists {
    UomTable *application[APPLICATION_LISTS] = {}; // texts of the application's lists
    UomTable *common = nullptr;                    // one text table a common list, the name in front
};

// -1 not decided, 0 off, 1 on.
struct Modes {
    int32_t kesta = -1;
    int32_t vel2go = -1;
    int32_t orbex = -1;
    int32_t allowMult = -1;    // a setting for the host: no parser consults it
    int32_t qx71 = -1;         // uom_GetClassType answers in the older numbering
    int32_t moleQuantity = -1; // 1: a Quantity is in moles, 0: in the Molar class
};

// Text styles by default, 1 to 6. Propagation sets the scan styles while it runs.
struct Styles {
    int32_t scanClass = 1;
    int32_t scanUom = 1;
    int32_t display = 1;
};

// Indices of the units that the rules name, NO_UNIT for those that the data file lacks.
struct NamedUnits {
    int32_t UOM_BASMOLE = NO_UNIT;
    int32_t UOM_BASMOLAR = NO_UNIT;
    int32_t UOM_BASMASS = NO_UNIT;
    int32_t UOM_BASLIQV = NO_UNIT;
    int32_t UOM_BASVAPV = NO_UNIT;
    int32_t UOM_BASACTV = NO_UNIT;
#define WELL_KNOWN(variable, token) int32_t variable = NO_UNIT;
#include "catalogue/well_known_units.def"
#undef WELL_KNOWN
};
using NamedUnit = int32_t NamedUnits::*;

// Indices of the slates of these names; -1 for those that the data file did not define.
struct NamedSlates {
    int32_t english = 0;
    int32_t metric = 0;
    int32_t si = 0;
    int32_t internal = 0;
    int32_t oxInternal = 0;
    int32_t current = 0; // the working slate
};

// A clean-up frees the tables and takes back the modes but for moleQuantity. It leaves what the next start, or a host
// behind the end, still sees: dataFile, styles, named, slateIndex, modes.moleQuantity, classes.count, units.count,
// slates.currentRoot, and in classes.compiled the renamed tokens and the amount that a Quantity is counted in.
struct Catalogue {
    bool started = false;
    char dataFile[DATA_FILE_SIZE] = ""; // path of the data file in use
    ClassTable classes;
    UnitTable units;
    SlateTable slates;
    Lists lists;
    Modes modes;
    Styles styles;
    NamedUnits named;
    NamedSlates slateIndex;
    char *aliasText = nullptr; // lines of aliases that the host has added, owned

    // What the reader of typed texts knows of all this, in one block; derived when it is first asked for, by whichever
    // thread does, so it changes in a catalogue that is only read.
    mutable std::atomic<void *> words = nullptr;

    Catalogue() = default;
    Catalogue(const Catalogue &) = delete;
    Catalogue &operator=(const Catalogue &) = delete;
};

// Drops what was derived for typed texts; whatever changes classes, units or their lists calls it.
inline void catalogue_DropWords(const Catalogue &catalogue) {
    mem_Free(catalogue.words.exchange(nullptr, std::memory_order_acq_rel));
}

} // namespace uom

#endif

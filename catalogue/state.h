// The whole process-wide state of the library, on one page. All of it is defined in state.cpp; the library is called
// from one thread at a time.
//
// Not here: what stands below the catalogue (memory counters and number constants in support/, the line reader's
// preprocessor), the diagnostic buffer of platform.cpp, and the indexes of names that class_table.cpp, units.cpp and
// slate_table.cpp derive from the tables below.
#ifndef UOM_CATALOGUE_STATE_H
#define UOM_CATALOGUE_STATE_H

#include <cstddef>
#include <cstdint>

#include "catalogue/class_rows.h"
#include "catalogue/records.h"
#include "uom/uom.h"

constexpr size_t LAST_ERROR_SIZE = 512;
constexpr size_t DATA_FILE_SIZE = 520;
constexpr int32_t APPLICATION_LISTS = 19;

// --- start-up: written by start-up and clean-up alone
extern int32_t uomInitDone;              // 1 while the library is started
extern char uomDataFile[DATA_FILE_SIZE]; // path of the data file in use

// --- modes: -1 not decided, 0 off, 1 on. Written by start-up, the data file's options and the properties
extern int32_t uomModeKesta;
extern int32_t uomModeVel2go;
extern int32_t uomModeOrbex;
extern int32_t uomAllowMult;    // a setting for the host: no parser consults it
extern int32_t uomModeQx71;     // uom_GetClassType answers in the older numbering
extern int32_t uomMoleQuantity; // 1: a Quantity is in moles, 0: in the Molar class

// --- text styles 1 to 6. Written by start-up and the properties; propagation sets the scan styles while it runs
extern int32_t defaultScanClassStyle;
extern int32_t defaultScanUOMStyle;
extern int32_t defaultDisplayStyle;

// --- the catalogue: written by start-up, the data file reader, custom classes and the slate registry
extern UomTable *uomClassTable; // borrowed rows; custom rows are owned by the custom classes
extern int32_t uomClassCount;   // survives clean-up, as does uomUnitCount
extern UomTable *uomUnitTable;  // UomUnit records
extern int32_t uomUnitCount;
extern UomTable *uomSlateTable;                    // UomSlate records, made by the first slate
extern UomTable *uomListTables[APPLICATION_LISTS]; // texts of the application lists of the data file
extern UomTable *uomExtraTables;                   // one text table a common list, the name in front

// --- slates
extern int32_t uomCurrentSet;         // root system from which "Current" descends; written by uom_InitializeSet
extern int32_t uomDefaultsInProgress; // guard: 1 while a default's rules run

// --- messages
extern char uomLastError[LAST_ERROR_SIZE]; // never cleared by success or clean-up but where an operation says so

// --- conversion scratch, meaningful between the end of a conversion and the start of the next
extern double uomRunFactor;
extern double uomRunOffset;
extern int32_t uomRunLinear;     // the pair is valid: result = (input + uomRunOffset) * uomRunFactor
extern int32_t uomApiPending;    // the gravity formula waits for the next node, of whatever conversion
extern int32_t uomApiExponent;   // baseExponent of the node that left it pending
extern int32_t uomApiMultiplier; // multiplier of that node

// --- indices of the units that the code names, resolved when the unit list has been read
extern int32_t UOM_BASMOLAR;
#define WELL_KNOWN(variable, token) extern int32_t variable;
#include "catalogue/well_known_units.def"
#undef WELL_KNOWN

// Writes the last-error text, from a format that knows "%s" and "%d" alone. The arguments may point into the text that
// stands there.
#if defined(__GNUC__)
__attribute__((format(printf, 1, 2)))
#endif
void error_Set(const char *format, ...);
void error_Clear();

#endif

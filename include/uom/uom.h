/* Units of measure for process simulators: the classical interface of the library.
 *
 * Start the library with uom_Init (or uom_Init2, uom_Init3), work, end with uom_Cleanup. Plain integers,
 * doubles and texts cross the boundary; nothing throws or aborts.
 *
 * Threads. Behind each operation stands what it does to the catalogue that its thread works on, the default one of the
 * process unless the host made another (catalogue.h): [reads] any number of threads may be in such calls at once,
 * [changes] nothing else may be in that catalogue meanwhile, [any] it looks at no catalogue.
 *
 *   UOM class    a kind of quantity, by number ("Pressure" is 7) or token ("Pres"); numbers below 71 never change
 *   class string classes with whole exponents: "Pres/VolRate 2", "(Leng Mass) 2", "Rate (Mass)"
 *   unit         an index into the unit table; UOM_NULL means none. Indices depend on the data file
 *   unit string  units in the order of a class string: "kpa/(m3/sec)2", "M BBL/day", or the name of a slate
 *   slate        a named set of default units ("Set" in the names here), by index or name
 *   chain        a UomStruct: one node for each elementary class of a quantity, with its unit
 *
 * In both languages "/" flips the sign of what follows: "Mass / Time / Leng" has the exponents +1, -1, +1.
 *
 * Failing operations answer with a small positive code; those that explain themselves write uom_GetLastErrorMessage.
 * Queries answer 0, UOM_NULL, -1, null or an empty text and write no message. An output text is always ended within
 * its size (in bytes) and cut without an error. Class and unit texts, slate names and styles ignore the case of
 * letters. Null arguments are answered as failures unless something else is said. Text that a host gets as a pointer
 * stays the library's, but for tables, arrays and chains that an operation calls new: those the host frees.
 */
#ifndef UOM_UOM_H
#define UOM_UOM_H

#include <stdint.h>

#if defined(_WIN32) && !defined(_WIN64)
#error "There is no library for 32-bit Windows: its arithmetic would give other last places. Compile for x64."
#endif

#if defined(_WIN32) && defined(UOM_STATIC)
#define UOM_API
#elif defined(_WIN32) && defined(UOM_BUILDING)
#define UOM_API __declspec(dllexport)
#elif defined(_WIN32)
#define UOM_API __declspec(dllimport)
#else
#define UOM_API __attribute__((visibility("default")))
#endif

/* The version that a host is compiled with; uom_GetVersion answers that of the library in use. */
#define UOM_VERSION_MAJOR 1
#define UOM_VERSION_MINOR 0
#define UOM_VERSION_PATCH 0
#define UOM_VERSION "1.0.0"

#ifdef __cplusplus
#define UOM_INT32_ENUM : int32_t
extern "C" {
#else
#define UOM_INT32_ENUM
#endif

/* ---------------------------------------------------------------------------------------------------------------
 * Names of numbers. Operations take and answer them as int32_t.
 */

/* Classes with a number below are compiled in; custom classes have the numbers from here on. */
enum UomClassCounts UOM_INT32_ENUM { UOM_COMPILED_CLASSES = 71 };

/* Text styles. As the style of a text that is read, UOM_STYLE_KEYWORD means keywords, any other tokens. */
enum UomTextStyle UOM_INT32_ENUM {
    UOM_STYLE_DEFAULT = 0, /* the one of uom_SetDefaultDisplayStyle */
    UOM_STYLE_TOKEN = 1,
    UOM_STYLE_KEYWORD = 2,
    UOM_STYLE_TOKEN_SUPER = 3, /* with superscripts */
    UOM_STYLE_TOKEN_UPPER = 4, /* in capitals */
    UOM_STYLE_LONG_NAME = 5,
    UOM_STYLE_HTML = 6
};

/* What the elements of a table are. */
enum UomTableKind UOM_INT32_ENUM {
    UOM_KIND_INT8 = 0,
    UOM_KIND_UINT8 = 1,
    UOM_KIND_TEXT = 2, /* the table's own copies */
    UOM_KIND_INT16 = 3,
    UOM_KIND_UINT16 = 4,
    UOM_KIND_INT32 = 5,
    UOM_KIND_UINT32 = 6,
    UOM_KIND_INT64 = 7,  /* also borrowed pointers */
    UOM_KIND_UINT64 = 8, /* also borrowed pointers */
    UOM_KIND_FLOAT = 9,
    UOM_KIND_DOUBLE = 10,
    UOM_KIND_OWNED = 11 /* pointers that the table frees */
};

/* As an index in writing to a table: behind its last element. */
#define UOM_APPEND 0xFFFFFFFFu

/* Results of operations. These hold in all families, each of which has its own numbers between. */
enum UomStatus UOM_INT32_ENUM {
    UOM_DONE = 0,
    UOM_REFUSED = 1, /* a bad argument, where the family has no other name for 1 */
    UOM_NO_MEMORY = 11
};

/* Of uom_Init, uom_Init2, uom_Init3. */
enum UomStartStatus UOM_INT32_ENUM {
    UOM_START_NO_FILE = 1,       /* the data file cannot be opened */
    UOM_START_BAD_STRUCTURE = 2, /* a section keyword in a wrong place */
    UOM_START_BAD_CLASSES = 3,   /* the class table is inconsistent; the library is started */
    UOM_START_BAD_UNITS = 4      /* the unit table is inconsistent; the library is started */
};

/* Of uom_FillStructFromString, and of operations that read a unit string and hand on its status. */
enum UomFillStatus UOM_INT32_ENUM {
    UOM_FILL_BAD_ARGUMENT = 1,
    UOM_FILL_NO_UNIT = 2,
    UOM_FILL_TOO_SHORT = 3,
    UOM_FILL_TOO_LONG = 4, /* text is left over */
    UOM_FILL_BAD_MULTIPLIER = 5,
    UOM_FILL_BAD_EXPONENT = 6,
    UOM_FILL_NEEDS_PARENTHESES = 7,
    UOM_FILL_TOO_DEEP = 8,
    UOM_FILL_OVERLONG = 9 /* more than 65,535 bytes */
};

/* Of uoms_ConvertArray and uoms_CalculateConvConstants. */
enum UomConvertStatus UOM_INT32_ENUM {
    UOM_CONVERT_BAD_ARGUMENT = 1,
    UOM_CONVERT_BAD_CLASS = 2,
    UOM_CONVERT_BAD_SOURCE = 3,
    UOM_CONVERT_BAD_TARGET = 4,
    UOM_CONVERT_NOT_LINEAR = 5
};

/* Of uoms_NewClass. */
enum UomNewClassStatus UOM_INT32_ENUM {
    UOM_NEW_CLASS_BAD_ARGUMENT = 1,
    UOM_NEW_CLASS_EXISTS = 2,
    UOM_NEW_CLASS_BAD_DEFINITION = 3,
    UOM_NEW_CLASS_TOO_MANY = 5 /* components */
};

/* Options of uom_Dump, to be added. */
enum UomReportOption UOM_INT32_ENUM {
    UOM_REPORT_SLATES = 1,  /* classes and slates */
    UOM_REPORT_CLASSES = 2, /* the same, and the definitions of composite classes */
    UOM_REPORT_UNITS = 4,   /* units and common lists */
    UOM_REPORT_SAMPLES = 8, /* sample conversions */
    UOM_REPORT_FULL = 15,
    UOM_REPORT_END_USER = 256, /* leaves out what is internal */
    UOM_REPORT_MULTIPLIERS = 512,
    UOM_REPORT_HTML = 1024,
    UOM_REPORT_TAB = 2048,
    UOM_REPORT_DEFINITIONS = 4096 /* of slates; alone */
};

/* ---------------------------------------------------------------------------------------------------------------
 * Types
 */

/* One node of a chain. Read the fields, and step along `next`; change them through the operations. */
typedef struct UomStructNode {
    int32_t tag;          /* 0 a whole class; 100, 101, 102 the components of a composite class */
    int32_t classId;      /* the declared class; 1 and 2 are "(" and ")" */
    int32_t exponent;     /* of the declared class; on ")" the power of the group */
    int32_t multiplier;   /* 0, 3 (thousand) or 6 (million) */
    int32_t unitStyle;    /* how the unit takes multipliers: 1 "M BBL", any other "k*m3" */
    int32_t baseClass;    /* the elementary class of this node */
    int32_t unit;         /* the unit in use, or UOM_NULL */
    int32_t baseExponent; /* of the unit */
    int32_t slateUnit[3]; /* units fixed for the slates English, Metric and SI, or UOM_NULL */
    struct UomStructNode *next;
} UomStructNode;

/* A chain is a pointer to its first node. Its maker frees it with uom_Free. */
typedef UomStructNode *UomStruct;

/* A typed array, as some operations receive and return. Read the fields, write through the tbl_ operations. */
typedef struct UomTable {
    uint32_t count; /* elements */
    uint32_t width; /* bytes an element */
    int32_t kind;   /* a UomTableKind */
    void *data;     /* null while the table is empty */
} UomTable;

/* ---------------------------------------------------------------------------------------------------------------
 * Variables, for reading after start-up. They tell of the process' default catalogue.
 */

extern UOM_API int32_t UOM_NULL; /* no unit: 0. Valid units are greater */

/* Units of the class Basis: what a Rate or Quantity is counted by. Moles, mass, standard liquid volume, standard
 * vapour volume, actual volume. UOM_NULL when the data file has no such unit. */
extern UOM_API int32_t UOM_BASMOLE;
extern UOM_API int32_t UOM_BASMASS;
extern UOM_API int32_t UOM_BASLIQV;
extern UOM_API int32_t UOM_BASVAPV;
extern UOM_API int32_t UOM_BASACTV;

/* Indices of the slates of these names, -1 for a name that the data file did not define. UOM_SET_NULL is the unnamed
 * slate 0, which is never usable. Deleting a slate moves later slates down and leaves these as they are, and so does
 * uom_Cleanup: while the next start reads its file they still tell which slates are roots. Give slates of one process'
 * data files the same order, English, Metric and SI first, as the shipped file has. */
extern UOM_API int32_t UOM_SET_NULL;
extern UOM_API int32_t UOM_SET_ENGLISH;
extern UOM_API int32_t UOM_SET_METRIC;
extern UOM_API int32_t UOM_SET_SI;
extern UOM_API int32_t UOM_SET_INTERNAL;
extern UOM_API int32_t UOM_SET_OXINTERNAL;
extern UOM_API int32_t UOM_SET_CURRENT; /* the working slate */
extern UOM_API int32_t UOM_SET_MAX;     /* the count of slates: the greatest index is one less */

/* ---------------------------------------------------------------------------------------------------------------
 * Start-up, shutdown, messages
 */

/* The version of the library, as UOM_VERSION. [any] */
UOM_API const char *uom_GetVersion(void);

/* Starts with the file uomdata.txt: beside the library, else where it is installed relative to the library, else
 * beside the executable, else in the working directory. On Windows first beside the module corekit.dll, or beside the
 * executable while that is not loaded. Results as uom_Init2. The message of a start that found no file names the places.
 * [changes] */
UOM_API int32_t uom_Init(void);

/* The path of the data file that uom_Init would read; the library need not be started.
 * Returns 0; or 1 when there is none, with the relative path that uom_Init tries then and a message that names the
 * places; or 1 for a null `out` or one too small for the path, which is then empty. [any] */
UOM_API int32_t uom_FindDataFile(char *out, int32_t size);

/* Starts the library; does nothing, with 0, when it is started.
 *   count, words  option words, any case, each also with "-" or "/" in front; unknown words are skipped:
 *                 "kesta", "vel2go", "orbex"  the mode (orbex wins over kesta, kesta over vel2go; none is orbex)
 *                 "allowmult"                 unit multipliers are allowed (always so in kesta and vel2go)
 *                 "qx71"                      uom_GetClassType answers in the older numbering, see there
 *                 "mole", "molar"             how a Quantity counts moles; the first of the two wins, default mole
 *                 "-f" or "/f", then a path   the data file; "-fPATH" in one word does the same. Without it the file
 *                                             of the last start-up is read
 *                 null words or a count below 1 mean no words
 * UOMOPTION lines of the file add to the words; of "mole" and "molar" the words go first.
 * Returns 0; 1 the data file cannot be opened, is no regular file or has a path of more than 519 bytes, 2 it has a
 * section keyword in a wrong place, 11 memory is exhausted, each with a message and the library not started; or 3
 * (class table), 4 (unit table) inconsistent, with a message and the library started. A file whose lines end with
 * carriage returns starts with 0, and an empty catalogue, but on Windows, where they belong to the ends of lines. What a
 * failed start has built stays until the next start or the unloading, which free it; the next start begins with an empty
 * catalogue. Paths are UTF-8 on Windows; what is none is taken in the code page of the system. [changes] */
UOM_API int32_t uom_Init2(int32_t count, const char *const *words);

/* As uom_Init2; on a started library it starts anew when, and only when, the words name another data file. Paths that
 * differ in the case of letters alone are the same to it. [changes] */
UOM_API int32_t uom_Init3(int32_t count, const char *const *words);

/* Ends the library and frees all that it holds; chains and tables of the host stay the host's. Does nothing on a
 * library that is not started. Unloading the library does the same. [changes] */
UOM_API void uom_Cleanup(void);

/* The text of the last failure that wrote one, at most 511 characters: the calling thread's, at the same address
 * for the life of the thread. Not cleared by success unless an operation says so. [any] */
UOM_API const char *uom_GetLastErrorMessage(void);

/* What a data file has to hold for all rules to act, as new tables of text; null when memory is exhausted. The units
 * that the library looks up by token, those that do in place of each other parted by "|" ("Vol|Volume"); and the
 * lists of its own that it puts in force by name ("OXTimeList"). The library need not be started. [any] */
UOM_API UomTable *uom_GetKnownUnits(void);
UOM_API UomTable *uom_GetKnownLists(void);

/* ---------------------------------------------------------------------------------------------------------------
 * Tables. Index 0xFFFFFFFF appends. Truth is 1, failure (memory) 0.
 *
 * All of them are [any]: they look at no catalogue.
 *
 * Kinds: 0, 1 signed and unsigned 8-bit integers; 2 text, each element the table's own copy; 3, 4 16-bit; 5, 6
 * 32-bit; 7, 8 64-bit integers or borrowed pointers; 9, 10 floats of 32 and 64 bits; 11 pointers that the table
 * frees. Elements are read and written as doubles, texts and pointers as their addresses; kinds 1, 4, 6 and 8 read back
 * signed, and 64-bit integers beyond 2 to the power 53 are rounded.
 */

UOM_API UomTable *tbl_Create(uint32_t count, int32_t kind);       /* zeroed elements; null for a bad kind */
UOM_API void tbl_Free(UomTable *table);                           /* with the elements that it owns; null is accepted */
UOM_API UomTable *tbl_Copy(const UomTable *table);                /* texts are copied, kind 11 pointers are shared */
UOM_API double tbl_Get(const UomTable *table, uint32_t index);    /* 0 past the end */
UOM_API char *tbl_GetText(const UomTable *table, uint32_t index); /* null past the end */
UOM_API void *tbl_GetPointer(const UomTable *table, uint32_t index); /* null past the end */

/* Writes without a test of the index. With `owning`, a text is copied and the old element of kinds 2 and 11 freed. */
UOM_API void tbl_Store(UomTable *table, uint32_t index, double value, int32_t owning);

/* Write with ownership, growing the table to the index; elements jumped over are zero. */
UOM_API int32_t tbl_PutNumber(UomTable *table, uint32_t index, double value);
UOM_API int32_t tbl_PutText(UomTable *table, uint32_t index, const char *text);
UOM_API int32_t tbl_PutPointer(UomTable *table, uint32_t index, uint64_t value);

UOM_API int32_t tbl_Resize(UomTable *table, uint32_t count); /* new elements are zero, cut ones are freed */
UOM_API void tbl_Remove(UomTable *table, uint32_t index, uint32_t n);

/* Opens a gap of n zeroed elements at the index. Past the end the table grows to the index, and the gap is the n
 * elements up to it. */
UOM_API void tbl_Insert(UomTable *table, uint32_t index, uint32_t n);

UOM_API int32_t tbl_Find(const UomTable *table, double value); /* first element that compares equal, or -1 */

/* -1, 0 or 1, by the kind of the table: 1 and 4 unsigned; of 5 to 8 and 11 the low 32 bits alone, 5 and 7 signed, 6, 8
 * and 11 unsigned; texts byte by byte, null in front of all; floats are equal within one part in a million, and any two
 * below 1e-15 (kind 9: 1e-6) in size are. 0 for a null table. */
UOM_API int32_t tbl_Compare(const UomTable *table, double a, double b);
UOM_API void tbl_Sort(UomTable *table); /* ascending, by the same comparison */

/* A new null-terminated array of new copies of the texts, null for another kind or an empty table; freed by
 * tbl_FreeTextArray. */
UOM_API char **tbl_ToTextArray(const UomTable *table);
UOM_API void tbl_FreeTextArray(char **texts);

/* ---------------------------------------------------------------------------------------------------------------
 * Classes. A class number is in range when it is at least 1 and below uom_GetUOMClassCount().
 *
 * Texts of classes, units and slates are ASCII and the Latin-1 bytes 178 and 179, superscript 2 and 3, which read as
 * digits (in a class string behind a blank). Any other byte stands for itself. The case of letters is ignored for
 * those of ASCII alone.
 */

/* The number of a class, 0 when there is none. Mode 2 looks at keywords ("PRES"); any other mode at tokens ("Pres"),
 * alternative tokens and then long names ("Pressure"). Keywords of a rate of any basis answer Rate. Under "qx71" the
 * answer is the number in the older numbering, for hosts that keep such numbers (MassRate is 61 there and not 64): 0
 * for compiled classes that it lacks and for composite custom ones, for a copy of a base class ("Foo=Leng") the number
 * of that, and the number of this interface for keywords of rates and fractions. No operation accepts an older number
 * as a class. */
UOM_API int32_t uom_GetClassType(const char *text, int32_t mode); /* [reads] */
UOM_API int32_t uom_GetUOMClassCount(void); /* 71 and the custom classes; numbers start at 1, row 0 is empty [reads] */

/* A new table of the texts of all classes in a style (as uom_GetClassText), without the internal bases. [reads] */
UOM_API UomTable *uom_GetClassList(int32_t style);

/* Column widths for a user interface; 0 and 0 for a composite class or one out of range. [reads] */
UOM_API void uom_GetClassGUIWidths(int32_t classId, int32_t *width1, int32_t *width2);

UOM_API int32_t uom_IsClassBase(int32_t classId);  /* 1 for a class without components, or out of range [reads] */
UOM_API int32_t uom_IsClassBasis(int32_t classId); /* 1 for the class Basis [any] */

/* The text of a class in a style: 1 token, 2 keyword, 3 token, 4 token in capitals, 5 long name, 6 token; 0 and below
 * the default style. Empty for a class out of range or without the text. Needs a size of at least 2. */
UOM_API void uom_GetClassText(int32_t classId, char *out, int32_t size, int32_t style); /* [reads] */
UOM_API int32_t uom_GetClassTextLen(int32_t classId); /* length of the long name, 0 out of range [reads] */

/* ---------------------------------------------------------------------------------------------------------------
 * Units. A unit is valid when above UOM_NULL and below the count of the data file's units.
 *
 * A class recognises the units of its list: the choices that a host set, else the list of the data file.
 */

/* The first unit with this token, whatever its class; UOM_NULL when there is none. [reads] */
UOM_API int32_t uom_GetUnitType(const char *text);

/* The unit of the class whose token (mode 2: keyword) is the text, also written without its blanks. Trailing blanks
 * of `text` are cut in place. UOM_NULL when there is none. [reads] */
UOM_API int32_t uom_GetUnitFromString(int32_t classId, char *text, int32_t mode);

UOM_API UomTable *
uom_GetUnitList(int32_t classId); /* a new table of the tokens; null for a class without a list [reads] */

/* Fills n entries with the class's units, UOM_NULL behind them. 1 for null, n below 1 or a bad class; else 0. */
UOM_API int32_t uom_GetUnitIndices(int32_t classId, int32_t *units, int32_t n); /* [reads] */
UOM_API int32_t uom_GetUnitListIndex(int32_t classId,
                                     int32_t unit); /* place in the class's list from 0, or -1 [reads] */

/* How many nodes a class takes in a chain: 1 for a base class, 0 for a class out of range.
 * Not a count of units. [reads] */
UOM_API int32_t uom_GetUnitMax(int32_t classId);

/* The text of a unit in a style: 1 token, 2 keyword, 3 token with superscripts (Latin-1 bytes 178 and 179), 4 token
 * in capitals, 5 description, 6 token with HTML superscripts; 0 and below the default style. Empty for a bad unit.
 * All `size` bytes of `out` are written. */
UOM_API void uom_GetUnitText(int32_t unit, char *out, int32_t size, int32_t style); /* [reads] */
UOM_API int32_t uom_GetUnitTextLen(int32_t unit); /* length of the token, 0 for a bad unit [reads] */
UOM_API void uom_GetUnitDescription(int32_t unit, char *out, int32_t size); /* [reads] */

/* The constants of a unit, (x + offset) * factor being the value in base units; 0.0 and 1.0, and 1 returned, for a
 * bad unit. The offset of kPag, barg, ate, psig, kg/cm2g and mbarg is the atmospheric pressure in force, in that unit;
 * the other gauge units keep the offsets of the data file. In front of a StdVapVol, conversions take spgr as relative
 * to air, 1.223 kg/m3, whatever its constants are. [reads] */
UOM_API int32_t uom_GetConvConstants(int32_t unit, double *offset, double *factor);

/* Changes the constants of a unit for all later conversions, until the next start-up; the offsets of those six until an
 * atmospheric pressure is put in force. 1 for a bad unit. [changes] */
UOM_API int32_t uom_SetConvConstants(int32_t unit, double offset, double factor);

/* Text styles by default: style 0 of all printing operations. Set answers the style that held before, and ignores
 * anything but 1 to 6. */
UOM_API int32_t uom_SetDefaultDisplayStyle(int32_t style); /* [changes] */
UOM_API int32_t uom_GetDefaultDisplayStyle(void);          /* [reads] */

/* Whether hosts shall accept unit multipliers ("k*m3"). A stored setting: the parsers accept them always. */
UOM_API void uom_SetAllowUOMMultipliers(int32_t allow); /* [changes] */
UOM_API int32_t uom_GetAllowUOMMultipliers(void);       /* [reads] */

/* ---------------------------------------------------------------------------------------------------------------
 * Chains. A chain argument may be null. Arrays run parallel to the nodes, in chain order. Nodes are made, linked and
 * freed by these operations alone: a host writes no `next`, since appending remembers where the last chain ended.
 */

/* A new chain for a class string, its units still empty; null with a message when a class is unknown, the
 * parentheses do not balance, there are more than 20 classes and parentheses, the text has more than 65,535 bytes or
 * memory is exhausted, and null without one for a blank or null text. "Pres/VolRate 2", "(Leng Mass) 2 / Time",
 * "Rate (Mass)": numbers are exponents, a class name that holds blanks stands in quotes, a basis unit may follow a
 * class that has a basis. [reads] */
UOM_API UomStruct uoms_New(const char *classString);

/* 1 when uoms_New would give a chain, else 0. [reads] */
UOM_API int32_t uoms_IsClassValid(const char *classString);

/* 0 when the unit string fits the class string, 1 when the class string fails, 2 when the unit string does. [reads] */
UOM_API int32_t uoms_ValidateUOM(const char *classString, const char *uomString);

/* Exponents of mass, length, time, temperature, charge and currency of a class string, into six entries. Always 0;
 * the entries stay as they were when the class string fails. [reads] */
UOM_API int32_t uoms_GetDimensions(const char *classString, int32_t *dimensions);

/* A new chain from `count` classes with exponents. `units` may be null; it gives the units of simple classes, and
 * the basis unit of composite ones, which decides the class of the node behind the basis. Null for a count below 1.
 * When memory is exhausted the chain lacks nodes, or is null. [reads] */
UOM_API UomStruct uom_BuildStruct(int32_t count, const int32_t *classes, const int32_t *exponents,
                                  const int32_t *units);

/* A new chain of one class, units empty, whose slateUnit fields are filled from `units`: three rows, one for each of
 * English, Metric and SI, each of uom_GetUnitMax(classId) entries; null leaves them empty. Null for a bad class and
 * when memory is exhausted. [reads] */
UOM_API UomStruct uom_CreateStruct(int32_t classId, int32_t exponent, const int32_t *units);

/* The reverse of uom_BuildStruct: entry i belongs to node i, zero for the later nodes of a composite class. [reads] */
UOM_API void uom_DecodeStruct(UomStruct chain, int32_t n, int32_t *classes, int32_t *exponents);

UOM_API UomStruct uom_Copy(UomStruct chain); /* a new chain, or null when memory is exhausted [any] */
UOM_API void uom_Free(UomStruct *chain);     /* frees all nodes and clears the pointer; null is accepted [any] */

/* A new zeroed node, appended to the chain at the address; it stands alone with a null address. */
UOM_API UomStruct uom_AddNewStruct(UomStruct *chain);       /* [any] */
UOM_API UomStruct uom_LinkStruct(UomStruct a, UomStruct b); /* appends b to a; the head [any] */

/* Takes the node out without freeing it; the new head. A node that is not in the chain changes nothing. [any] */
UOM_API UomStruct uom_UnlinkStruct(UomStruct chain, UomStruct node);

/* Splices a chain in front of the node, or behind the end when the node is not in the chain; the new head. [any] */
UOM_API UomStruct uom_InsertBeforeStruct(UomStruct chain, UomStruct insert, UomStruct node);

/* Cuts the first nodes, as many as the class takes (1 to 70), off the front and returns them as a chain. [reads] */
UOM_API UomStruct uom_RemoveStruct(UomStruct *chain, int32_t classId);

UOM_API UomStruct uom_FindStructClass(UomStruct chain,
                                      int32_t classId);              /* first node of that baseClass, or null [any] */
UOM_API int32_t uom_GetStructIndex(UomStruct chain, UomStruct node); /* place from 0, or -1 [any] */
UOM_API int32_t uom_IsStartOfClass(UomStruct node);                  /* 1: first node of a composite class [any] */
UOM_API UomStruct uom_GetEndOfClass(UomStruct node); /* last node of the class that starts here, or null [reads] */
UOM_API int32_t uom_GetUnitCount(UomStruct chain);   /* nodes [any] */
UOM_API int32_t uom_GetClassCount(UomStruct chain);  /* classes: a composite class counts once [reads] */

/* Read (zeros behind the chain) and write the baseClass and multiplier of up to n nodes, without any test. [any] */
UOM_API void uom_GetClasses(UomStruct chain, int32_t n, int32_t *classes);
UOM_API void uom_SetClasses(UomStruct chain, int32_t n, const int32_t *classes);
UOM_API void uom_GetMultipliers(UomStruct chain, int32_t n, int32_t *multipliers);
UOM_API void uom_SetMultipliers(UomStruct chain, int32_t n, const int32_t *multipliers);

/* ---------------------------------------------------------------------------------------------------------------
 * Unit strings
 */

/* Fills the chain's units and multipliers from a unit string, or from a slate when the text is a slate's name.
 *   style  2 matches the units' keywords, any other their tokens
 * The chain says what comes next; at each node the longest matching unit of its class is taken. Composite classes
 * are read without a look at their exponents. A thousand or million stands in front of a unit: "M BBL", "MM BBL" or
 * "k*m3", "M*m3", in these letters.
 * Returns 0 with the last-error text cleared (left as it is for a slate), or a status with a message: 1 null
 * argument, 2 no such unit, 3 text too short, 4 text left over, 5 bad multiplier, 6 wrong exponent, 7 a multiplier
 * under a power needs parentheses, 8 parentheses nested deeper than 32, 9 text of more than 65,535 bytes, 11 memory is
 * exhausted. Nodes filled before a failure stay filled. [reads] */
UOM_API int32_t uom_FillStructFromString(UomStruct chain, const char *uomString, int32_t style);

/* The unit of a class at the head of a text, with its multiplier.
 *   consumed    out: characters used, multiplier included
 *   multiplier  out: 0, 3 or 6
 * Returns 0 with the last-error text cleared, or 2 no such unit, 5 unknown multiplier, 9 text of more than 65,535
 * bytes, with a message. [reads] */
UOM_API int32_t uom_FindUnitFromString(int32_t classId, const char *text, int32_t style, int32_t *consumed,
                                       int32_t *multiplier, int32_t *unit);

/* The normal form of a unit string, as messages of uom_FillStructFromString show it: no blanks at the ends and round
 * "(", ")", "-" and "/", single blanks elsewhere, Latin-1 superscripts as digits. `out` has room for as many bytes as
 * the input with its terminator. 0 for an empty or blank input, else 1. [any] */
UOM_API int32_t uom_UOMStringToStd(char *out, const char *in);

/* The multiplier at the head of a text.
 *   format  1 "M ", "MM " with or without the blank; any other "k*", "M*"
 *   rest    out: the text behind the multiplier, or the text itself
 * Returns 1 when there is one, 0 when there is none, 2 for a prefix before "*" that is no multiplier. [any] */
UOM_API int32_t uom_FindUOMMultiplierFromString(const char *text, int32_t format, int32_t *multiplier,
                                                const char **rest);

/* ---------------------------------------------------------------------------------------------------------------
 * Class-and-unit entry: a class number or keyword and plain units, each found by a whole word. Words are cut at "/";
 * all behind the first "/" have the exponent -1. A word has at most 20 characters.
 *   style  2 matches the units' keywords, any other their tokens
 */

/* A new chain from fixed-layout text: a class keyword in characters 1 to 4, a separator, units from character 6 on,
 * e.g. "PRES PSIA", "MRAT LB/HR" (a rate in pound moles), "GVRA M3/HR" (in vapour volume). Null for a null or
 * shorter text, an unknown class and when memory is exhausted; units that are not found stay empty. [reads] */
UOM_API UomStruct uom_ClassAndUnitToStruct(const char *text, int32_t style);

/* A new chain of one class filled from the units; null for a bad class and when memory is exhausted. Units that are not
 * found stay empty. [reads] */
UOM_API UomStruct uom_StringToStruct(const char *text, int32_t classId, int32_t style);

/* Fills the nodes of one class. 0, or 1 when a word is not found, an argument is null or the text has more than 65,535
 * bytes. [reads] */
UOM_API int32_t uom_FillStruct(UomStruct chain, int32_t classId, const char *text, int32_t style);

/* Fills the chain when it is of this class, else replaces and frees it. 0; 1 for a bad class and when memory is
 * exhausted, with an empty chain. [reads] */
UOM_API int32_t uom_SetClassandUnit(UomStruct *chain, int32_t classId, const char *text, int32_t style);

/* ---------------------------------------------------------------------------------------------------------------
 * Conversion. A value below -1e35 means no value (-1.5e35 is written for it) and passes unchanged, but in arrays
 * behind the first element of a linear conversion, where it is a number like any other.
 *
 * A power is made by repeated multiplication, up to where the product no longer changes (0, infinity). The conversion
 * of one value does at most ten million such rounds; one that would take more gives -1.5e35, and is not linear.
 */

/* Converts `count` values in place.
 *   values       in: numbers in fromUnits; out: the same quantities in toUnits
 *   classString  the quantity, e.g. "Pres/VolRate 2"
 *   fromUnits, toUnits  unit text, e.g. "kpa/(m3/sec)2", or the name of a slate
 * Returns 0, or 1 bad arguments, 2 class, 3 source units, 4 target units not understood, with the reason in
 * uom_GetLastErrorMessage(), but for a class string with no class in it ("", "/"): 2, and the message stays what it
 * was. On 1 to 4 the values are as they were.
 * A group raised to a power, as in "(Leng Mass) 2", or standing under a "/" leaves a factor that is one power short:
 * elements behind the first, and uoms_CalculateConvConstants, follow it. Convert such values one at a time. [reads] */
UOM_API int32_t uoms_ConvertArray(double *values, int32_t count, const char *classString, const char *fromUnits,
                                  const char *toUnits);

/* The constants of a conversion: y = (x + offset) * factor. Returns 0; 1 to 4 as uoms_ConvertArray; 5 when the
 * conversion is not linear (API gravity, too many rounds). Unless it returns 0 the outputs mean nothing. [reads] */
UOM_API int32_t uoms_CalculateConvConstants(const char *classString, const char *fromUnits, const char *toUnits,
                                            double *factor, double *offset);

/* Converts `count` values in place from the units of one chain to those of a parallel one. 1 for a null array or a
 * count below 1, else 0. [reads] */
UOM_API int32_t uom_ConvertArray(double *values, int32_t count, UomStruct from, UomStruct to);

/* One value from the units of one chain to those of a parallel one. A node without a usable unit passes the value
 * through. An API gravity at the very end of a target chain is completed by the next conversion. [reads] */
UOM_API double uom_ConvertFromTo(double value, UomStruct from, UomStruct to);

/* One value between two slates, in the class of the chain. UOM_SET_CURRENT stands for the chain's own units. When
 * memory is exhausted this and the next three give the value unconverted, and nothing tells. */
UOM_API double uom_Convert(double value, UomStruct chain, int32_t fromSlate, int32_t toSlate); /* [reads] */
UOM_API double uom_ConvertFromCurrent(double value, UomStruct chain); /* own units to the slate Internal [reads] */
UOM_API double uom_ConvertToCurrent(double value, UomStruct chain);   /* the slate Internal to own units [reads] */

/* One value of a class between two slates. `units`, one entry a node, replaces the units that UOM_SET_CURRENT stands
 * for; null leaves those of the Current slate. Entries may be rewritten as by uom_SetUnits. [reads] */
UOM_API double uom_ConvertValue(int32_t classId, int32_t *units, int32_t fromSlate, int32_t toSlate, double value);

/* ---------------------------------------------------------------------------------------------------------------
 * Basis and gauge pressure. A basis is a unit of the class Basis: it says what a Rate, Quantity or BasisFrac is
 * counted by, and so of which class the node behind it is.
 */

/* Puts a basis of mass into a chain that has none, in front of its first mass node (of the first Petro Mass node
 * when the chain is a PetroDensity), and changes it to `basis`; the new head. The chain stays as it is when it has a
 * basis already or no such node, when memory is exhausted, and for a `basis` that is not, as a number, from UOM_BASMOLE
 * to UOM_BASVAPV: the data file lists all bases in this range. */
UOM_API UomStruct uom_AddBasisStruct(UomStruct chain, int32_t basis); /* [reads] */
UOM_API UomStruct
uom_RemoveBasisStruct(UomStruct chain); /* back to mass, without the basis node; the new head [reads] */

/* Changes the basis and the class and unit of the node behind it. 1 for UOM_NULL or a chain without a basis. */
UOM_API int32_t uom_SetBasis(UomStruct chain, int32_t basis); /* [reads] */
UOM_API int32_t uom_CheckForBasis(UomStruct chain);           /* 1 when the chain has a basis node [any] */

/* 1 when both chains have a basis node at the same place; their units are not compared. [any] */
UOM_API int32_t uom_IsBasisEqual(UomStruct a, UomStruct b);

/* The basis that a class string has when filled from a unit string, or UOM_NULL. [reads] */
UOM_API int32_t uoms_GetBasis(const char *classString, const char *unitString);

/* Makes a slate's atmospheric pressure the zero of the units kPag, barg, ate, psig, kg/cm2g and mbarg, for all
 * conversions: its own, else that of the nearest ancestor that has one, else 101.325 kPa. A new slate has 101.325 kPa
 * of its own, which ends the search; it asks its parent once its "GaugePresBasis" was set and then blanked
 * (uoms_SetClassDefault). Stating or blanking that property of any slate, and uom_InitializeSet, put that of the slate
 * Current in force again. 1 for a bad slate, else 0. [changes] */
UOM_API int32_t uom_SetGaugePressureBasis(int32_t slate);

/* ---------------------------------------------------------------------------------------------------------------
 * Slates
 */

/* The index of a slate, new if there is none of this name; a new slate is based on itself and states nothing. -1
 * when memory is exhausted or the name is null. */
UOM_API int32_t uoms_NewSet(const char *name);    /* [changes] */
UOM_API int32_t uom_GetSetType(const char *name); /* index, or -1; the empty name is slate 0 [reads] */
UOM_API int32_t
uom_CheckDupSetName(const char *name);  /* 1: a slate has exactly this name, letters' case included [reads] */
UOM_API UomTable *uom_GetSetList(void); /* a new table of all names, slate 0's empty one first [reads] */

/* The root system that Current was last initialised from, 0 before; a clean-up leaves it. [reads] */
UOM_API int32_t uom_GetCurrentSet(void);

/* Makes the destination state what the source states, for the 71 compiled classes, and names the source as its
 * parent (English, Metric and SI keep theirs). 1 for a bad or equal index, 11 when memory is exhausted, else 0. */
UOM_API int32_t uom_InitializeSet(int32_t destination, int32_t source); /* [changes] */
UOM_API int32_t uom_InitializeCurrentSet(int32_t source);               /* the same into UOM_SET_CURRENT [changes] */
UOM_API int32_t uoms_InitializeSet(const char *destination, const char *source); /* [changes] */
UOM_API int32_t uoms_CopySet(const char *destination, const char *source); /* another name of the same [changes] */

/* Deletes any slate; later slates move down by one index. 1 for a bad index or name, else 0. [changes] */
UOM_API int32_t uom_DeleteSet(int32_t slate);
UOM_API int32_t uoms_DeleteSet(const char *name);

/* Does nothing when a slate has exactly the new name or none has the old one. Children keep the old name as that of
 * their parent. [changes] */
UOM_API void uoms_RenameSet(const char *oldName, const char *newName);

/* Withdraws every default of the slate. 1 for an unknown slate, 11 when memory was exhausted on the way, else 0.
 * [changes] */
UOM_API int32_t uoms_ClearSet(const char *name);

/* Names the parent, which need not exist. The slate's index, or -1; English, Metric and SI change nothing. [changes] */
UOM_API int32_t uoms_PutSetBasedOn(const char *name, const char *parent);

/* The name of the parent, cut to `length` bytes; returns `out`. The first forms write up to 64 bytes and are
 * deprecated. [reads] */
UOM_API char *uom_GetSetBasedOn2(int32_t slate, char *out, int32_t length);
UOM_API char *uoms_GetSetBasedOn2(const char *name, char *out, int32_t length);
UOM_API char *uom_GetSetBasedOn(int32_t slate, char *out);
UOM_API char *uoms_GetSetBasedOn(const char *name, char *out);

/* The name of a slate; returns `out`. The first form writes up to 64 bytes and is deprecated. [reads] */
UOM_API char *uom_GetBaseName2(int32_t slate, char *out, int32_t size);
UOM_API char *uom_GetBaseName(int32_t slate, char *out);

/* ---------------------------------------------------------------------------------------------------------------
 * Units of a chain. The first 20 nodes are reached by what works on whole slates.
 */

/* Writes `count` entries of a unit array into the chain and returns count.
 *   kind 1  the units in use. A changed basis turns the next node into the class that it stands for, with a unit
 *           derived from the old one or the Current slate's default; a unit that is a whole quotient ("kW", "API")
 *           clears the next node. An invalid entry leaves the node's unit; entries may be rewritten
 *   kind 2  the units fixed for a root slate (English, Metric, SI); any other slate does nothing [reads] */
UOM_API int32_t uom_SetUnits(int32_t kind, int32_t slate, UomStruct chain, int32_t count, int32_t *units);

/* Reads them into `count` entries, zeros behind the chain: kind 1 in use, 2 fixed for a root slate, 3 the defaults
 * that a slate resolves to. */
UOM_API void uom_GetUnits(int32_t kind, int32_t slate, UomStruct chain, int32_t count, int32_t *units); /* [reads] */
UOM_API void uom_GetDefaultUnits(UomStruct chain, int32_t slate, int32_t count, int32_t *units);        /* [reads] */
UOM_API void uom_GetDefaultMults(UomStruct chain, int32_t slate, int32_t count, int32_t *multipliers);  /* [reads] */
UOM_API void uom_GetCurrentUnits(UomStruct chain, int32_t count, int32_t *units);                       /* [any] */
UOM_API int32_t uom_SetCurrentUnits(UomStruct chain, int32_t count, int32_t *units);                    /* [reads] */
UOM_API void uom_GetOverrideUnits(UomStruct chain, int32_t slate, int32_t count, int32_t *units);       /* [reads] */
UOM_API void uom_SetOverrideUnits(UomStruct chain, int32_t slate, int32_t count, const int32_t *units); /* [reads] */

/* Gives the chain the units and multipliers of a slate, inherited ones included. [reads] */
UOM_API void uom_InitializeUnits(UomStruct chain, int32_t slate);

/* The same from the Current slate, with the units that the chain fixes for the active root system on top. [reads] */
UOM_API void uom_InitializeCurrentUnits(UomStruct chain);

/* The 71 pairs that a slate itself states for the classes 0 to 70. Writing sets no dependent default. 1 for a bad
 * slate, 11 when memory is exhausted, else 0. */
UOM_API int32_t uom_GetGlobalUnits(int32_t slate, int32_t *units, int32_t *multipliers);             /* [reads] */
UOM_API int32_t uom_SetGlobalUnits(int32_t slate, const int32_t *units, const int32_t *multipliers); /* [changes] */

/* 1 when the chain has just the units and multipliers that the Current slate gives it. [reads] */
UOM_API int32_t uom_IsUnitDefault(UomStruct chain);

/* ---------------------------------------------------------------------------------------------------------------
 * Display units
 */

/* The units of a filled chain as text, "kPa/(m3/sec)2", which reads back through uom_FillStructFromString; styles as
 * uom_GetUnitText. Returns `out`; all its bytes are written. [reads] */
UOM_API char *uom_GetDisplayUnits(UomStruct chain, char *out, int32_t size, int32_t style);

/* The multiplier of a node as it stands in front of the unit: "M ", "MM ", "k*", "M*" or nothing. 0, or 1 for a bad
 * argument. [reads] */
UOM_API int32_t uom_GetUOMMultiplierString(UomStruct node, char *out, int32_t size);

/* Display units of a class in a slate, with `units` (one entry a node, or null) put over them.
 * Returns `out`. [reads] */
UOM_API char *uom_GetDisplayText(int32_t classId, int32_t *units, int32_t slate, char *out, int32_t size,
                                 int32_t style);

/* Display units of a class string in a slate; for the property "GaugePresBasis" the atmospheric pressure in kPa that
 * the slate or an ancestor states. Empty for anything unknown. Returns `out`. [reads] */
UOM_API char *uoms_GetDisplayUnits(const char *classString, const char *slateName, char *out, int32_t size,
                                   int32_t style);

/* ---------------------------------------------------------------------------------------------------------------
 * Class strings and keyword strings
 */

/* The class string of a chain, "Pres / Rate 2", which reads back through uoms_New; styles as uom_GetClassText. Needs a
 * size of at least 2; empty for a null chain. [reads] */
UOM_API void uom_BuildClassString(UomStruct chain, char *out, int32_t size, int32_t style);

/* The class string with every temperature and pressure in its absolute, difference or standard form ("PresDiff/Time 2"
 * becomes "PresAbs / Time 2"); a text without one comes back as it is. 0; 1 for a bad buffer; 2 when the class string
 * fails, with its copy in `out`. [reads] */
UOM_API int32_t uoms_GetAbsoluteClass(const char *classString, char *out, int32_t size);
UOM_API int32_t uoms_GetDifferenceClass(const char *classString, char *out, int32_t size);
UOM_API int32_t uoms_GetStandardClass(const char *classString, char *out, int32_t size);

/* The unit text of a difference: gauge and absolute pressure units become plain ones ("psig" becomes "psi"). 0, or 1
 * with an empty text when the class string fails. [reads] */
UOM_API int32_t uoms_GetDifferenceUOM(const char *classString, const char *uomString, char *out, int32_t size);

/* The fixed-layout keyword text of a filled chain, the reverse of uom_ClassAndUnitToStruct: "WTRA LB/HR" padded to 25
 * characters. Needs a size of at least 26; empty when the text does not fit. The chain is changed and brought back on
 * the way; a mole unit without a mass unit of its name is lost. Returns `out`. [reads] */
UOM_API char *uom_StructToOXString(UomStruct chain, char *out, int32_t size);

/* ---------------------------------------------------------------------------------------------------------------
 * Defaults of a slate. Writing the default of a base class sets those that follow from it (degrees F decide degrees
 * R, a length its area and volumes).
 */

/* States the default of a class: units and multipliers, one entry a node of the class. UOM_NULL withdraws it. 1 for a
 * bad slate, class or (base class) null array; when memory is exhausted 11 for a base class, 1 for a composite one.
 * [changes] */
UOM_API int32_t uom_SetClassDefault(int32_t slate, int32_t classId, const int32_t *units, const int32_t *multipliers);

/* The same by text: value is a unit string ("MM BBL/day"), empty or null to withdraw the default. The class name may
 * be one of the slate's properties "GaugePresBasis" (atmospheric pressure, in kPa, or in Pa from 50662.5 up),
 * "isSystem", "isHidden", "allowDelete", "allowModify" (0 or 1). A property takes no null: 1, without a message.
 * An empty "GaugePresBasis" makes a slate that had a text of its own ask its parent from then on (the value is -1
 * inside), and gives 101.325 kPa to one that had none, as after a second blanking.
 * Clears the last-error text. Returns 0; 1 unknown slate or class, with a message; or the status and message of
 * uom_FillStructFromString; or 11 when memory is exhausted, with a message. The slate is then as it was. [changes] */
UOM_API int32_t uoms_SetClassDefault(const char *slateName, const char *className, const char *value);

/* The text of what the slate itself states. A base class inherits nothing here; slots that a stated composite class
 * leaves open are filled in from the parents. 1 for a bad argument, 11 when memory is exhausted, else 0, with an
 * empty text where nothing is stated. [reads] */
UOM_API int32_t uom_GetClassDefault(int32_t slate, int32_t classId, char *out, int32_t length);

/* The same by name; clears the last-error text, writes one for a bad slate or a missing argument. Properties as
 * uoms_SetClassDefault. [reads] */
UOM_API int32_t uoms_GetClassDefault(const char *slateName, const char *className, char *out, int32_t length);

/* ---------------------------------------------------------------------------------------------------------------
 * Slates as text
 */

/* A new table of lines, null for an unknown slate and when memory is exhausted.
 *   format  0 the parent's name, "GaugePresBasis" and its value in Pa, then pairs of elements, class and default, as
 *             far as they differ from the parent's
 *           1 the same with every class
 *           2 lines: "[name]", "BasedOn=...", the properties, the custom classes, then "class=default" as in 0
 *           any other gives an empty table [reads] */
UOM_API UomTable *uoms_GetSetDefinition(const char *name, int32_t format);

/* Applies such a table to an existing slate; the layout is known by the first element. Lines are cut in place, so a
 * table cannot be read twice. 1 for null, for an empty table and for one that is not of text, 11 when memory was
 * exhausted on the way, else 0: what single lines say is in the last-error text alone. In layout 2, "CopyFrom=slate"
 * copies a slate, "Parent" is as "BasedOn". [changes] */
UOM_API int32_t uoms_PutSetDefinition(const char *name, UomTable *lines);

/* ---------------------------------------------------------------------------------------------------------------
 * Custom classes. They take the numbers from 71 up; deleting one moves later ones down.
 *
 * Name them by letters. Digits are exponents in class strings, so a name with one never reads there, in quotes or not
 * ("E6" is the exception: a 6 directly behind an e belongs to the name), nor does it take a default by text. An empty
 * name makes a class that nothing finds, each time another, until uom_Cleanup.
 */

/* A new class: a copy of a compiled base class ("Leng"), or a composite of at most three components given as a class
 * string ("MassRate / Area"). In every slate it starts with the default of the class it is defined from. Returns 0;
 * 1 missing argument, 2 exists, 3 definition not understood, 5 too many components, 11 memory is exhausted, each
 * with a message. [changes] */
UOM_API int32_t uoms_NewClass(const char *name, const char *definition);

/* Deletes a custom class. Classes behind it are renumbered, also as components of other custom classes, but not in
 * chains of the host. 0; 1 for null; 2 for an unknown class, a compiled one, number 71 (the first custom class) and a
 * class that another custom class has as a component, all of which stay; 11 when memory was exhausted on the way. (A
 * composite class is no component: definitions take its components in its place.) [changes] */
UOM_API int32_t uoms_DeleteClass(const char *name);

/* Replaces the keyword (style 2) or long name (style 5) of a custom class. 0; 1 null or empty text, 2 no such class,
 * 3 a compiled class, 4 any other style, 11 memory is exhausted. [changes] */
UOM_API int32_t uoms_PutClassText(const char *classText, const char *newText, int32_t style);

/* ---------------------------------------------------------------------------------------------------------------
 * Choices of units: narrow what a class recognises and an interface offers, for every class that it is part of.
 */

/* From a table of unit tokens, unknown ones left out; null, empty, or all unknown restores the full list. 1 for an
 * unknown class and for a table that is not of text, 11 when memory is exhausted, else 0. [changes] */
UOM_API int32_t uoms_SetUOMChoices(const char *classText, const UomTable *tokens);

/* The same from an array of units ended by UOM_NULL. [changes] */
UOM_API int32_t uom_SetUOMChoices(int32_t classId, const int32_t *units);

/* Puts the data file's short lists for the class of the first node in force: they become the choices of the classes
 * that it is made of (the Time, Mass, Mole and volumes of a Rate). UOM_NULL. [changes] */
UOM_API int32_t uom_LoadApplicationList(UomStruct chain);

/* Restores the full lists of the same classes, and so takes away choices that the host has set for them, too. What Cake
 * Resistance (69) narrows, Mass and Leng, is left as it is. 0. [changes] */
UOM_API int32_t uom_LoadNormalList(UomStruct chain);

/* ---------------------------------------------------------------------------------------------------------------
 * Report
 */

/* Prints the catalogue as a document to a file, or to the standard output for a null or empty path.
 *   options  sum of 1 classes and slates, 2 the same and the definitions of composite classes, 4 units and common
 *            lists, 8 sample conversions, 256 for end users (leaves out what is internal), 512 multiplier columns,
 *            1024 HTML, 2048 tab-separated; 4096 alone: the definition text of the slates that may be modified, and
 *            at the end of the slate named Current, also of one that a host made after a start without; 0 means 15
 * Returns 0; the error number of the system when the file cannot be made; ENOMEM, as the system numbers it, when memory
 * failed on the way; -1 when the output could not be written. [reads] */
UOM_API int32_t uom_Dump(int32_t options, const char *path);

#ifdef __cplusplus
}
#endif

#endif

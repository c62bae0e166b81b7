#include "entry/words.h"

#include <algorithm>
#include <atomic>
#include <cstring>

#include "catalogue/class_table.h"
#include "catalogue/units.h"
#include "support/memory.h"
#include "support/message.h"
#include "support/platform.h"
#include "support/text.h"
#include "uomstruct/quotients.h"

namespace uom {

namespace {

constexpr const char *aliasFileName = "aliases.txt";

// --- lines of aliases

std::string_view takeLine(std::string_view &text) {
    const size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = str_Head(text, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

std::string_view withoutComment(std::string_view line) {
    if (str_Head(line, 2) == "//")
        return {};
    return str_Head(line, line.find(" //"));
}

// --- the block

// Hands out pieces of one block: first only counted, then taken.
struct Arena {
    char *block = nullptr;
    size_t used = 0;

    template <class Element> Element *take(size_t count) {
        used = (used + alignof(Element) - 1) / alignof(Element) * alignof(Element);
        Element *piece = block ? reinterpret_cast<Element *>(block + used) : nullptr;
        used += count * sizeof(Element);
        return piece;
    }
};

struct Pieces {
    Words *words;
    UnitQuantity *units;
    ClassShape *classes;
    WordName *names;
    int32_t *places;
    Alias *aliases;
    char *texts;
};

struct Sizes {
    size_t units, classes, aliases, texts, names, places;
};

Pieces layOut(Arena &arena, const Sizes &sizes) {
    Pieces pieces;
    pieces.words = arena.take<Words>(1);
    pieces.units = arena.take<UnitQuantity>(sizes.units);
    pieces.classes = arena.take<ClassShape>(sizes.classes);
    pieces.names = arena.take<WordName>(sizes.names);
    pieces.places = arena.take<int32_t>(sizes.places);
    pieces.aliases = arena.take<Alias>(sizes.aliases);
    pieces.texts = arena.take<char>(sizes.texts);
    return pieces;
}

struct Builder {
    const Catalogue &catalogue;
    Pieces pieces;
    Words words;
    size_t textsUsed = 0;
};

const UomUnit *record(const Catalogue &catalogue, int32_t unit) {
    return table_Record<UomUnit>(catalogue.units.records, unit);
}

const char *keep(Builder &builder, std::string_view text) {
    char *copy = builder.pieces.texts + builder.textsUsed;
    std::memcpy(copy, text.data(), text.size());
    copy[text.size()] = '\0';
    builder.textsUsed += text.size() + 1;
    return copy;
}

// --- what units and classes measure

// A gas volume has its conditions in its name: a volume as such is no amount.
bool isGasVolume(const Catalogue &catalogue, int32_t unit) {
    const UomUnit *found = record(catalogue, unit);
    if (!found || uom_GetUnitListIndex(catalogue, CLASS_VAP_VOL, unit) < 0 || !found->description)
        return false;
    const std::string_view description(found->description);
    for (const char *mark : {"Standard", "Normal", " at ", " 0 C"})
        if (description.find(mark) != std::string_view::npos)
            return true;
    return false;
}

void noteUnit(Builder &builder, int32_t unit, int32_t classId, const BaseQuantity &base) {
    const Catalogue &catalogue = builder.catalogue;
    UnitQuantity &quantity = builder.pieces.units[unit];
    const UomUnit *found = record(catalogue, unit);
    if (quantity.known || quantity.formula || !found)
        return;
    const bool whole = unit_IsWholeQuotient(catalogue, classId, unit);
    if (whole && classId == CLASS_PETRO_MASS) {
        quantity.formula = true;
        return;
    }
    quantity.dimension = base.dimension;
    if (whole) // a power holds its own time
        --quantity.dimension[AXIS_TIME];
    quantity.size = base.size * found->factor;
    quantity.base = base.size;
    quantity.known = base.known;
    quantity.shifted = found->offset != 0.0 && class_Row(catalogue, classId)->hasOffset != 0;
    quantity.gas = isGasVolume(catalogue, unit);
}

void noteUnits(Builder &builder) {
    std::memset(static_cast<void *>(builder.pieces.units), 0,
                sizeof(UnitQuantity) * static_cast<size_t>(builder.words.unitCount));
    for (int32_t c = CLASS_DIMENSIONLESS; c < builder.words.classCount; ++c) {
        const BaseQuantity base = dimension_OfClass(builder.catalogue, c);
        const int32_t *units = base.known ? uom_GetClassUnits(builder.catalogue, c) : nullptr;
        for (; units && *units != NO_UNIT; ++units)
            if (*units > NO_UNIT && *units < builder.words.unitCount)
                noteUnit(builder, *units, c, base);
    }
}

struct RatioClass {
    const char *token;
    Ratios ratios;
};
constexpr RatioClass ratioClasses[] = {
    {"MassFrac", RATIO_OF_MASSES}, {"MoleFrac", RATIO_OF_AMOUNTS}, {"VolFrac", RATIO_OF_VOLUMES}};

Ratios ratiosOf(const UomClassRow &row) {
    for (const RatioClass &known : ratioClasses)
        if (row.token && std::strcmp(row.token, known.token) == 0)
            return known.ratios;
    return RATIO_OF_ANY;
}

// "mg/kg" is in the list of one of these classes, "percent" in all.
void noteRatios(Builder &builder) {
    const Catalogue &catalogue = builder.catalogue;
    for (int32_t c = CLASS_DIMENSIONLESS; c < builder.words.classCount; ++c) {
        const UomClassRow *row = class_ValidRow(catalogue, c);
        const Ratios ratios = row ? ratiosOf(*row) : RATIO_OF_ANY;
        const int32_t *units = ratios != RATIO_OF_ANY ? uom_GetClassUnits(catalogue, c) : nullptr;
        for (; units && *units != NO_UNIT; ++units)
            if (*units > NO_UNIT && *units < builder.words.unitCount)
                builder.pieces.units[*units].ratios |= ratios;
    }
    for (int32_t unit = 0; unit < builder.words.unitCount; ++unit)
        if (builder.pieces.units[unit].ratios == 0 || uom_GetUnitListIndex(catalogue, CLASS_FRAC, unit) >= 0)
            builder.pieces.units[unit].ratios = RATIO_OF_ANY;
}

ClassShape shapeOf(const Catalogue &catalogue, int32_t classId) {
    ClassShape shape = {};
    const UomClassRow *row = class_ValidRow(catalogue, classId);
    if (!row || classId < CLASS_DIMENSIONLESS)
        return shape;
    shape.shown = class_IsOffered(catalogue, classId);
    shape.known = true;
    shape.ratios = ratiosOf(*row);
    const bool single = row->baseClass[0] == 0;
    for (int32_t slot = 0; slot < (single ? 1 : CLASS_SLOTS); ++slot) {
        const int32_t base = single ? classId : row->baseClass[slot];
        if (base == 0)
            break;
        const UomClassRow *baseRow = class_ValidRow(catalogue, base);
        if (base == CLASS_BASIS || !baseRow || baseRow->baseClass[0] != 0)
            return {};
        shape.classes[shape.slots] = base;
        shape.exponents[shape.slots] = single ? 1 : row->baseExponent[slot];
        const BaseQuantity quantity = dimension_OfClass(catalogue, base);
        shape.known = shape.known && quantity.known;
        if (!single && quantity.dimension != Dimension{})
            shape.ratios &= ratios_OfPart(quantity.dimension, shape.exponents[shape.slots]);
        shape.dimension = dimension_Times(shape.dimension, quantity.dimension, shape.exponents[shape.slots]);
        ++shape.slots;
    }
    if (shape.ratios == 0 || shape.dimension != Dimension{})
        shape.ratios = RATIO_OF_ANY;
    return shape;
}

// --- names

uint32_t hashOf(std::string_view name) {
    uint32_t hash = WORD_HASH;
    for (const char c : name)
        hash = words_HashOn(hash, c);
    return hash;
}

void addName(Builder &builder, const char *text, NameKind kind, int32_t target) {
    const std::string_view name(text ? text : "");
    if (name.empty() || name.size() > UINT16_MAX)
        return;
    builder.pieces.names[builder.words.nameCount++] = {
        text, hashOf(name), words_Letters(name), static_cast<uint16_t>(name.size()), kind, target, -1, -1};
}

// The last name first, each in front of those of its hash and of those of its length.
void placeNames(Builder &builder) {
    WordName *const names = builder.pieces.names;
    int32_t *const places = builder.pieces.places;
    for (uint32_t i = builder.words.nameCount; i-- > 0;) {
        uint32_t place = names[i].hash & builder.words.mask;
        while (places[place] >= 0 && names[places[place]].hash != names[i].hash)
            place = (place + 1) & builder.words.mask;
        names[i].next = places[place];
        places[place] = static_cast<int32_t>(i);
        if (names[i].length >= Words::LENGTHS)
            continue;
        int32_t &first = builder.words.firstOfLength[names[i].length];
        names[i].nextOfLength = first;
        first = static_cast<int32_t>(i);
    }
}

void addAlias(Builder &builder, const AliasLine &line) {
    if (line.name.empty() || line.unitText.empty())
        return;
    Alias &alias = builder.pieces.aliases[builder.words.aliasCount++];
    alias = {keep(builder, line.name), keep(builder, line.unitText), {}};
    std::string_view binding = line.binding;
    for (int32_t count = 0; count < Alias::CLASSES - 1 && !binding.empty();) {
        const size_t end = std::min(binding.find_first_of(", "), binding.size());
        char token[64];
        str_CopyBounded(token, sizeof token, str_Head(binding, end));
        binding.remove_prefix(std::min(end + 1, binding.size()));
        if (const int32_t classId = *token ? class_Find(builder.catalogue, token, STYLE_TOKEN) : 0; classId > 0)
            alias.classes[count++] = classId;
    }
}

void readAliases(Builder &builder, std::string_view text) {
    std::string_view binding;
    AliasLine line;
    while (alias_NextLine(text, line)) {
        if (line.binds)
            binding = line.binding;
        line.binding = binding;
        addAlias(builder, line);
    }
}

// Descriptions without what stands in parentheses at their end, but for gauge units, whose parenthesis counts.
const char *shortDescription(Builder &builder, const char *description) {
    const std::string_view text(description ? description : "");
    const size_t open = text.find(" (");
    if (open == std::string_view::npos || open == 0 || text.back() != ')' ||
        text.find("auge", open) != std::string_view::npos)
        return nullptr;
    return keep(builder, str_Head(text, open));
}

// A token that is a plural ("tons") is written without its s as well.
const char *singular(Builder &builder, const char *token) {
    const std::string_view text(token ? token : "");
    return text.size() >= 4 && text.back() == 's' && text.find_first_of("-/ ") == std::string_view::npos
               ? keep(builder, str_Head(text, text.size() - 1))
               : nullptr;
}

// One name for each unit, what `nameOf` answers; null is passed over.
template <class NameOf> void addUnitNames(Builder &builder, NameKind kind, NameOf nameOf) {
    for (int32_t unit = 1; unit < builder.words.unitCount; ++unit)
        if (const UomUnit *found = record(builder.catalogue, unit))
            addName(builder, nameOf(*found), kind, unit);
}

void addNames(Builder &builder) {
    addUnitNames(builder, NameKind::TOKEN, [](const UomUnit &unit) { return unit.token; });
    addUnitNames(builder, NameKind::TOKEN, [&](const UomUnit &unit) { return singular(builder, unit.token); });
    for (int32_t i = builder.words.aliasCount - 1; i >= 0; --i)
        addName(builder, builder.pieces.aliases[i].name, NameKind::ALIAS, i);
    addUnitNames(builder, NameKind::DESCRIPTION, [](const UomUnit &unit) { return unit.description; });
    addUnitNames(builder, NameKind::DESCRIPTION,
                 [&](const UomUnit &unit) { return shortDescription(builder, unit.description); });
}

// --- the file of aliases, beside the data file

bool besideDataFile(char *out, size_t size, const char *dataFile) {
    const std::string_view path(dataFile);
    const size_t slash = path.find_last_of("/\\");
    TextWriter writer(out, size);
    if (slash != std::string_view::npos)
        str_Write(writer, str_Head(path, slash + 1));
    str_Write(writer, aliasFileName);
    return writer.wanted < size;
}

void readAliasFile(const Catalogue &catalogue, FileText &file) {
    char path[DATA_FILE_SIZE];
    DataFilePlaces places;
    const char *dataFile = catalogue.dataFile;
    if (!*dataFile) {
        if (!platform_FindDataFile(places))
            return;
        dataFile = places.paths[places.count - 1];
    }
    if (besideDataFile(path, sizeof path, dataFile))
        platform_ReadFile(path, file);
}

Sizes sizesOf(const Catalogue &catalogue, std::string_view file, std::string_view own) {
    Sizes sizes = {};
    sizes.units = std::max<size_t>(table_Count(catalogue.units.records), 1); // NO_UNIT, if nothing else
    sizes.classes = static_cast<size_t>(catalogue.classes.count);
    sizes.texts = 2 * (file.size() + own.size()) + 16;
    for (const std::string_view text : {file, own})
        sizes.aliases += static_cast<size_t>(std::count(text.begin(), text.end(), '=')) + 1;
    for (size_t i = 0; i < sizes.units; ++i)
        if (const UomUnit *unit = record(catalogue, static_cast<int32_t>(i)))
            sizes.texts += std::strlen(unit->description ? unit->description : "") +
                           std::strlen(unit->token ? unit->token : "") + 2;
    sizes.names = 4 * sizes.units + sizes.aliases;
    sizes.places = 64;
    while (sizes.places < 2 * sizes.names + 2)
        sizes.places *= 2;
    return sizes;
}

Words *build(const Catalogue &catalogue) {
    FileText file;
    readAliasFile(catalogue, file);
    const std::string_view fileText = str_WithoutMark({file.text ? file.text : "", file.length});
    const std::string_view own(catalogue.aliasText ? catalogue.aliasText : "");
    const Sizes sizes = sizesOf(catalogue, fileText, own);
    Arena arena;
    layOut(arena, sizes);
    void *block = nullptr;
    if (mem_Malloc(&block, arena.used) != 0)
        return nullptr;
    arena = {static_cast<char *>(block), 0};
    Builder builder = {catalogue, layOut(arena, sizes), {}, 0};
    Words &words = builder.words;
    words.unitCount = static_cast<int32_t>(sizes.units);
    words.classCount = static_cast<int32_t>(sizes.classes);
    words.mask = static_cast<uint32_t>(sizes.places - 1);
    std::fill_n(builder.pieces.places, sizes.places, -1);
    std::fill_n(words.firstOfLength, Words::LENGTHS, -1);
    noteUnits(builder);
    noteRatios(builder);
    for (int32_t c = 0; c < words.classCount; ++c)
        builder.pieces.classes[c] = shapeOf(catalogue, c);
    readAliases(builder, fileText);
    readAliases(builder, own);
    addNames(builder);
    placeNames(builder);
    words.units = builder.pieces.units;
    words.classes = builder.pieces.classes;
    words.names = builder.pieces.names;
    words.places = builder.pieces.places;
    words.aliases = builder.pieces.aliases;
    *builder.pieces.words = words;
    return builder.pieces.words;
}

} // namespace

uint32_t words_HashOn(uint32_t hash, char c) {
    return c == ' ' ? hash : (hash ^ static_cast<uint8_t>(str_Lower(c))) * 16777619u;
}

uint32_t words_Letters(std::string_view name) {
    uint32_t letters = 0;
    for (const char c : name) {
        const char lower = str_Lower(c);
        letters |= 1u << (lower >= 'a' && lower <= 'z' ? lower - 'a' : 26 + (static_cast<uint8_t>(c) & 3));
    }
    return letters;
}

bool alias_IsOf(const Alias &alias, int32_t classId) {
    for (const int32_t *bound = alias.classes; *bound != 0; ++bound)
        if (*bound == classId)
            return true;
    return alias.classes[0] == 0;
}

bool alias_NextLine(std::string_view &text, AliasLine &line) {
    line = {};
    if (text.empty())
        return false;
    const std::string_view content = str_Trimmed(withoutComment(str_Trimmed(takeLine(text))));
    if (!content.empty() && content.front() == '[') {
        line.binds = true;
        line.binding = str_Trimmed(str_Behind(str_Head(content, content.find(']')), 1));
        return true;
    }
    const size_t equals = content.find('=');
    if (equals == std::string_view::npos) {
        line.name = content;
        return true;
    }
    line.name = str_Trimmed(str_Head(content, equals));
    line.unitText = str_Trimmed(str_Behind(content, equals + 1));
    return true;
}

const Words *words_Of(const Catalogue &catalogue) {
    if (void *standing = catalogue.words.load(std::memory_order_acquire))
        return static_cast<const Words *>(standing);
    Words *made = build(catalogue);
    void *none = nullptr;
    if (made && !catalogue.words.compare_exchange_strong(none, made, std::memory_order_acq_rel)) {
        mem_Free(made);
        return static_cast<const Words *>(none);
    }
    return made;
}

int32_t uom_ReadAliasText(Catalogue &catalogue, const char *text, size_t length) {
    if (!text && length > 0) {
        error_Set("Invalid input arguments detected in function uom_ReadAliasText().");
        return UOM_REFUSED;
    }
    const size_t before = catalogue.aliasText ? std::strlen(catalogue.aliasText) : 0;
    const std::string_view added = str_WithoutMark({text ? text : "", length});
    void *block = catalogue.aliasText;
    if (mem_Realloc(&block, before + added.size() + 2) != 0) {
        error_Set("The aliases were not read: memory is exhausted.");
        return UOM_NO_MEMORY;
    }
    char *all = static_cast<char *>(block);
    size_t used = before;
    for (const char c : str_Head(added, std::min(added.find('\0'), added.size())))
        all[used++] = c;
    all[used++] = '\n';
    all[used] = '\0';
    catalogue.aliasText = all;
    catalogue_DropWords(catalogue);
    return UOM_DONE;
}

} // namespace uom

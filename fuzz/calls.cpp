// Calls in an order that the input gives, in catalogues that it makes: each byte is an operation, and the bytes behind it
// are its arguments. The same bytes are the same calls:
// whatever a call may leave behind, in a catalogue or in the thread, ends with the input.
#include <algorithm>
#include <array>
#include <iterator>
#include <thread>

#include "fuzz/input.h"
#include "uom/conversion.h"
#include "uom/entry.h"

namespace {

constexpr uint32_t CHAINS = 4, CONVERSIONS = 2, CATALOGUES = 3;
constexpr int32_t MOST = 32; // entries of an array, elements of a table
constexpr int CALLS = 200;

struct World {
    std::array<UomCatalogue *, CATALOGUES> catalogues{};
    std::array<UomStruct, CHAINS> chains{};
    std::array<UomConversion *, CONVERSIONS> conversions{};
    UomTable *table = nullptr;
};

// Arguments ----------------------------------------------------------------------------------------------------

const char *const words[] = {"",
                             "Temp",
                             "Pres",
                             "PresDiff",
                             "Mass",
                             "MassRate",
                             "Rate",
                             "Rate (Mass)",
                             "Density",
                             "Leng",
                             "Area",
                             "VolRate",
                             "Quantity",
                             "BasisFrac",
                             "Basis",
                             "Pres/MassRate 2",
                             "Power",
                             "(Leng) 2",
                             "Time",
                             "(Leng Mass) 2",
                             "none",
                             "Mole",
                             "Molar",
                             "F",
                             "C",
                             "K",
                             "kPa",
                             "kPag",
                             "bar",
                             "lb",
                             "kg",
                             "lb/hr",
                             "kg/sec",
                             "m",
                             "m2",
                             "k*m3",
                             "M lb",
                             "lb-mol/hr",
                             "(m)2",
                             "kg/m3",
                             "English",
                             "Metric",
                             "SI",
                             "Internal",
                             "Current",
                             "Plant",
                             "Works",
                             "OXInternal",
                             "Load",
                             "Flux",
                             "Mass/Area",
                             "GaugePresBasis",
                             "isSystem",
                             "allowModify",
                             "83.5",
                             "-1",
                             "0",
                             "1e5",
                             "5 kPag",
                             "3 kPa/100m",
                             "stone",
                             "stone = 14 lb",
                             "PRES KPA",
                             "WTRA LB/HR",
                             "[Temp]\nx = C\n",
                             "[A]\nTemp=F",
                             "BasedOn=SI",
                             "CopyFrom=English",
                             "Customs=0",
                             "Shorts",
                             "M",
                             "MM"};

// A word, or text that the input spells.
std::string text(Bytes &in) {
    const uint32_t which = in.byte();
    return which < std::size(words) ? words[which] : in.text(which % 32);
}

UomStruct &chain(Bytes &in, World &world) {
    return world.chains[in.below(CHAINS)];
}

// A node of a chain, null behind its end.
UomStruct node(Bytes &in, UomStruct head) {
    for (uint32_t i = in.below(8); head && i > 0; --i)
        head = head->next;
    return head;
}

std::vector<int32_t> numbers(Bytes &in, size_t count) {
    std::vector<int32_t> list(count);
    for (int32_t &number : list)
        number = in.number();
    return list;
}

double value(Bytes &in) {
    static const double values[] = {0.0, 1.0, -40.0, 1.5e3, -1e36, 1e300, -1e-300};
    return in.oneOf(values);
}

// Memory of just the size that an operation is told.
std::vector<char> room(Bytes &in, int32_t least = 1) {
    static const int32_t sizes[] = {1, 2, 3, 8, 26, 64, 256};
    return std::vector<char>(static_cast<size_t>(std::max(in.oneOf(sizes), least)));
}
int32_t sizeOf(const std::vector<char> &out) {
    return static_cast<int32_t>(out.size());
}

void replace(UomStruct &slot, UomStruct made) {
    uom_Free(&slot);
    slot = made;
}
void replace(World &world, UomTable *made) {
    tbl_Free(world.table);
    world.table = made;
}

// Catalogues: lines of the small data left out, doubled, changed places, or put in.
std::string grown(Bytes &in) {
    std::vector<std::string> lines;
    for (std::string data = smallData(); !data.empty();)
        lines.push_back(takeLine(data));
    for (uint32_t edits = in.below(6); edits > 0; --edits) {
        const auto at = lines.begin() + in.below(static_cast<uint32_t>(lines.size()));
        const uint32_t kind = in.below(4);
        if (kind == 0)
            lines.erase(at);
        else if (kind == 1)
            lines.insert(at, std::string(*at));
        else if (kind == 2)
            std::swap(*at, lines[in.below(static_cast<uint32_t>(lines.size()))]);
        else
            lines.insert(at, text(in));
    }
    std::string data;
    for (const std::string &line : lines)
        data += line + "\n";
    return data;
}

void start(Bytes &in) {
    static const char *const modes[] = {"orbex", "kesta", "vel2go", "qx71", "molar", "allowmult"};
    const char *const options[] = {in.oneOf(modes), in.oneOf(modes)};
    const std::string data = grown(in);
    uom_InitText(data.data(), data.size(), 2, options);
}

void use(Bytes &in, World &world) {
    UomCatalogue *&slot = world.catalogues[in.below(CATALOGUES)];
    if (!slot)
        slot = uom_NewCatalogue();
    uom_UseCatalogue(slot);
}

void freeCatalogue(Bytes &in, World &world) {
    UomCatalogue *&slot = world.catalogues[in.below(CATALOGUES)];
    uom_FreeCatalogue(slot);
    slot = nullptr;
    use(in, world);
}

// Operations ---------------------------------------------------------------------------------------------------

using Operation = void (*)(Bytes &in, World &world);

const Operation operations[] = {
    // catalogues
    use, freeCatalogue, [](Bytes &in, World &) { start(in); }, [](Bytes &, World &) { uom_Cleanup(); },
    [](Bytes &in, World &) { uom_SetDefaultDisplayStyle(in.number()); },
    [](Bytes &in, World &) { uom_SetAllowUOMMultipliers(in.number()); },
    // classes
    [](Bytes &in, World &) { uom_GetClassType(text(in).c_str(), in.number()); },
    [](Bytes &in, World &) {
        int32_t widths[2];
        uom_GetClassGUIWidths(in.number(), widths, widths + 1);
    },
    [](Bytes &in, World &) {
        std::vector<char> out = room(in, 2);
        uom_GetClassText(in.number(), out.data(), sizeOf(out), in.number());
    },
    [](Bytes &in, World &world) { replace(world, uom_GetClassList(in.number())); },
    [](Bytes &in, World &) { uoms_NewClass(text(in).c_str(), text(in).c_str()); },
    [](Bytes &in, World &) { uoms_DeleteClass(text(in).c_str()); },
    [](Bytes &in, World &) { uoms_PutClassText(text(in).c_str(), text(in).c_str(), in.number()); },
    // units
    [](Bytes &in, World &) {
        std::string units = text(in);
        uom_GetUnitFromString(in.number(), units.data(), in.number());
    },
    [](Bytes &in, World &world) { replace(world, uom_GetUnitList(in.number())); },
    [](Bytes &in, World &) {
        std::vector<int32_t> units(MOST);
        uom_GetUnitIndices(in.number(), units.data(), MOST);
        uom_GetUnitListIndex(in.number(), in.number());
    },
    [](Bytes &in, World &) {
        std::vector<char> out = room(in);
        uom_GetUnitText(in.number(), out.data(), sizeOf(out), in.number());
        uom_GetUnitDescription(in.number(), out.data(), sizeOf(out));
    },
    [](Bytes &in, World &) { uom_SetConvConstants(in.number(), value(in), value(in)); },
    [](Bytes &in, World &world) { uom_LoadApplicationList(chain(in, world)); },
    [](Bytes &in, World &world) { uom_LoadNormalList(chain(in, world)); },
    [](Bytes &in, World &world) { uoms_SetUOMChoices(text(in).c_str(), world.table); },
    [](Bytes &in, World &) {
        std::vector<int32_t> units = numbers(in, in.below(5));
        units.push_back(0);
        uom_SetUOMChoices(in.number(), units.data());
    },
    // chains
    [](Bytes &in, World &world) { replace(chain(in, world), uoms_New(text(in).c_str())); },
    [](Bytes &in, World &world) {
        const std::vector<int32_t> classes = numbers(in, 3), exponents = numbers(in, 3), units = numbers(in, 3);
        replace(chain(in, world), uom_BuildStruct(3, classes.data(), exponents.data(), units.data()));
    },
    [](Bytes &in, World &world) {
        const int32_t classId = in.number();
        const std::vector<int32_t> units = numbers(in, 3 * static_cast<size_t>(uom_GetUnitMax(classId)));
        replace(chain(in, world), uom_CreateStruct(classId, in.number(), in.below(2) ? units.data() : nullptr));
    },
    [](Bytes &in, World &world) { replace(chain(in, world), uom_ClassAndUnitToStruct(text(in).c_str(), in.number())); },
    [](Bytes &in, World &world) {
        UomStruct &slot = chain(in, world);
        uom_SetClassandUnit(&slot, in.number(), text(in).c_str(), in.number());
    },
    [](Bytes &in, World &world) {
        const UomStruct from = chain(in, world);
        UomStruct &to = chain(in, world);
        if (&to != &from)
            replace(to, uom_Copy(from));
    },
    [](Bytes &in, World &world) { uom_AddNewStruct(&chain(in, world)); },
    [](Bytes &in, World &world) {
        UomStruct &a = chain(in, world), &b = chain(in, world);
        if (&a == &b)
            return;
        a = uom_LinkStruct(a, b);
        b = nullptr;
    },
    [](Bytes &in, World &world) {
        UomStruct &a = chain(in, world), &b = chain(in, world);
        if (&a == &b)
            return;
        a = uom_InsertBeforeStruct(a, b, node(in, a));
        b = nullptr;
    },
    [](Bytes &in, World &world) {
        UomStruct &head = chain(in, world);
        UomStruct out = node(in, head);
        head = uom_UnlinkStruct(head, out);
        uom_Free(&out);
    },
    [](Bytes &in, World &world) {
        UomStruct &head = chain(in, world);
        UomStruct cut = uom_RemoveStruct(&head, in.number());
        uom_Free(&cut);
    },
    [](Bytes &in, World &world) {
        const UomStruct head = chain(in, world), at = node(in, head);
        uom_IsStartOfClass(at);
        uom_GetEndOfClass(at);
        uom_GetStructIndex(head, at);
        uom_GetClassCount(head);
        uom_FindStructClass(head, in.number());
        std::vector<char> out = room(in);
        uom_GetUOMMultiplierString(at, out.data(), sizeOf(out));
    },
    [](Bytes &in, World &world) {
        const UomStruct head = chain(in, world);
        std::vector<int32_t> first(MOST), second(MOST);
        uom_DecodeStruct(head, MOST, first.data(), second.data());
        uom_GetClasses(head, MOST, first.data());
        uom_GetMultipliers(head, MOST, second.data());
    },
    [](Bytes &in, World &world) { uom_SetClasses(chain(in, world), 2, numbers(in, 2).data()); },
    [](Bytes &in, World &world) { uom_SetMultipliers(chain(in, world), 2, numbers(in, 2).data()); },
    // unit strings and conversion
    [](Bytes &in, World &world) {
        const UomStruct head = chain(in, world);
        uom_FillStructFromString(head, text(in).c_str(), in.number());
    },
    [](Bytes &in, World &world) {
        const UomStruct head = chain(in, world);
        const int32_t classId = in.number();
        int32_t nodes = 0, wanted = uom_GetUnitMax(classId);
        for (UomStruct at = head; at; at = at->next)
            ++nodes;
        if (nodes >= wanted)
            uom_FillStruct(head, classId, text(in).c_str(), in.number());
    },
    [](Bytes &in, World &) {
        int32_t consumed, multiplier, unit;
        uom_FindUnitFromString(in.number(), text(in).c_str(), in.number(), &consumed, &multiplier, &unit);
    },
    [](Bytes &in, World &) {
        double values[] = {value(in), value(in), value(in)};
        uoms_ConvertArray(values, 3, text(in).c_str(), text(in).c_str(), text(in).c_str());
    },
    [](Bytes &in, World &world) { uom_ConvertFromTo(value(in), chain(in, world), chain(in, world)); },
    [](Bytes &in, World &world) {
        double values[] = {value(in), value(in)};
        uom_ConvertArray(values, 2, chain(in, world), chain(in, world));
    },
    [](Bytes &in, World &world) {
        const UomStruct head = chain(in, world);
        uom_Convert(value(in), head, in.number(), in.number());
        uom_ConvertFromCurrent(value(in), head);
        uom_ConvertToCurrent(value(in), head);
    },
    [](Bytes &in, World &) {
        const int32_t classId = in.number();
        std::vector<int32_t> units = numbers(in, static_cast<size_t>(uom_GetUnitMax(classId)));
        uom_ConvertValue(classId, in.below(2) ? units.data() : nullptr, in.number(), in.number(), value(in));
    },
    [](Bytes &in, World &world) {
        UomConversion *&slot = world.conversions[in.below(CONVERSIONS)];
        uom_FreeConversion(slot);
        uom_NewConversion(chain(in, world), chain(in, world), &slot);
    },
    [](Bytes &in, World &world) {
        UomConversion *&slot = world.conversions[in.below(CONVERSIONS)];
        uom_FreeConversion(slot);
        uoms_NewConversion(text(in).c_str(), text(in).c_str(), text(in).c_str(), &slot);
    },
    [](Bytes &in, World &world) {
        double values[] = {value(in), value(in), value(in)}, factor, offset;
        uom_ConvertMany(world.conversions[in.below(CONVERSIONS)], values, values, 3);
        uom_GetConversionConstants(world.conversions[in.below(CONVERSIONS)], &factor, &offset);
    },
    // bases
    [](Bytes &in, World &world) {
        UomStruct &head = chain(in, world);
        head = uom_AddBasisStruct(head, in.number());
    },
    [](Bytes &in, World &world) {
        UomStruct &head = chain(in, world);
        head = uom_RemoveBasisStruct(head);
    },
    [](Bytes &in, World &world) { uom_SetBasis(chain(in, world), in.number()); },
    [](Bytes &in, World &world) { uom_IsBasisEqual(chain(in, world), chain(in, world)); },
    [](Bytes &in, World &) { uoms_GetBasis(text(in).c_str(), text(in).c_str()); },
    [](Bytes &in, World &) { uom_SetGaugePressureBasis(in.number()); },
    // slates
    [](Bytes &in, World &) { uoms_NewSet(text(in).c_str()); },
    [](Bytes &in, World &) { uom_InitializeSet(in.number(), in.number()); },
    [](Bytes &in, World &) { uom_InitializeCurrentSet(in.number()); },
    [](Bytes &in, World &) { uoms_CopySet(text(in).c_str(), text(in).c_str()); },
    [](Bytes &in, World &) { uom_DeleteSet(in.number()); },
    [](Bytes &in, World &) { uoms_DeleteSet(text(in).c_str()); },
    [](Bytes &in, World &) { uoms_RenameSet(text(in).c_str(), text(in).c_str()); },
    [](Bytes &in, World &) { uoms_ClearSet(text(in).c_str()); },
    [](Bytes &in, World &) { uoms_PutSetBasedOn(text(in).c_str(), text(in).c_str()); },
    [](Bytes &in, World &) {
        std::vector<char> out = room(in);
        uom_GetSetBasedOn2(in.number(), out.data(), sizeOf(out));
        uom_GetBaseName2(in.number(), out.data(), sizeOf(out));
    },
    [](Bytes &in, World &) {
        const int32_t slate = in.number(), classId = in.number();
        const size_t count = static_cast<size_t>(uom_GetUnitMax(classId));
        uom_SetClassDefault(slate, classId, numbers(in, count).data(), numbers(in, count).data());
    },
    [](Bytes &in, World &) { uoms_SetClassDefault(text(in).c_str(), text(in).c_str(), text(in).c_str()); },
    [](Bytes &in, World &) {
        std::vector<char> out = room(in);
        uoms_GetClassDefault(text(in).c_str(), text(in).c_str(), out.data(), sizeOf(out));
    },
    [](Bytes &in, World &) {
        std::vector<int32_t> units(71), multipliers(71);
        if (uom_GetGlobalUnits(in.number(), units.data(), multipliers.data()) != 0)
            return;
        units[in.below(71)] = in.number();
        multipliers[in.below(71)] = in.number();
        uom_SetGlobalUnits(in.number(), units.data(), multipliers.data());
    },
    [](Bytes &in, World &world) { replace(world, uoms_GetSetDefinition(text(in).c_str(), in.number())); },
    [](Bytes &in, World &world) { uoms_PutSetDefinition(text(in).c_str(), world.table); },
    // units of a chain
    [](Bytes &in, World &world) {
        const UomStruct head = chain(in, world);
        std::vector<int32_t> units = numbers(in, 5);
        uom_SetUnits(in.number(), in.number(), head, 5, units.data());
        uom_GetUnits(in.number(), in.number(), head, 5, units.data());
    },
    [](Bytes &in, World &world) {
        std::vector<int32_t> units(MOST);
        uom_GetDefaultMults(chain(in, world), in.number(), MOST, units.data());
    },
    [](Bytes &in, World &world) { uom_InitializeUnits(chain(in, world), in.number()); },
    [](Bytes &in, World &world) { uom_InitializeCurrentUnits(chain(in, world)); },
    [](Bytes &in, World &world) { uom_IsUnitDefault(chain(in, world)); },
    // texts
    [](Bytes &in, World &world) {
        std::vector<char> out = room(in, 2);
        uom_GetDisplayUnits(chain(in, world), out.data(), sizeOf(out), in.number());
        uom_BuildClassString(chain(in, world), out.data(), sizeOf(out), in.number());
    },
    [](Bytes &in, World &) {
        const int32_t classId = in.number();
        std::vector<int32_t> units = numbers(in, static_cast<size_t>(uom_GetUnitMax(classId)));
        std::vector<char> out = room(in);
        uom_GetDisplayText(classId, in.below(2) ? units.data() : nullptr, in.number(), out.data(), sizeOf(out),
                           in.number());
    },
    [](Bytes &in, World &) {
        std::vector<char> out = room(in);
        uoms_GetDisplayUnits(text(in).c_str(), text(in).c_str(), out.data(), sizeOf(out), in.number());
    },
    [](Bytes &in, World &) {
        std::vector<char> out = room(in);
        const std::string classes = text(in);
        uoms_GetAbsoluteClass(classes.c_str(), out.data(), sizeOf(out));
        uoms_GetDifferenceClass(classes.c_str(), out.data(), sizeOf(out));
        uoms_GetStandardClass(classes.c_str(), out.data(), sizeOf(out));
        uoms_GetDifferenceUOM(classes.c_str(), text(in).c_str(), out.data(), sizeOf(out));
    },
    [](Bytes &in, World &world) {
        std::vector<char> out = room(in, 26);
        uom_StructToOXString(chain(in, world), out.data(), sizeOf(out));
    },
    [](Bytes &in, World &) { uom_Dump(in.number() & 0x7F, "/dev/null"); },
    // what people type
    [](Bytes &in, World &) {
        UomEntry entry;
        uom_ReadEntry(text(in).c_str(), text(in).c_str(), &entry);
    },
    [](Bytes &in, World &world) {
        UomConversion *&slot = world.conversions[in.below(CONVERSIONS)];
        uom_FreeConversion(slot);
        UomEntry entry;
        uom_NewConversionFromEntries(text(in).c_str(), text(in).c_str(), text(in).c_str(), &slot, &entry);
    },
    [](Bytes &in, World &world) { replace(world, uom_GetEntryClasses(text(in).c_str())); },
    [](Bytes &in, World &world) { replace(world, uom_Search(text(in).c_str(), in.number())); },
    [](Bytes &in, World &world) { replace(world, uom_GetChoices(text(in).c_str())); },
    [](Bytes &, World &world) { replace(world, uom_GetAliases()); },
    [](Bytes &in, World &) {
        const std::string aliases = text(in);
        uom_ReadAliasText(aliases.data(), aliases.size());
    },
    // tables
    [](Bytes &in, World &world) { replace(world, tbl_Create(in.below(MOST), in.number())); },
    [](Bytes &in, World &world) {
        if (world.table && world.table->kind == UOM_KIND_TEXT)
            tbl_PutText(world.table, in.below(MOST), text(in).c_str());
    },
    [](Bytes &in, World &world) {
        if (world.table && world.table->kind != UOM_KIND_TEXT && world.table->kind != UOM_KIND_OWNED)
            tbl_PutNumber(world.table, in.below(MOST), in.number());
    },
    [](Bytes &in, World &world) {
        if (world.table)
            tbl_Resize(world.table, in.below(MOST));
    },
    [](Bytes &in, World &world) {
        if (world.table)
            tbl_Remove(world.table, in.byte(), in.byte());
    },
    [](Bytes &in, World &world) {
        if (world.table)
            tbl_Insert(world.table, in.below(MOST), in.below(MOST));
    },
    [](Bytes &, World &world) {
        if (world.table)
            tbl_Sort(world.table);
    },
    [](Bytes &, World &world) {
        tbl_FreeTextArray(tbl_ToTextArray(world.table));
        if (world.table && world.table->kind != UOM_KIND_OWNED)
            tbl_Free(tbl_Copy(world.table));
    }};

void end(World &world) {
    for (UomStruct &head : world.chains)
        uom_Free(&head);
    for (UomConversion *conversion : world.conversions)
        uom_FreeConversion(conversion);
    tbl_Free(world.table);
    for (UomCatalogue *catalogue : world.catalogues)
        uom_FreeCatalogue(catalogue);
}

void run(Bytes in) {
    World world;
    use(in, world);
    start(in);
    for (int calls = 0; calls < CALLS && !in.empty(); ++calls)
        in.oneOf(operations)(in, world);
    end(world);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    std::thread(run, Bytes{data, data + size}).join();
    return 0;
}

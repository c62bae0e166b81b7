// Typed texts: one entry beside the classical reading of the same text, and the cases that it has not.
#include <benchmark/benchmark.h>

#include "bench/hosts.h"
#include "uom/entry.h"

namespace {

// What a user of the classical operations does for the same answer: the text is read, and printed as the catalogue has it.
bool readClassically(const char *classString, const char *text) {
    char units[256];
    UomStruct chain = uoms_New(classString);
    const bool read = uom_FillStructFromString(chain, text, UOM_STYLE_TOKEN) == UOM_DONE;
    uom_GetDisplayUnits(chain, units, sizeof units, UOM_STYLE_TOKEN);
    uom_Free(&chain);
    return read;
}

const struct {
    const char *classString, *text;
} canonical[] = {{"Pres", "kPag"},
                 {"MassRate", "lb/hr"},
                 {"Htco", "BTU/hr-ft2-F"},
                 {"Pres/VolRate 2", "kPa/(m3/sec)2"},
                 {"Mass / Leng Time", "lb/ft-hr"}};

void readEntry(benchmark::State &state) {
    startLibrary();
    const auto &pair = canonical[state.range(0)];
    state.SetLabel(pair.text);
    UomEntry entry;
    uom_ReadEntry(pair.classString, pair.text, &entry); // makes the index
    double ourTime = 0, classicalTime = 0;
    for (auto _ : state) {
        {
            const Stopwatch watch(ourTime);
            for (int i = 0; i < 16; ++i)
                if (uom_ReadEntry(pair.classString, pair.text, &entry) != 0)
                    return state.SkipWithError(entry.message);
        }
        const Stopwatch watch(classicalTime);
        for (int i = 0; i < 16; ++i)
            if (!readClassically(pair.classString, pair.text))
                return state.SkipWithError(uom_GetLastErrorMessage());
    }
    const double readings = 16.0 * static_cast<double>(state.iterations());
    state.counters["ns"] = 1e9 * ourTime / readings;
    state.counters["classical_ns"] = 1e9 * classicalTime / readings;
    state.counters["ratio"] = ourTime / classicalTime;
}
BENCHMARK(readEntry)->DenseRange(0, 4);

// Spellings that only the door knows, texts of any class, and texts that are refused with a suggestion.
void readTyped(benchmark::State &state) {
    const struct {
        const char *classString, *text;
        int32_t status;
    } typed[] = {{"Pres", "250 kPa(g)", 0},    {"Htco", "W/m²/K", 0}, {"VolRate", "gpm", 0},
                 {nullptr, "BTU/lb-F", 0},     {"Pres", "kPs", 1},    {nullptr, "kilogramm", 1},
                 {"MassRate", "100 lb*hr", 1}, {"Presure", "kPa", 1}};
    startLibrary();
    const auto &text = typed[state.range(0)];
    state.SetLabel(text.text);
    UomEntry entry;
    for (auto _ : state)
        if (uom_ReadEntry(text.classString, text.text, &entry) != text.status)
            return state.SkipWithError(entry.message);
}
BENCHMARK(readTyped)->DenseRange(0, 7);

} // namespace

// What grows with what: chains with their nodes, arrays with their values, and nothing with the size of the catalogue.
//
// growth/N is the time of two unit texts to their constants in a catalogue of N times the shipped units; the others tell
// the time for each node.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include "bench/hosts.h"
#include "uom/catalogue.h"
#include "uom/conversion.h"

namespace {

// The shipped data file with more units in front of the end of their list, each of a name of its own.
std::string grownData(int64_t times) {
    std::ostringstream shipped;
    shipped << std::ifstream(UOM_BENCH_DATA).rdbuf();
    std::string text = shipped.str();
    std::string more;
    const size_t end = text.find("ENDUOMLIST");
    for (int64_t i = 389; i < 389 * times; ++i)
        more += "\"q" + std::to_string(i) + "\" \"Q" + std::to_string(i) + "\" \"more\" 0 0 1.5\n";
    return text.insert(end, more);
}

// A catalogue of the benchmark's own, in use for the life of a block.
struct Grown {
    UomCatalogue *own = uom_NewCatalogue();
    explicit Grown(int64_t times) {
        const std::string text = grownData(times);
        uom_UseCatalogue(own);
        if (uom_InitText(text.data(), text.size(), 0, nullptr) != 0) {
            std::fprintf(stderr, "%s\n", uom_GetLastErrorMessage());
            std::exit(1);
        }
    }
    ~Grown() {
        uom_UseCatalogue(nullptr);
        uom_FreeCatalogue(own);
    }
    Grown(const Grown &) = delete;
    Grown &operator=(const Grown &) = delete;
};

void growth(benchmark::State &state) {
    const Grown catalogue(state.range(0));
    double factor, offset;
    for (auto _ : state)
        if (uoms_CalculateConvConstants("Pres/VolRate 2", "kpa/(m3/sec)2", "psi/(ft3/min)2", &factor, &offset) != 0)
            return state.SkipWithError(uom_GetLastErrorMessage());
}
BENCHMARK(growth)->Arg(1)->Arg(10);

// N groups of two nodes, "(Leng Mass) 2 ...", in feet and pounds to meters and kilograms.
struct LongTexts {
    std::string classes, from, to;
    explicit LongTexts(int64_t pairs) {
        for (int64_t i = 0; i < pairs; ++i) {
            classes += "Leng Mass ";
            from += i == 0 ? "ft-lb" : "-ft-lb";
            to += i == 0 ? "m-kg" : "-m-kg";
        }
    }
};

void nodes(benchmark::State &state) {
    startLibrary();
    const LongTexts texts(state.range(0));
    for (auto _ : state) {
        UomConversion *conversion = nullptr;
        if (uoms_NewConversion(texts.classes.c_str(), texts.from.c_str(), texts.to.c_str(), &conversion) != 0)
            return state.SkipWithError(uom_GetLastErrorMessage());
        uom_FreeConversion(conversion);
    }
    const double prepared = 2.0 * static_cast<double>(state.range(0)) * static_cast<double>(state.iterations());
    state.counters["per_node"] =
        benchmark::Counter(prepared, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(nodes)->Arg(1)->Arg(3)->Arg(10);

} // namespace

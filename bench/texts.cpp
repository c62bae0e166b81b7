// From texts to a converted number, beside UDUNITS-2 in the same run, and a start of the library.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>

#include "bench/hosts.h"
#include "bench/udunits.h"

void startLibrary() {
    const char *const words[] = {"-f", UOM_BENCH_DATA};
    if (uom_Init2(2, words) == 0)
        return;
    std::fprintf(stderr, "%s\n", uom_GetLastErrorMessage());
    std::exit(1);
}

namespace {

void convertText(benchmark::State &state) {
    startLibrary();
    const TextPair &pair = textPairs[state.range(0)];
    state.SetLabel(pair.name);
    double ourTime = 0, theirTime = 0;
    for (auto _ : state) {
        double value = 1.0;
        {
            const Stopwatch watch(ourTime);
            for (int i = 0; i < 16; ++i)
                if (uoms_ConvertArray(&value, 1, pair.classString, pair.from, pair.to) != 0)
                    return state.SkipWithError(uom_GetLastErrorMessage());
        }
        const Stopwatch watch(theirTime);
        for (int i = 0; i < 16 && UdunitsPair::present(); ++i)
            if (!udunitsConvert(pair.udunitsFrom, pair.udunitsTo, &value))
                return state.SkipWithError("UDUNITS-2 does not read the pair");
        benchmark::DoNotOptimize(value);
    }
    const double conversions = 16.0 * static_cast<double>(state.iterations());
    state.counters["ns"] = 1e9 * ourTime / conversions;
    if (!UdunitsPair::present())
        return;
    state.counters["udunits_ns"] = 1e9 * theirTime / conversions;
    state.counters["ratio"] = ourTime / theirTime;
}
BENCHMARK(convertText)->DenseRange(0, 4);

void startAndStop(benchmark::State &state) {
    uom_Cleanup();
    double ourTime = 0, theirTime = 0;
    for (auto _ : state) {
        {
            const Stopwatch watch(ourTime);
            startLibrary();
            uom_Cleanup();
        }
        const Stopwatch watch(theirTime);
        udunitsStartAndStop();
    }
    state.counters["us"] = 1e6 * ourTime / static_cast<double>(state.iterations());
    if (UdunitsPair::present())
        state.counters["ratio"] = ourTime / theirTime;
}
BENCHMARK(startAndStop)->Unit(benchmark::kMicrosecond);

} // namespace

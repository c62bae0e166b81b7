// Conversion of arrays beside the plain loop, in one run: each round converts forth and back by both, so that
// they meet the same state of the machine and the values stay in range.
//
// Counters: ns_per_element of the library, plain_ns_per_element, their ratio, the bandwidth that the library
// reached (bytes read and written), and the ratio to cv_convert_doubles where UDUNITS-2 is installed.
#include <benchmark/benchmark.h>

#include <vector>

#include "bench/hosts.h"
#include "bench/udunits.h"

namespace {

constexpr double PSI_IN_KPA = 6.894757293168362;

struct Pair {
    UomStruct psig = uoms_New("Pres");
    UomStruct kpa = uoms_New("Pres");
    Pair() {
        uom_FillStructFromString(psig, "psig", 1);
        uom_FillStructFromString(kpa, "kPa", 1);
    }
    ~Pair() {
        uom_Free(&psig);
        uom_Free(&kpa);
    }
    Pair(const Pair &) = delete;
    Pair &operator=(const Pair &) = delete;
};

void convertArray(benchmark::State &state) {
    startLibrary();
    const Pair pair;
    const size_t count = static_cast<size_t>(state.range(0));
    const int32_t n = static_cast<int32_t>(count);
    std::vector<double> ours(count, 14.7);
    std::vector<double> plain(count, 14.7);
    std::vector<double> theirs(count, 14.7);
    const UdunitsPair udunits("psi", "kPa");
    double ourTime = 0, plainTime = 0, theirTime = 0;
    for (auto _ : state) {
        {
            const Stopwatch watch(ourTime);
            uom_ConvertArray(ours.data(), n, pair.psig, pair.kpa);
            uom_ConvertArray(ours.data(), n, pair.kpa, pair.psig);
            benchmark::ClobberMemory();
        }
        {
            const Stopwatch watch(plainTime);
            plainLoop(plain.data(), count, 14.695948775513, PSI_IN_KPA);
            plainLoop(plain.data(), count, -101.325, 1 / PSI_IN_KPA);
            benchmark::ClobberMemory();
        }
        {
            const Stopwatch watch(theirTime);
            udunits.convert(theirs.data(), count);
            udunits.convertBack(theirs.data(), count);
            benchmark::ClobberMemory();
        }
    }
    const double elements = 2.0 * static_cast<double>(count) * static_cast<double>(state.iterations());
    state.counters["ns_per_element"] = 1e9 * ourTime / elements;
    state.counters["plain_ns_per_element"] = 1e9 * plainTime / elements;
    state.counters["ratio_to_plain"] = ourTime / plainTime;
    state.counters["GB_per_s"] = 16e-9 * elements / ourTime;
    if (UdunitsPair::present())
        state.counters["ratio_to_udunits"] = ourTime / theirTime;
}
BENCHMARK(convertArray)->Arg(16)->Arg(1 << 10)->Arg(1 << 16)->Arg(1 << 20)->Arg(1 << 24);

// What the machine's memory gives a copy of 16 M doubles (bytes read and written): the limit of the large
// arrays.
void memoryBandwidth(benchmark::State &state) {
    std::vector<double> from(1 << 24, 1.0), to(1 << 24, 0.0);
    for (auto _ : state) {
        std::copy(from.begin(), from.end(), to.begin());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * (int64_t{16} << 24));
}
BENCHMARK(memoryBandwidth);

} // namespace

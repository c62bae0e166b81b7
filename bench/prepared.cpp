// Prepared conversions beside the plain code for the same, in one run: one value through a function, arrays of several
// lengths, floats, columns of records, API gravity, and the making of a conversion.
//
// Counters: ns a value of the library and of the plain code, and their ratio.
#include <benchmark/benchmark.h>

#include <vector>

#include "bench/hosts.h"
#include "bench/udunits.h"
#include "uom/conversion.h"

namespace {

struct Prepared {
    UomConversion *conversion = nullptr;
    double factor = 1, offset = 0;
    Prepared(const char *classString, const char *from, const char *to) {
        startLibrary();
        uoms_NewConversion(classString, from, to, &conversion);
        uom_GetConversionConstants(conversion, &factor, &offset);
    }
    ~Prepared() { uom_FreeConversion(conversion); }
    Prepared(const Prepared &) = delete;
    Prepared &operator=(const Prepared &) = delete;
};

struct Units {
    const char *classString, *from, *to;
};
constexpr Units linearPairs[] = {
    {"Pres", "psi", "kPa"}, {"Pres", "psig", "kPa"}, {"Temp", "F", "K"}, {"Leng", "ft", "in"}};

// Times for one round of ours and one of theirs, in turn.
struct Duel {
    double ours = 0, theirs = 0;
    template <class Ours, class Theirs> void round(Ours runOurs, Theirs runTheirs) {
        {
            const Stopwatch watch(ours);
            runOurs();
            benchmark::ClobberMemory();
        }
        const Stopwatch watch(theirs);
        runTheirs();
        benchmark::ClobberMemory();
    }
    void report(benchmark::State &state, double values) const {
        const double count = values * static_cast<double>(state.iterations());
        state.counters["ns"] = 1e9 * ours / count;
        state.counters["plain_ns"] = 1e9 * theirs / count;
        state.counters["ratio"] = ours / theirs;
    }
};

constexpr int CALLS = 1000;

void convertOne(benchmark::State &state) {
    const Units &units = linearPairs[state.range(0)];
    const Prepared prepared(units.classString, units.from, units.to);
    Duel duel;
    for (auto _ : state)
        duel.round(
            [&] {
                for (int i = 0; i < CALLS; ++i)
                    benchmark::DoNotOptimize(uom_ConvertOne(prepared.conversion, i));
            },
            [&] {
                for (int i = 0; i < CALLS; ++i)
                    benchmark::DoNotOptimize(plainOne(i, prepared.offset, prepared.factor));
            });
    duel.report(state, CALLS);
}
BENCHMARK(convertOne)->DenseRange(0, 3);

#if defined(UOM_HAVE_UDUNITS)
// The same beside UDUNITS-2, whose units are parsed; and ready chains beside it.
void convertOneUdunits(benchmark::State &state) {
    const Prepared prepared("Pres", "psi", "kPa");
    const UdunitsPair udunits("psi", "kPa");
    Duel duel;
    for (auto _ : state)
        duel.round(
            [&] {
                for (int i = 0; i < CALLS; ++i)
                    benchmark::DoNotOptimize(uom_ConvertOne(prepared.conversion, i));
            },
            [&] {
                for (int i = 0; i < CALLS; ++i)
                    benchmark::DoNotOptimize(cv_convert_double(udunits.forth, i));
            });
    duel.report(state, CALLS);
}
BENCHMARK(convertOneUdunits);

void convertFromToUdunits(benchmark::State &state) {
    startLibrary();
    UomStruct from = uoms_New("Pres"), to = uoms_New("Pres");
    uom_FillStructFromString(from, "psi", 1);
    uom_FillStructFromString(to, "kPa", 1);
    const UdunitsPair udunits("psi", "kPa");
    Duel duel;
    for (auto _ : state)
        duel.round(
            [&] {
                for (int i = 0; i < CALLS; ++i)
                    benchmark::DoNotOptimize(uom_ConvertFromTo(i, from, to));
            },
            [&] {
                for (int i = 0; i < CALLS; ++i)
                    benchmark::DoNotOptimize(cv_convert_double(udunits.forth, i));
            });
    duel.report(state, CALLS);
    uom_Free(&from);
    uom_Free(&to);
}
BENCHMARK(convertFromToUdunits);
#endif

// From an array to another. Values on both sides of the offsets.
void convertMany(benchmark::State &state) {
    const Units &units = linearPairs[state.range(0)];
    const Prepared prepared(units.classString, units.from, units.to);
    const size_t count = static_cast<size_t>(state.range(1));
    std::vector<double> in(count), ours(count), plain(count);
    for (size_t i = 0; i < count; ++i)
        in[i] = static_cast<double>(i * 7919 % 1000) - 300;
    const size_t rounds = count < 4096 ? 4096 / count : 1;
    Duel duel;
    for (auto _ : state)
        duel.round(
            [&] {
                for (size_t i = 0; i < rounds; ++i)
                    uom_ConvertMany(prepared.conversion, in.data(), ours.data(), count);
            },
            [&] {
                for (size_t i = 0; i < rounds; ++i)
                    plainCopy(in.data(), plain.data(), count, prepared.offset, prepared.factor);
            });
    duel.report(state, static_cast<double>(count * rounds));
}
BENCHMARK(convertMany)->ArgsProduct({{0, 1, 2, 3}, {16, 100, 1 << 10, 1 << 16, 1 << 20, 1 << 24}});

// There and back in place, so that the values stay what they are.
void convertManyBack(benchmark::State &state) {
    const Units &units = linearPairs[state.range(0)];
    const Prepared forth(units.classString, units.from, units.to), back(units.classString, units.to, units.from);
    const size_t count = static_cast<size_t>(state.range(1));
    std::vector<double> ours(count), plain(count);
    for (size_t i = 0; i < count; ++i)
        ours[i] = plain[i] = static_cast<double>(i * 7919 % 1000) - 300;
    const size_t rounds = count < 4096 ? 4096 / count : 1;
    Duel duel;
    for (auto _ : state)
        duel.round(
            [&] {
                for (size_t i = 0; i < rounds; ++i) {
                    uom_ConvertMany(forth.conversion, ours.data(), ours.data(), count);
                    uom_ConvertMany(back.conversion, ours.data(), ours.data(), count);
                }
            },
            [&] {
                for (size_t i = 0; i < rounds; ++i) {
                    plainLoop(plain.data(), count, forth.offset, forth.factor);
                    plainLoop(plain.data(), count, back.offset, back.factor);
                }
            });
    duel.report(state, static_cast<double>(2 * count * rounds));
}
BENCHMARK(convertManyBack)->ArgsProduct({{0, 1, 2, 3}, {16, 100, 1 << 10, 1 << 16, 1 << 20, 1 << 24}});

void convertFloats(benchmark::State &state) {
    const Units &units = linearPairs[state.range(0)];
    const Prepared prepared(units.classString, units.from, units.to);
    const size_t count = static_cast<size_t>(state.range(1));
    std::vector<float> in(count, 14.7F), ours(count), plain(count);
    Duel duel;
    for (auto _ : state)
        duel.round([&] { uom_ConvertManyFloat(prepared.conversion, in.data(), ours.data(), count); },
                   [&] { plainFloats(in.data(), plain.data(), count, prepared.offset, prepared.factor); });
    duel.report(state, static_cast<double>(count));
}
BENCHMARK(convertFloats)->ArgsProduct({{0, 2}, {1 << 10, 1 << 20}});

void convertStrided(benchmark::State &state) {
    const Units &units = linearPairs[state.range(0)];
    const Prepared prepared(units.classString, units.from, units.to);
    const size_t count = static_cast<size_t>(state.range(1));
    std::vector<Record> in(count, Record{{1, 14.7, 3}}), ours(count), plain(count);
    Duel duel;
    for (auto _ : state)
        duel.round(
            [&] {
                uom_ConvertStrided(prepared.conversion, in[0].values + 1, sizeof(Record), ours[0].values + 1,
                                   sizeof(Record), count);
            },
            [&] { plainRecords(in.data(), plain.data(), count, prepared.offset, prepared.factor); });
    duel.report(state, static_cast<double>(count));
}
BENCHMARK(convertStrided)->ArgsProduct({{0, 2}, {1 << 10, 1 << 20}});

// Beside the formula that leads from API to kg/m3.
void convertGravity(benchmark::State &state) {
    constexpr Units pairs[] = {{"PetroDensity", "API", "kg/m3"},
                               {"PetroDensity", "kg/m3", "API"},
                               {"PetroDensity", "API", "lb/ft3"},
                               {"PetroDensity", "API", "spgr"},
                               {"PetroDensity", "spgr", "API"}};
    const Units &units = pairs[state.range(0)];
    const Prepared prepared(units.classString, units.from, units.to);
    const size_t count = static_cast<size_t>(state.range(1));
    std::vector<double> in(count), ours(count);
    for (size_t i = 0; i < count; ++i)
        in[i] = static_cast<double>(i % 89 + 1) * (state.range(0) == 4 ? 0.01 : state.range(0) == 1 ? 10 : 1);
    Duel duel;
    for (auto _ : state)
        duel.round([&] { uom_ConvertMany(prepared.conversion, in.data(), ours.data(), count); }, [] {});
    duel.report(state, static_cast<double>(count));
}
BENCHMARK(convertGravity)->ArgsProduct({{0, 1, 2, 3, 4}, {1000, 1 << 20}});

// What the text of a conversion costs, beside the constants from the same text.
void prepare(benchmark::State &state) {
    startLibrary();
    const TextPair &pair = textPairs[state.range(0)];
    state.SetLabel(pair.name);
    Duel duel;
    for (auto _ : state)
        duel.round(
            [&] {
                UomConversion *conversion;
                uoms_NewConversion(pair.classString, pair.from, pair.to, &conversion);
                uom_FreeConversion(conversion);
            },
            [&] {
                double factor, offset;
                uoms_CalculateConvConstants(pair.classString, pair.from, pair.to, &factor, &offset);
            });
    duel.report(state, 1);
}
BENCHMARK(prepare)->DenseRange(0, 4);

} // namespace

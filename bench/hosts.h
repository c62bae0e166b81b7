// What the benchmarks share: a started library, a plain loop as the yardstick, and UDUNITS-2 where it is
// installed.
#ifndef UOM_BENCH_HOSTS_H
#define UOM_BENCH_HOSTS_H

#include <chrono>
#include <cstddef>

#include "uom/uom.h"

// Starts the library with the shipped data file, once for the process.
void startLibrary();

// values[i] = (values[i] + offset) * factor as anybody would write it, compiled with the flags of the
// library's loop.
void plainLoop(double *values, size_t count, double offset, double factor);

// The same for one value, from an array to another, for floats, and for a column of records.
struct Record {
    double values[3];
};
double plainOne(double value, double offset, double factor);
void plainCopy(const double *in, double *out, size_t count, double offset, double factor);
void plainFloats(const float *in, float *out, size_t count, double offset, double factor);
void plainRecords(const Record *in, Record *out, size_t count, double offset, double factor);

// Adds the time of a block to a total, in seconds.
struct Stopwatch {
    double &total;
    std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
    explicit Stopwatch(double &sum) : total(sum) {}
    ~Stopwatch() { total += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count(); }
    Stopwatch(const Stopwatch &) = delete;
    Stopwatch &operator=(const Stopwatch &) = delete;
};

// A pair of texts in the library's language and in that of UDUNITS-2.
struct TextPair {
    const char *name, *classString, *from, *to, *udunitsFrom, *udunitsTo;
};
constexpr TextPair textPairs[] = {
    {"temperature", "Temp", "F", "C", "degF", "degC"},
    {"pressure", "Pres", "psi", "kPa", "psi", "kPa"},
    {"mass_rate", "Rate", "lb/hr", "kg/sec", "lb/h", "kg/s"},
    {"heat_transfer", "Htco", "BTU/hr-ft2-F", "W/m2-K", "BTU/(h ft2 degF)", "W/(m2 K)"},
    {"composite", "Pres/VolRate 2", "kpa/(m3/sec)2", "psi/(ft3/min)2", "kPa/(m3/s)^2", "psi/(ft3/min)^2"},
};

#endif

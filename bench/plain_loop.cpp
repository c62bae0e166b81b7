#include "bench/hosts.h"

void plainLoop(double *values, size_t count, double offset, double factor) {
    for (size_t i = 0; i < count; ++i)
        values[i] = (values[i] + offset) * factor;
}

double plainOne(double value, double offset, double factor) {
    return (value + offset) * factor;
}

void plainCopy(const double *in, double *out, size_t count, double offset, double factor) {
    for (size_t i = 0; i < count; ++i)
        out[i] = (in[i] + offset) * factor;
}

void plainFloats(const float *in, float *out, size_t count, double offset, double factor) {
    for (size_t i = 0; i < count; ++i)
        out[i] = static_cast<float>((static_cast<double>(in[i]) + offset) * factor);
}

void plainRecords(const Record *in, Record *out, size_t count, double offset, double factor) {
    for (size_t i = 0; i < count; ++i)
        out[i].values[1] = (in[i].values[1] + offset) * factor;
}

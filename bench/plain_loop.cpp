#include "bench/hosts.h"

void plainLoop(double *values, size_t count, double offset, double factor) {
    for (size_t i = 0; i < count; ++i)
        values[i] = (values[i] + offset) * factor;
}

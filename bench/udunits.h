// UDUNITS-2 as a yardstick; where it is not installed nothing is measured.
#ifndef UOM_BENCH_UDUNITS_H
#define UOM_BENCH_UDUNITS_H

#include <cstddef>

#if defined(UOM_HAVE_UDUNITS)
#include <udunits2.h>

inline ut_system *udunitsSystem() {
    static ut_system *const system = [] {
        ut_set_error_message_handler(ut_ignore);
        return ut_read_xml(nullptr);
    }();
    return system;
}

// Reads all units from the files that are installed, and frees them.
inline void udunitsStartAndStop() {
    ut_free_system(ut_read_xml(nullptr));
}

// From two texts to a converter: what a program does that gets its units as text.
inline cv_converter *udunitsParse(const char *fromText, const char *toText) {
    ut_unit *from = ut_parse(udunitsSystem(), fromText, UT_ASCII);
    ut_unit *to = ut_parse(udunitsSystem(), toText, UT_ASCII);
    cv_converter *converter = from && to ? ut_get_converter(from, to) : nullptr;
    ut_free(from);
    ut_free(to);
    return converter;
}

struct UdunitsPair {
    cv_converter *forth, *back;
    UdunitsPair(const char *from, const char *to) : forth(udunitsParse(from, to)), back(udunitsParse(to, from)) {}
    ~UdunitsPair() {
        cv_free(forth);
        cv_free(back);
    }
    UdunitsPair(const UdunitsPair &) = delete;
    UdunitsPair &operator=(const UdunitsPair &) = delete;
    static bool present() { return true; }
    void convert(double *values, size_t count) const { cv_convert_doubles(forth, values, count, values); }
    void convertBack(double *values, size_t count) const { cv_convert_doubles(back, values, count, values); }
};

// One value from texts; false when a text is not understood.
inline bool udunitsConvert(const char *from, const char *to, double *value) {
    cv_converter *converter = udunitsParse(from, to);
    if (!converter)
        return false;
    *value = cv_convert_double(converter, *value);
    cv_free(converter);
    return true;
}

#else

inline void udunitsStartAndStop() {}

struct UdunitsPair {
    UdunitsPair(const char *, const char *) {}
    static bool present() { return false; }
    void convert(double *, size_t) const {}
    void convertBack(double *, size_t) const {}
};

inline bool udunitsConvert(const char *, const char *, double *) {
    return false;
}

#endif

#endif

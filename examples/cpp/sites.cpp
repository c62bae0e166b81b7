// Two sites, two atmospheric pressures, two threads: each site has a catalogue, and its thread uses it.
// Ends with 0 when every number is as expected.
#include <atomic>
#include <cmath>
#include <cstdio>
#include <functional>
#include <thread>

#include "uom/uom.hpp"

static std::atomic<int> failures = 0;

static void expectNumber(const char *site, double value, double expected) {
    std::printf("250 kPag at the %s, kPa: %.6g\n", site, value);
    if (!(std::fabs(value / expected - 1.0) < 1e-9)) {
        std::printf("    expected %.6g\n", expected);
        ++failures;
    }
}

// A catalogue that knows the atmospheric pressure of its site.
static uom::Catalogue siteAt(const char *kPa) {
    uom::Catalogue site;
    site.start();
    const auto inUse = site.use();
    uom::setDefault("Current", "GaugePresBasis", kPa);
    return site;
}

// The work of a thread: all that it calls goes to the catalogue of its site.
static void work(const uom::Catalogue &site, const char *name, double expected) {
    try {
        const auto inUse = site.use();
        const double kPa = uom::convert(250.0, "Pres", "kPag", "kPa");
        expectNumber(name, kPa, expected);
        for (int i = 0; i < 1000; ++i)
            if (uom::convert(250.0, "Pres", "kPag", "kPa") != kPa)
                ++failures; // the other site was in the way
    } catch (const uom::Error &error) {
        std::printf("%s: %s\n", name, error.what());
        ++failures;
    }
}

int main() {
    try {
        const uom::Catalogue harbour = siteAt("101.325"), mine = siteAt("83.5");
        std::thread one(work, std::cref(harbour), "harbour", 351.325);
        std::thread other(work, std::cref(mine), "mine", 333.5);
        one.join();
        other.join();

        // A conversion keeps the pressure of the moment when it was made, and any thread may use it.
        const uom::Conversion toAbsolute = [&] {
            const auto inUse = mine.use();
            return uom::Conversion("Pres", "kPag", "kPa");
        }();
        expectNumber("mine", toAbsolute(250.0), 333.5);
    } catch (const uom::Error &error) {
        std::printf("%d: %s\n", static_cast<int>(error.status()), error.what());
        return 1;
    }
    return failures != 0;
}

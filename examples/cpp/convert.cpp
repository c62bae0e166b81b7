// Converting from C++: single values, a vector, a column of records, and what goes wrong.
// Ends with 0 when every number and message is as expected.
#include <cmath>
#include <cstdio>

#include "uom/uom.hpp"

static int failures = 0;

static void expectNumber(const char *title, double value, double expected) {
    std::printf("%-36s %.6g\n", title, value);
    if (!(std::fabs(value / expected - 1.0) < 1e-6)) {
        std::printf("    expected %.6g\n", expected);
        ++failures;
    }
}

static void expectText(const char *title, const std::string &text, const char *expected) {
    std::printf("%-36s %s\n", title, text.c_str());
    if (text != expected) {
        std::printf("    expected %s\n", expected);
        ++failures;
    }
}

static void values() {
    const double psi = uom::convert(250.0, "Pres", "kPag", "psia");
    expectNumber("250 kPag, psia", psi, 50.955383);

    const uom::Conversion toKgPerSecond("MassRate", "M lb/hr", "kg/sec");
    std::vector<double> rates = {1.0, 2.0, 4.0};
    toKgPerSecond.convert(rates);
    expectNumber("2000 lb/hr, kg/sec", rates[1], 0.2519958);
    expectNumber("4000 lb/hr, kg/sec", toKgPerSecond(4.0), 0.5039916);
}

// One member of each record, where it lies.
static void records() {
    struct Stream {
        int tag;
        double temperature, pressure;
    };
    Stream streams[] = {{1, 20.0, 101.325}, {2, 100.0, 250.0}};
    uom::Conversion("Temp", "C", "K").convertMember(streams, &Stream::temperature);
    expectNumber("100 C, K", streams[1].temperature, 373.15);
    expectNumber("the pressure beside it", streams[1].pressure, 250.0);
}

// What a user typed is refused in a result, or by an exception.
static void refusals() {
    const uom::Result<double> rate = uom::tryConvert(1.0, "VolRate", "m3/fortnight", "m3/hr");
    if (!rate)
        expectText("refused in a result:", rate.message(),
                   "UOM string \"m3/fortnight\" at character 4: unidentified UOM for UOM class \"Time\".");
    failures += rate.code() != UOM_CONVERT_BAD_SOURCE;

    try {
        uom::displayUnits("Pres", "Imperial");
        ++failures;
    } catch (const uom::Error &error) {
        expectText("refused by an exception:", error.what(), "There is no slate \"Imperial\".");
    }
}

// What a user typed, as it is to be shown again.
static void units() {
    uom::Chain chain("Pres/VolRate 2");
    chain.fill("KPA / (M3 / SEC) 2");
    expectText("units as shown:", chain.units(), "kPa/(m3/sec)2");

    std::string offered;
    for (const uom::UnitEntry &unit : uom::units("Temp"))
        offered += (offered.empty() ? "" : " ") + unit.token;
    expectText("units of Temp:", offered, "C K F R");
}

int main() {
    try {
        uom::start();
        values();
        records();
        refusals();
        units();
        uom::end();
    } catch (const uom::Error &error) {
        std::printf("%d: %s\n", static_cast<int>(error.status()), error.what());
        return 1;
    }
    return failures != 0;
}

// The installed library from C++: 0 psig, in a catalogue of this program's own.

#include <cstdio>

#include "uom/uom.hpp"

int main() {
    try {
        uom::Catalogue catalogue;
        catalogue.start();
        const auto inUse = catalogue.use();
        const double value = uom::convert(0.0, "Pres", "psig", "kPa");
        if (!(value > 101.3249999 && value < 101.3250001)) {
            std::printf("0 psig is %.17g kPa\n", value);
            return 1;
        }
    } catch (const uom::Error &error) {
        std::printf("%d: %s\n", static_cast<int>(error.status()), error.what());
        return 1;
    }
    std::puts("OK");
    return 0;
}

// A host of uom.hpp without exceptions.
#include "uom/uom.hpp"

int runWithoutExceptions();

#if UOM_HPP_THROWS
#error "this file is to be compiled without exceptions"
#endif

int runWithoutExceptions() {
    const uom::Result<void> started = uom::tryStartFile("/no/such/file");
    const uom::Result<uom::Chain> chain = uom::Chain::tryMake("Nope");
    const uom::Result<uom::Table> table = uom::Table::tryOfTexts({});
    if (started || started.code() != UOM_START_NO_FILE || started.message().empty())
        return 2;
    if (chain || chain.code() != UOM_CONVERT_BAD_CLASS || chain.message().empty())
        return 3;
    return table && table->empty() ? 0 : 4;
}

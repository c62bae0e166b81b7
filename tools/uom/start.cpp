#include "start.h"

#include "library.h"

void startLibrary(const StartOptions &options) {
    if (options.data.empty())
        uom::start(options.words);
    else
        uom::startFile(options.data, options.words);
    readDefinitions(options.definitions);
}

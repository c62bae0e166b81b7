#include "start.h"

#include "commands.h"
#include "library.h"

static int start(const std::vector<std::string> &words) {
    std::vector<const char *> pointers;
    for (const std::string &word : words)
        pointers.push_back(word.c_str());
    return uom_Init2(static_cast<int32_t>(pointers.size()), pointers.data());
}

int startWithFile(const std::string &path, const std::vector<std::string> &words) {
    std::vector<std::string> all = {"-f", path};
    all.insert(all.end(), words.begin(), words.end());
    return start(all);
}

// Where the library finds its own data file only the start without words tells; a start with words and
// without a path reads that file again.
static int startWithFoundFile(const std::vector<std::string> &words) {
    const int status = uom_Init();
    if (status != 0 || words.empty())
        return status;
    uom_Cleanup();
    return start(words);
}

void startLibrary(const StartOptions &options) {
    const int status =
        options.data.empty() ? startWithFoundFile(options.words) : startWithFile(options.data, options.words);
    if (status != 0)
        throw Failure(libraryMessage());
    readDefinitions(options.definitions);
}

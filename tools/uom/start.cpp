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

// With words the library does not look for a file. One start and not two: how a first one counts moles, a second can't
// take back.
static int startWithFoundFile(const std::vector<std::string> &words) {
    if (words.empty())
        return uom_Init();
    char path[4096];
    const int status = uom_FindDataFile(path, sizeof path);
    return status == UOM_DONE ? startWithFile(path, words) : status;
}

void startLibrary(const StartOptions &options) {
    const int status =
        options.data.empty() ? startWithFoundFile(options.words) : startWithFile(options.data, options.words);
    if (status != UOM_DONE)
        throw Failure(libraryMessage());
    readDefinitions(options.definitions);
}

#include "options.h"

#include <algorithm>

#include "nearest.h"
#include "text.h"

CLI::Validator notEmpty() {
    return CLI::Validator(
        [](const std::string &text) { return trimmed(text).empty() ? "An empty text is no value" : ""; }, "");
}

CLI::Validator oneOf(const std::vector<std::string> &words) {
    std::string listed;
    for (const std::string &word : words)
        listed += (listed.empty() ? "" : ",") + word;
    const auto take = [words](std::string &text) {
        for (const std::string &word : words)
            if (equalNoCase(word, text)) {
                text = word;
                return std::string();
            }
        std::string known;
        for (size_t i = 0; i < words.size(); ++i)
            known += (i == 0 ? "" : i + 1 == words.size() ? " or " : ", ") + words[i];
        return "\"" + text + "\" is not " + known + "." + didYouMean(text, words);
    };
    // Completion and the man page read the words from the description.
    return CLI::Validator(take, "{" + listed + "}", "");
}

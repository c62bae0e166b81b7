// What a misspelt word is likely to mean.
#ifndef UOM_TOOL_NEAREST_H
#define UOM_TOOL_NEAREST_H

#include <string>
#include <vector>

// The name that is fewest changes away from a word, of letters that are wrong, missing, too many or exchanged; upper and
// lower case are alike. Empty when none is near enough for the word's length.
std::string nearestName(const std::string &word, const std::vector<std::string> &names);

// ' Did you mean "units"?', or nothing.
std::string didYouMean(const std::string &word, const std::vector<std::string> &names);

#endif

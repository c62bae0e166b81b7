// From the tool's global options to a started library.
#ifndef UOM_TOOL_START_H
#define UOM_TOOL_START_H

#include <string>
#include <vector>

struct StartOptions {
    std::string data;                     // path of the data file; empty: where the library looks for it
    std::vector<std::string> words;       // mode and way of counting moles, as the library's option words
    std::vector<std::string> definitions; // files of slate definitions
};

// Starts the library and reads the slate definitions. Throws on failure.
void startLibrary(const StartOptions &options);

struct DefinitionFault {
    std::string path;
    int line;
    std::string text;
};

// Applies files of slate definitions: sections "[name]" of key=value lines; blank lines and lines that start with "#" or
// "//" are passed over. A slate is made when there is none of the name. What can be applied is; all lines that failed.
std::vector<DefinitionFault> applyDefinitions(const std::vector<std::string> &paths);

// The same; throws with all lines that failed, each with its file and number.
void readDefinitions(const std::vector<std::string> &paths);

#endif

// A data file as the library reads it, kept as text with the line numbers of an editor, and what is found
// wrong.
#ifndef UOM_TOOL_DATA_FILE_H
#define UOM_TOOL_DATA_FILE_H

#include <string>
#include <vector>

struct Finding {
    int line;
    std::string text;
};
using Findings = std::vector<Finding>;

// A line that is neither blank nor a comment.
struct DataLine {
    int number;                      // in the file, from 1
    std::string text;                // without blanks at the ends
    std::vector<std::string> tokens; // at least one
};

enum class SectionKind { CLASS_LIST, SELECT_LIST, COMMON_LIST, SLATE };

struct Section {
    SectionKind kind;
    int line;         // of the name, or of the opening keyword while there is none
    bool named;       // its name line has been read; class lists have none
    std::string name; // of a select list, common list or slate
    std::vector<DataLine> lines;
};

struct DataFile {
    std::vector<DataLine> units;
    int unitsEnd = 1; // line of the keyword that ends the unit list, or the last line
    std::vector<Section> sections;
    int lastLine = 1;
    // Line of a keyword in a wrong place, where the library stops reading; 0 when there is none.
    int stoppedAt = 0;
    bool hasKeywords = true; // false when carriage returns hide them from the library
};

// Reads the file up to a keyword in a wrong place. Throws when it can't be read. Adds what lines, options and
// the frame of sections have wrong.
DataFile readDataFile(const std::string &path, Findings &findings);

// What a file that is checked holds, by its lines.
enum class FileKind { DATA, ALIASES, SLATE, UNKNOWN };
bool isDataKeyword(const std::string &word);
FileKind kindOf(const std::string &path);

// Each line of a file of aliases, or of slate definitions, by asking the library, which has been started.
void checkAliases(const std::string &path, Findings &findings);
void checkSlateFile(const std::string &path, Findings &findings);

// The unit lines by themselves: fields, tokens, well-known units.
void checkUnits(const DataFile &file, Findings &findings);

// Class lists, lists and slates against the units of the file.
void checkLists(const DataFile &file, Findings &findings);

// Class lines and slate lines, by asking the library, which has been started with the file.
void checkClassesAndSlates(const DataFile &file, Findings &findings);

#endif

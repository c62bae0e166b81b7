// The shipped data file as text: its sections, its lines, their fields.
#ifndef UOM_TESTS_SHIPPED_FILE_H
#define UOM_TESTS_SHIPPED_FILE_H

#include <fstream>
#include <string>
#include <vector>

using Fields = std::vector<std::string>;

struct Section {
    std::string name;
    std::vector<std::string> lines;
};

inline Fields fieldsOf(const std::string &line) {
    Fields fields;
    size_t at = 0;
    while ((at = line.find_first_not_of(" ,\t", at)) != std::string::npos) {
        const bool quoted = line[at] == '"';
        const size_t begin = at + quoted, end = line.find_first_of(quoted ? "\"" : " ,\t", begin);
        fields.push_back(line.substr(begin, end == std::string::npos ? end : end - begin));
        if (end == std::string::npos)
            break;
        at = end + 1;
    }
    return fields;
}

// The sections that one keyword opens, in the order of the file. Unit and class lists have no name.
inline std::vector<Section> shippedSections(const std::string &keyword) {
    std::vector<Section> sections;
    std::ifstream file(UOM_TEST_DATA);
    bool inSection = false;
    for (std::string line; std::getline(file, line);) {
        const size_t begin = line.find_first_not_of(" \t");
        if (begin == std::string::npos || line.compare(begin, 2, "//") == 0)
            continue;
        line.erase(0, begin);
        const std::string first = fieldsOf(line)[0];
        if (first.rfind("BEGIN", 0) == 0) {
            inSection = first == keyword;
            if (inSection)
                sections.push_back({"", {}});
        } else if (first.rfind("END", 0) == 0) {
            inSection = false;
        } else if (inSection) {
            Section &section = sections.back();
            const bool named = keyword != "BEGINUOMLIST" && keyword != "BEGINCLASSLIST";
            if (named && section.name.empty())
                section.name = first;
            else
                section.lines.push_back(line);
        }
    }
    return sections;
}

// The unit lines, cut into fields.
inline std::vector<Fields> shippedUnits() {
    std::vector<Fields> units;
    for (const Section &section : shippedSections("BEGINUOMLIST"))
        for (const std::string &line : section.lines)
            units.push_back(fieldsOf(line));
    return units;
}

#endif

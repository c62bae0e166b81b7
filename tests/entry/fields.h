// Lines of the tables of these tests.
#ifndef UOM_TESTS_ENTRY_FIELDS_H
#define UOM_TESTS_ENTRY_FIELDS_H

#include <sstream>
#include <string>
#include <vector>

// Without the blanks at their ends.
inline std::vector<std::string> fieldsOf(const std::string &line, char separator) {
    std::vector<std::string> fields;
    std::istringstream stream(line);
    for (std::string field; std::getline(stream, field, separator);) {
        const size_t first = field.find_first_not_of(' ');
        fields.push_back(first == std::string::npos ? ""
                                                    : field.substr(first, field.find_last_not_of(' ') + 1 - first));
    }
    return fields;
}

#endif

// Classes by name and number.
#ifndef UOM_TOOL_CLASS_NAMES_H
#define UOM_TOOL_CLASS_NAMES_H

#include <cstdint>
#include <string>

// By the names that they have while a data file is read: no option and no renaming of start-up changes the answer.
int32_t compiledClass(const std::string &name); // by token or long name, any case; 0 when there is none
int32_t customClass(const std::string &name);

// "Mass / Leng Time 2": what a class is made of, as a class string; empty when it is not.
std::string componentsOf(int32_t classId);

#endif

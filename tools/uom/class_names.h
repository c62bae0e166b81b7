// The numbers of classes by the names that they have while a data file is read: no option and no renaming of
// start-up changes the answer.
#ifndef UOM_TOOL_CLASS_NAMES_H
#define UOM_TOOL_CLASS_NAMES_H

#include <cstdint>
#include <string>

int32_t compiledClass(const std::string &name); // by token or long name, any case; 0 when there is none
int32_t customClass(const std::string &name);

#endif

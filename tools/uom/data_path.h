// Where the data file lies when nobody names one.
#ifndef UOM_TOOL_DATA_PATH_H
#define UOM_TOOL_DATA_PATH_H

#include <string>

// The file that the library reads when it is started without words. There need not be one.
std::string foundDataFile();

#endif

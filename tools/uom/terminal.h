#ifndef UOM_TOOL_TERMINAL_H
#define UOM_TOOL_TERMINAL_H

#include <cstdio>

// Whether a person is at the other end.
bool isTerminal(std::FILE *stream);

#endif

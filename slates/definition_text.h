// A slate as lines of text, out and in; uoms_GetSetDefinition and uoms_PutSetDefinition are declared in
// uom.h.
#ifndef UOM_SLATES_DEFINITION_TEXT_H
#define UOM_SLATES_DEFINITION_TEXT_H

#include <cstdint>

// Applies one line "key=value" to a slate; the line is cut in place. A line without "=" is a key with a null
// value. The status is that of the operation that the key calls; 11 means that memory is exhausted.
int32_t definition_ApplyLine(const char *slateName, char *line);

#endif

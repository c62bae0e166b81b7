// The catalogue for people, as one page that needs no network.
#ifndef UOM_TOOL_REPORT_PAGE_H
#define UOM_TOOL_REPORT_PAGE_H

#include <ostream>

// HTML5 in UTF-8: a search field, the classes with their units, the slates side by side, the aliases.
void writePage(std::ostream &out);

#endif

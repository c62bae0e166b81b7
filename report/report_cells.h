// The cells of the report: one row for each kind of cell, its form in each mode.
#ifndef UOM_REPORT_REPORT_CELLS_H
#define UOM_REPORT_REPORT_CELLS_H

#include "report/report.h"
#include "catalogue/catalogue.h"

namespace uom {

enum ReportMode { MODE_FULL_TEXT, MODE_USER_TEXT, MODE_TAB, MODE_HTML, REPORT_MODES };

// A printf form for each mode; every form takes one text, and may leave it out.
struct Cell {
    const char *form[REPORT_MODES];
};

ReportMode report_Mode(const Report &report);
bool report_IsEndUser(const Report &report);
bool report_IsHtml(const Report &report);

// What end users don't see: the slates that only the host works with, and the classes in millions.
bool report_ShowsSlate(const Report &report, int32_t slate);
bool report_ShowsClass(const Report &report, int32_t classId);

// Prints one cell in the report's mode.
void report_Put(const Report &report, const Cell &cell, const char *text);

// Prints a text as it is.
void report_Write(const Report &report, const char *text);

// A title: with an anchor in HTML, underlined behind an empty line otherwise.
void report_Heading(const Report &report, const char *anchor, const char *title, const char *underline);

// Notes: a list in HTML, numbered otherwise.
void report_Items(const Report &report, const char *const *items, int32_t count);

// The name of a slate, "**Empty**" for one without a record.
const char *report_SlateName(const Catalogue &catalogue, int32_t slate);

// What opens the tables of the document but the first.
constexpr const char *REPORT_TABLE_HEAD = "\n\n<TABLE BORDER=\"1\" CELLPADDING=\"3\" CELLSPACING=\"0\">\n";

} // namespace uom

#endif

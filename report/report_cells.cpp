#include "report/report_cells.h"

#include "catalogue/slate_table.h"

namespace uom {

ReportMode report_Mode(const Report &report) {
    if (report.options & REPORT_HTML)
        return MODE_HTML;
    if (report.options & REPORT_TAB)
        return MODE_TAB;
    return report_IsEndUser(report) ? MODE_USER_TEXT : MODE_FULL_TEXT;
}

bool report_IsEndUser(const Report &report) {
    return (report.options & REPORT_END_USER) != 0;
}

bool report_ShowsSlate(const Report &report, int32_t slate) {
    const NamedSlates &named = report.catalogue.slateIndex;
    return !report_IsEndUser(report) || (slate != named.current && slate != named.oxInternal);
}

bool report_ShowsClass(const Report &report, int32_t classId) {
    return !report_IsEndUser(report) ||
           (classId != CLASS_E6_ENERGY && classId != CLASS_E6_POWER_TOP && classId != CLASS_E6_POWER);
}

bool report_IsHtml(const Report &report) {
    return report_Mode(report) == MODE_HTML;
}

void report_Put(const Report &report, const Cell &cell, const char *text) {
    std::fprintf(report.out, cell.form[report_Mode(report)], text ? text : "");
}

void report_Write(const Report &report, const char *text) {
    std::fputs(text, report.out);
}

void report_Heading(const Report &report, const char *anchor, const char *title, const char *underline) {
    if (report_IsHtml(report)) {
        std::fprintf(report.out, "<A NAME=\"%s\"></A><H2>%s</H2>\n", anchor, title);
        return;
    }
    std::fprintf(report.out, "\n\n%s%s", title, underline);
}

void report_Items(const Report &report, const char *const *items, int32_t count) {
    if (!report_IsHtml(report)) {
        for (int32_t i = 0; i < count; ++i)
            std::fprintf(report.out, "%d. %s", i + 1, items[i]);
        return;
    }
    for (int32_t i = 0; i < count; ++i)
        std::fprintf(report.out, "%s%s", i == 0 ? "<UL><LI>" : "</LI><LI>", items[i]);
    report_Write(report, "</LI></UL>");
}

const char *report_SlateName(const Catalogue &catalogue, int32_t slate) {
    const UomSlate *record = slate_Record(catalogue, slate);
    return record && record->name ? record->name : "**Empty**";
}

} // namespace uom

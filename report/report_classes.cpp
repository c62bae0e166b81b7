// The table of classes: a column for each slate, its properties first, then a row for each class with the
// default that each slate gives it.
#include <cstring>

#include "catalogue/catalogue.h"
#include "catalogue/class_table.h"
#include "catalogue/slate_table.h"
#include "report/report.h"
#include "report/report_cells.h"
#include "slates/defaults.h"
#include "slates/registry.h"
#include "slates/slate_display.h"
#include "support/text.h"
#include "uomstruct/class_string.h"

namespace uom {

namespace {

constexpr size_t CELL_SIZE = 256;

const char *const htmlTable = "\n\n<TABLE BORDER=\"1\" CELLPADDING=\"3\" CELLSPACING=\"0\" WIDTH=\"100%\">\n"
                              "<TR BGCOLOR=\"#CCCCFF\"><TH>Unit-of-Measure Class</TH><TH>Token</TH>";
const char *const defaultsHeading = "Default unit-of-measure for UOM Set...";

const Cell slateHeading = {{"%-16s", "%-16s", "%s\t", "<TH WIDTH=\"120\">%s</TH>"}};
const Cell rowEnd = {{"\n", "\n", "\n", "</TR>\n"}};
const Cell propertyText = {{"%-16s", "%-16s", "%s\t", "<TD>%s</TD>"}};
const Cell className = {{"%-32.32s", "%-32.32s", "%s\t", "<TR><TD BGCOLOR=\"#CCCCFF\"><B>%s</B></TD>"}};
const Cell classToken = {{"%-14s", "%-14s", "%s\t", "<TD BGCOLOR=\"#CCCCFF\"><B><CODE>%s</CODE></B></TD>"}};
const Cell classKeyword = {{"%-8s", " ", "", ""}};
const Cell classDefault = {{"%-16s", "%-16s", "%s\t", "<TD><CODE>%s</CODE></TD>"}};

// The headings that stand in front of a class.
struct GroupHeading {
    int32_t firstClass;
    const char *title;
};
const GroupHeading groupHeadings[] = {
    {1, "Base Classes"},
    {CLASS_PETRO_MASS, "Internal Base Classes"},
    {CLASS_QUANTITY, "Composite Classes"},
    {STATIC_CLASSES, "Custom Classes"},
};

void putHeading(const Report &report, const char *title, int32_t columns) {
    if (report_IsHtml(report))
        std::fprintf(report.out, "<TR><TD COLSPAN=\"%d\"><I>%s</I></TD></TR>\n", columns, title);
    else
        std::fprintf(report.out, report_Mode(report) == MODE_TAB ? "\n%s\n\n" : "\n--- %s ---\n\n", title);
}

// --- column headings

void putTableHead(const Report &report) {
    if (!report_IsEndUser(report)) {
        std::fprintf(report.out, "%-6s%-32s%-14s%-9s%-16s%s\n", " ", " ", "QUILLAXIS", "ORBEX2", "  Dimension",
                     defaultsHeading);
        std::fprintf(report.out, "%-6s%-32s%-14s%-9s%-16s", "Code", "UOM Class", "Token", "Token", "n M L t T Q $");
    } else if (report_IsHtml(report)) {
        report_Write(report, htmlTable);
    } else if (report_Mode(report) == MODE_TAB) {
        report_Write(report, "\nUnit-of-Measure Class\tToken\t");
    } else {
        std::fprintf(report.out, "\n%-32s%-15s%s\n", " ", " ", defaultsHeading);
        std::fprintf(report.out, "%-32s%-15s", "UOM Class", "Token");
    }
}

// The number of columns that a heading spans.
int32_t putColumnHeadings(const Report &report) {
    int32_t columns = 2;
    putTableHead(report);
    for (int32_t i = 1; i < uom_GetSetCount(report.catalogue); ++i) {
        if (!report_ShowsSlate(report, i))
            continue;
        report_Put(report, slateHeading, report_SlateName(report.catalogue, i));
        ++columns;
    }
    report_Put(report, rowEnd, "");
    return columns;
}

// --- properties of the slates

void basedOnText(const Catalogue &, const UomSlate &slate, bool html, char *out) {
    str_CopyBounded(out, CELL_SIZE, !slate.basedOn && html ? "&nbsp;" : slate.basedOn);
}

void rootText(const Catalogue &catalogue, const UomSlate &slate, bool, char *out) {
    uoms_GetSetRoot(catalogue, slate.name, CELL_SIZE, out);
}

void flagText(int32_t flag, char *out) {
    str_FormatBounded(out, CELL_SIZE, "%d", flag);
}

void systemText(const Catalogue &, const UomSlate &slate, bool, char *out) {
    flagText(slate.isSystem, out);
}
void hiddenText(const Catalogue &, const UomSlate &slate, bool, char *out) {
    flagText(slate.isHidden, out);
}
void deleteText(const Catalogue &, const UomSlate &slate, bool, char *out) {
    flagText(slate.allowDelete, out);
}
void modifyText(const Catalogue &, const UomSlate &slate, bool, char *out) {
    flagText(slate.allowModify, out);
}

void basisText(const Catalogue &catalogue, const UomSlate &slate, bool, char *out) {
    char inherited[CELL_SIZE];
    str_CopyBounded(out, CELL_SIZE, slate.gaugePresBasisText);
    if (*out)
        return;
    uoms_GetInheritedSetProperty(catalogue, "GaugePresBasis", slate.name, inherited, sizeof inherited);
    if (*inherited)
        str_FormatBounded(out, CELL_SIZE, "(%s)", inherited);
}

struct PropertyRow {
    const char *label;
    void (*text)(const Catalogue &catalogue, const UomSlate &slate, bool html, char *out);
};
const PropertyRow propertyRows[] = {
    {"Parent Slate", basedOnText},      {"Root Slate", rootText},    {"isSystem", systemText},
    {"isHidden", hiddenText},           {"allowDelete", deleteText}, {"allowModify", modifyText},
    {"GaugePresBasis (Pa)", basisText},
};

void putPropertyLabel(const Report &report, const char *label) {
    switch (report_Mode(report)) {
    case MODE_HTML:
        std::fprintf(report.out, "<TR><TD BGCOLOR=\"#CCCCFF\" COLSPAN=\"2\"><B>%s</B></TD>", label);
        break;
    case MODE_TAB:
        std::fprintf(report.out, "%s\t", label);
        break;
    case MODE_USER_TEXT:
        std::fprintf(report.out, "%-47s", label);
        break;
    default:
        std::fprintf(report.out, "%-6s%-71s", " ", label);
        break;
    }
}

// These rows have a column more than the headings in an end-user report, OXInternal, kept.
void putProperties(const Report &report, int32_t columns) {
    putHeading(report, "Properties", columns);
    for (const PropertyRow &row : propertyRows) {
        putPropertyLabel(report, row.label);
        for (int32_t i = 1; i < uom_GetSetCount(report.catalogue); ++i) {
            if (report_IsEndUser(report) && i == report.catalogue.slateIndex.current)
                continue;
            char text[CELL_SIZE] = "**Empty**";
            if (const UomSlate *slate = slate_Record(report.catalogue, i))
                row.text(report.catalogue, *slate, report_IsHtml(report), text);
            report_Put(report, propertyText, text);
        }
        report_Put(report, rowEnd, "");
    }
}

// --- classes

// Computed from the parts. A class that does not parse leaves the numbers of its predecessor, kept.
void putDimensions(const Report &report, const UomClassRow &row, int32_t *dimensions) {
    uoms_GetDimensions(report.catalogue, row.token, dimensions);
    std::fprintf(report.out, "%2s", row.allowExponent != 0 ? "  " : " 1");
    for (int32_t i = 0; i < DIMENSIONS; ++i)
        std::fprintf(report.out, "%2d", dimensions[i]);
    report_Write(report, "   ");
}

void putToken(const Report &report, int32_t classId) {
    const char *token = class_Token(report.catalogue, classId);
    const bool linked = classId >= CLASS_TEMP && classId <= CLASS_POWER_TOP;
    if (report_IsHtml(report) && linked)
        std::fprintf(report.out, "<TD BGCOLOR=\"#CCCCFF\"><B><CODE><A HREF=\"#%s\">%s</A></CODE></B></TD>", token,
                     token);
    else
        report_Put(report, classToken, token);
}

// What the slate states, else in parentheses what it inherits.
void defaultText(const Catalogue &catalogue, int32_t slate, int32_t classId, char *out) {
    uom_GetClassDefault(catalogue, slate, classId, out, CELL_SIZE);
    const UomSlate *record = slate_Record(catalogue, slate);
    if (*out || classId < CLASS_TEMP || !record || str_IsEmpty(record->basedOn))
        return;
    char inherited[CELL_SIZE];
    uoms_GetDisplayUnits(catalogue, class_Token(catalogue, classId), record->basedOn, inherited, sizeof inherited,
                         STYLE_TOKEN);
    str_FormatBounded(out, CELL_SIZE, "(%s)", inherited);
}

void putClass(const Report &report, int32_t classId, const UomClassRow &row, int32_t *dimensions) {
    if (report_Mode(report) == MODE_FULL_TEXT)
        std::fprintf(report.out, "%4d  ", classId);
    report_Put(report, className, row.name);
    putToken(report, classId);
    report_Put(report, classKeyword, row.keyword);
    if (report_Mode(report) == MODE_FULL_TEXT)
        putDimensions(report, row, dimensions);
    for (int32_t i = 1; i < uom_GetSetCount(report.catalogue); ++i) {
        if (!report_ShowsSlate(report, i))
            continue;
        char text[CELL_SIZE] = "";
        defaultText(report.catalogue, i, classId, text);
        report_Put(report, classDefault, text);
    }
    report_Put(report, rowEnd, "");
}

} // namespace

void report_ClassTable(const Report &report) {
    const int32_t columns = putColumnHeadings(report);
    putProperties(report, columns);
    int32_t dimensions[DIMENSIONS] = {};
    for (int32_t c = 1; c < report.catalogue.classes.count; ++c) {
        for (const GroupHeading &heading : groupHeadings)
            if (heading.firstClass == c)
                putHeading(report, heading.title, columns);
        const UomClassRow *row = class_Row(report.catalogue, c);
        if (row && report_ShowsClass(report, c))
            putClass(report, c, *row, dimensions);
    }
    if (report_IsHtml(report))
        report_Write(report, "</TABLE>\n\n");
}

} // namespace uom

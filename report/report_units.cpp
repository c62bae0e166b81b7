// The units that each base class recognises.
#include "catalogue/catalogue.h"
#include "catalogue/class_table.h"
#include "catalogue/units.h"
#include "report/report.h"
#include "report/report_cells.h"
#include "support/text.h"
#include "uomstruct/unit_scan.h"

namespace uom {

namespace {

const char *const unitNotes[] = {
    "Use the \"Token\" for specifying units-of-measure in your code.\n",
    "Unit-of-Measure multipliers for 1000 and 1000000 can be supplied in API format (M BBL, MM BBL)\n"
    "   or SI format using a '*' (k*m3, M*m3).\n",
    "To supply a Unit-of-Measure for a composite or custom Unit-of-Measure class, just combine the "
    "appropriate UOMs\n"
    "   from the base classes that comprise it, for instance: \"lb/hr\" for \"Rate\" or\n"
    "   \"kpa/(m3/sec)2\" for \"Pres/VolRate 2\".\n",
    "Note: fractional exponents are not supported at this time.\n",
};

const Cell classToken = {{"%-14s", "%-14s", "%s\t", "<TR><TD><CODE>%s</CODE></TD>"}};
const Cell noClass = {{"%-14s", "%-14s", "\t", "<TD></TD>"}};
const Cell rowEnd = {{"\n", "\n", "\n", "</TR>\n"}};
const Cell unitToken = {{" %-16s", " %-16s", "%s\t", "<TD><CODE>%s</CODE></TD>"}};
const Cell unitDescription = {{"%-16s\n", "%-16s\n", "%s\n", "<TD>%s</TD></TR>\n"}};

bool hasMultipliers(const Report &report) {
    return (report.options & REPORT_MULTIPLIERS) != 0;
}

void putUserHead(const Report &report) {
    if (hasMultipliers(report)) {
        std::fprintf(report.out, "%-15s%-68s\n", " ", "---------------------- token ----------------------");
        std::fprintf(report.out, "%-15s%-16s%-18s%-18s%-32s\n\n", "UOM Class", " ", "thousands", "millions",
                     "UOM Description");
    } else if (report_IsHtml(report)) {
        report_Write(report, REPORT_TABLE_HEAD);
        report_Write(report, "<TR BGCOLOR=\"#CCCCFF\"><TH>Unit-of-Measure Class</TH><TH>Token</TH>"
                             "<TH>Description</TH></TR>\n");
    } else if (report_Mode(report) == MODE_TAB) {
        report_Write(report, "Unit-of-Measure Class\tToken\tDescription\n");
    } else {
        std::fprintf(report.out, "%-15s%-16s%-32s\n", " ", " ", " ");
        std::fprintf(report.out, "%-15s%-16s%-32s\n\n", "UOM Class", "token", "UOM Description");
    }
}

void putFullHead(const Report &report) {
    if (hasMultipliers(report)) {
        std::fprintf(report.out, "%-21s%-52s%-16s\n", " ", "----------------- QUILLAXIS token -----------------",
                     "ORBEX2");
        std::fprintf(report.out, "%-15s%-22s%-18s%-18s%-16s%-32s\n\n", "UOM Class", "Code", "thousands", "millions",
                     "token", "UOM Description");
        return;
    }
    std::fprintf(report.out, "%-21s%-16s%-16s%-32s\n", " ", "QUILLAXIS", "ORBEX2", " ");
    std::fprintf(report.out, "%-15s%-6s%-16s%-16s%-32s\n\n", "UOM Class", "Code", "token", "token", "UOM Description");
}

void putHead(const Report &report) {
    report_Heading(report, "UOMS", "Units-of-Measure recognized by each 'Base' Class",
                   "\n================================================\n\n");
    report_Items(report, unitNotes, 4);
    if (!report_IsHtml(report))
        report_Write(report, "\n");
    if (report_IsEndUser(report))
        putUserHead(report);
    else
        putFullHead(report);
}

void putClassToken(const Report &report, int32_t classId) {
    const char *token = class_Token(report.catalogue, classId);
    const bool anchored = classId >= CLASS_TEMP && classId <= CLASS_POWER_TOP;
    if (report_IsHtml(report) && anchored)
        std::fprintf(report.out, "<TR><TD><A NAME=\"%s\"></A><CODE>%s</CODE></TD>", token, token);
    else
        report_Put(report, classToken, token);
}

void putMultiplied(const Report &report, int32_t multiplier, const UomUnit &unit) {
    char text[256];
    multiplier_Write(multiplier, unit.multiplierStyle, text, sizeof text);
    str_AppendBounded(text, sizeof text, unit.token);
    std::fprintf(report.out, "%-18s", text);
}

void putUnit(const Report &report, int32_t index, const UomUnit &unit) {
    const char *token = unit.token ? unit.token : "";
    const bool full = !report_IsEndUser(report);
    if (full)
        std::fprintf(report.out, "%5d ", index);
    report_Put(report, unitToken, token);
    if (hasMultipliers(report)) {
        putMultiplied(report, 3, unit);
        putMultiplied(report, 6, unit);
    }
    if (full)
        std::fprintf(report.out, "%-16s", unit.keyword ? unit.keyword : "");
    report_Put(report, unitDescription, unit.description);
}

void putClass(const Report &report, int32_t classId) {
    putClassToken(report, classId);
    const int32_t *units = uom_GetClassUnits(report.catalogue, classId);
    if (!units) {
        report_Put(report, rowEnd, "");
        return;
    }
    bool first = true;
    for (; *units != NO_UNIT; ++units) {
        const UomUnit *unit = unit_Record(report.catalogue, *units);
        if (!unit || (report_IsEndUser(report) && *units == report.catalogue.named.UOM_U_OXCREDITS))
            continue;
        if (!first)
            report_Put(report, noClass, " ");
        first = false;
        putUnit(report, unit->index, *unit);
    }
    report_Write(report, "\n");
}

bool isShown(const Report &report, int32_t classId) {
    return uom_IsClassBase(report.catalogue, classId) && report_ShowsClass(report, classId);
}

} // namespace

void report_Units(const Report &report) {
    putHead(report);
    for (int32_t c = CLASS_DIMENSIONLESS; c < report.catalogue.classes.count; ++c)
        if (isShown(report, c))
            putClass(report, c);
}

} // namespace uom

// The sections of the report that stand by themselves: title, notes, definitions, sample conversions, common
// lists.
#include "catalogue/catalogue.h"
#include "catalogue/class_table.h"
#include "catalogue/slate_table.h"
#include "conversion/engine.h"
#include "conversion/running.h"
#include "report/report.h"
#include "report/report_cells.h"
#include "slates/slate_display.h"
#include "slates/unit_entry.h"
#include "support/numbers.h"
#include "support/table.h"
#include "support/text.h"
#include "text/class_text.h"
#include "uomstruct/class_string.h"

namespace uom {

namespace {

const char *const titleHtml[] = {
    "<HTML><HEAD><TITLE>",
    "Unit-of-Measure Subsystem Report\n",
    "</TITLE></HEAD>\n\n<BODY BGCOLOR=\"white\">",
    "This HTML page contains the following tables:\n",
    "<UL><LI><A HREF=\"#UOMSLATES\">Unit-of-Measure Classes and Slates</A></LI>\n",
    "<LI><A HREF=\"#UOMCLASSES\">Unit-of-Measure Composite Class Definitions</A></LI>\n",
    "<LI><A HREF=\"#UOMS\">Units-of-Measure for UOM Classes</A></LI>\n",
    "<LI><A HREF=\"#COMMONUOMS\">Common Units-of-Measure Lists</A></LI>\n",
    "</UL><BR><BR>\n",
    "<A NAME=\"UOMSLATES\"></A><H2>",
    "UOM Classes and Slates",
    "</H2>\n",
};

const char *const userNotes[] = {
    "Use the \"Token\" for specifying units-of-measure classes in your code.\n",
    "You can create your own custom Unit-of-Measure classes by combining the appropriate\n"
    "   classes and exponents, such as \"Pres Rate 2\" or \"Pres / Rate 2\".\n"
    "   Note: fractional exponents are not supported at this time.\n",
    "In the table, units-of-measure enclosed in parentheses are actually\n"
    "   inherited from the parent UOM Slate.\n",
    "The TempraInternal Slate is not a \"real\" UOM Slate. It is used\n"
    "   as a flag in Tempra to get access to the internal model-defined\n"
    "   units-of-measure for a specific model parameter.\n",
};

const char *const fullNotes =
    "1. Use the \"QUILLAXIS Token\" for specifying units-of-measure classes in your code.\n"
    "2. The UOM classes E6Energy and E6Power are being phased out.  You can use UOM multipliers\n"
    "   with the Energy and Power classes to specify units such as \"MM Btu\" and \"MM Btu/hr\".\n"
    "3. You can create your own custom UOM classes by combining the appropriate\n"
    "   classes and exponents, such as \"Pres Rate 2\" or \"Pres / Rate 2\".\n"
    "   Note: fractional exponents are not supported at this time.\n"
    "4. In the Dimension category, the number \"1\" in the \"n\" column indicates that\n"
    "   the UOM class can only have an exponent of 1.\n"
    "\n";

const Cell definitionName = {{"  %-14s", "  %-14s", "%s", "<TR><TD>%s"}};
const Cell definitionText = {{" = %s\n", " = %s\n", "\t%s\n", "</TD><TD>%s</TD></TR>\n"}};

const Cell listName = {{"\n%-32s", "\n%-32s", "\n%s\t", "<TR><TD><CODE>%s</CODE></TD>"}};
const Cell listNoName = {{"%-32s", "%-32s", "%s\t", "<TR><TD>%s</TD>"}};
const Cell listItem = {{"%-16s\n", "%-16s\n", "%s\n", "<TD><CODE>%s</CODE></TD></TR>\n"}};

// The definition of a class: of a custom class its own, else its components.
void definitionOf(const Catalogue &catalogue, int32_t classId, char *out, int32_t size) {
    const UomClassRow *row = class_ValidRow(catalogue, classId);
    *out = '\0';
    if (row && !str_IsEmpty(row->definition)) {
        str_CopyBounded(out, static_cast<size_t>(size), row->definition);
        return;
    }
    ParsedChain chain(catalogue, class_Token(catalogue, classId));
    chain_ToComponents(chain.chain);
    uom_BuildClassString(catalogue, chain.chain, out, size, STYLE_TOKEN);
}

// 100 of the units of the slate OXEnglish in those of another; the number stays 100 where either cannot be
// had.
double sampleOf(const Catalogue &catalogue, Running &running, const char *token, const char *slateName) {
    ParsedChain from(catalogue, token);
    ParsedChain to(from);
    if (uom_FillStructFromString(catalogue, from.chain, "OXEnglish", catalogue.styles.scanUom) != 0 ||
        uom_FillStructFromString(catalogue, to.chain, slateName, catalogue.styles.scanUom) != 0)
        return 100.0;
    running.linear = 0;
    return uom_ConvertFromTo(catalogue, running, 100.0, from.chain, to.chain);
}

void putSample(const Report &report, const char *token, const UomSlate *slate) {
    if (!slate || str_IsEmpty(slate->name)) {
        std::fprintf(report.out, "%25s", " ");
        return;
    }
    char number[64];
    char units[256];
    num_FormatDouble(number, sizeof number, "%10.6g", sampleOf(report.catalogue, report.running, token, slate->name));
    uoms_GetDisplayUnits(report.catalogue, token, slate->name, units, sizeof units, STYLE_DEFAULT);
    std::fprintf(report.out, "%s %-14s", number, units);
}

void putList(const Report &report, const UomTable *list) {
    report_Put(report, listName, table_GetText(list, 0));
    for (uint32_t i = 1; i < list->count; ++i) {
        if (i > 1)
            report_Put(report, listNoName, report_Mode(report) <= MODE_USER_TEXT ? " " : "");
        report_Put(report, listItem, table_GetText(list, i));
    }
}

} // namespace

void report_Title(const Report &report) {
    if (report_IsHtml(report)) {
        for (const char *text : titleHtml)
            report_Write(report, text);
        return;
    }
    report_Write(report, "Unit-of-Measure Subsystem Report\n");
    report_Write(report, report_IsEndUser(report) ? "\n\n\n" : "(generated by a call to the function uom_Dump.)\n\n\n");
    report_Write(report, "UOM Classes and Slates");
    report_Write(report, "\n======================\n\n");
}

void report_Notes(const Report &report) {
    if (!report_IsEndUser(report)) {
        report_Write(report, fullNotes);
        return;
    }
    report_Items(report, userNotes, 4);
}

void report_Definitions(const Report &report) {
    report_Heading(report, "UOMCLASSES", "Definition of Composite and Custom UOM Classes",
                   "\n===================================\n\n");
    if (report_IsHtml(report)) {
        report_Write(report, REPORT_TABLE_HEAD);
        report_Write(report, "<TR BGCOLOR=\"#CCCCFF\"><TH>Composite Class</TH><TH>Definition</TH></TR>\n");
    }
    for (int32_t c = CLASS_QUANTITY; c < report.catalogue.classes.count; ++c) {
        if (!report_ShowsClass(report, c))
            continue;
        char definition[128];
        definitionOf(report.catalogue, c, definition, sizeof definition);
        report_Put(report, definitionName, class_Token(report.catalogue, c));
        report_Put(report, definitionText, definition);
    }
    if (report_IsHtml(report))
        report_Write(report, "</TABLE>\n\n");
}

// In the text form in every mode.
void report_Samples(const Report &report) {
    report_Write(report, "\n\n");
    report_Write(report, "Sample Conversions:\n");
    report_Write(report, "===================\n\n");
    std::fprintf(report.out, "%-14s", "UOM Class");
    for (int32_t i = 1; i < uom_GetSetCount(report.catalogue); ++i)
        std::fprintf(report.out, "%10s%15s", report_SlateName(report.catalogue, i), " ");
    report_Write(report, "\n\n");
    for (int32_t c = CLASS_DIMENSIONLESS; c < report.catalogue.classes.count; ++c) {
        std::fprintf(report.out, "%-14s", class_Token(report.catalogue, c));
        for (int32_t i = 1; i < uom_GetSetCount(report.catalogue); ++i)
            putSample(report, class_Token(report.catalogue, c), slate_Record(report.catalogue, i));
        report_Write(report, "\n");
    }
}

void report_CommonLists(const Report &report) {
    if (report_IsHtml(report)) {
        report_Write(report, "</TABLE>\n\n");
        report_Write(report, "<A NAME=\"COMMONUOMS\"></A><H2>");
        report_Write(report, "Common Unit-of-Measure Lists");
        report_Write(report, "</H2>\n");
        report_Write(report, REPORT_TABLE_HEAD);
        report_Write(report, "<TR BGCOLOR=\"#CCCCFF\"><TH>List Name</TH><TH>Unit-of-Measure</TH></TR>\n");
    } else {
        report_Write(report, "\n");
        report_Write(report, "Common Unit-of-Measure Lists");
        report_Write(report, "\n============================\n");
        if (report_Mode(report) == MODE_TAB) {
            report_Write(report, "List Name\tUnit-of-Measure\n");
        } else {
            std::fprintf(report.out, "%-32s%-16s\n", " ", " ");
            std::fprintf(report.out, "%-32s%-16s\n\n", "List Name", "UOM");
        }
    }
    for (uint32_t i = 0; i < table_Count(report.catalogue.lists.common); ++i) {
        const UomTable *list = table_Record<UomTable>(report.catalogue.lists.common, i);
        if (table_Count(list) >= 2)
            putList(report, list);
    }
    if (report_IsHtml(report))
        report_Write(report, "</TABLE>\n\n");
}

} // namespace uom

// The catalogue as a document; uom_Dump is declared in uom.h.
#ifndef UOM_REPORT_REPORT_H
#define UOM_REPORT_REPORT_H

#include <cstdint>
#include <cstdio>

enum ReportOption : int32_t {
    REPORT_SLATES = 1,
    REPORT_CLASSES = 2,
    REPORT_UNITS = 4,
    REPORT_SAMPLES = 8,
    REPORT_DEFAULT = 15,
    REPORT_END_USER = 256,
    REPORT_MULTIPLIERS = 512,
    REPORT_HTML = 1024,
    REPORT_TAB = 2048,
    REPORT_DEFINITIONS = 4096
};

// uom_Dump by a word in any case: "enduser", "full", "javadoc", "excel", "uomslates"; any other is "full".
// Always 0.
int32_t uom_DumpByName(const char *word, const char *path);

// The definition text of the slates that may be modified, "Current" last. As uom_Dump.
int32_t uom_DumpSlates(const char *path);

// The sections, each as one function of report_sections.cpp, in the order of the document.
struct Report {
    FILE *out;
    int32_t options;
};
void report_Title(const Report &report);
void report_Notes(const Report &report);
void report_ClassTable(const Report &report);
void report_Definitions(const Report &report);
void report_Samples(const Report &report);
void report_Units(const Report &report);
void report_CommonLists(const Report &report);

#endif

// The catalogue as a document; uom_Dump is declared in uom.h.
#ifndef UOM_REPORT_REPORT_H
#define UOM_REPORT_REPORT_H

#include <cstdint>
#include <cstdio>

#include "uom/uom.h"
#include "conversion/running.h"
#include "catalogue/catalogue.h"

namespace uom {

enum ReportOption : int32_t {
    REPORT_SLATES = UOM_REPORT_SLATES,
    REPORT_CLASSES = UOM_REPORT_CLASSES,
    REPORT_UNITS = UOM_REPORT_UNITS,
    REPORT_SAMPLES = UOM_REPORT_SAMPLES,
    REPORT_DEFAULT = UOM_REPORT_FULL,
    REPORT_END_USER = UOM_REPORT_END_USER,
    REPORT_MULTIPLIERS = UOM_REPORT_MULTIPLIERS,
    REPORT_HTML = UOM_REPORT_HTML,
    REPORT_TAB = UOM_REPORT_TAB,
    REPORT_DEFINITIONS = UOM_REPORT_DEFINITIONS
};

// uom_Dump by a word in any case: "enduser", "full", "javadoc", "excel", "uomslates"; any other is "full".
// Always 0.
int32_t uom_DumpByName(const Catalogue &catalogue, Running &running, const char *word, const char *path);

// The definition text of the slates that may be modified, "Current" last. As uom_Dump.
int32_t uom_DumpSlates(const Catalogue &catalogue, Running &running, const char *path);

// The sections, each as one function of report_sections.cpp, in the order of the document.
struct Report {
    const Catalogue &catalogue;
    Running &running;
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

// As uom.h says of these names; here the catalogue stands in front.
int32_t uom_Dump(const Catalogue &catalogue, Running &running, int32_t options, const char *path);

} // namespace uom

#endif

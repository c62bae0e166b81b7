// The ways into the report, and the stream that it goes to.
#include "report/report.h"

#include <cerrno>
#include <cstring>

#include "catalogue/slate_table.h"
#include "conversion/prepared.h"
#include "slates/definition_text.h"
#include "support/memory.h"
#include "support/platform.h"
#include "support/scoped.h"
#include "support/table.h"
#include "support/text.h"

namespace uom {

namespace {

struct ReportWord {
    const char *word;
    int32_t options;
};
const ReportWord reportWords[] = {
    {"enduser", REPORT_DEFAULT - REPORT_SAMPLES + REPORT_END_USER},
    {"full", REPORT_DEFAULT},
    {"javadoc", REPORT_DEFAULT - REPORT_SAMPLES + REPORT_END_USER + REPORT_HTML},
    {"excel", REPORT_DEFAULT - REPORT_SAMPLES + REPORT_END_USER + REPORT_TAB},
    {"uomslates", REPORT_DEFINITIONS},
};

// The standard output for a null or empty path. Null, with the reason in `failure`, when the file cannot be
// made.
FILE *openOutput(const char *path, int32_t *failure) {
    *failure = 0;
    if (str_IsEmpty(path))
        return stdout;
    errno = 0;
    FILE *out = platform_OpenToWrite(path);
    if (!out)
        *failure = errno != 0 ? errno : 1;
    return out;
}

// The status of the last flush, EOF also when an earlier write failed.
int32_t closeOutput(FILE *out) {
    int32_t status = std::fflush(out);
    if (std::ferror(out))
        status = EOF;
    if (out != stdout)
        std::fclose(out);
    return status;
}

// Writes a document to the file of the path; a document that memory did not suffice for is not whole.
template <class Write> int32_t writeOutput(const char *path, Write write) {
    int32_t failure;
    FILE *out = openOutput(path, &failure);
    if (!out)
        return failure;
    const MemoryWatch memory;
    write(out);
    const int32_t status = closeOutput(out);
    return memory.exhausted() ? ENOMEM : status;
}

void writeSections(const Report &report) {
    report_Title(report);
    report_Notes(report);
    if (report.options & (REPORT_SLATES | REPORT_CLASSES))
        report_ClassTable(report);
    if (report.options & REPORT_CLASSES)
        report_Definitions(report);
    if (report.options & REPORT_SAMPLES)
        report_Samples(report);
    if (report.options & REPORT_UNITS) {
        report_Units(report);
        report_CommonLists(report);
    }
    if (report.options & REPORT_HTML)
        std::fputs("</BODY></HTML>", report.out);
}

void writeDefinition(const Catalogue &catalogue, Running &running, FILE *out, const UomSlate &slate) {
    const ScopedTable lines(uoms_GetSetDefinition(catalogue, running, slate.name, 2));
    for (uint32_t i = 0; i < table_Count(lines.table); ++i)
        std::fprintf(out, "%s\n", table_GetText(lines.table, i));
}

void writeDefinitions(const Catalogue &catalogue, Running &running, FILE *out) {
    for (int32_t i = 1; i < uom_GetSetCount(catalogue); ++i) {
        const UomSlate *slate = slate_Record(catalogue, i);
        if (!slate || i == catalogue.slateIndex.current || slate->allowModify == 0)
            continue;
        if (i > 1)
            std::fputs("\n", out);
        writeDefinition(catalogue, running, out, *slate);
    }
    // By name: a host may have made it where the data file had none.
    std::fputs("\n", out);
    if (const UomSlate *current = slate_Record(catalogue, uom_GetSetType(catalogue, "Current")))
        writeDefinition(catalogue, running, out, *current);
}

bool isWrapping(char c) {
    return str_IsSpace(c) || c == '"' || c == '\'';
}

// A path as users paste it: without the blanks and quotes round it.
void cleanPath(char *out, size_t size, const char *path) {
    std::string_view view(path ? path : "");
    while (!view.empty() && isWrapping(view.front()))
        view.remove_prefix(1);
    while (!view.empty() && isWrapping(view.back()))
        view.remove_suffix(1);
    str_CopyBounded(out, size, view);
}

} // namespace

int32_t uom_Dump(const Catalogue &catalogue, Running &running, int32_t options, const char *path) {
    if (options & REPORT_DEFINITIONS) {
        const size_t size = path ? std::strlen(path) + 1 : 1;
        const ScratchText clean(size);
        if (!clean.text)
            return ENOMEM;
        cleanPath(clean.text, size, path);
        return uom_DumpSlates(catalogue, running, clean.text);
    }
    const int32_t chosen = options == 0 ? int32_t{REPORT_DEFAULT} : options;
    return writeOutput(path, [&](FILE *out) { writeSections({catalogue, running, out, chosen}); });
}

int32_t uom_DumpByName(const Catalogue &catalogue, Running &running, const char *word, const char *path) {
    int32_t options = REPORT_DEFAULT;
    for (const ReportWord &entry : reportWords)
        if (str_EqualNoCase(word, entry.word))
            options = entry.options;
    uom_Dump(catalogue, running, options, path);
    return 0;
}

int32_t uom_DumpSlates(const Catalogue &catalogue, Running &running, const char *path) {
    return writeOutput(path, [&](FILE *out) { writeDefinitions(catalogue, running, out); });
}

} // namespace uom

// uom report: the whole catalogue as a document.
#include <fstream>
#include <iostream>
#include <map>
#include <memory>

#include "commands.h"
#include "library.h"
#include "options.h"
#include "report_page.h"

namespace {

constexpr int32_t END_USER = UOM_REPORT_FULL - UOM_REPORT_SAMPLES + UOM_REPORT_END_USER;

const std::map<std::string, int32_t> reportOptions = {
    {"enduser", END_USER},
    {"full", UOM_REPORT_FULL},
    {"javadoc", END_USER + UOM_REPORT_HTML},
    {"excel", END_USER + UOM_REPORT_TAB},
    {"uomslates", UOM_REPORT_DEFINITIONS},
};

struct ReportArguments {
    int32_t options = UOM_REPORT_FULL;
    bool multipliers = false;
    bool page = false;
    std::string path;
};

int runPage(const std::string &path) {
    if (path.empty()) {
        writePage(std::cout);
        return 0;
    }
    std::ofstream file(path, std::ios::binary);
    writePage(file);
    file.close();
    if (!file)
        throw Failure("Unable to write \"" + path + "\".");
    return 0;
}

int runReport(const ReportArguments &arguments) {
    const std::string path = arguments.path == "-" ? "" : arguments.path;
    if (arguments.page)
        return runPage(path);
    const int32_t options = arguments.options + (arguments.multipliers ? UOM_REPORT_MULTIPLIERS : 0);
    uom::report(options, path);
    return 0;
}

} // namespace

Action addReport(CLI::App &command) {
    const auto arguments = std::make_shared<ReportArguments>();
    CLI::Option *kind =
        addChoice(command, "--for", arguments->options, reportOptions,
                  "enduser, full, javadoc (HTML), excel (tab-separated) or uomslates (slate definitions); full "
                  "by default")
            ->option_text("KIND");
    CLI::Option *multipliers = command.add_flag("--multipliers", arguments->multipliers,
                                                "Columns for the multipliers of units; not for uomslates");
    command.add_flag("--html", arguments->page, "A page for people: search, classes, units, slates and aliases")
        ->excludes(kind)
        ->excludes(multipliers);
    command.add_option("-o", arguments->path, "Write to this file; - or none is standard output")
        ->option_text("FILE")
        ->check(notEmpty());
    command.parse_complete_callback([arguments] {
        if (arguments->multipliers && arguments->options == UOM_REPORT_DEFINITIONS)
            throw CLI::ExcludesError("--multipliers", "--for uomslates");
    });
    return [arguments] { return runReport(*arguments); };
}

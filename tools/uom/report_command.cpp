// uom report: the whole catalogue as a document.
#include <map>
#include <memory>
#include <system_error>

#include "commands.h"
#include "library.h"

namespace {

constexpr int32_t FULL = 15;
constexpr int32_t MULTIPLIERS = 512;
constexpr int32_t DEFINITIONS = 4096;

const std::map<std::string, int32_t> reportOptions = {
    {"enduser", 263}, {"full", FULL}, {"javadoc", 1287}, {"excel", 2311}, {"uomslates", DEFINITIONS},
};

struct ReportArguments {
    int32_t options = FULL;
    bool multipliers = false;
    std::string path;
};

int runReport(const ReportArguments &arguments) {
    const int32_t options = arguments.options + (arguments.multipliers ? MULTIPLIERS : 0);
    const int32_t status = uom_Dump(options, arguments.path.c_str());
    if (status == 0)
        return 0;
    const std::string place = arguments.path.empty() ? "standard output" : "\"" + arguments.path + "\"";
    // Below 0 the file was made, but could not be written to the end.
    throw Failure("Unable to write the report to " + place +
                  (status > 0 ? ": " + std::generic_category().message(status) : "") + ".");
}

} // namespace

Action addReport(CLI::App &command) {
    const auto arguments = std::make_shared<ReportArguments>();
    command
        .add_option("--for", arguments->options,
                    "enduser, full, javadoc (HTML), excel (tab-separated) or uomslates (slate definitions); full by "
                    "default")
        ->option_text("KIND")
        ->transform(CLI::CheckedTransformer(reportOptions, CLI::ignore_case));
    command.add_flag("--multipliers", arguments->multipliers,
                     "Columns for the multipliers of units; not for uomslates");
    command.add_option("-o", arguments->path, "Write to this file")->option_text("FILE");
    command.parse_complete_callback([arguments] {
        if (arguments->multipliers && arguments->options == DEFINITIONS)
            throw CLI::ExcludesError("--multipliers", "--for uomslates");
    });
    return [arguments] { return runReport(*arguments); };
}

// uom check: what the library passes over in silence when it reads a data file.
#include <algorithm>
#include <iostream>
#include <memory>

#include "commands.h"
#include "data_file.h"
#include "library.h"
#include "table.h"
#include "text.h"

namespace {

void printFindings(const std::string &path, const Findings &findings, Output output) {
    if (output != Output::TEXT) {
        TextTable table = {{{"File"}, {"Line", true}, {"Finding"}}};
        for (const Finding &finding : findings)
            table.rows.push_back({path, std::to_string(finding.line), finding.text});
        print(table, output);
        return;
    }
    for (const Finding &finding : findings)
        std::cout << path << ':' << finding.line << ": " << toTerminal(finding.text) << '\n';
}

// What can't be told without the library waits until the structure is mended.
void check(const std::string &path, Findings &findings) {
    if (const FileKind kind = kindOf(path); kind != FileKind::DATA) {
        if (const uom::Result<void> start = uom::tryStart(); !start)
            throw uom::Error(start.status());
        return kind == FileKind::ALIASES ? checkAliases(path, findings) : checkSlateFile(path, findings);
    }
    const DataFile file = readDataFile(path, findings);
    if (!file.hasKeywords)
        return;
    checkUnits(file, findings);
    // In this mode start-up leaves the tokens of the units as the file has them.
    const uom::Result<void> start = uom::tryStartFile(path, {"kesta"});
    const bool started = start || start.code() == UOM_START_BAD_CLASSES || start.code() == UOM_START_BAD_UNITS;
    if (!started && start.code() != UOM_START_BAD_STRUCTURE)
        throw uom::Error(start.status());
    if (!start)
        findings.push_back({std::max(file.stoppedAt, 1), start.message()});
    if (!started)
        return;
    checkLists(file, findings);
    checkClassesAndSlates(file, findings);
}

int runCheck(const std::string &path, Output output) {
    Findings findings;
    check(path, findings);
    std::stable_sort(findings.begin(), findings.end(),
                     [](const Finding &a, const Finding &b) { return a.line < b.line; });
    printFindings(path, findings, output);
    return findings.empty() ? 0 : 1;
}

} // namespace

Action addCheck(CLI::App &command) {
    struct Arguments {
        std::string path;
        Output output = Output::TEXT;
    };
    const auto arguments = std::make_shared<Arguments>();
    command.add_option("FILE", arguments->path, "Data file, or a file of aliases or slate definitions")->required();
    addOutput(command, arguments->output);
    command.footer("Prints FILE:LINE: and what is wrong, and exits with 1. A file without faults gives no word and 0.");
    return [arguments] { return runCheck(arguments->path, arguments->output); };
}

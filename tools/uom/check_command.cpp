// uom check: what the library passes over in silence when it reads a data file.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <unistd.h>

#include "commands.h"
#include "data_file.h"
#include "library.h"
#include "system.h"
#include "table.h"
#include "text.h"

namespace {

void addRows(TextTable &table, const std::string &path, const Findings &findings) {
    for (const Finding &finding : findings)
        table.rows.push_back({path, std::to_string(finding.line), finding.text});
}

void printFindings(const TextTable &table, Output output) {
    if (output != Output::TEXT)
        return print(table, output);
    for (const auto &row : table.rows)
        std::cout << row[0] << ':' << row[1] << ": " << toMessage(row[2]) << '\n';
}

// What is read from standard input, as a file for the life of the block.
class StandardInput {
public:
    StandardInput() {
        const auto place = std::filesystem::temp_directory_path() / ("uom-check-" + std::to_string(getpid()));
        path_ = place.string();
        std::error_code ignored;
        std::filesystem::remove(path_, ignored);
        const int made = openNew(path_); // nobody else's
        if (made >= 0)
            close(made);
        removeOnInterrupt(path_);
        std::ofstream file(made >= 0 ? path_ : "", std::ios::binary);
        if (std::cin.peek() != std::char_traits<char>::eof())
            file << std::cin.rdbuf();
        if (!file)
            throw Failure("Unable to keep the standard input in \"" + path_ + "\".");
    }
    ~StandardInput() {
        std::error_code ignored;
        std::filesystem::remove(path_, ignored);
        removeOnInterrupt("");
    }
    StandardInput(const StandardInput &) = delete;
    StandardInput &operator=(const StandardInput &) = delete;
    const std::string &path() const { return path_; }

private:
    std::string path_;
};

// What can't be told without the library waits until the structure is mended.
void check(const std::string &path, Findings &findings) {
    const FileKind kind = kindOf(path);
    if (kind == FileKind::UNKNOWN) {
        findings.push_back({1, "this is no data file, no file of aliases and none of slate definitions"});
        return;
    }
    if (kind != FileKind::DATA) {
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

Findings findingsOf(const std::string &path) {
    Findings findings;
    uom::end();
    check(path, findings);
    std::stable_sort(findings.begin(), findings.end(),
                     [](const Finding &a, const Finding &b) { return a.line < b.line; });
    return findings;
}

int runCheck(const std::vector<std::string> &paths, Output output) {
    TextTable table = {{{"File"}, {"Line", true}, {"Finding"}}};
    for (const std::string &path : paths) {
        if (path == "-")
            addRows(table, "standard input", findingsOf(StandardInput().path()));
        else
            addRows(table, path, findingsOf(path));
    }
    printFindings(table, output);
    return table.rows.empty() ? 0 : 1;
}

} // namespace

Action addCheck(CLI::App &command) {
    struct Arguments {
        std::vector<std::string> paths;
        Output output = Output::TEXT;
    };
    const auto arguments = std::make_shared<Arguments>();
    command
        .add_option("FILE", arguments->paths,
                    "Data files, files of aliases or of slate definitions; - is standard input")
        ->required();
    addOutput(command, arguments->output);
    command.footer("Prints FILE:LINE: and what is wrong, and exits with 1. Files without faults give no word and 0.");
    return [arguments] { return runCheck(arguments->paths, arguments->output); };
}

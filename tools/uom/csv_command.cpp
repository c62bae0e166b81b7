#include "csv_command.h"

#include <algorithm>
#include <future>
#include <iostream>
#include <optional>
#include <thread>

#include "commands.h"
#include "csv.h"
#include "csv_convert.h"
#include "csv_stream.h"
#include "prepare_conversion.h"
#include "terminal.h"
#include "text.h"

namespace {

// --- what is asked for

struct ColumnRequest {
    std::string name, from, to, classString;
};

// Headings may hold anything, units neither "=" nor ":" nor "@".
std::optional<ColumnRequest> readRequest(const std::string &text) {
    const size_t equals = text.rfind('=');
    if (equals == std::string::npos || equals == 0)
        return std::nullopt;
    ColumnRequest request;
    request.name = text.substr(0, equals);
    std::string units = text.substr(equals + 1);
    const size_t at = units.find('@');
    if (at != std::string::npos) {
        request.classString = units.substr(at + 1);
        units.resize(at);
    }
    const size_t colon = units.find(':');
    if (colon == std::string::npos)
        return std::nullopt;
    request.from = units.substr(0, colon);
    request.to = units.substr(colon + 1);
    const bool complete = !request.from.empty() && !request.to.empty() && request.to.find(':') == std::string::npos;
    return complete ? std::optional(request) : std::nullopt;
}

// --- which columns these are

std::string listed(const std::vector<std::string> &headings) {
    std::string text;
    for (const std::string &heading : headings)
        text += (text.empty() ? "\"" : ", \"") + heading + "\"";
    return text;
}

// The column of a number from 1; the number of columns when the name is none.
size_t numberedColumn(const std::string &name, size_t columns) {
    const auto number = parseNumber(name);
    const bool known = number && *number >= 1 && *number <= static_cast<double>(columns) &&
                       name.find_first_not_of("0123456789") == std::string::npos;
    return known ? static_cast<size_t>(*number) - 1 : columns;
}

// A heading goes before a number.
size_t findColumn(const std::string &name, const std::vector<std::string> &cells, bool header) {
    const auto count = header ? std::count(cells.begin(), cells.end(), name) : 0;
    if (count == 1)
        return static_cast<size_t>(std::find(cells.begin(), cells.end(), name) - cells.begin());
    if (count > 1)
        throw Failure("There are " + std::to_string(count) + " columns \"" + name + "\": name the one by its number.");
    const size_t column = numberedColumn(name, cells.size());
    if (column == cells.size())
        throw Failure("There is no column \"" + name + "\"; " +
                      (header ? "those there are: " + listed(cells)
                              : "the first row has " + std::to_string(cells.size()) + " cells") +
                      ".");
    return column;
}

CsvTarget makeTarget(const CsvArguments &arguments, const std::string &text, const std::vector<std::string> &cells) {
    const ColumnRequest request = readRequest(text).value();
    const size_t column = findColumn(request.name, cells, arguments.header);
    const std::string &classString = request.classString.empty() ? arguments.classString : request.classString;
    try {
        return {column, request.name, prepareConversion(classString, request.from, request.to)};
    } catch (const Failure &failure) {
        throw Failure("Column \"" + request.name + "\": " + failure.what());
    }
}

CsvRules makeRules(const CsvArguments &arguments, const std::vector<std::string> &cells) {
    CsvRules rules = {{}, arguments.separator, arguments.digits};
    for (const std::string &text : arguments.columns)
        rules.targets.push_back(makeTarget(arguments, text, cells));
    std::sort(rules.targets.begin(), rules.targets.end(),
              [](const CsvTarget &a, const CsvTarget &b) { return a.column < b.column; });
    for (size_t i = 1; i < rules.targets.size(); ++i)
        if (rules.targets[i].column == rules.targets[i - 1].column)
            throw Failure("\"" + rules.targets[i - 1].name + "\" and \"" + rules.targets[i].name +
                          "\" are the same column.");
    return rules;
}

// --- the work

// Memory of one thread for its rows, and for what it makes of them.
struct Slot {
    std::vector<char> memory;
    CsvBlock block;
    std::future<void> done; // last, so that its thread ends before the rest goes
};

bool isInsideCharacter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80; // UTF-8
}

// In one line, and not too long a one.
std::string shownCell(std::string text) {
    constexpr size_t LONGEST = 40;
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return c < ' '; }, ' ');
    if (text.size() <= LONGEST)
        return text;
    size_t end = LONGEST;
    while (end > 0 && isInsideCharacter(text[end]))
        --end;
    return text.substr(0, end) + "...";
}

// What is written, in the order of the file.
struct Writer {
    const CsvRules &rules;
    const std::string &inputName;
    File file;
    Progress progress;
    size_t rows = 0, badCells = 0; // of the blocks written

    void write(const CsvBlock &block) {
        file.write({block.out.get(), block.outSize});
        for (const BadCell &cell : block.firstBadCells)
            if (badCells++ < SHOWN_BAD_CELLS)
                complain(cell);
        badCells += block.badCells - block.firstBadCells.size();
        rows += block.rows;
        progress.add(block.in.size());
    }

    void complain(const BadCell &cell) {
        progress.clear();
        std::cerr << "uom: " << inputName << ": row " << rows + cell.row + 1 << ", column \""
                  << toTerminal(rules.targets[cell.target].name) << "\": \"" << toTerminal(shownCell(cell.text))
                  << "\" is not a number.\n";
    }
};

// Threads take turns: one's rows are read, and what it made of those before is written, while the others work.
void convertRows(RowSource &source, std::string_view first, const CsvRules &rules, Writer &writer,
                 std::vector<Slot> &slots) {
    const auto finish = [&writer](Slot &slot) {
        slot.done.get();
        writer.write(slot.block);
    };
    size_t turn = 0;
    std::string_view rows = first.empty() ? source.next(slots[turn].memory) : first;
    for (; !rows.empty(); rows = source.next(slots[turn].memory)) {
        Slot &slot = slots[turn];
        slot.block.in = rows;
        slot.done = std::async(std::launch::async, [&rules, &slot] { convertBlock(rules, slot.block); });
        turn = (turn + 1) % slots.size();
        if (slots[turn].done.valid())
            finish(slots[turn]);
    }
    for (size_t i = 0; i < slots.size(); ++i) {
        Slot &slot = slots[(turn + i) % slots.size()];
        if (slot.done.valid())
            finish(slot);
    }
}

size_t threadCount() {
    constexpr unsigned MOST = 8; // more have to wait for the file
    return std::clamp(std::thread::hardware_concurrency(), 1U, MOST);
}

bool isProgressShown(const CsvArguments &arguments) {
    return isTerminal(stderr) && (arguments.output != "-" || !isTerminal(stdout));
}

std::string_view headOf(std::string_view text) {
    return text.starts_with(BYTE_ORDER_MARK) ? text.substr(0, BYTE_ORDER_MARK.size()) : std::string_view();
}

} // namespace

bool isColumnRequest(const std::string &text) {
    return readRequest(text).has_value();
}

int convertCsv(const CsvArguments &arguments) {
    RowSource source(File::toRead(arguments.input), arguments.separator);
    CsvRules rules; // ahead of the slots, whose threads use it to their ends
    std::vector<Slot> slots(threadCount() + 1);
    std::string_view rows = source.next(slots[0].memory);
    const std::string_view mark = headOf(rows);
    const std::string_view firstRow =
        rows.substr(mark.size(), rowLength(rows.substr(mark.size()), arguments.separator));
    if (firstRow.empty() && arguments.header)
        throw Failure("There is no header line in " + source.file().name() + ".");
    rules = makeRules(arguments, cellTexts(firstRow, arguments.separator));
    const std::string_view head = rows.substr(0, mark.size() + (arguments.header ? firstRow.size() : 0));
    rows.remove_prefix(head.size());

    Writer writer = {rules, source.file().name(), File::toWrite(arguments.output, source.file()),
                     Progress(source.file().size(), isProgressShown(arguments)), arguments.header ? 1U : 0U};
    writer.file.write(head);
    convertRows(source, rows, rules, writer, slots);
    writer.progress.clear();
    if (writer.badCells > SHOWN_BAD_CELLS)
        std::cerr << "uom: " << writer.inputName << ": " << writer.badCells - SHOWN_BAD_CELLS
                  << " more cells are not numbers.\n";
    return writer.badCells > 0 ? BAD_CELLS : 0;
}

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
#include "nearest.h"
#include "prepare_conversion.h"
#include "system.h"
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
    const bool complete = !request.from.empty() && !request.to.empty() && request.to.find(':') == std::string::npos &&
                          (at == std::string::npos || !request.classString.empty());
    return complete ? std::optional(request) : std::nullopt;
}

// --- which columns these are

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

// Not more than a person reads.
std::string listed(const std::vector<std::string> &headings) {
    constexpr size_t MOST = 20;
    std::string text;
    for (size_t i = 0; i < std::min(headings.size(), MOST); ++i)
        text += (i == 0 ? "\"" : ", \"") + shownCell(headings[i]) + "\"";
    return headings.size() <= MOST ? text : text + " and " + std::to_string(headings.size() - MOST) + " more";
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
    if (column < cells.size())
        return column;
    const std::string what = "There is no column \"" + name + "\"; ";
    if (!header)
        throw Failure(what + "the first row has " + std::to_string(cells.size()) + " cells.");
    throw Failure(what + "those there are: " + listed(cells) + "." + didYouMean(name, cells));
}

CsvTarget makeTarget(const CsvArguments &arguments, const std::string &text, const std::vector<std::string> &cells) {
    const ColumnRequest request = readRequest(text).value();
    const size_t column = findColumn(request.name, cells, !arguments.noHeader);
    const std::string &classString = request.classString.empty() ? arguments.classString : request.classString;
    try {
        std::string note;
        uom::Conversion conversion = arguments.classic
                                         ? prepareClassic(classString, request.from, request.to)
                                         : prepareConversion(classString, request.from, request.to, &note);
        if (!note.empty())
            std::cerr << "uom: " << toMessage("Column \"" + request.name + "\": " + note) << '\n';
        return {column, request.name, std::move(conversion)};
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

std::string openQuote(const std::string &inputName, size_t row) {
    return inputName + ": row " + std::to_string(row) +
           ": a quotation mark is not closed; what is behind it was not converted.";
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
        if (block.endsOpen)
            throw Failure(openQuote(inputName, rows));
    }

    void complain(const BadCell &cell) {
        progress.clear();
        std::string text = inputName + ": row " + std::to_string(rows + cell.row + 1) + ", column \"" +
                           rules.targets[cell.target].name + "\": ";
        if (cell.fault == BadCell::NO_CELL)
            text += "the row ends in front of it.";
        else
            text += "\"" + shownCell(cell.text) + "\" " +
                    (cell.fault == BadCell::NO_NUMBER ? "is not a number." : "has no finite result.");
        std::cerr << "uom: " << toMessage(text) << '\n';
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

// Editors and spreadsheets write UTF-16 too, in which half of the bytes are 0.
void requireText(std::string_view head, const std::string &name) {
    if (head.starts_with("\xFF\xFE") || head.starts_with("\xFE\xFF"))
        throw Failure(name + " is UTF-16: UTF-8 is wanted (iconv -f UTF-16 -t UTF-8).");
    if (head.substr(0, 1000).find('\0') != std::string_view::npos)
        throw Failure(name + " has bytes of 0 in it, as UTF-16 has: UTF-8 is wanted (iconv -f UTF-16LE -t UTF-8).");
}

std::string_view headOf(std::string_view text) {
    return text.starts_with(BYTE_ORDER_MARK) ? text.substr(0, BYTE_ORDER_MARK.size()) : std::string_view();
}

} // namespace

bool isColumnRequest(const std::string &text) {
    return readRequest(text).has_value();
}

bool hasClasses(const CsvArguments &arguments) {
    return !arguments.classString.empty() ||
           std::all_of(arguments.columns.begin(), arguments.columns.end(), [](const std::string &text) {
               const auto request = readRequest(text);
               return request && !request->classString.empty();
           });
}

int convertCsv(const CsvArguments &arguments) {
    RowSource source(File::toRead(arguments.input), arguments.separator);
    CsvRules rules; // ahead of the slots, whose threads use it to their ends
    std::vector<Slot> slots(threadCount() + 1);
    std::string_view rows = source.next(slots[0].memory);
    const std::string_view mark = headOf(rows);
    const std::string_view firstRow =
        rows.substr(mark.size(), rowLength(rows.substr(mark.size()), arguments.separator));
    requireText(rows, source.file().name());
    if (hasOpenQuote(firstRow, arguments.separator))
        throw Failure(openQuote(source.file().name(), 1));
    if (firstRow.empty() && !arguments.noHeader)
        throw Failure("There is no header line in " + source.file().name() + ".");
    rules = makeRules(arguments, cellTexts(firstRow, arguments.separator));
    const std::string_view head = rows.substr(0, mark.size() + (arguments.noHeader ? 0 : firstRow.size()));
    rows.remove_prefix(head.size());

    Writer writer = {rules, source.file().name(), File::toWrite(arguments.output, source.file()),
                     Progress(source.file().size(), isProgressShown(arguments)), arguments.noHeader ? 0U : 1U};
    writer.file.write(head);
    convertRows(source, rows, rules, writer, slots);
    writer.progress.clear();
    if (writer.badCells > SHOWN_BAD_CELLS)
        std::cerr << "uom: " << writer.inputName << ": " << writer.badCells - SHOWN_BAD_CELLS
                  << " more cells were not converted.\n";
    writer.file.finish();
    return writer.badCells > 0 ? BAD_CELLS : 0;
}

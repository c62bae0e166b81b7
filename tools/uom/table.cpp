#include "table.h"

#include <algorithm>
#include <charconv>
#include <iostream>
#include <map>
#include <unistd.h>

#include <nlohmann/json.hpp>

#include "options.h"
#include "system.h"
#include "text.h"

namespace {

using Cells = std::vector<std::string>;

const std::map<std::string, Output> outputNames = {
    {"text", Output::TEXT},
    {"csv", Output::CSV},
    {"json", Output::JSON},
};

// --- text

Cells headings(const TextTable &table) {
    Cells texts;
    for (const Column &column : table.columns)
        texts.push_back(column.heading);
    return texts;
}

std::vector<Cells> upright(const TextTable &table) {
    std::vector<Cells> lines;
    for (const Cells &row : table.rows)
        for (size_t i = 0; i < row.size(); ++i)
            lines.push_back({table.columns[i].heading, row[i]});
    return lines;
}

std::vector<Cells> textLines(const TextTable &table) {
    if (table.upright)
        return upright(table);
    std::vector<Cells> lines = table.rows;
    lines.insert(lines.begin(), headings(table));
    return lines;
}

void pad(std::string &line, size_t width) {
    line.append(width, ' ');
}

void printText(const TextTable &table) {
    std::vector<size_t> widths;
    std::vector<Cells> lines = textLines(table);
    for (Cells &cells : lines) {
        widths.resize(std::max(widths.size(), cells.size()));
        for (size_t i = 0; i < cells.size(); ++i) {
            cells[i] = toTerminal(cells[i]);
            widths[i] = std::max(widths[i], shownWidth(cells[i]));
        }
    }
    for (const Cells &cells : lines) {
        std::string line;
        for (size_t i = 0; i < cells.size(); ++i) {
            const size_t blanks = widths[i] - shownWidth(cells[i]);
            if (i < table.rightAligned)
                pad(line, blanks);
            line += cells[i];
            if (i >= table.rightAligned)
                pad(line, blanks);
            pad(line, table.gap);
        }
        line.erase(line.find_last_not_of(' ') + 1);
        std::cout << line << '\n';
    }
}

// --- CSV

const std::string &nameOf(const Column &column) {
    return column.name.empty() ? column.heading : column.name;
}

std::string quotedCell(const std::string &text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos)
        return text;
    std::string quoted = "\"";
    for (const char c : text)
        quoted += c == '"' ? "\"\"" : std::string(1, c);
    return quoted + '"';
}

void printCsvLine(const Cells &cells) {
    for (size_t i = 0; i < cells.size(); ++i)
        std::cout << (i ? "," : "") << quotedCell(toUtf8(cells[i]));
    std::cout << "\r\n";
}

void printCsv(const TextTable &table) {
    std::cout.flush();
    keepBytes(STDOUT_FILENO); // its lines end alike on all systems
    Cells names;
    for (const Column &column : table.columns)
        names.push_back(nameOf(column));
    printCsvLine(names);
    for (const Cells &row : table.rows)
        printCsvLine(row);
}

// --- JSON

bool isUpper(char c) {
    return c >= 'A' && c <= 'Z';
}

// "Long name" is long_name, "GaugePresBasis" gauge_pres_basis.
std::string keyOf(const Column &column) {
    std::string key;
    bool wasLower = false;
    for (const char c : nameOf(column)) {
        if (isUpper(c) && wasLower)
            key += '_';
        key += c == ' ' ? '_' : c;
        wasLower = c >= 'a' && c <= 'z';
    }
    return lowerCase(key);
}

// Whole numbers stay whole; where there is none it is null, and what is no number stays a text.
nlohmann::ordered_json numberOf(const std::string &text) {
    if (text.empty())
        return nullptr;
    int64_t whole = 0;
    const char *end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, whole);
    if (error == std::errc() && rest == end)
        return whole;
    const auto number = parseNumber(text);
    return number ? nlohmann::ordered_json(*number) : nlohmann::ordered_json(toUtf8(text));
}

nlohmann::ordered_json cellOf(const Column &column, const std::string &text) {
    return column.isNumber ? numberOf(text) : nlohmann::ordered_json(toUtf8(text));
}

void printJson(const TextTable &table) {
    const char *separator = "[\n  ";
    for (const Cells &row : table.rows) {
        nlohmann::ordered_json object;
        for (size_t i = 0; i < row.size(); ++i)
            object[keyOf(table.columns[i])] = cellOf(table.columns[i], row[i]);
        std::cout << separator << object.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
        separator = ",\n  ";
    }
    std::cout << (table.rows.empty() ? "[]\n" : "\n]\n");
}

} // namespace

void print(const TextTable &table, Output output) {
    switch (output) {
    case Output::TEXT:
        return printText(table);
    case Output::CSV:
        return printCsv(table);
    case Output::JSON:
        return printJson(table);
    }
}

CLI::Option *addPrecision(CLI::App &command, int &digits) {
    const std::string range = "1 to 17, or full for the shortest text that reads back as the same number";
    return command
        .add_option_function<std::string>(
            "--precision",
            [&digits, range](const std::string &text) {
                const auto count = parseNumber(text);
                const bool known =
                    text == "full" || (count && *count >= 1 && *count <= MOST_DIGITS && *count == std::floor(*count));
                if (!known)
                    throw CLI::ValidationError("--precision", "\"" + text + "\" is not " + range);
                digits = text == "full" ? FULL_PRECISION : static_cast<int>(*count);
            },
            "Significant digits: " + range + "; 12 by default")
        ->option_text("DIGITS");
}

void addOutput(CLI::App &command, Output &output) {
    addChoice(command, "--output", output, outputNames, "Form of the table: text, csv or json; text by default")
        ->option_text("FORM");
}

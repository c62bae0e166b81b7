#include "data_file.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <optional>

#include "commands.h"
#include "system.h"
#include "text.h"

namespace {

constexpr int LINE_SIZE = 132; // of the library's line buffer, terminator included
constexpr const char *FIELD_DELIMITERS = ", \t";
constexpr const char *KEY_DELIMITERS = "= \t";

constexpr const char *UNITS_BEGIN = "BEGINUOMLIST";
constexpr const char *UNITS_END = "ENDUOMLIST";
constexpr const char *OPTION = "UOMOPTION";
constexpr const char *LISTS_END = "ENDSELECTLISTS"; // a mark for readers

struct SectionWord {
    const char *begin, *end;
    SectionKind kind;
    bool named;                  // the line behind the keyword is a name
    const char *firstDelimiters; // of the first token of its lines
};
const SectionWord sectionWords[] = {
    {"BEGINCLASSLIST", "ENDCLASSLIST", SectionKind::CLASS_LIST, false, KEY_DELIMITERS},
    {"BEGINLIST", "ENDLIST", SectionKind::SELECT_LIST, true, FIELD_DELIMITERS},
    {"BEGINCOMMONLIST", "ENDCOMMONLIST", SectionKind::COMMON_LIST, true, FIELD_DELIMITERS},
    {"BEGINSLATE", "ENDSLATE", SectionKind::SLATE, true, KEY_DELIMITERS},
};

const char *const optionWords[] = {"kesta", "vel2go", "orbex", "mole", "molar", "uommult", "qx71"};

// A piece of the file as the line buffer holds it.
struct Piece {
    int number; // of the line that it belongs to
    std::string text;
};

struct FileCloser {
    void operator()(FILE *file) const { std::fclose(file); }
};

struct Reader {
    DataFile file;
    Findings &findings;
    std::vector<DataLine> lines = {}; // all of the file, tokens still to be cut
    const SectionWord *open = nullptr;
    bool inUnits = false, unitsEnded = false;
};

void report(Reader &reader, int line, const std::string &text) {
    reader.findings.push_back({line, text});
}

// --- lines

std::vector<Piece> readPieces(const std::string &path) {
    // As the library, which reads nothing else: opening a pipe could wait for ever.
    const std::unique_ptr<FILE, FileCloser> file(isRegularFile(path) ? std::fopen(path.c_str(), "r") : nullptr);
    std::vector<Piece> pieces;
    char buffer[LINE_SIZE];
    int number = 1;
    while (file && std::fgets(buffer, sizeof buffer, file.get())) {
        std::string_view piece(buffer);
        if (pieces.empty() && piece.starts_with(BYTE_ORDER_MARK))
            piece.remove_prefix(BYTE_ORDER_MARK.size());
        pieces.push_back({number, std::string(piece)});
        if (pieces.back().text.ends_with('\n'))
            ++number;
    }
    if (!file || std::ferror(file.get()))
        throw Failure("Unable to open the Unit of Measure data file \"" + path + "\".");
    return pieces;
}

// As the library trims: a carriage return stays.
std::string trimmedData(const std::string &text) {
    const size_t first = text.find_first_not_of(" \t");
    const size_t last = text.find_last_not_of(" \t\n");
    return first == std::string::npos || last == std::string::npos ? "" : text.substr(first, last - first + 1);
}

size_t commentMark(const std::string &text) {
    return std::min(text.find("//"), text.find(';'));
}

const SectionWord *findSectionWord(std::string_view keyword) {
    for (const SectionWord &word : sectionWords)
        if (keyword == word.begin || keyword == word.end)
            return &word;
    return nullptr;
}

// A keyword with a carriage return behind it is none, and what follows is not read as it is meant.
bool isKeyword(std::string_view text) {
    return text == UNITS_BEGIN || text == UNITS_END || findSectionWord(text);
}

void checkCarriageReturns(Reader &reader, const std::vector<Piece> &pieces) {
    int first = 0, count = 0;
    for (const Piece &piece : pieces) {
        if (piece.text.find('\r') == std::string::npos)
            continue;
        if (count++ == 0)
            first = piece.number;
        if (isKeyword(trimmed(piece.text)))
            reader.file.hasKeywords = false;
    }
    if (count > 0)
        report(reader, first,
               "a carriage return stays in the last field (lines with one: " + std::to_string(count) + ")");
}

// Keeps the lines that hold data.
void filterPieces(Reader &reader, const std::vector<Piece> &pieces) {
    int last = 0;
    for (const Piece &piece : pieces) {
        const std::string text = trimmedData(piece.text);
        if (piece.number == last && !text.empty())
            report(reader, piece.number,
                   "the line has more than " + std::to_string(LINE_SIZE - 1) +
                       " characters, the rest is read as a line of its own: " + text);
        last = piece.number;
        const size_t mark = commentMark(text);
        if (mark != std::string::npos && mark > 0)
            report(reader, piece.number, "the comment mark in the line hides all of it: " + text);
        else if (mark == std::string::npos && !text.empty())
            reader.lines.push_back({piece.number, text, {}});
    }
    if (!pieces.empty())
        reader.file.lastLine = pieces.back().number;
}

// Cuts the token at `at`, which moves behind it. Quotes hold delimiters and are taken off.
std::optional<std::string> nextToken(const std::string &text, size_t &at, const char *delimiters) {
    size_t start = text.find_first_not_of(delimiters, at);
    if (start == std::string::npos)
        return std::nullopt;
    const char first = text[start];
    const bool quoted = first == '"' || first == '\'';
    start += quoted;
    const size_t end = std::min(quoted ? text.find(first, start) : text.find_first_of(delimiters, start), text.size());
    at = std::min(end + 1, text.size());
    return text.substr(start, end - start);
}

void cutTokens(DataLine &line, const char *firstDelimiters) {
    size_t at = 0;
    for (auto token = nextToken(line.text, at, firstDelimiters); token;
         token = nextToken(line.text, at, FIELD_DELIMITERS))
        line.tokens.push_back(*token);
}

// --- options and units

void readOption(Reader &reader, const DataLine &line) {
    const std::string word = line.tokens.size() > 1 ? line.tokens[1] : "";
    for (const char *known : optionWords)
        if (equalNoCase(word, known))
            return;
    report(reader, line.number, "\"" + word + "\" is no option");
}

void reportUnread(Reader &reader, const DataLine &line) {
    report(reader, line.number, "the line belongs to no section and is not read: " + line.text);
}

void readUnitStageLine(Reader &reader, const DataLine &line) {
    const std::string &first = line.tokens[0];
    if (first == UNITS_END) {
        reader.unitsEnded = true;
        reader.file.unitsEnd = line.number;
    } else if (first == OPTION) {
        readOption(reader, line);
    } else if (first == UNITS_BEGIN) {
        reader.inUnits = true;
    } else if (reader.inUnits) {
        reader.file.units.push_back(line);
    } else {
        reportUnread(reader, line);
    }
}

// --- sections

Section *openSection(Reader &reader) {
    return reader.open ? &reader.file.sections.back() : nullptr;
}

// A section ends behind its name; a common list takes its name for an item and may do without.
bool isAllowed(Reader &reader, const SectionWord *word, const std::string &keyword) {
    const Section *section = openSection(reader);
    if (!word || keyword == word->begin)
        return !section;
    return reader.open == word && (section->named || word->kind == SectionKind::COMMON_LIST);
}

// Whether the line is a section keyword; one in a wrong place stops the reading.
bool readKeyword(Reader &reader, const DataLine &line) {
    const std::string &keyword = line.tokens[0];
    const SectionWord *word = findSectionWord(keyword);
    if (!word && keyword != LISTS_END)
        return false;
    if (!isAllowed(reader, word, keyword)) {
        reader.file.stoppedAt = line.number;
    } else if (word) {
        const bool begins = keyword == word->begin;
        if (begins)
            reader.file.sections.push_back({word->kind, line.number, !word->named, "", {}});
        reader.open = begins ? word : nullptr;
    }
    return true;
}

void readSectionStageLine(Reader &reader, const DataLine &line) {
    if (line.tokens[0].empty() || readKeyword(reader, line))
        return;
    Section *section = openSection(reader);
    if (!section) {
        reportUnread(reader, line);
    } else if (!section->named) {
        section->named = true;
        section->line = line.number;
        section->name = line.tokens[0];
    } else {
        section->lines.push_back(line);
    }
}

void reportOpenEnds(Reader &reader) {
    if (!reader.inUnits)
        report(reader, reader.file.lastLine, "there is no unit list: BEGINUOMLIST is missing");
    if (!reader.unitsEnded)
        report(reader, reader.file.lastLine, "ENDUOMLIST is missing: there are no lists and no slates");
    else if (reader.open)
        report(reader, openSection(reader)->line, std::string(reader.open->end) + " is missing at the end of the file");
}

} // namespace

bool isDataKeyword(const std::string &word) {
    return isKeyword(word) || word == LISTS_END || word == OPTION;
}

DataFile readDataFile(const std::string &path, Findings &findings) {
    Reader reader = {{}, findings};
    const std::vector<Piece> pieces = readPieces(path);
    checkCarriageReturns(reader, pieces);
    if (!reader.file.hasKeywords)
        return std::move(reader.file);
    filterPieces(reader, pieces);
    reader.file.unitsEnd = reader.file.lastLine;
    for (DataLine &line : reader.lines) {
        cutTokens(line, reader.open ? reader.open->firstDelimiters : FIELD_DELIMITERS);
        if (line.tokens.empty())
            continue;
        if (reader.unitsEnded)
            readSectionStageLine(reader, line);
        else
            readUnitStageLine(reader, line);
        if (reader.file.stoppedAt)
            return std::move(reader.file);
    }
    reportOpenEnds(reader);
    return std::move(reader.file);
}

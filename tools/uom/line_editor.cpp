#include "line_editor.h"

#include <algorithm>
#include <cerrno>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <memory>

#include "text.h"

namespace {

volatile std::sig_atomic_t interrupted = 0;

#ifdef _WIN32

struct InterruptsDropLines {};

#else

extern "C" void noteInterrupt(int) {
    interrupted = 1;
}

// For the life of a block an interrupt ends what waits for a key, and not the tool.
struct InterruptsDropLines {
    struct sigaction before;
    InterruptsDropLines() {
        struct sigaction note = {};
        note.sa_handler = noteInterrupt; // without SA_RESTART
        interrupted = 0;
        sigaction(SIGINT, &note, &before);
    }
    ~InterruptsDropLines() { sigaction(SIGINT, &before, nullptr); }
    InterruptsDropLines(const InterruptsDropLines &) = delete;
    InterruptsDropLines &operator=(const InterruptsDropLines &) = delete;
};

#endif

// A unit without one of its characters is another unit.
std::string refuseLine() {
    std::cerr << "uom: The line is not UTF-8 and is not read.\n";
    return "";
}

// As the terminal gives it, for where there is no editor.
std::optional<std::string> plainLine(const char *prompt) {
    [[maybe_unused]] const InterruptsDropLines interrupts;
    std::cout << prompt << std::flush;
    std::string line;
    if (std::getline(std::cin, line))
        return isUtf8(line) ? line : refuseLine();
    std::cout << '\n';
    if (!interrupted)
        return std::nullopt;
    std::clearerr(stdin);
    std::cin.clear();
    return "";
}

} // namespace

#ifdef UOM_TOOL_EDITLINE
#include <editline/readline.h>
#include <langinfo.h>
#include <unistd.h>

namespace {

constexpr int KEPT_LINES = 1000;

CompleteWord completeWord;
std::vector<std::string> found; // of the word that is being completed
std::filesystem::path historyFile;

// The editor asks for one after the other and frees them.
char *nextFound(const char *, int state) {
    const auto i = static_cast<size_t>(state);
    return i < found.size() ? strdup(found[i].c_str()) : nullptr;
}

char **complete(const char *word, int begin, int end) {
    rl_attempted_completion_over = 1; // no names of files where nothing is found
    const std::string line = std::string(rl_line_buffer).substr(0, static_cast<size_t>(end));
    const Completions completions = completeWord(line, std::min(static_cast<size_t>(begin), line.size()));
    found = completions.words;
    rl_completion_append_character = completions.behind;
    return rl_completion_matches(word, nextFound);
}

// The editor passes over what the process's characters do not know, so they have to be UTF-8's, whatever those of the
// environment are.
bool setCharacters() {
    for (const char *locale : {"", "C.UTF-8", "C.utf8", "en_US.UTF-8", "en_US.utf8"})
        if (std::setlocale(LC_CTYPE, locale) && std::strcmp(nl_langinfo(CODESET), "UTF-8") == 0)
            return true;
    std::setlocale(LC_CTYPE, "C");
    return false;
}

bool edits = false; // the lines have the editor
bool badBytes = false;

// A byte of the terminal; -1 at the end, and after an interrupt.
int nextByte() {
    unsigned char byte;
    std::ptrdiff_t count;
    do
        count = read(STDIN_FILENO, &byte, 1);
    while (count < 0 && errno == EINTR && !interrupted);
    return count == 1 ? byte : -1;
}

// A whole character. The editor's own reading leaves out what is none.
int nextCharacter(FILE *) {
    const int lead = nextByte();
    if (lead < 0)
        return interrupted ? '\n' : -1;
    std::string character(1, static_cast<char>(lead));
    for (size_t length = utf8LengthOf(lead); character.size() < length;) {
        const int byte = nextByte();
        if (byte < 0)
            break;
        character += static_cast<char>(byte);
    }
    wchar_t wide = L'?';
    badBytes = badBytes || !isUtf8(character);
    if (isUtf8(character))
        std::mbtowc(&wide, character.data(), character.size());
    return static_cast<int>(wide);
}

std::filesystem::path placeOfHistory() {
    const char *state = std::getenv("XDG_STATE_HOME");
    const char *home = std::getenv("HOME");
    if (state && *state)
        return std::filesystem::path(state) / "uom" / "history";
    return home && *home ? std::filesystem::path(home) / ".local" / "state" / "uom" / "history"
                         : std::filesystem::path();
}

// A history that cannot be kept is no fault of what is done.
void keepHistory() {
    std::error_code ignored;
    if (historyFile.empty())
        return;
    std::filesystem::create_directories(historyFile.parent_path(), ignored);
    write_history(historyFile.c_str());
}

} // namespace

void beginLines(const CompleteWord &completion) {
    static char breaks[] = " \t\"'", name[] = "uom";
    completeWord = completion;
    edits = setCharacters();
    if (!edits)
        return;
    rl_readline_name = name;
    rl_getc_function = nextCharacter; // looked at by the next line
    rl_initialize();
    rl_completer_word_break_characters = breaks;
    rl_attempted_completion_function = complete;
    stifle_history(KEPT_LINES);
    historyFile = placeOfHistory();
    if (!historyFile.empty())
        read_history(historyFile.c_str());
}

std::optional<std::string> nextLine(const char *prompt) {
    if (!edits)
        return plainLine(prompt);
    const InterruptsDropLines interrupts;
    badBytes = false;
    const std::unique_ptr<char, decltype(&std::free)> line(readline(prompt), std::free);
    if (!line) {
        std::cout << '\n';
        return std::nullopt;
    }
    if (interrupted)
        return "";
    if (badBytes)
        return refuseLine();
    if (*line) {
        add_history(line.get());
        keepHistory();
    }
    return line.get();
}

#else

void beginLines(const CompleteWord &) {}

std::optional<std::string> nextLine(const char *prompt) {
    return plainLine(prompt);
}

#endif

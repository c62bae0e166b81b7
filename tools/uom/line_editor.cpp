#include "line_editor.h"

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iostream>

#ifdef UOM_TOOL_EDITLINE
#include <editline/readline.h>

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

char **complete(const char *word, int begin, int) {
    rl_attempted_completion_over = 1; // no names of files where nothing is found
    found = completeWord(word, begin == 0);
    return rl_completion_matches(word, nextFound);
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
    rl_readline_name = name;
    rl_initialize();
    rl_completer_word_break_characters = breaks;
    rl_attempted_completion_function = complete;
    stifle_history(KEPT_LINES);
    historyFile = placeOfHistory();
    if (!historyFile.empty())
        read_history(historyFile.c_str());
}

std::optional<std::string> nextLine(const char *prompt) {
    char *line = readline(prompt);
    if (!line) {
        std::cout << '\n';
        return std::nullopt;
    }
    if (*line) {
        add_history(line);
        keepHistory();
    }
    std::string text = line;
    std::free(line);
    return text;
}

#else

void beginLines(const CompleteWord &) {}

std::optional<std::string> nextLine(const char *prompt) {
    std::cout << prompt << std::flush;
    std::string line;
    if (std::getline(std::cin, line))
        return line;
    std::cout << '\n';
    return std::nullopt;
}

#endif

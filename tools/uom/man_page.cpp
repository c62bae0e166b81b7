// The page of the tool for man.
#include <algorithm>
#include <sstream>

#include "interface.h"
#include "text.h"

namespace {

// The day of the version in uom.h, which changes with it.
constexpr const char *RELEASED = "2026-11-22";

// Dashes and backslashes as they are to be typed.
std::string roff(const std::string &text) {
    std::string escaped = text.starts_with('.') || text.starts_with('\'') ? "\\&" : "";
    for (const char c : text)
        escaped += c == '\\' ? "\\e" : c == '-' ? "\\-" : std::string(1, c);
    return escaped;
}

// In lines of a length that editors show; roff fills its own.
std::string prose(const std::string &text) {
    constexpr size_t LONGEST = 78;
    std::istringstream words(text);
    std::string filled, line;
    for (std::string word; words >> word;) {
        if (!line.empty() && line.size() + roff(word).size() >= LONGEST) {
            filled += line + "\n";
            line.clear();
        }
        line += line.empty() ? roff(word) : " " + roff(word).substr(roff(word).starts_with("\\&") ? 2 : 0);
    }
    return filled + line + "\n";
}

std::string upperCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return text;
}

std::string heading(const std::string &title) {
    return ".SH " + upperCase(title) + "\n";
}

// Those of a set that the purpose does not tell itself.
std::string choicesOf(const OptionInfo &option) {
    std::string text;
    bool told = true;
    for (const std::string &choice : option.choices) {
        text += (text.empty() ? "One of " : ", ") + choice;
        told = told && option.purpose.find(choice) != std::string::npos;
    }
    return told ? "" : prose(text + ".");
}

std::string optionText(const OptionInfo &option) {
    std::string names;
    for (const std::string &name : option.names)
        names += (names.empty() ? "\\fB" : ", \\fB") + roff(name) + "\\fR";
    const std::string value =
        option.value.empty() ? "" : (names.empty() ? "\\fI" : " \\fI") + roff(option.value) + "\\fR";
    return ".TP\n" + names + value + "\n" + prose(option.purpose + ".") + choicesOf(option);
}

std::string optionTexts(const std::vector<OptionInfo> &options) {
    std::string text, group = "Options";
    for (const OptionInfo &option : options) {
        if (option.group != group)
            text += ".PP\n" + roff(option.group) + ":\n";
        group = option.group;
        text += optionText(option);
    }
    return text;
}

// What stands behind the options in --help: lines with blanks in front are examples, one with a colon behind is a
// section.
struct FooterWriter {
    std::string text, paragraph = {};
    bool inExample = false, behindTitle = false;

    // A title begins one by itself.
    void beginParagraph() {
        text += behindTitle ? "" : ".PP\n";
        behindTitle = false;
    }

    void endParagraph() {
        if (paragraph.empty())
            return;
        beginParagraph();
        text += prose(paragraph);
        paragraph.clear();
    }

    void setExample(bool wanted) {
        if (wanted && !inExample)
            beginParagraph();
        if (wanted != inExample)
            text += wanted ? ".EX\n" : ".EE\n";
        inExample = wanted;
    }

    void add(const std::string &line) {
        const std::string content(trimmed(line));
        const bool example = line.starts_with("  "), title = !example && content.ends_with(':');
        if (example || title || content.empty())
            endParagraph();
        setExample(example);
        behindTitle = behindTitle || title;
        if (example)
            text += roff(content) + "\n";
        else if (title)
            text += heading(content.substr(0, content.size() - 1));
        else
            paragraph += (paragraph.empty() ? "" : " ") + content;
    }
};

std::string footerText(const std::string &footer) {
    FooterWriter writer;
    std::istringstream lines(footer);
    for (std::string line; std::getline(lines, line);)
        writer.add(line);
    writer.add("");
    return writer.text;
}

std::string commandText(const CommandInfo &command) {
    return ".SS " + roff(command.usage) + "\n" + prose(command.purpose + ".") + optionTexts(command.arguments) +
           optionTexts(command.options) + footerText(command.footer);
}

} // namespace

std::string manPage(const ToolInfo &info) {
    std::string text = ".TH UOM 1 \"" + std::string(RELEASED) + "\" \"" + roff(info.version) +
                       "\" \"User Commands\"\n" + heading("Name") + "uom \\- convert units of measure\n" +
                       heading("Synopsis") + roff(info.tool.usage) + "\n" + heading("Description") +
                       prose(info.tool.purpose) + heading("Global options") + optionTexts(info.tool.options) +
                       heading("Commands");
    for (const CommandInfo &command : info.commands)
        text += commandText(command);
    return text + footerText(info.tool.footer);
}

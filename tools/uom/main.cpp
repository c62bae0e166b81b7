// uom: the library at work on the command line. Reads the global options and runs one command.
#include <algorithm>
#include <iostream>

#include "commands.h"
#include "interface.h"
#include "library.h"
#include "nearest.h"
#include "options.h"
#include "prompt.h"
#include "start.h"
#include "system.h"
#include "text.h"

namespace {

// Exit statuses, beside 0. Every message stands behind "uom: ".
constexpr int FAILED = 1, BAD_USAGE = 2; // and BAD_CELLS

struct Command {
    const char *name;
    const char *purpose;
    AddCommand add;
    bool starts = true; // the library is started before the command, with the global options
};
const Command commands[] = {
    {"typed", "Convert what is typed: uom 250 kPag psia", addTyped},
    {"search", "Find classes, units, aliases and slates by words", addSearch},
    {"convert", "Convert values", addConvert},
    {"constants", "Print factor and offset of a conversion", addConstants},
    {"classes", "List the classes", addClasses},
    {"units", "List the units of a class", addUnits},
    {"slates", "List the slates", addSlates},
    {"slate", "Print the definition of a slate", addSlate},
    {"show", "Print the units that a quantity is shown in", addShow},
    {"related", "Print the other forms of a class string, and its dimensions", addRelated},
    {"keyword", "Write units as fixed-layout keyword text, or read one", addKeyword},
    {"report", "Print the whole catalogue", addReport},
    {"check", "Report what is wrong with a data file", addCheck, false},
};

constexpr const char *EXAMPLES =
    "Examples:\n"
    "  uom 250 kPag psia\n"
    "  uom 212 F C --class TempDiff\n"
    "  uom search heat transfer\n"
    "  uom convert Temp C F -40 37.5\n"
    "  uom convert \"Pres/VolRate 2\" \"kpa/(m3/sec)2\" \"psi/(ft3/min)2\" 1.5 2.5\n"
    "  uom convert --format %.6g --from-slate English --to-slate SI SpEnthalpy < enthalpies.txt\n"
    "  uom convert --csv log.csv --column P=psig:kPa@Pres -o metric.csv\n"
    "  uom constants Temp C F\n"
    "  uom units Pres --slate Metric\n"
    "  uom show Density --slate English --style tokensuper\n"
    "  uom --define plant.txt slate Plant\n"
    "  uom keyword Pres psia\n"
    "  uom report --for enduser -o report.txt\n"
    "  uom check uomdata.txt\n"
    "\n"
    "Exit status:\n"
    "0; 1 when work failed; 2 when the usage is wrong; 3 when cells of a CSV file were not converted.\n";

struct GlobalOptions {
    StartOptions start;
    std::string mode;
    bool mole = false, molar = false;
};

void addGlobalOptions(CLI::App &app, GlobalOptions &options) {
    app.add_option("--data", options.start.data, "Data file")->option_text("FILE")->check(notEmpty());
    app.add_option("--mode", options.mode, "How start-up names units and bases: kesta, vel2go or orbex")
        ->transform(oneOf({"kesta", "vel2go", "orbex"}))
        ->option_text("MODE");
    CLI::Option *mole = app.add_flag("--mole", options.mole, "Quantities count moles");
    app.add_flag("--molar", options.molar, "Quantities count in the class Molar")->excludes(mole);
    app.add_option("--define", options.start.definitions, "Read slate definitions; may be repeated")
        ->option_text("FILE")
        ->expected(1)
        ->allow_extra_args(false)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

StartOptions startOptions(const GlobalOptions &options) {
    StartOptions start = options.start;
    if (!options.mode.empty())
        start.words.push_back(options.mode);
    if (options.mole)
        start.words.push_back("mole");
    if (options.molar)
        start.words.push_back("molar");
    return start;
}

// For the build of the tool, which installs what they write, and for shells. They do without a command.
void addGenerators(CLI::App &app) {
    const auto write = [](const std::string &text) {
        std::cout << text;
        throw CLI::Success();
    };
    app.add_option_function<std::string>(
           "--generate-completion",
           [&app, write](const std::string &shell) { write(completionScript(describeTool(app), shell)); })
        ->check(CLI::IsMember({"bash", "zsh", "fish"}))
        ->group("");
    app.add_option_function<std::string>(
           "--complete",
           [write](const std::string &request) { // kinds, a colon and the word
               const size_t colon = std::min(request.find(':'), request.size());
               const std::string word = request.substr(std::min(colon + 1, request.size()));
               uom::start();
               std::string lines;
               for (const std::string &name : namesThatComplete(word, request.substr(0, colon)))
                   lines += name + '\n';
               write(lines);
           })
        ->group("");
    app.add_flag_callback("--generate-man", [&app, write] { write(manPage(describeTool(app))); })->group("");
}

// "-5", "-.5", "-inf", and with a unit behind it.
bool isNegativeNumber(const std::string &word) {
    if (!word.starts_with('-'))
        return false;
    const size_t digit = word.starts_with("-.") ? 2 : 1;
    return parseNumber(word) || (digit < word.size() && word[digit] >= '0' && word[digit] <= '9');
}

// CLI11 takes "-.5" and "-inf" for options, and "-5 m" for a part of others, but with a blank in front for what they are.
std::string readableWord(const std::string &word) {
    return isNegativeNumber(word) && (word.find_first_of("0123456789") != 1 || !parseNumber(word)) ? " " + word : word;
}

// Where only numbers would be taken for options behind a "--", it need not stand; CLI11 understands it only in front
// of the first of a command's words.
bool isNeeded(const std::vector<std::string> &behindMark) {
    return std::any_of(behindMark.begin(), behindMark.end(),
                       [](const std::string &word) { return word.starts_with('-') && !isNegativeNumber(word); });
}

// Where the words behind the options in front begin; the number of words without any.
size_t placeOfCommand(const std::vector<std::string> &given) {
    static const char *const withValue[] = {
        "--data", "--mode", "--define", "--class", "--precision", "--output", "--generate-completion", "--complete"};
    size_t i = 0;
    for (; i < given.size(); ++i) {
        const std::string &word = given[i];
        if (std::find(std::begin(withValue), std::end(withValue), word) != std::end(withValue))
            ++i;
        else if (!word.starts_with('-') || isNegativeNumber(word))
            return i;
    }
    return std::min(i, given.size());
}

bool isCommand(const std::string &word) {
    return std::any_of(std::begin(commands), std::end(commands),
                       [&](const Command &command) { return word == command.name; });
}

// Without a command, several words are a text that is typed, and the name of its command is put in front of all, so that
// its options are known. A single one is looked for at the prompt; on a command line it is a command that is misspelt, or
// the half of a conversion.
void nameCommand(std::vector<std::string> &given, bool atPrompt) {
    const size_t place = placeOfCommand(given);
    if (place == given.size() || isCommand(given[place]))
        return;
    const auto isOption = [](const std::string &word) { return word.starts_with('-') && !isNegativeNumber(word); };
    if (place + 1 == given.size() && given[place] == "help") {
        given[place] = "--help";
        return;
    }
    const bool single = place + 1 == given.size() || isOption(given[place + 1]);
    if (!single || atPrompt)
        given.insert(given.begin(), single ? "search" : "typed");
    else
        throw CLI::ValidationError("\"" + given[place] + "\" is no command." +
                                   didYouMean(given[place], commandNames()) +
                                   " A conversion has two units: uom 250 kPag psia");
}

// The words of the command line in the reverse order, as CLI11 takes them.
std::vector<std::string> readableWords(std::vector<std::string> given, bool atPrompt) {
    nameCommand(given, atPrompt);
    const auto mark = std::find(given.begin(), given.end(), "--");
    if (mark != given.end() && !isNeeded({mark + 1, given.end()}))
        given.erase(mark);
    std::vector<std::string> readable(given.size());
    std::transform(given.rbegin(), given.rend(), readable.begin(), readableWord);
    return readable;
}

std::vector<std::string> optionNames(const CLI::App &app) {
    std::vector<std::string> names;
    for (const CLI::Option *option : app.get_options())
        if (!option->get_group().empty())
            for (const std::string &name : option->get_lnames())
                names.push_back("--" + name);
    return names;
}

// What CLI11 says of words that are left over does not tell what is meant.
std::string unknownOption(const CLI::App &app) {
    std::vector<std::string> names = optionNames(app);
    std::string place = "";
    for (const CLI::App *command : app.get_subcommands()) {
        const std::vector<std::string> more = optionNames(*command);
        names.insert(names.end(), more.begin(), more.end());
        place = " of uom " + command->get_name();
    }
    for (const std::string &word : app.remaining(true)) {
        const std::string name = word.substr(0, word.find('='));
        if (word.size() > 1 && word.starts_with('-'))
            return "\"" + name + "\" is no option" + place + "." + didYouMean(name, names);
    }
    return "";
}

int refuseUsage(const CLI::App &app, const CLI::ParseError &error) {
    const auto commandsRead = app.get_subcommands();
    const std::string command = commandsRead.empty() ? "" : " " + commandsRead.front()->get_name();
    const bool leftOver =
        error.get_exit_code() == static_cast<int>(CLI::ExitCodes::ExtrasError) || commandsRead.empty();
    std::string option = leftOver ? unknownOption(app) : "";
    const std::string said = error.what();
    if (said.ends_with(" missing") && said.starts_with('-')) // "--class: 1 required TEXT missing"
        option = said.substr(0, said.find(':')) + " has no value behind it.";
    std::cerr << "uom: " << toMessage(option.empty() ? error.what() : option) << " (see uom" << command << " --help)\n";
    return BAD_USAGE;
}

int runWords(const std::vector<std::string> &words, GlobalOptions options, bool atPrompt);

int reportFailure(const std::exception &failure) {
    std::cout.flush();
    std::cerr << "uom: " << toMessage(failure.what()) << '\n';
    return FAILED;
}

// Runs line after line, each with the global options that were given in front of the prompt.
int runLines(const GlobalOptions &options, const ToolInfo &info) {
    startLibrary(startOptions(options));
    const auto kinds = [&](const std::string &name) {
        const auto found = std::find_if(info.commands.begin(), info.commands.end(),
                                        [&](const CommandInfo &command) { return command.name == name; });
        return found == info.commands.end() ? "" : nameKinds(*found);
    };
    const auto run = [&](const std::vector<std::string> &words) {
        try {
            uom::end();
            runWords(words, options, true);
            std::cout.flush();
        } catch (const std::exception &failure) {
            reportFailure(failure);
        }
        uom::end();
        startLibrary(startOptions(options)); // for the completion of the next line
    };
    runPrompt({commandNames(), kinds, run});
    return 0;
}

int runWords(const std::vector<std::string> &words, GlobalOptions options, bool atPrompt) {
    CLI::App app("Converts units of measure and shows the catalogue of classes, units and slates.", "uom");
    const bool mayAsk = !atPrompt && isTerminal(stdin) && placeOfCommand(words) == words.size();
    addGlobalOptions(app, options);
    addGenerators(app);
    app.set_version_flag("--version", "uom " + uom::version());
    app.footer(EXAMPLES);
    app.require_subcommand(mayAsk ? 0 : 1, 1);
    app.fallthrough();
    app.allow_windows_style_options(false); // "/sec" is a unit, on all systems

    int status = 0;
    for (const Command &command : commands) {
        CLI::App *sub = app.add_subcommand(command.name, command.purpose);
        sub->footer("");
        const Action act = command.add(*sub);
        const bool starts = command.starts;
        sub->final_callback([act, starts, &options, &status] {
            if (starts)
                startLibrary(startOptions(options));
            status = act();
        });
    }
    try {
        app.parse(readableWords(words, atPrompt));
    } catch (const CLI::ParseError &error) {
        return error.get_exit_code() == 0 ? app.exit(error) : refuseUsage(app, error);
    }
    return app.get_subcommands().empty() ? runLines(options, describeTool(app)) : status;
}

} // namespace

std::vector<std::string> commandNames() {
    std::vector<std::string> names;
    for (const Command &command : commands)
        names.push_back(command.name);
    return names;
}

int main(int count, char **words) {
    const Console console;
    int status;
    try {
        status = runWords({words + 1, words + count}, {}, false);
    } catch (const std::exception &failure) {
        status = reportFailure(failure);
    }
    uom::end();
    std::cout.flush();
    if (!std::cout) {
        std::cerr << "uom: Unable to write the output.\n";
        return FAILED;
    }
    return status;
}

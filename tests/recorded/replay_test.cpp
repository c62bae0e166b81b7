// Replays the calls of the text files beside this one, each case on a freshly started library, and compares all that
// can be seen. The answers in the files were worked out independently of the library.
//
//   == Pressure times a squared rate        a case
//   | BEGINUOMLIST                          lines of a data file of its own, for this case and those behind it
//   start small kesta                       start-up with a data file (shipped, small, own, none) and option words
//   uom_GetClassType "Pres" 1 = 7           a call and its answers: the result, then what it wrote, in their order
//   c = uoms_New "Pres/VolRate 2"           a call that makes a chain; "= c.1" as an answer is its second node
//   nodes c = Pres VolRate^-2+StdLiqVol^-2 +Time^2  the chain from now on, as nodesOf() puts it
//   error = "a text"                        the last-error text from now on
//   UOM_SET_MAX = 7                         an exported variable
//   > text                                  the lines that uom_Dump wrote to "{out}"
//
// Chains and a last-error text that no line names have to be as they were. Texts stand in quotes, with \" \\ \n \t \r and
// \xNN, and with {shipped}, {small}, {own}, {none} and {out} for paths. Integers are numbers, exported variables,
// %classes, &slates, or units: by token, in quotes where the token needs them. Lists stand in brackets; null is null. For
// a text that is written there is the size of the buffer, or null for no buffer; for other outputs there is nothing.
#include "tests/library_fixture.h"

#include <charconv>
#include <cmath>
#include <filesystem>
#include <map>
#include <memory>
#include <regex>
#include <set>
#include <tuple>

namespace {

constexpr int32_t ROOM = 64; // bytes of buffers without a size, or without a usable one
constexpr size_t GUARDS = 8; // bytes or elements behind each
using Lines = LibraryTest::Lines;

struct Item { // a word of a line, with its quotes, or a list of words
    bool list = false;
    Lines words;
    std::string word() const { return list || words.empty() ? "" : words[0]; }
    bool quoted() const { return word()[0] == '"'; }
    bool null() const { return word() == "null"; }
};

std::vector<Item> itemsOf(const std::string &line) {
    std::vector<Item> items;
    bool inList = false;
    for (size_t begin = 0, end; (begin = line.find_first_not_of(' ', begin)) != line.npos; begin = end) {
        end = std::min(line.find_first_of(" []", begin + 1), line.size());
        if (line[begin] == '[' || line[begin] == ']')
            end = begin + 1;
        if (line[begin] == '"')
            for (end = begin + 1; end < line.size() && line[end] != '"';)
                end += line[end] == '\\' ? 2 : 1;
        end += line[begin] == '"' ? 1 : 0;
        const std::string word = line.substr(begin, end - begin);
        if (word == "[" || word == "]")
            inList = word == "[";
        if (word == "[")
            items.push_back({true, {}});
        else if (inList)
            items.back().words.push_back(word);
        else if (word != "]")
            items.push_back({false, {word}});
    }
    return items;
}

std::string quoted(const std::string &text) {
    std::string out = "\"";
    for (const char c : text)
        out += (c == '"' || c == '\\' ? "\\" : "") + std::string(1, c);
    return out + '"';
}

#define NAMED(name)                                                                                                    \
    { #name, &name }
const std::map<std::string, int32_t *> variables = {
    NAMED(UOM_NULL),        NAMED(UOM_BASMOLE), NAMED(UOM_BASMASS),      NAMED(UOM_BASLIQV),
    NAMED(UOM_BASVAPV),     NAMED(UOM_BASACTV), NAMED(UOM_SET_NULL),     NAMED(UOM_SET_ENGLISH),
    NAMED(UOM_SET_METRIC),  NAMED(UOM_SET_SI),  NAMED(UOM_SET_INTERNAL), NAMED(UOM_SET_OXINTERNAL),
    NAMED(UOM_SET_CURRENT), NAMED(UOM_SET_MAX)};

const std::map<std::string, int32_t> variablesAtLoad = [] {
    std::map<std::string, int32_t> values;
    for (const auto &[name, variable] : variables)
        values[name] = *variable;
    return values;
}();

// What the words of a case mean.
struct Stage {
    std::map<std::string, std::string> paths;
    std::map<std::string, UomStruct> chains;

    std::string text(const std::string &word) const {
        std::string out;
        const size_t quotes = word[0] == '"' ? 1 : 0;
        for (size_t i = quotes; i + quotes < word.size(); ++i) {
            const std::string_view codes = "ntr";
            if (word[i] == '\\' && word[i + 1] == 'x')
                out += static_cast<char>(std::stoi(word.substr((i += 3) - 1, 2), nullptr, 16));
            else if (word[i] == '\\')
                out += codes.find(word[++i]) == codes.npos ? word[i] : "\n\t\r"[codes.find(word[i])];
            else
                out += word[i];
        }
        for (const auto &[name, path] : paths)
            for (size_t at; (at = out.find(name)) != out.npos;)
                out.replace(at, name.size(), path);
        return out;
    }
    int32_t number(const std::string &word) const {
        int32_t value = 0;
        if (std::from_chars(word.data(), word.data() + word.size(), value).ptr == word.data() + word.size())
            return value;
        if (const auto named = variables.find(word); named != variables.end())
            return *named->second;
        if (word[0] == '&')
            return uom_GetSetType(text(word.substr(1)).c_str());
        value = word[0] == '%' ? uom_GetClassType(&word[1], 1) : uom_GetUnitType(text(word).c_str());
        EXPECT_NE(value, 0) << "no unit or class " << word;
        return value;
    }
    UomStruct chain(const std::string &word) const { // "c", or a node of it: "c.2"
        const size_t dot = word.find('.');
        const auto at = chains.find(word.substr(0, dot));
        EXPECT_TRUE(at != chains.end() || word == "null") << "no chain " << word;
        UomStruct node = at == chains.end() ? nullptr : at->second;
        for (int i = dot == word.npos ? 0 : std::stoi(word.substr(dot + 1)); node && i > 0; --i)
            node = node->next;
        return node;
    }
};

std::string className(int32_t classId, int32_t exponent) {
    char token[64];
    uom_GetClassText(classId, token, sizeof token, 1);
    return (*token ? token : std::to_string(classId)) + (exponent == 1 ? "" : "^" + std::to_string(exponent));
}

std::string unitName(int32_t unit) {
    return unit == UOM_NULL ? "-" : uom_GetUnitTextLen(unit) ? LibraryTest::unitText(unit) : std::to_string(unit);
}

// Class and exponent, ":" and the unit, "3*" for a multiplier, and in braces what is fixed for the root slates:
// "Leng^2:3*ft{ft,-,m}". The components of a class are joined by "+", as in "Rate^2+Basis^2:Mass +Mass^2:kg +Time^-2:hr";
// a node whose elementary class is another one has it behind a "/".
std::string nodesOf(UomStruct chain) {
    std::string out;
    const UomStructNode *before = nullptr;
    for (; chain; before = chain, chain = chain->next) {
        const bool component = chain->tag >= 100 && chain->tag <= 102;
        const bool goesOn = component && before && before->tag == chain->tag - 1 && before->tag >= 100 &&
                            before->classId == chain->classId && before->exponent == chain->exponent;
        out += out.empty() ? "" : " ";
        if (!goesOn)
            out += className(chain->classId, chain->exponent);
        if (!goesOn && chain->tag != 0 && chain->tag != 100)
            out += "." + std::to_string(chain->tag);
        if (component || chain->baseClass != chain->classId || chain->baseExponent != chain->exponent)
            out += (component ? "+" : "/") + className(chain->baseClass, chain->baseExponent);
        if (chain->unit != UOM_NULL || chain->multiplier != 0)
            out += ":" + (chain->multiplier ? std::to_string(chain->multiplier) + "*" : "") + unitName(chain->unit);
        const int32_t *const fixed = chain->slateUnit;
        if (fixed[0] != UOM_NULL || fixed[1] != UOM_NULL || fixed[2] != UOM_NULL)
            out += "{" + unitName(fixed[0]) + "," + unitName(fixed[1]) + "," + unitName(fixed[2]) + "}";
    }
    return out.empty() ? "null" : out;
}

// One call: its arguments, taken in turn; then its answers, each put as it is expected when it is equal to that.
struct Call {
    const Stage &on;
    std::vector<Item> args, answers;
    Lines given;
    UomStruct made = nullptr;
    size_t arg = 1; // 0 is the name

    const Item &next() const { return arg < args.size() ? args[arg] : ended; }
    const Item &take() { return arg < args.size() ? args[arg++] : ended; }
    const Item &expected() const { return given.size() < answers.size() ? answers[given.size()] : ended; }

    std::string shown(int32_t value, const std::string &word) const {
        return !word.empty() && on.number(word) == value ? word : std::to_string(value);
    }
    std::string shown(double value, const std::string &word) const {
        const double wanted = word.empty() ? NAN : std::strtod(word.c_str(), nullptr);
        const double range = 1e-13 * std::max(std::abs(value), std::abs(wanted));
        return value == wanted || std::abs(value - wanted) <= range ? word : testing::PrintToString(value);
    }
    std::string shown(const char *value, const std::string &word) const {
        return !value ? "null" : word[0] == '"' && on.text(word) == value ? word : quoted(value);
    }
    template <class T> void put(T value) { given.push_back(shown(value, expected().word())); }
    template <class T> void putList(const T *values, size_t count) {
        std::string out;
        for (size_t i = 0; i < count; ++i)
            out += (i ? " " : "") + shown(values[i], i < expected().words.size() ? expected().words[i] : "");
        given.push_back(expected().list ? '[' + out + ']' : out);
    }
    void put(UomStruct value) { // without an answer it is a new chain
        made = value;
        if (const std::string word = expected().word(); !word.empty())
            given.push_back(on.chain(word) == value ? word : "not " + word);
    }
    void put(const UomTable *table) {
        table ? putList(static_cast<char *const *>(table->data), table->count) : given.push_back("null");
    }
    void put(UomTable *table) {
        put(static_cast<const UomTable *>(table));
        tbl_Free(table);
    }
    std::string wanted() const {
        std::string out;
        for (const Item &item : answers) {
            std::string text;
            for (const std::string &word : item.words)
                text += (text.empty() ? "" : " ") + word;
            out += (out.empty() ? "" : " ") + (item.list ? '[' + text + ']' : text);
        }
        return out;
    }
    template <class R, class... P> void run(R (*operation)(P...));

private:
    static inline const Item ended;
};

// An argument of each type: made of the words of a line, passed, and put among the answers where it is an output.
template <class T> struct Plain {
    T value{};
    T pass() { return value; }
    void put(Call &) {}
};
template <class T> struct Arg;

template <> struct Arg<int32_t> : Plain<int32_t> { // in front of a list it is the length
    explicit Arg(Call &c) {
        value = static_cast<int32_t>(c.next().words.size());
        if (!c.next().list) {
            const Item &item = c.take();
            value = item.null() ? ROOM : c.on.number(item.word());
        }
    }
};
template <> struct Arg<double> : Plain<double> {
    explicit Arg(Call &c) { value = std::strtod(c.take().word().c_str(), nullptr); }
};
template <> struct Arg<UomStruct> : Plain<UomStruct> {
    explicit Arg(Call &c) { value = c.on.chain(c.take().word()); }
};
template <> struct Arg<UomStruct *> : Plain<UomStruct *> {
    explicit Arg(Call &c) {
        if (const std::string word = c.take().word(); word != "null")
            value = const_cast<UomStruct *>(&c.on.chains.at(word));
    }
};
template <> struct Arg<const char **> : Plain<const char *> {
    explicit Arg(Call &) {}
    const char **pass() { return &value; }
    void put(Call &c) { c.put(static_cast<const char *>(value)); }
};
template <> struct Arg<const char *> {
    bool null;
    std::string text;
    explicit Arg(Call &c) : null(c.next().null()), text(c.on.text(c.take().word())) {}
    const char *pass() const { return null ? nullptr : text.c_str(); }
    void put(Call &) {}
};

// A buffer in front of its size, or of the last text, which it has to hold, or of nothing; or a text changed in place.
template <> struct Arg<char *> {
    bool null, inPlace;
    int32_t size = ROOM;
    std::string before, text;
    explicit Arg(Call &c) : null(c.next().null()), inPlace(c.next().quoted() && c.arg + 1 < c.args.size()) {
        if (c.next().quoted())
            size = static_cast<int32_t>(c.on.text(c.next().word()).size()) + 1;
        else if (!null && !c.next().words.empty())
            size = c.on.number(c.next().word());
        before =
            inPlace ? c.on.text(c.take().word()) + '\0' : std::string(size > 0 ? static_cast<size_t>(size) : ROOM, '#');
        text = before + std::string(GUARDS, '!');
    }
    char *pass() { return null ? nullptr : text.data(); }
    void put(Call &c) {
        const size_t room = size > 0 ? before.size() : 1, end = text.find('\0');
        if (null)
            c.given.push_back("null");
        else if (text == before + std::string(GUARDS, '!') && !inPlace)
            c.put("");
        else if (text.substr(room) != (before + std::string(GUARDS, '!')).substr(room) || end >= before.size())
            c.given.push_back("text written behind the buffer");
        else
            c.put(static_cast<const char *>(text.c_str()));
    }
};

// A list, shown again where the answers have it, or an array to be filled, shown as far as it was written. A zero ends
// the list for operations that look for one.
template <class T> struct Array {
    static constexpr T UNWRITTEN = static_cast<T>(0x5A5A5A5A);
    bool null, given;
    std::vector<T> values;
    explicit Array(Call &c) : null(c.next().null()), given(null || c.next().list), values(given ? 0 : 256, UNWRITTEN) {
        if (given)
            for (const std::string &word : c.take().words)
                values.push_back(null ? T() : valueOf(c, word));
        values.insert(values.end(), GUARDS, given ? T() : UNWRITTEN);
    }
    static T valueOf(Call &c, const std::string &word) {
        if constexpr (std::is_same_v<T, double>)
            return std::strtod(word.c_str(), nullptr);
        else
            return c.on.number(word);
    }
    T *pass() { return null ? nullptr : values.data(); }
    void put(Call &c) {
        const auto end = given ? values.end() - GUARDS : std::find(values.begin(), values.end(), UNWRITTEN);
        if (!given || c.expected().list)
            c.putList(values.data(), static_cast<size_t>(end - values.begin()));
    }
};
template <> struct Arg<int32_t *> : Array<int32_t> { using Array::Array; };
template <> struct Arg<double *> : Array<double> { using Array::Array; };
template <> struct Arg<const int32_t *> : Array<int32_t> {
    using Array::Array;
    void put(Call &) {}
};

template <> struct Arg<UomTable *> {
    std::unique_ptr<UomTable, void (*)(UomTable *)> table{nullptr, tbl_Free};
    explicit Arg(Call &c) {
        Lines texts;
        for (const std::string &word : c.next().words)
            texts.push_back(c.on.text(word));
        if (!c.take().null())
            table.reset(LibraryTest::tableOf(texts));
    }
    UomTable *pass() { return table.get(); }
    void put(Call &c) {
        if (c.expected().list)
            c.put(static_cast<const UomTable *>(table.get()));
    }
};
template <> struct Arg<const UomTable *> : Arg<UomTable *> { using Arg<UomTable *>::Arg; };

template <> struct Arg<const char *const *> {
    Lines texts;
    LibraryTest::Words words;
    explicit Arg(Call &c) {
        const Item &item = c.take();
        for (const std::string &word : item.list ? item.words : Lines())
            texts.push_back(c.on.text(word));
    }
    const char *const *pass() {
        for (const std::string &text : texts)
            words.push_back(text.c_str());
        return words.data();
    }
    void put(Call &) {}
};

template <class R, class... P> void Call::run(R (*operation)(P...)) {
    std::tuple<Arg<P>...> passed{Arg<P>(*this)...}; // in braces: from left to right
    std::apply(
        [&](auto &...each) {
            if constexpr (std::is_void_v<R> || std::is_same_v<R, char *>)
                operation(each.pass()...); // a text result is the buffer, which is shown in its place
            else
                put(operation(each.pass()...));
            (each.put(*this), ...);
        },
        passed);
    EXPECT_EQ(arg, std::max<size_t>(args.size(), 1)) << "too many arguments";
}

const std::map<std::string, void (*)(Call &)> operations = {
#define OPERATION(name) {#name, [](Call &c) { c.run(name); }},
#include "tests/recorded/operations.def"
#undef OPERATION
};

std::string contentOf(const std::string &path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

Lines recordings() {
    Lines paths;
    for (const auto &entry : std::filesystem::directory_iterator(UOM_TEST_DIR "/recorded"))
        if (entry.path().extension() == ".txt")
            paths.push_back(entry.path().string());
    std::sort(paths.begin(), paths.end());
    return paths;
}

class RecordedCalls : public LibraryTest, public testing::WithParamInterface<std::string> {
protected:
    void beginCase() {
        stop();
        stage.paths = {{"{small}", UOM_TEST_DIR "/small_data.txt"},
                       {"{shipped}", UOM_TEST_DATA},
                       {"{own}", path},
                       {"{out}", path + ".out"},
                       {"{none}", "/nosuch/data.txt"}};
        std::ofstream(path, std::ios::binary) << own;
        for (const auto &[name, value] : variablesAtLoad)
            *variables.at(name) = value;
        error.clear();
    }

    // Nodes may hang on more than one name: each is freed by itself.
    void endCase() {
        compareWithStated();
        std::vector<UomStruct> all;
        for (const auto &[name, chain] : stage.chains)
            for (UomStruct node = chain; node; node = node->next)
                all.push_back(node);
        std::sort(all.begin(), all.end());
        all.erase(std::unique(all.begin(), all.end()), all.end());
        for (UomStruct node : all)
            node->next = nullptr;
        for (UomStruct node : all)
            uom_Free(&node);
        stage.chains.clear();
        nodes.clear();
    }

    void compareWithStated() {
        EXPECT_EQ(lastError(), error);
        for (const auto &[name, wanted] : nodes)
            EXPECT_EQ(nodesOf(stage.chains[name]), wanted) << "nodes of " << name;
        std::string printed = contentOf(stage.paths["{out}"]);
        if (!printed.empty() && printed.back() != '\n')
            printed += '\n';
        EXPECT_EQ(printed, report);
        std::remove(stage.paths["{out}"].c_str());
        report.clear();
    }

    void make(std::vector<Item> items) {
        std::string name;
        if (items.size() > 2 && items[1].word() == "=" && operations.count(items[2].word())) {
            name = items[0].word();
            items.erase(items.begin(), items.begin() + 2);
        }
        Call call{stage, items, {}, {}};
        const auto equals =
            std::find_if(items.begin(), items.end(), [](const Item &item) { return item.word() == "="; });
        if (equals != items.end())
            call.answers.assign(equals + 1, items.end());
        call.args.assign(items.begin(), equals);
        if (call.args[0].word() == "start") { // stands for a call of uom_Init2 that answers 0
            call.args = {{false, {"uom_Init2"}}, {true, {"-f", "{" + call.args[1].word() + "}"}}};
            for (auto word = items.begin() + 2; word < equals; ++word)
                call.args[1].words.push_back(word->word());
            call.answers = {{false, {"0"}}};
        }
        if (const auto at = operations.find(call.args[0].word()); at != operations.end())
            at->second(call);
        else
            call.put(*variables.at(call.args[0].word()));
        std::string answers;
        for (const std::string &answer : call.given)
            answers += (answers.empty() ? "" : " ") + answer;
        EXPECT_EQ(answers, call.wanted());
        if (!name.empty()) {
            stage.chains[name] = call.made;
            nodes.erase(name);
        }
    }

    void replay(const std::string &line) {
        const size_t equals = line.find(" = ");
        const std::string left = line.substr(0, equals), right = equals == line.npos ? "" : line.substr(equals + 3);
        if (line[0] == '>') {
            report += line.substr(std::min<size_t>(line.size(), 2)) + "\n";
        } else if (left == "error") {
            error = stage.text(itemsOf(right).at(0).word());
        } else if (left.compare(0, 6, "nodes ") == 0) {
            nodes[left.substr(6)] = right;
        } else {
            compareWithStated();
            make(itemsOf(line));
        }
    }

    Stage stage;
    std::map<std::string, std::string> nodes; // as stated by the file
    std::string error, report, own;
};

TEST_P(RecordedCalls, AnswerAsRecorded) {
    std::ifstream file(GetParam());
    std::string title, line, inOwn;
    bool begun = false;
    for (int number = 1; std::getline(file, line); ++number) {
        SCOPED_TRACE("at " + GetParam() + ":" + std::to_string(number) + ": " + line + "\n" + title);
        if (line.empty() || line[0] == '#')
            continue;
        if (line[0] == '=') {
            endCase();
            title = line;
            begun = false;
        } else if (line[0] == '|') {
            own = (inOwn == title ? own : "") + stage.text('"' + line.substr(std::min<size_t>(line.size(), 2)) + '"') +
                  "\n";
            inOwn = title;
        } else {
            begun ? void() : beginCase();
            begun = true;
            replay(line);
        }
    }
    endCase();
}

INSTANTIATE_TEST_SUITE_P(Files, RecordedCalls, testing::ValuesIn(recordings()),
                         [](const auto &one) { return std::filesystem::path(one.param).stem().string(); });

// But for the start with a file that the platform finds, and for tables.
TEST(RecordedFiles, AskForAllThatTheHeaderDeclares) {
    std::set<std::string> used;
    for (const std::string &path : recordings()) {
        std::istringstream text(contentOf(path));
        for (std::string word; text >> word;)
            used.insert(word);
    }
    const std::string header = contentOf(UOM_TEST_DIR "/../include/uom/uom.h");
    const std::regex declaration("UOM_API [^;(]*\\b(uoms?_(?!Init\\()\\w+)");
    for (std::sregex_iterator at(header.begin(), header.end(), declaration), end; at != end; ++at)
        EXPECT_TRUE(used.count(at->str(1))) << at->str(1);
}

} // namespace

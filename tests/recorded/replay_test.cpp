// Replays the calls of the text files beside this one, each case on a freshly started library, and compares all that
// can be seen. The answers in the files were worked out independently of the library.
//
//   == Pressure times a squared rate        a case
//   | BEGINUOMLIST                          lines of a data file of its own, for this case and those behind it
//   start small kesta                       start-up with a data file (shipped, small, own, none) and option words
//   uom_GetClassType "Pres" 1 = 7           a call and its answers: the result, then what it wrote, in their order
//   c = uoms_New "Pres/VolRate 2"           a call that makes a chain; "= c.1" as an answer is its second node
//   nodes c = Pres:kPa VolRate^-2+Vol^-2 +Time^2
//                                           the chain from now on, as nodesOf() puts it
//   error = "a text"                        the last-error text from now on
//   UOM_SET_MAX = 7                         an exported variable
//   > text                                  the lines that uom_Dump wrote to "{out}"
//
// Chains and the last-error text, where no line names them, have to be as they were. Texts stand in quotes, with \n,
// \t, \r, \xNN and a "\" in front of quotes and of itself, and with {shipped}, {small}, {own}, {none} and {out} for
// paths. Integers are numbers, exported variables, %classes, &slates, or units: by token, in quotes where the token
// needs them. Lists stand in brackets; null is null. For a text that is written there is the size of its buffer, or
// null for no buffer; for other outputs there is nothing. "-" stands for whatever is written.
#include "tests/library_fixture.h"

#include <charconv>
#include <cmath>
#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <tuple>

namespace {

constexpr int32_t ROOM = 64; // bytes of a buffer without a size, and of guards behind every buffer
using Lines = LibraryTest::Lines;

// The words of a line: texts with their quotes, lists with their brackets, and what stands between blanks.
Lines wordsOf(const std::string &line) {
    Lines words;
    for (size_t begin = 0, end; (begin = line.find_first_not_of(' ', begin)) != line.npos; begin = end) {
        bool inText = false, inList = false;
        for (end = begin; end < line.size() && (inText || inList || line[end] != ' '); ++end) {
            if (inText && line[end] == '\\')
                ++end;
            else if (line[end] == '"')
                inText = !inText;
            else if (!inText && (line[end] == '[' || line[end] == ']'))
                inList = line[end] == '[';
        }
        words.push_back(line.substr(begin, end - begin));
    }
    return words;
}

bool isList(const std::string &word) {
    return word[0] == '[';
}
Lines elementsOf(const std::string &word) {
    return isList(word) ? wordsOf(word.substr(1, word.size() - 2)) : Lines(word == "null" ? 0 : 1, word);
}

std::string lineOf(const Lines &words) {
    std::string line;
    for (const std::string &word : words)
        line += (line.empty() ? "" : " ") + word;
    return line;
}

struct Variable {
    int32_t *now, atLoad;
};
#define NAMED(name) std::pair(std::string(#name), Variable{&name, name})
const std::map<std::string, Variable> variables = {
    NAMED(UOM_NULL),        NAMED(UOM_BASMOLE), NAMED(UOM_BASMASS),      NAMED(UOM_BASLIQV),
    NAMED(UOM_BASVAPV),     NAMED(UOM_BASACTV), NAMED(UOM_SET_NULL),     NAMED(UOM_SET_ENGLISH),
    NAMED(UOM_SET_METRIC),  NAMED(UOM_SET_SI),  NAMED(UOM_SET_INTERNAL), NAMED(UOM_SET_OXINTERNAL),
    NAMED(UOM_SET_CURRENT), NAMED(UOM_SET_MAX)};

// What the words of a case mean, and how values are put as words: as the word that is expected, when they are equal.
struct Stage {
    std::map<std::string, std::string> paths;
    std::map<std::string, UomStruct> chains;

    std::string text(const std::string &word) const {
        std::string out;
        for (size_t i = 1; i + 1 < word.size(); ++i) {
            const std::string_view codes = "ntr";
            if (word[i] == '\\' && word[i + 1] == 'x')
                out += static_cast<char>(std::stoi(word.substr((i += 3) - 1, 2), nullptr, 16));
            else if (word[i] == '\\')
                out += codes.find(word[++i]) == codes.npos ? word[i] : "\n\t\r"[codes.find(word[i])];
            else
                out += word[i];
        }
        for (size_t at; (at = out.find('{')) != out.npos && paths.count(out.substr(at, out.find('}') + 1 - at));)
            out.replace(at, out.find('}') + 1 - at, paths.at(out.substr(at, out.find('}') + 1 - at)));
        return out;
    }
    int32_t number(const std::string &word) const {
        int32_t value = 0;
        if (std::from_chars(word.data(), word.data() + word.size(), value).ptr == word.data() + word.size())
            return value;
        if (const auto named = variables.find(word); named != variables.end())
            return *named->second.now;
        if (word[0] == '&')
            return uom_GetSetType(&word[1]);
        value = word[0] == '%' ? uom_GetClassType(&word[1], 1)
                               : uom_GetUnitType(word[0] == '"' ? text(word).c_str() : word.c_str());
        EXPECT_NE(value, 0) << "no unit or class " << word;
        return value;
    }
    UomStruct chain(const std::string &word) const { // "c", or a node of it: "c.2"
        const size_t dot = word.find('.');
        UomStruct node = word == "null" ? nullptr : chains.at(word.substr(0, dot));
        for (int i = dot == word.npos ? 0 : std::stoi(word.substr(dot + 1)); node && i > 0; --i)
            node = node->next;
        return node;
    }

    std::string put(int32_t value, const std::string &wanted) const {
        return !wanted.empty() && number(wanted) == value ? wanted : std::to_string(value);
    }
    std::string put(double value, const std::string &wanted) const {
        const double other = wanted.empty() ? NAN : std::strtod(wanted.c_str(), nullptr);
        const double range = 1e-13 * std::max(std::abs(value), std::abs(other));
        return value == other || std::abs(value - other) <= range ? wanted : testing::PrintToString(value);
    }
    std::string put(const char *value, const std::string &wanted) const {
        return value && wanted[0] == '"' && text(wanted) == value ? wanted
               : value                                            ? testing::PrintToString(value)
                                                                  : "null";
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

// Class and exponent, ":" and the unit ("::" when it takes multipliers like "M BBL"), "3*" for a multiplier, and in braces what is fixed for the root slates:
// "Leng^2:3*ft{ft,-,m}". The components of a class are joined by "+", as in "Rate^2+Basis^2:Mass +Mass^2:kg
// +Time^-2:hr"; a node whose elementary class is another one has it behind a "/".
std::string nodesOf(UomStruct chain) {
    Lines out;
    const UomStructNode *before = nullptr;
    for (; chain; before = chain, chain = chain->next) {
        const bool component = chain->tag >= 100 && chain->tag <= 102;
        const bool goesOn = component && before && before->tag == chain->tag - 1 && before->tag >= 100 &&
                            before->classId == chain->classId && before->exponent == chain->exponent;
        std::string node = goesOn ? "" : className(chain->classId, chain->exponent);
        if (!goesOn && chain->tag != 0 && chain->tag != 100)
            node += "." + std::to_string(chain->tag);
        if (component || chain->baseClass != chain->classId || chain->baseExponent != chain->exponent)
            node += (component ? "+" : "/") + className(chain->baseClass, chain->baseExponent);
        if (chain->unit != UOM_NULL || chain->multiplier != 0)
            node += (chain->unitStyle == 1 ? "::" : ":") +
                    (chain->multiplier ? std::to_string(chain->multiplier) + "*" : "") + unitName(chain->unit);
        const int32_t *const fixed = chain->slateUnit;
        if (fixed[0] != UOM_NULL || fixed[1] != UOM_NULL || fixed[2] != UOM_NULL)
            node += "{" + unitName(fixed[0]) + "," + unitName(fixed[1]) + "," + unitName(fixed[2]) + "}";
        out.push_back(node);
    }
    return out.empty() ? "null" : lineOf(out);
}

// One call: its arguments, taken in turn, and behind the call its answers, put in turn.
struct Call {
    Stage &on;
    Lines args, answers, given;
    UomStruct made = nullptr;
    const void *returned = nullptr; // by an operation that returns the buffer
    size_t arg = 1;                 // 0 is the name

    std::string next() const { return arg < args.size() ? args[arg] : ""; }
    std::string take() { return arg++ < args.size() ? args[arg - 1] : ""; }
    std::string wanted() const { return given.size() < answers.size() ? answers[given.size()] : ""; }

    template <class T> void put(T value) { given.push_back(on.put(value, wanted())); }
    template <class T> void putList(const T *values, size_t count) {
        Lines words, expected = elementsOf(wanted());
        for (size_t i = 0; i < count; ++i)
            words.push_back(on.put(values[i], i < expected.size() ? expected[i] : ""));
        given.push_back(isList(wanted()) ? '[' + lineOf(words) + ']' : lineOf(words));
    }
    void put(UomStruct value) { // without an answer it is a new chain
        made = value;
        if (const std::string word = wanted(); !word.empty())
            given.push_back(on.chain(word) == value ? word : "not " + word);
    }
    void put(const UomTable *table) {
        table ? putList(static_cast<char *const *>(table->data), table->count) : given.push_back("null");
    }
    void put(UomTable *table) {
        put(static_cast<const UomTable *>(table));
        tbl_Free(table);
    }
    template <class R, class... P> void run(R (*operation)(P...));
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
        const bool length = isList(c.next());
        const std::string word = length ? c.next() : c.take();
        value = length ? static_cast<int32_t>(elementsOf(word).size()) : word == "null" ? ROOM : c.on.number(word);
    }
};
template <> struct Arg<double> : Plain<double> {
    explicit Arg(Call &c) { value = std::strtod(c.take().c_str(), nullptr); }
};
template <> struct Arg<UomStruct> : Plain<UomStruct> {
    explicit Arg(Call &c) { value = c.on.chain(c.take()); }
};
template <> struct Arg<UomStruct *> : Plain<UomStruct *> {
    explicit Arg(Call &c) { value = c.next() == "null" ? c.take(), nullptr : &c.on.chains.at(c.take()); }
};
template <> struct Arg<const char **> : Plain<const char *> {
    explicit Arg(Call &) {}
    const char **pass() { return &value; }
    void put(Call &c) { c.put(static_cast<const char *>(value)); }
};
template <> struct Arg<const char *> {
    bool null;
    std::string text;
    explicit Arg(Call &c) : null(c.next() == "null"), text(c.on.text(c.take())) {}
    const char *pass() const { return null ? nullptr : text.c_str(); }
    void put(Call &) {}
};

// A buffer in front of its size, or of the last text, which it has to hold, or of nothing; or a text changed in place.
template <> struct Arg<char *> {
    bool null, inPlace = false;
    int32_t size = ROOM;
    size_t room = ROOM; // of which it may write
    std::string before, text;
    explicit Arg(Call &c) : null(c.next() == "null") {
        const bool isText = c.next()[0] == '"';
        const std::string given = isText ? c.on.text(c.next()) : "";
        size = isText || null || c.next().empty() ? ROOM : c.on.number(c.next());
        inPlace = isText && c.arg + 1 < c.args.size();
        room = isText ? given.size() + 1 : size > 0 ? static_cast<size_t>(size) : 1;
        before = (inPlace ? given + '\0' : std::string(room, '#')) + std::string(ROOM, '!');
        text = before;
        inPlace ? void(c.take()) : void();
    }
    char *pass() { return null ? nullptr : text.data(); }
    void put(Call &c) {
        const bool untouched = text == before && !inPlace;
        if (null || c.wanted() == "-")
            c.given.push_back(null ? "null" : "-");
        else if ((untouched && size > 0) || (c.returned && c.returned != pass()))
            c.given.push_back(untouched ? "untouched" : "another buffer");
        else if (text.substr(room) != before.substr(room) || (!untouched && text.find('\0') >= room))
            c.given.push_back("text written behind the buffer");
        else
            c.put(static_cast<const char *>(untouched ? "" : text.c_str()));
    }
};

// A list, put again where the answers have it, or an array to be filled, put as far as it was written. A zero ends the
// list for operations that look for one.
template <class T> struct Array {
    static constexpr T UNWRITTEN = static_cast<T>(0x5A5A5A5A);
    bool null, given;
    std::vector<T> values;
    explicit Array(Call &c)
        : null(c.next() == "null"), given(null || isList(c.next())), values(given ? 0 : 256, UNWRITTEN) {
        if (given)
            for (const std::string &word : elementsOf(c.take()))
                values.push_back(std::is_same_v<T, double> ? static_cast<T>(std::strtod(word.c_str(), nullptr))
                                                           : static_cast<T>(c.on.number(word)));
        values.push_back(given ? T() : UNWRITTEN);
    }
    T *pass() { return null ? nullptr : values.data(); }
    void put(Call &c) {
        if (c.wanted() == "-")
            return c.given.push_back("-");
        const auto end = given ? values.end() - 1 : std::find(values.begin(), values.end(), UNWRITTEN);
        if (!given || isList(c.wanted()))
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
        for (const std::string &word : elementsOf(c.next()))
            texts.push_back(c.on.text(word));
        table.reset(c.take() == "null" ? nullptr : LibraryTest::tableOf(texts));
    }
    UomTable *pass() { return table.get(); }
    void put(Call &c) {
        if (isList(c.wanted()))
            c.put(static_cast<const UomTable *>(table.get()));
    }
};
template <> struct Arg<const UomTable *> : Arg<UomTable *> { using Arg<UomTable *>::Arg; };

template <> struct Arg<const char *const *> {
    Lines texts;
    LibraryTest::Words words;
    explicit Arg(Call &c) {
        for (const std::string &word : elementsOf(c.take()))
            texts.push_back(word[0] == '"' ? c.on.text(word) : word);
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
            if constexpr (std::is_void_v<R>)
                operation(each.pass()...);
            else if constexpr (std::is_same_v<R, char *>) // the buffer, which is put in its place
                returned = operation(each.pass()...);
            else
                put(operation(each.pass()...));
            (each.put(*this), ...);
        },
        passed);
    EXPECT_TRUE(arg >= args.size()) << "too many arguments";
}

const std::map<std::string, void (*)(Call &)> operations = {
#define OPERATION(name) {#name, [](Call &c) { c.run(::name); }},
#include "tests/recorded/operations.def"
#undef OPERATION
};

std::string contentOf(const std::string &path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
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
        for (const auto &[name, variable] : variables)
            *variable.now = variable.atLoad;
        error.clear();
    }

    // Nodes may hang on more than one name: each is freed by itself.
    void endCase() {
        compareWithStated();
        std::set<UomStruct> all;
        for (const auto &[name, chain] : stage.chains)
            renamed.push_back(chain);
        for (const UomStruct chain : renamed)
            for (UomStruct node = chain; node; node = node->next)
                all.insert(node);
        for (UomStruct node : all)
            node->next = nullptr;
        for (UomStruct node : all)
            uom_Free(&node);
        stage.chains.clear();
        renamed.clear();
        nodes.clear();
    }

    void compareWithStated() {
        EXPECT_EQ(lastError(), error);
        for (const auto &[name, wanted] : nodes)
            EXPECT_EQ(nodesOf(stage.chains[name]), wanted) << "nodes of " << name;
        EXPECT_EQ(printed, report);
        printed = report = "";
    }

    void make(Lines words) {
        std::string name;
        if (words.size() > 2 && words[1] == "=" && operations.count(words[2])) {
            name = words[0];
            words.erase(words.begin(), words.begin() + 2);
        }
        const auto equals = std::find(words.begin(), words.end(), "=");
        Call call{stage, {words.begin(), equals}, {equals == words.end() ? equals : equals + 1, words.end()}, {}};
        if (words[0] == "start") { // stands for a call of uom_Init2 that answers 0
            words.erase(words.begin(), words.begin() + 2);
            call.args = {"uom_Init2", "[-f \"{" + call.args[1] + "}\" " + lineOf(words) + "]"};
            call.answers = {"0"};
        }
        const auto operation = operations.find(call.args[0]);
        operation == operations.end() ? call.put(*variables.at(call.args[0]).now) : operation->second(call);
        EXPECT_EQ(lineOf(call.given), lineOf(call.answers));
        if (call.args[0] == "uom_Dump") {
            printed = contentOf(stage.paths["{out}"]);
            printed += printed.empty() || printed.back() == '\n' ? "" : "\n";
            std::remove(stage.paths["{out}"].c_str());
        }
        if (!name.empty()) {
            if (std::find(call.args.begin(), call.args.end(), name) == call.args.end())
                renamed.push_back(stage.chains[name]);
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
            error = stage.text(right);
        } else if (left.compare(0, 6, "nodes ") == 0) {
            nodes[left.substr(6)] = right;
        } else {
            compareWithStated();
            make(wordsOf(line));
        }
    }

    Stage stage;
    std::vector<UomStruct> renamed;           // chains whose names are others' now
    std::map<std::string, std::string> nodes; // as the file states them
    std::string error, report, printed, own;
};

TEST_P(RecordedCalls, AnswerAsRecorded) {
    std::ifstream file(GetParam());
    std::string title, line;
    bool begun = false, inOwn = false;
    for (int number = 1; std::getline(file, line); ++number) {
        SCOPED_TRACE("at " + GetParam() + ":" + std::to_string(number) + ": " + line + "\n" + title);
        const char kind = line.empty() ? '#' : line[0];
        if (kind == '=') {
            endCase();
            title = line;
            begun = inOwn = false;
        } else if (kind == '|') {
            own = (inOwn ? own : "") + stage.text('"' + line.substr(std::min<size_t>(line.size(), 2)) + '"') + "\n";
            inOwn = true;
        } else if (kind != '#') {
            begun ? void() : beginCase();
            begun = true;
            replay(line);
        }
    }
    endCase();
}

INSTANTIATE_TEST_SUITE_P(Files, RecordedCalls, testing::ValuesIn(recordings()),
                         [](const auto &one) { return std::filesystem::path(one.param).stem().string(); });

} // namespace

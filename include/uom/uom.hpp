// Units of measure for hosts in C++17 and later: owners, texts of any length, spans and errors over the C headers, which
// say what lies behind each operation (uom.h the classes, units, slates and chains, catalogue.h the catalogues and
// threads, conversion.h the numbers). All code is in this file, and what a host does not call asks nothing of it.
//
//     uom::start();                                                       finds the data file; throws when it cannot
//     double psi = uom::convert(250.0, "Pres", "kPag", "psia");           one value, now and then
//     const uom::Conversion toPsi("Pres", "kPag", "psia");                prepared once, for any number of values
//     toPsi.convert(pressures);                                           a vector, in place
//
// Errors. What can fail has two forms. `convert` throws a uom::Error, which holds the status of the C operation and the
// library's message. `tryConvert` returns a uom::Result in its place, and is all that there is where exceptions are
// switched off (-fno-exceptions). The comments stand with the second form; the first takes the same arguments. Only the
// standard library's own failures, exhausted memory for a std::string, reach a host by either form.
//
// Texts are std::string_view, end at their first zero byte (but for a data file's), and are copied. Those that come
// back are whole, whatever their length, but for what the classical operations cut: lines of slate definitions at 254
// bytes, and names in class strings at 255. They are ASCII and, as superscripts, the Latin-1 bytes 178 and 179. A class string is "Pres/VolRate 2", a
// unit string "kpa/(m3/sec)2" or the name of a slate, and a style one of UomTextStyle.
//
// Threads. As in catalogue.h each comment tells in brackets what is done to the catalogue in use by the calling thread:
//   [reads]    the catalogue stays as it is: any number of threads may be in such calls at once
//   [changes]  nothing else may be in this catalogue during the call, in no thread; other catalogues are free
//   [any]      no catalogue is looked at
// One object is for one thread at a time, but what is const about it may be called by many at once.
//
// Owners can be moved, and copied by copy() alone. get() lends what they own to the C operations, release() hands it over.
//
// The namespace. Hosts write uom::convert. The names live in an inline namespace within, since the library's own code has
// a namespace uom as well and may be linked into its host: so no symbol of a host is ever taken for one of the library.
// (A file of this library that includes headers of its inside does not include this one.) The name of that namespace
// tells whether there are exceptions, which lets files compiled with and without them be linked into one program.
#ifndef UOM_UOM_HPP
#define UOM_UOM_HPP

#include <array>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <type_traits>
#include <utility>
#include <vector>

#include "uom/catalogue.h"
#include "uom/conversion.h"
#include "uom/entry.h"
#include "uom/uom.h"

#if defined(__cpp_exceptions) || defined(_CPPUNWIND)
#define UOM_HPP_THROWS 1
#define UOM_HPP_NAMESPACE throwing
#include <stdexcept>
#else
#define UOM_HPP_THROWS 0
#define UOM_HPP_NAMESPACE nonthrowing
#endif

namespace uom {
inline namespace UOM_HPP_NAMESPACE {

// --- results and errors ----------------------------------------------------------------------------------------

// How an operation ended: 0, or the number that the C operation gives (UomStatus, UomStartStatus, UomFillStatus,
// UomConvertStatus, UomNewClassStatus), with the reason in words. Where the library has no words this header does.
struct Status {
    int32_t code = UOM_DONE;
    std::string message = {};
};

#if UOM_HPP_THROWS
// A failure: what() is the message.
class Error : public std::runtime_error {
public:
    explicit Error(const Status &status) : std::runtime_error(status.message), status_(status.code) {}
    int32_t status() const noexcept { return status_; }

private:
    int32_t status_;
};
#endif

// A value, or why there is none. "*" and "->" are for a result that was tested.
//
//     if (uom::Result<double> psi = uom::tryConvert(250.0, "Pres", "kPag", "psia"))
//         use(*psi);
//     else
//         report(psi.message());
template <class T> class [[nodiscard]] Result {
public:
    Result(T &&value) : value_(std::move(value)) {}
    Result(const T &value) : value_(value) {}
    Result(Status status) : status_(std::move(status)) { assert(status_.code != UOM_DONE); }

    explicit operator bool() const noexcept { return value_.has_value(); }
    int32_t code() const noexcept { return status_.code; }
    const std::string &message() const noexcept { return status_.message; }
    const Status &status() const noexcept { return status_; }

    T &operator*() noexcept { return *value_; }
    const T &operator*() const noexcept { return *value_; }
    T *operator->() noexcept { return &*value_; }
    const T *operator->() const noexcept { return &*value_; }
    T valueOr(T other) && { return value_ ? std::move(*value_) : std::move(other); }

private:
    std::optional<T> value_;
    Status status_;

#if UOM_HPP_THROWS
public:
    // The value, moved out; throws an Error when there is none.
    T take() && {
        if (!value_)
            throw Error(status_);
        return std::move(*value_);
    }
#endif
};

// Of an operation that has nothing to give but its status.
template <> class [[nodiscard]] Result<void> {
public:
    Result() = default;
    Result(Status status) : status_(std::move(status)) {}

    explicit operator bool() const noexcept { return status_.code == UOM_DONE; }
    int32_t code() const noexcept { return status_.code; }
    const std::string &message() const noexcept { return status_.message; }
    const Status &status() const noexcept { return status_; }

private:
    Status status_;

#if UOM_HPP_THROWS
public:
    void take() && {
        if (status_.code != UOM_DONE)
            throw Error(status_);
    }
#endif
};

// The text of the last failure in this thread that wrote one. Error and Result hold their own. [any]
inline std::string lastMessage() {
    return uom_GetLastErrorMessage();
}

// The version of the library in use; UOM_VERSION is the one that a host is compiled with. [any]
inline std::string version() {
    return uom_GetVersion();
}

// The whole text that a C operation writes, which by itself cuts at the end of its buffer without a word. For those that
// this header has no function for:
//     std::string text = uom::wholeText([&](char *out, int32_t size) { uom_GetUnitText(unit, out, size, 1); });
// The call is made again, with more room, until the text fills less than half of it: some operations stop a few bytes
// short of the end.
template <class Call> std::string wholeText(Call &&call, int32_t size = 1024) {
    constexpr int32_t LARGEST = 1 << 30;
    for (std::string text;; size *= 2) {
        text.assign(static_cast<size_t>(size), '\0');
        call(text.data(), size);
        const size_t length = std::strlen(text.c_str());
        if (length < text.size() / 2 || size >= LARGEST) {
            text.resize(length);
            return text;
        }
    }
}

// --- spans -----------------------------------------------------------------------------------------------------

// Values that lie side by side in memory of somebody else's: made of a pointer and a count, and, without a word, of an
// array, a vector, a std::span, or whatever else has data() and size(). A span of double is not made of a temporary
// vector, whose results nobody would see.
template <class T> class Span {
    template <class Container>
    using Fits = std::enable_if_t<
        std::is_convertible_v<std::remove_pointer_t<decltype(std::data(std::declval<Container &>()))> (*)[], T (*)[]> &&
        std::is_convertible_v<decltype(std::size(std::declval<Container &>())), size_t>>;

public:
    constexpr Span() noexcept = default;
    constexpr Span(T *data, size_t size) noexcept : data_(data), size_(size) {}
    template <class Container, class = Fits<Container>>
    constexpr Span(Container &values) : data_(std::data(values)), size_(std::size(values)) {}
    template <class Container, class = Fits<const Container>>
    constexpr Span(const Container &values) : data_(std::data(values)), size_(std::size(values)) {}

    constexpr T *data() const noexcept { return data_; }
    constexpr size_t size() const noexcept { return size_; }
    constexpr bool empty() const noexcept { return size_ == 0; }
    constexpr T *begin() const noexcept { return data_; }
    constexpr T *end() const noexcept { return data_ + size_; }
    constexpr T &operator[](size_t index) const { return data_[index]; }

private:
    T *data_ = nullptr;
    size_t size_ = 0;
};

// --- what the rest is made with --------------------------------------------------------------------------------

namespace detail {

inline Status refusal(std::string message) {
    return {UOM_REFUSED, std::move(message)};
}

inline Status noMemory() {
    return {UOM_NO_MEMORY, "Memory is exhausted."};
}

inline std::string quoted(std::string_view text) {
    return '"' + std::string(text.substr(0, text.find('\0'))) + '"';
}

// For operations that always write why they failed.
inline Result<void> done(int32_t code) {
    if (code == UOM_DONE)
        return {};
    return Status{code, lastMessage()};
}

// Why a class string was refused. One without a class in it ("", "/") leaves whatever message there was, so the same is
// asked for once more behind a message that is known.
inline Status badClass(const std::string &classString) {
    uoms_GetClassDefault(nullptr, nullptr, nullptr, 0);
    const std::string known = lastMessage();
    UomStruct chain = uoms_New(classString.c_str());
    uom_Free(&chain);
    std::string message = lastMessage();
    return {UOM_CONVERT_BAD_CLASS, message == known ? "The Unit-of-Measure class is missing." : std::move(message)};
}

// The message of a typed text, with what may have been meant.
inline std::string withSuggestion(std::string message, const char *suggestion) {
    if (*suggestion != '\0')
        message += " Did you mean " + quoted(suggestion) + "?";
    return message;
}

// An object that was moved away is used where no result can tell.
[[noreturn]] inline void misuse(const char *what) {
#if UOM_HPP_THROWS
    throw Error(refusal(what));
#else
    std::fprintf(stderr, "%s\n", what);
    std::abort();
#endif
}

// How what the C operations make is freed.
struct Free {
    void operator()(UomCatalogue *catalogue) const { uom_FreeCatalogue(catalogue); }
    void operator()(UomTable *table) const { tbl_Free(table); }
    void operator()(UomStructNode *chain) const { uom_Free(&chain); }
    void operator()(UomConversion *conversion) const { uom_FreeConversion(conversion); }
};
template <class T> using Owner = std::unique_ptr<T, Free>;

} // namespace detail

// --- start and end ---------------------------------------------------------------------------------------------

// These start and end the catalogue in use, which is the default one of the process until a thread uses another. Words
// are the option words of uom_Init2 but for a path ("kesta", "molar"). On a started catalogue they do nothing. Status: 1
// no data file that can be read, 2 a section keyword in a wrong place, 11 memory is exhausted, all three with the
// catalogue not started; 3 and 4 inconsistent tables, with the catalogue started.

using Words = std::vector<std::string>;

// The path of the file that a start without one reads. Status 1 when there is none. [any]
inline Result<std::string> tryFindDataFile() {
    int32_t status = UOM_REFUSED;
    std::string path = wholeText([&](char *out, int32_t size) { status = uom_FindDataFile(out, size); }, 1 << 16);
    if (status != UOM_DONE)
        return Status{status, lastMessage()};
    return path;
}

// Starts from the data file at a path. [changes]
inline Result<void> tryStartFile(std::string_view path, const Words &words = {}) {
    const std::string file(path);
    std::vector<const char *> all = {"-f", file.c_str()};
    for (const std::string &word : words)
        all.push_back(word.c_str());
    return detail::done(uom_Init2(static_cast<int32_t>(all.size()), all.data()));
}

// Starts from the file uomdata.txt where the library finds it (uom_Init tells the places). [changes]
inline Result<void> tryStart(const Words &words = {}) {
    if (words.empty())
        return detail::done(uom_Init());
    const Result<std::string> path = tryFindDataFile();
    if (path)
        return tryStartFile(*path, words);
    // A started catalogue needs no file; of one that is not, the failure that tells all places says more.
    const Result<void> started = tryStartFile("./uomdata.txt", words);
    return started ? started : Result<void>(path.status());
}

// Starts from the text of a data file, which is not needed behind the call. [changes]
inline Result<void> tryStartText(std::string_view text, const Words &words = {}) {
    std::vector<const char *> all;
    for (const std::string &word : words)
        all.push_back(word.c_str());
    return detail::done(uom_InitText(text.data() ? text.data() : "", text.size(), static_cast<int32_t>(all.size()),
                                     all.empty() ? nullptr : all.data()));
}

// Ends the catalogue in use and frees all that it holds. Does nothing when it is not started. [changes]
inline void end() {
    uom_Cleanup();
}

#if UOM_HPP_THROWS
inline std::string findDataFile() {
    return tryFindDataFile().take();
}
inline void startFile(std::string_view path, const Words &words = {}) {
    tryStartFile(path, words).take();
}
inline void start(const Words &words = {}) {
    tryStart(words).take();
}
inline void startText(std::string_view text, const Words &words = {}) {
    tryStartText(text, words).take();
}
#endif

// --- catalogues ------------------------------------------------------------------------------------------------

// Makes a catalogue that of the calling thread for the life of a block, and puts back the one before at its end, also
// when an exception ends it. The catalogue outlives the block, and blocks end in the thread that they began in, the inner
// one first, as variables do.
class [[nodiscard]] Use {
public:
    ~Use() { uom_UseCatalogue(before_); }
    Use(const Use &) = delete;
    Use &operator=(const Use &) = delete;

private:
    friend class Catalogue;
    friend Use useDefault();
    explicit Use(UomCatalogue *catalogue) : before_(uom_UseCatalogue(catalogue)) {}
    UomCatalogue *before_;
};

// The same with the default catalogue, for a thread that may be using another. [any]
[[nodiscard]] inline Use useDefault() {
    return Use(nullptr);
}

// A catalogue of the host's own: for each site with an atmospheric pressure, mode or data file of its own, one. Chains,
// tables and conversions that were made from it may outlive it.
//
//     uom::Catalogue site;
//     site.start();
//     const auto inUse = site.use();
//     uom::setDefault("Current", "GaugePresBasis", "83.5");
//
// One that was moved away holds nothing: starting it fails with status 1, ending it does nothing, and using it throws an
// Error of status 1, or ends the program where there are no exceptions, since all that follows would go to the default
// catalogue.
class Catalogue {
public:
    // One that is not started. Status 11 when memory is exhausted. [any]
    static Result<Catalogue> tryMake() {
        Catalogue made(uom_NewCatalogue());
        if (!made.catalogue_)
            return detail::noMemory();
        return made;
    }

    // As the functions of these names, in this catalogue, whichever is in use. [changes]
    Result<void> tryStart(const Words &words = {}) {
        return within([&] { return uom::tryStart(words); });
    }
    Result<void> tryStartFile(std::string_view path, const Words &words = {}) {
        return within([&] { return uom::tryStartFile(path, words); });
    }
    Result<void> tryStartText(std::string_view text, const Words &words = {}) {
        return within([&] { return uom::tryStartText(text, words); });
    }
    void end() {
        if (catalogue_) {
            const Use inUse(catalogue_.get());
            uom::end();
        }
    }

    // Makes it the one of this thread until the end of the block. [any]
    [[nodiscard]] Use use() const {
        if (!catalogue_)
            detail::misuse("The catalogue was moved away.");
        return Use(catalogue_.get());
    }

    UomCatalogue *get() const noexcept { return catalogue_.get(); }

private:
    explicit Catalogue(UomCatalogue *owned) : catalogue_(owned) {}
    template <class Call> Result<void> within(Call &&call) {
        if (!catalogue_)
            return detail::refusal("The catalogue was moved away.");
        const Use inUse(catalogue_.get());
        return call();
    }
    detail::Owner<UomCatalogue> catalogue_;

#if UOM_HPP_THROWS
public:
    Catalogue() : Catalogue(tryMake().take()) {}
    void start(const Words &words = {}) {
        tryStart(words).take();
    }
    void startFile(std::string_view path, const Words &words = {}) {
        tryStartFile(path, words).take();
    }
    void startText(std::string_view text, const Words &words = {}) {
        tryStartText(text, words).take();
    }
#endif
};

// --- tables ----------------------------------------------------------------------------------------------------

// A table that a C operation gave or is to be given. One made without arguments, or moved away, is empty.
class Table {
public:
    Table() = default;
    explicit Table(UomTable *owned) : table_(owned) {} // takes it over; null is accepted

    // A new table of texts. Status 11 when memory is exhausted. [any]
    static Result<Table> tryOfTexts(Span<const std::string> texts) {
        Table table(tbl_Create(0, UOM_KIND_TEXT));
        bool good = table.table_ != nullptr;
        for (size_t i = 0; good && i < texts.size(); ++i)
            good = tbl_PutText(table.get(), UOM_APPEND, texts[i].c_str()) != 0;
        if (!good)
            return detail::noMemory();
        return table;
    }

    // A new table of doubles. Status 11 when memory is exhausted. [any]
    static Result<Table> tryOfNumbers(Span<const double> numbers) {
        Table table(tbl_Create(0, UOM_KIND_DOUBLE));
        bool good = table.table_ != nullptr;
        for (size_t i = 0; good && i < numbers.size(); ++i)
            good = tbl_PutNumber(table.get(), UOM_APPEND, numbers[i]) != 0;
        if (!good)
            return detail::noMemory();
        return table;
    }

    // A copy, as tbl_Copy makes it. Status 11 when memory is exhausted. [any]
    Result<Table> tryCopy() const {
        Table copied(table_ ? tbl_Copy(table_.get()) : nullptr);
        if (table_ && !copied.table_)
            return detail::noMemory();
        return copied;
    }

    size_t size() const noexcept { return table_ ? table_->count : 0; }
    bool empty() const noexcept { return size() == 0; }

    // One element: an empty text, or 0, past the end, and for a text where the table is of another kind.
    std::string_view text(size_t index) const {
        const char *found =
            holdsTexts() && index < size() ? tbl_GetText(table_.get(), static_cast<uint32_t>(index)) : nullptr;
        return found ? std::string_view(found) : std::string_view();
    }
    double number(size_t index) const {
        return index < size() ? tbl_Get(table_.get(), static_cast<uint32_t>(index)) : 0.0;
    }

    // All elements, as copies: `for (const std::string &line : table.texts())`.
    std::vector<std::string> texts() const {
        std::vector<std::string> all;
        for (size_t i = 0; i < size(); ++i)
            all.emplace_back(text(i));
        return all;
    }
    std::vector<double> numbers() const {
        std::vector<double> all;
        for (size_t i = 0; i < size(); ++i)
            all.push_back(number(i));
        return all;
    }

    UomTable *get() const noexcept { return table_.get(); }
    UomTable *release() noexcept { return table_.release(); }

private:
    bool holdsTexts() const { return table_ && table_->kind == UOM_KIND_TEXT; }
    detail::Owner<UomTable> table_;

#if UOM_HPP_THROWS
public:
    static Table ofTexts(Span<const std::string> texts) {
        return tryOfTexts(texts).take();
    }
    static Table ofNumbers(Span<const double> numbers) {
        return tryOfNumbers(numbers).take();
    }
    Table copy() const {
        return tryCopy().take();
    }
#endif
};

namespace detail {
// A list that the library gives but for want of memory. Throws std::bad_alloc then, as the vectors made of it do; without
// exceptions the list is empty.
inline Table whole(UomTable *owned) {
#if UOM_HPP_THROWS
    if (!owned)
        throw std::bad_alloc();
#endif
    return Table(owned);
}
} // namespace detail

// --- chains ----------------------------------------------------------------------------------------------------

// The classes of a quantity with their units. One made without arguments, or moved away, is empty: it cannot be filled
// and its texts are empty.
//
//     uom::Chain chain("Pres/VolRate 2", "KPA / (M3 / SEC) 2");
//     std::string shown = chain.units();                                  "kPa/(m3/sec)2"
//     for (const UomStructNode &node : chain)
//         look(node.baseClass, node.unit);
class Chain {
public:
    // Steps from node to node. Nodes are read; what changes them are the C operations, through get().
    class Iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = UomStructNode;
        using difference_type = ptrdiff_t;
        using pointer = const UomStructNode *;
        using reference = const UomStructNode &;

        Iterator() = default;
        explicit Iterator(pointer node) : node_(node) {}
        reference operator*() const { return *node_; }
        pointer operator->() const { return node_; }
        Iterator &operator++() {
            node_ = node_->next;
            return *this;
        }
        Iterator operator++(int) {
            const Iterator before = *this;
            node_ = node_->next;
            return before;
        }
        friend bool operator==(Iterator a, Iterator b) { return a.node_ == b.node_; }
        friend bool operator!=(Iterator a, Iterator b) { return a.node_ != b.node_; }

    private:
        pointer node_ = nullptr;
    };

    Chain() = default;
    explicit Chain(UomStruct owned) : head_(owned) {} // takes it over; null is accepted

    // For a class string, units still empty. Status 2 when it is not understood. [reads]
    static Result<Chain> tryMake(std::string_view classString) {
        const std::string text(classString);
        Chain chain(uoms_New(text.c_str()));
        if (!chain.head_)
            return detail::badClass(text);
        return chain;
    }

    // The same, filled from a unit string or with the units of a slate. Status 2 for the class string, or that of tryFill,
    // which knows a 2 as well: the message tells. [reads]
    static Result<Chain> tryMake(std::string_view classString, std::string_view units) {
        Result<Chain> chain = tryMake(classString);
        if (!chain)
            return chain;
        const Result<void> filled = chain->tryFill(units);
        if (!filled)
            return filled.status();
        return chain;
    }

    // Fills it from a unit string, or with the units of the slate of this name. Status as UomFillStatus: nodes in front of
    // the fault are filled then. In the style UOM_STYLE_KEYWORD units are keywords, in any other tokens. [reads]
    Result<void> tryFill(std::string_view units, int32_t style = UOM_STYLE_TOKEN) {
        return detail::done(uom_FillStructFromString(get(), std::string(units).c_str(), style));
    }

    // A chain of the same nodes and units. Status 11 when memory is exhausted. [any]
    Result<Chain> tryCopy() const {
        Chain copied(uom_Copy(get()));
        if (head_ && !copied.head_)
            return detail::noMemory();
        return copied;
    }

    // The units as text, which fills another chain of the class. [reads]
    std::string units(int32_t style = UOM_STYLE_TOKEN) const {
        return wholeText([&](char *out, int32_t size) { uom_GetDisplayUnits(get(), out, size, style); });
    }

    // The class string, in normal spacing. [reads]
    std::string classText(int32_t style = UOM_STYLE_TOKEN) const {
        return wholeText([&](char *out, int32_t size) { uom_BuildClassString(get(), out, size, style); });
    }

    Iterator begin() const { return Iterator(get()); }
    Iterator end() const { return {}; }
    bool empty() const noexcept { return !head_; }

    UomStruct get() const noexcept { return head_.get(); }
    UomStruct release() noexcept { return head_.release(); }

private:
    detail::Owner<UomStructNode> head_;

#if UOM_HPP_THROWS
public:
    explicit Chain(std::string_view classString) : Chain(tryMake(classString).take()) {}
    Chain(std::string_view classString, std::string_view units) : Chain(tryMake(classString, units).take()) {}
    void fill(std::string_view units, int32_t style = UOM_STYLE_TOKEN) {
        tryFill(units, style).take();
    }
    Chain copy() const {
        return tryCopy().take();
    }
#endif
};

// --- conversions -----------------------------------------------------------------------------------------------

// y = (x + offset) * factor
struct Constants {
    double factor, offset;
};

// A conversion made ready once. It never changes, looks at no catalogue, and may be used by any number of threads at once;
// conversion.h says what it computes. Values below -1e35 mean no value and pass as they are, and so does NaN.
//
// One that was moved away converts nothing: tryConvert fails with status 1, and a single value throws an Error of status
// 1, or ends the program where there are no exceptions.
class Conversion {
public:
    // From the units of one unit string to those of another; either may be the name of a slate. Status 2 class, 3 source
    // units, 4 target units not understood, 1 units that mean different kinds of amount, 11 memory is exhausted. [reads]
    static Result<Conversion> tryMake(std::string_view classString, std::string_view fromUnits,
                                      std::string_view toUnits) {
        const std::string text(classString);
        UomConversion *made = nullptr;
        const int32_t status =
            uoms_NewConversion(text.c_str(), std::string(fromUnits).c_str(), std::string(toUnits).c_str(), &made);
        if (status == UOM_CONVERT_BAD_CLASS)
            return detail::badClass(text);
        return finish(status, made);
    }

    // From one text as people type it to another, as entry.h says; an empty class string leaves the class to the texts.
    // `note` is what another class would give, empty when there is nothing to say. Status 1 to 4 and 11; the message has
    // the suggestion in it. [reads]
    static Result<Conversion> tryFromEntries(std::string_view classString, std::string_view from, std::string_view to,
                                             std::string *note = nullptr) {
        UomConversion *made = nullptr;
        UomEntry entry;
        const int32_t status = uom_NewConversionFromEntries(std::string(classString).c_str(), std::string(from).c_str(),
                                                            std::string(to).c_str(), &made, &entry);
        if (note)
            *note = entry.message;
        if (status != UOM_DONE)
            return Status{status, detail::withSuggestion(lastMessage(), entry.suggestion)};
        return Conversion(made);
    }

    // From the units of one filled chain to those of a parallel one. Status 1 or 11. [reads]
    static Result<Conversion> tryMake(const Chain &from, const Chain &to) {
        UomConversion *made = nullptr;
        const int32_t status = uom_NewConversion(from.get(), to.get(), &made);
        return finish(status, made);
    }

    // One value. [any]
    double operator()(double value) const {
        if (!conversion_)
            detail::misuse("The conversion was moved away.");
        return uom_ConvertOne(conversion_.get(), value);
    }

    // Values in place. [any]
    Result<void> tryConvert(Span<double> values) const { return tryConvert(values, values); }
    Result<void> tryConvert(Span<float> values) const { return tryConvert(values, values); }

    // Values of one array into another, which is the same one or does not overlap with it. Status 1, and nothing converted,
    // when they are not of one size. [any]
    Result<void> tryConvert(Span<const double> in, Span<double> out) const {
        Result<void> ready = check(in.size(), out.size());
        if (ready && !in.empty())
            uom_ConvertMany(conversion_.get(), in.data(), out.data(), in.size());
        return ready;
    }
    Result<void> tryConvert(Span<const float> in, Span<float> out) const {
        Result<void> ready = check(in.size(), out.size());
        if (ready && !in.empty())
            uom_ConvertManyFloat(conversion_.get(), in.data(), out.data(), in.size());
        return ready;
    }

    // Values that lie so many bytes apart, which need not be a multiple of a double's size. [any]
    Result<void> tryConvertStrided(const double *in, ptrdiff_t inStep, double *out, ptrdiff_t outStep,
                                   size_t count) const {
        Result<void> ready = check(count, count);
        if (ready && count > 0)
            uom_ConvertStrided(conversion_.get(), in, inStep, out, outStep, count);
        return ready;
    }

    // One member of each of many records, in place: `toPsi.tryConvertMember(streams, &Stream::pressure)`. [any]
    template <class Records, class Record>
    Result<void> tryConvertMember(Records &records, double Record::*member) const {
        const Span<Record> all(records);
        if (all.empty())
            return check(0, 0);
        double *first = &(all.data()->*member);
        const auto step = static_cast<ptrdiff_t>(sizeof(Record));
        return tryConvertStrided(first, step, first, step, all.size());
    }

    // Empty when the conversion is not linear, as that of API gravity is not, or was moved away. [any]
    std::optional<Constants> constants() const {
        Constants found = {};
        if (uom_GetConversionConstants(conversion_.get(), &found.factor, &found.offset) != UOM_DONE)
            return std::nullopt;
        return found;
    }

    const UomConversion *get() const noexcept { return conversion_.get(); }

private:
    explicit Conversion(UomConversion *owned) : conversion_(owned) {}
    static Result<Conversion> finish(int32_t status, UomConversion *made) {
        if (status != UOM_DONE)
            return Status{status, lastMessage()};
        return Conversion(made);
    }
    Result<void> check(size_t in, size_t out) const {
        if (!conversion_)
            return detail::refusal("The conversion was moved away.");
        if (in != out)
            return detail::refusal("The arrays of a conversion are of " + std::to_string(in) + " and " +
                                   std::to_string(out) + " values.");
        return {};
    }
    detail::Owner<UomConversion> conversion_;

#if UOM_HPP_THROWS
public:
    Conversion(std::string_view classString, std::string_view fromUnits, std::string_view toUnits)
        : Conversion(tryMake(classString, fromUnits, toUnits).take()) {}
    Conversion(const Chain &from, const Chain &to) : Conversion(tryMake(from, to).take()) {}
    void convert(Span<double> values) const {
        tryConvert(values).take();
    }
    void convert(Span<float> values) const {
        tryConvert(values).take();
    }
    void convert(Span<const double> in, Span<double> out) const {
        tryConvert(in, out).take();
    }
    void convert(Span<const float> in, Span<float> out) const {
        tryConvert(in, out).take();
    }
    void convertStrided(const double *in, ptrdiff_t inStep, double *out, ptrdiff_t outStep, size_t count) const {
        tryConvertStrided(in, inStep, out, outStep, count).take();
    }
    template <class Records, class Record> void convertMember(Records &records, double Record::*member) const {
        tryConvertMember(records, member).take();
    }
#endif
};

// A text that somebody typed, as entry.h says: value * scale is the number in `units`.
struct Entry {
    std::optional<double> value; // the number in front of the unit
    std::string classString, units;
    double scale;
};

// Reads a number with a unit, or a unit alone; an empty class string is any. Status 1, the message has the suggestion in
// it, or 11. [reads]
inline Result<Entry> tryReadEntry(std::string_view classString, std::string_view text) {
    UomEntry read;
    const int32_t status = uom_ReadEntry(std::string(classString).c_str(), std::string(text).c_str(), &read);
    if (status != UOM_DONE)
        return Status{status, detail::withSuggestion(read.message, read.suggestion)};
    Entry entry = {{}, read.classString, read.units, read.scale};
    if (read.value == read.value)
        entry.value = read.value;
    return entry;
}

// The classes that read a typed text, and what a drop-down offers for a class: best first; empty when there are none.
// [reads]
inline std::vector<std::string> entryClasses(std::string_view text) {
    return detail::whole(uom_GetEntryClasses(std::string(text).c_str())).texts();
}
inline std::vector<std::string> choices(std::string_view classString) {
    UomTable *const table = uom_GetChoices(std::string(classString).c_str());
    const bool none = !table && uoms_IsClassValid(std::string(classString).c_str()) != 1; // null for no class, too
    return none ? std::vector<std::string>() : detail::whole(table).texts();
}

namespace detail {
// The fields of a row of text with tabs between them; the last one takes what is left.
template <size_t count> std::array<std::string, count> fieldsOf(const std::string &row) {
    std::array<std::string, count> fields;
    size_t begin = 0;
    for (std::string &field : fields) {
        const size_t end = &field == &fields.back() ? row.size() : row.find('\t', begin);
        field = row.substr(begin, end - begin);
        begin = end == std::string::npos ? row.size() : end + 1;
    }
    return fields;
}
} // namespace detail

// Something that words have found: a "class", "unit", "alias" or "slate".
struct Found {
    std::string kind, classToken, token, description;
};

// The best `most` finds. [reads]
inline std::vector<Found> search(std::string_view words, int32_t most = 20) {
    std::vector<Found> all;
    for (const std::string &row : detail::whole(uom_Search(std::string(words).c_str(), most)).texts()) {
        auto fields = detail::fieldsOf<4>(row);
        all.push_back({std::move(fields[0]), std::move(fields[1]), std::move(fields[2]), std::move(fields[3])});
    }
    return all;
}

// Another name of a unit, in the classes alone that it is bound to; in all without one.
struct Alias {
    std::string name, units, classTokens;
};

// All aliases, those that go before others of the name in front of them. [reads]
inline std::vector<Alias> aliases() {
    std::vector<Alias> all;
    for (const std::string &row : detail::whole(uom_GetAliases()).texts()) {
        auto fields = detail::fieldsOf<3>(row);
        all.push_back({std::move(fields[0]), std::move(fields[1]), std::move(fields[2])});
    }
    return all;
}

// Adds aliases to those of the alias file. Status 11. [changes]
inline Result<void> tryReadAliases(std::string_view text) {
    return detail::done(uom_ReadAliasText(text.data(), text.size()));
}

// Values of a quantity from one unit to another. Each makes a Conversion, with the status of Conversion::tryMake: for many
// calls make it yourself. Arrays are converted in place, and stay as they were when the status is not 0. [reads]
inline Result<double> tryConvert(double value, std::string_view classString, std::string_view fromUnits,
                                 std::string_view toUnits) {
    const Result<Conversion> conversion = Conversion::tryMake(classString, fromUnits, toUnits);
    if (!conversion)
        return conversion.status();
    return (*conversion)(value);
}
inline Result<void> tryConvert(Span<double> values, std::string_view classString, std::string_view fromUnits,
                               std::string_view toUnits) {
    const Result<Conversion> conversion = Conversion::tryMake(classString, fromUnits, toUnits);
    return conversion ? conversion->tryConvert(values) : conversion.status();
}
inline Result<void> tryConvert(Span<float> values, std::string_view classString, std::string_view fromUnits,
                               std::string_view toUnits) {
    const Result<Conversion> conversion = Conversion::tryMake(classString, fromUnits, toUnits);
    return conversion ? conversion->tryConvert(values) : conversion.status();
}

#if UOM_HPP_THROWS
inline double convert(double value, std::string_view classString, std::string_view fromUnits,
                      std::string_view toUnits) {
    return tryConvert(value, classString, fromUnits, toUnits).take();
}
inline void convert(Span<double> values, std::string_view classString, std::string_view fromUnits,
                    std::string_view toUnits) {
    tryConvert(values, classString, fromUnits, toUnits).take();
}
inline void convert(Span<float> values, std::string_view classString, std::string_view fromUnits,
                    std::string_view toUnits) {
    tryConvert(values, classString, fromUnits, toUnits).take();
}
#endif

// --- classes and units -----------------------------------------------------------------------------------------

// The text of a class or unit by its number; empty when there is none. [reads]
inline std::string classText(int32_t classId, int32_t style = UOM_STYLE_TOKEN) {
    return wholeText([=](char *out, int32_t size) { uom_GetClassText(classId, out, size, style); });
}
inline std::string unitText(int32_t unit, int32_t style = UOM_STYLE_TOKEN) {
    return wholeText([=](char *out, int32_t size) { uom_GetUnitText(unit, out, size, style); });
}

struct ClassEntry {
    int32_t number;
    std::string token, longName, keyword;
};

// The classes for users, by number: without the parentheses and those that serve the library alone. [reads]
inline std::vector<ClassEntry> classes() {
    constexpr int32_t FIRST_CLASS = 3; // 1 and 2 are the parentheses
    constexpr size_t CUT = 79;         // the list has so many characters of a token at most
    const Table listed = detail::whole(uom_GetClassList(UOM_STYLE_TOKEN));
    std::vector<ClassEntry> all;
    size_t at = 0; // in the list, which goes by number
    for (int32_t c = 1; c < uom_GetUOMClassCount() && at < listed.size(); ++c) {
        std::string token = classText(c);
        const std::string_view entry = listed.text(at);
        if (token.empty() || (token != entry && std::string_view(token).substr(0, CUT) != entry))
            continue;
        ++at;
        if (c >= FIRST_CLASS)
            all.push_back({c, std::move(token), classText(c, UOM_STYLE_LONG_NAME), classText(c, UOM_STYLE_KEYWORD)});
    }
    return all;
}

// Whether a class string is understood, and whether a unit string fits it. [reads]
inline bool isClass(std::string_view classString) {
    return uoms_IsClassValid(std::string(classString).c_str()) == 1;
}
inline bool unitsFit(std::string_view classString, std::string_view units) {
    return uoms_ValidateUOM(std::string(classString).c_str(), std::string(units).c_str()) == UOM_DONE;
}

// A unit; (x + offset) * factor is the value in the base units of its class.
struct UnitEntry {
    int32_t number;
    std::string token, description;
    double offset, factor;
};

// The units that a class offers, in the order of its list; by number none for a class without a list. [reads]
inline std::vector<UnitEntry> units(int32_t classId) {
    std::vector<int32_t> numbers(64); // until zeros stand behind the units
    while (uom_GetUnitIndices(classId, numbers.data(), static_cast<int32_t>(numbers.size())) == 0 &&
           numbers.back() != 0)
        numbers.resize(2 * numbers.size());
    std::vector<UnitEntry> all;
    for (const int32_t unit : numbers) {
        if (unit == 0)
            break;
        UnitEntry entry = {unit, unitText(unit), unitText(unit, UOM_STYLE_LONG_NAME), 0.0, 1.0};
        uom_GetConvConstants(unit, &entry.offset, &entry.factor);
        all.push_back(std::move(entry));
    }
    return all;
}

// The same by name. Status 2 for a class that is not known, 1 for one that is made of several ("Density"): each node of its
// chain has units of its own. [reads]
inline Result<std::vector<UnitEntry>> tryUnits(std::string_view className) {
    const Result<Chain> chain = Chain::tryMake(className);
    if (!chain)
        return chain.status();
    const UomStructNode *only = nullptr;
    int32_t classes = 0;
    for (const UomStructNode &node : *chain) {
        const bool parenthesis = node.classId == 1 || node.classId == 2;
        only = parenthesis ? only : &node;
        classes += !parenthesis;
    }
    if (classes != 1)
        return detail::refusal("The class " + detail::quoted(className) +
                               " is made of several: each of them has units of its own.");
    return units(only->baseClass);
}

// The thousand or million that the unit of a node has in front, "M ", "MM ", "k*" or "M*"; empty without. [reads]
inline std::string multiplierText(const UomStructNode &node) {
    return wholeText(
        [&](char *out, int32_t size) { uom_GetUOMMultiplierString(const_cast<UomStruct>(&node), out, size); });
}

// Exponents of mass, length, time, temperature, charge and currency. Status 2. [reads]
inline Result<std::array<int32_t, 6>> tryDimensions(std::string_view classString) {
    const Result<Chain> chain = Chain::tryMake(classString);
    if (!chain)
        return chain.status();
    std::array<int32_t, 6> exponents = {};
    uoms_GetDimensions(std::string(classString).c_str(), exponents.data());
    return exponents;
}

namespace detail {
using GetForm = int32_t (*)(const char *classString, char *out, int32_t size);
inline Result<std::string> classForm(GetForm get, std::string_view classString) {
    const std::string text(classString);
    int32_t status = UOM_DONE;
    std::string form = wholeText([&](char *out, int32_t size) { status = get(text.c_str(), out, size); });
    if (status != UOM_DONE)
        return badClass(text);
    return form;
}
} // namespace detail

// The class string with temperatures and pressures in their absolute, difference or standard form. Status 2. [reads]
inline Result<std::string> tryAbsoluteClass(std::string_view classString) {
    return detail::classForm(uoms_GetAbsoluteClass, classString);
}
inline Result<std::string> tryDifferenceClass(std::string_view classString) {
    return detail::classForm(uoms_GetDifferenceClass, classString);
}
inline Result<std::string> tryStandardClass(std::string_view classString) {
    return detail::classForm(uoms_GetStandardClass, classString);
}

// A new class of the host's: a copy of a compiled one ("Leng"), or up to three as a class string ("MassRate / Area").
// Status as UomNewClassStatus. [changes]
inline Result<void> tryNewClass(std::string_view name, std::string_view definition) {
    return detail::done(uoms_NewClass(std::string(name).c_str(), std::string(definition).c_str()));
}

// Deletes a class of the host's; those behind it have other numbers from then on. Status 2 for a class that is not there,
// is compiled in, is the first of the host's or is part of another; 11. [changes]
inline Result<void> tryDeleteClass(std::string_view name) {
    const int32_t status = uoms_DeleteClass(std::string(name).c_str());
    if (status == UOM_NO_MEMORY)
        return detail::noMemory();
    if (status != UOM_DONE)
        return Status{status, "The class " + detail::quoted(name) + " cannot be deleted."};
    return {};
}

#if UOM_HPP_THROWS
inline std::vector<UnitEntry> units(std::string_view className) {
    return tryUnits(className).take();
}
inline std::array<int32_t, 6> dimensions(std::string_view classString) {
    return tryDimensions(classString).take();
}
inline std::string absoluteClass(std::string_view classString) {
    return tryAbsoluteClass(classString).take();
}
inline std::string differenceClass(std::string_view classString) {
    return tryDifferenceClass(classString).take();
}
inline std::string standardClass(std::string_view classString) {
    return tryStandardClass(classString).take();
}
inline void newClass(std::string_view name, std::string_view definition) {
    tryNewClass(name, definition).take();
}
inline void deleteClass(std::string_view name) {
    tryDeleteClass(name).take();
}
#endif

// --- slates ----------------------------------------------------------------------------------------------------

// Sets of default units. A name that is no slate's gives status 1 in all of these.

struct SlateEntry {
    int32_t number;
    std::string name, parent;
};

// All slates, by number. [reads]
inline std::vector<SlateEntry> slates() {
    const Table names = detail::whole(uom_GetSetList());
    std::vector<SlateEntry> all;
    for (size_t i = 1; i < names.size(); ++i) { // slate 0 has no name and is none
        const auto slate = static_cast<int32_t>(i);
        all.push_back({slate, std::string(names.text(i)),
                       wholeText([=](char *out, int32_t size) { uom_GetSetBasedOn2(slate, out, size); })});
    }
    return all;
}

// The number of a slate. [reads]
inline Result<int32_t> tryFindSlate(std::string_view name) {
    const int32_t slate = uom_GetSetType(std::string(name).c_str());
    if (slate < 1)
        return detail::refusal("There is no slate " + detail::quoted(name) + ".");
    return slate;
}

// Makes a slate, if there is none of the name, and bases it on another. Its number. Status 1 for a parent that is no
// slate, 11. [changes]
inline Result<int32_t> tryNewSlate(std::string_view name, std::string_view parent) {
    const Result<int32_t> found = tryFindSlate(parent);
    if (!found)
        return found.status();
    const std::string text(name);
    if (!*text.c_str())
        return detail::refusal("A slate needs a name.");
    const int32_t slate = uoms_NewSet(text.c_str());
    if (slate < 1)
        return detail::noMemory();
    uoms_PutSetBasedOn(text.c_str(), std::string(parent).c_str());
    return slate;
}

// Deletes a slate; those behind it have other numbers from then on. [changes]
inline Result<void> tryDeleteSlate(std::string_view name) {
    const Result<int32_t> slate = tryFindSlate(name);
    if (!slate)
        return slate.status();
    uom_DeleteSet(*slate);
    return {};
}

// The units that a class string is shown in, inherited ones included; for "GaugePresBasis" the atmospheric pressure in
// kPa. Status 1 or, for the class string, 2. [reads]
inline Result<std::string> tryDisplayUnits(std::string_view classString, std::string_view slate,
                                           int32_t style = UOM_STYLE_TOKEN) {
    const Result<int32_t> known = tryFindSlate(slate);
    if (!known)
        return known.status();
    const std::string quantity(classString), name(slate);
    std::string text = wholeText(
        [&](char *out, int32_t size) { uoms_GetDisplayUnits(quantity.c_str(), name.c_str(), out, size, style); });
    // An empty text for a class string that is understood is an answer.
    if (text.empty() && !isClass(classString))
        return detail::badClass(quantity);
    return text;
}

struct DefaultEntry {
    std::string className, units;
};

// What a slate gives each class of classes(), inherited units included. [reads]
inline Result<std::vector<DefaultEntry>> tryDefaults(std::string_view slate) {
    const Result<int32_t> number = tryFindSlate(slate);
    if (!number)
        return number.status();
    std::vector<DefaultEntry> all;
    for (ClassEntry &entry : classes())
        all.push_back({std::move(entry.token), wholeText([&](char *out, int32_t size) {
                           uom_GetDisplayText(entry.number, nullptr, *number, out, size, UOM_STYLE_TOKEN);
                       })});
    return all;
}

// What the slate itself states for a class or one of its properties ("GaugePresBasis", "isSystem", "isHidden",
// "allowDelete", "allowModify"); empty when nothing. Status 1 for a class or slate that is not known, 11. [reads]
inline Result<std::string> tryStatedDefault(std::string_view slate, std::string_view className) {
    const std::string slateText(slate), classText(className);
    int32_t status = UOM_DONE;
    std::string text = wholeText([&](char *out, int32_t size) {
        status = uoms_GetClassDefault(slateText.c_str(), classText.c_str(), out, size);
    });
    if (status == UOM_DONE)
        return text;
    const std::string message = lastMessage(); // the call cleared it
    return Status{status,
                  message.empty() ? "Unrecognized Unit-of-Measure class " + detail::quoted(className) + "." : message};
}

// States it; an empty text withdraws the default. What is stated for Current acts at once: its "GaugePresBasis", in kPa,
// is the zero of gauge pressures. Status 1, 11, or that of Chain::tryFill. [changes]
inline Result<void> trySetDefault(std::string_view slate, std::string_view className, std::string_view units) {
    return detail::done(
        uoms_SetClassDefault(std::string(slate).c_str(), std::string(className).c_str(), std::string(units).c_str()));
}

// Makes the atmospheric pressure of a slate the zero of gauge pressures. [changes]
inline Result<void> tryUseGaugePressureOf(std::string_view slate) {
    const Result<int32_t> number = tryFindSlate(slate);
    if (!number)
        return number.status();
    uom_SetGaugePressureBasis(*number);
    return {};
}

// A slate as lines of text, in a layout of uoms_GetSetDefinition; 2 is key=value lines. Status 1, 11. [reads]
inline Result<std::vector<std::string>> trySlateDefinition(std::string_view slate, int32_t layout = 2) {
    const Result<int32_t> known = tryFindSlate(slate);
    if (!known)
        return known.status();
    const Table lines(uoms_GetSetDefinition(std::string(slate).c_str(), layout));
    if (!lines.get())
        return detail::noMemory();
    return lines.texts();
}

// Applies such lines to a slate. Of lines that cannot be applied, which are passed over, lastMessage() tells the last. It
// says something for each "NewClass" line as well, whether or not it was applied. Status 1, 11. [changes]
inline Result<void> tryPutSlateDefinition(std::string_view slate, Span<const std::string> lines) {
    const Result<int32_t> known = tryFindSlate(slate);
    if (!known)
        return known.status();
    const Result<Table> table = Table::tryOfTexts(lines);
    if (!table)
        return table.status();
    const int32_t status = uoms_PutSetDefinition(std::string(slate).c_str(), table->get());
    if (status == UOM_NO_MEMORY)
        return detail::noMemory();
    if (status != UOM_DONE)
        return detail::refusal("A slate definition has no lines.");
    return {};
}

#if UOM_HPP_THROWS
inline int32_t findSlate(std::string_view name) {
    return tryFindSlate(name).take();
}
inline int32_t newSlate(std::string_view name, std::string_view parent) {
    return tryNewSlate(name, parent).take();
}
inline void deleteSlate(std::string_view name) {
    tryDeleteSlate(name).take();
}
inline std::string displayUnits(std::string_view classString, std::string_view slate, int32_t style = UOM_STYLE_TOKEN) {
    return tryDisplayUnits(classString, slate, style).take();
}
inline std::vector<DefaultEntry> defaults(std::string_view slate) {
    return tryDefaults(slate).take();
}
inline std::string statedDefault(std::string_view slate, std::string_view className) {
    return tryStatedDefault(slate, className).take();
}
inline void setDefault(std::string_view slate, std::string_view className, std::string_view units) {
    trySetDefault(slate, className, units).take();
}
inline void useGaugePressureOf(std::string_view slate) {
    tryUseGaugePressureOf(slate).take();
}
inline std::vector<std::string> slateDefinition(std::string_view slate, int32_t layout = 2) {
    return trySlateDefinition(slate, layout).take();
}
inline void putSlateDefinition(std::string_view slate, Span<const std::string> lines) {
    tryPutSlateDefinition(slate, lines).take();
}
#endif

// --- report ----------------------------------------------------------------------------------------------------

// Writes the catalogue as a document to a file, or to the standard output for an empty path; options are a sum of
// UomReportOption. Status: the error number of the system when the file cannot be made or memory is exhausted, -1 when it
// could not be written. [reads]
inline Result<void> tryReport(int32_t options, std::string_view path) {
    const int32_t status = uom_Dump(options, std::string(path).c_str());
    if (status == UOM_DONE)
        return {};
    // Below 0 the file was made, but could not be written to the end.
    return Status{status, "Unable to write the report to " + (path.empty() ? "standard output" : detail::quoted(path)) +
                              (status > 0 ? ": " + std::generic_category().message(status) : "") + "."};
}

#if UOM_HPP_THROWS
inline void report(int32_t options, std::string_view path) {
    tryReport(options, path).take();
}
#endif

} // namespace UOM_HPP_NAMESPACE
} // namespace uom

#endif

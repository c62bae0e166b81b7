#include "csv_stream.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <iostream>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "commands.h"
#include "csv.h"
#include "system.h"
#include "text.h"

namespace {

constexpr size_t BLOCK = size_t{1} << 20;
constexpr size_t LONGEST_ROW = size_t{64} << 20;

// Windows knows paths of any length and letters by its own operations alone, and lets nobody rename onto an open file.
#if defined(_WIN32)
constexpr bool WRITES_BESIDE = false;
#else
constexpr bool WRITES_BESIDE = true;
#endif

std::string quoted(const std::string &path) {
    return "\"" + path + "\"";
}

[[noreturn]] void fail(const std::string &what, int error) {
    throw Failure(what + ": " + std::generic_category().message(error) + ".");
}

} // namespace

// --- files

File File::toRead(const std::string &path) {
    if (path == "-") {
        keepBytes(STDIN_FILENO);
        return {STDIN_FILENO, "the standard input"};
    }
    const int descriptor = openToRead(path);
    if (descriptor < 0)
        fail("Unable to read " + quoted(path), errno);
    return {descriptor, quoted(path)};
}

// Emptied only when it is known to be another file than the input, which would be lost.
void File::openInPlace(const std::string &path, const File &input) {
    struct stat status;
    descriptor_ = openToWrite(path);
    if (descriptor_ < 0)
        fail("Unable to write " + name_, errno);
    refuse(input);
    if (fstat(descriptor_, &status) == 0 && S_ISREG(status.st_mode) && ftruncate(descriptor_, 0) != 0)
        fail("Unable to write " + name_, errno);
}

void File::refuse(const File &input) const {
    if (isSameFile(descriptor_, input.descriptor_))
        throw Failure("The output is the input file " + input.name_ + ".");
}

// A new file, with the permissions of the one that it replaces. False where there can be none.
bool File::openBeside(const std::string &path) {
    std::error_code none;
    const auto target = std::filesystem::canonical(path, none); // what a link is for
    path_ = none ? path : target.string();
    beside_ = path_ + ".part" + std::to_string(getpid());
    descriptor_ = openNew(beside_);
    if (descriptor_ < 0) {
        beside_.clear();
        return false;
    }
    removeOnInterrupt(beside_);
    const auto before = std::filesystem::status(path_, none);
    if (std::filesystem::exists(before))
        std::filesystem::permissions(beside_, before.permissions(), none);
    return true;
}

File File::toWrite(const std::string &path, const File &input) {
    File file = {STDOUT_FILENO, "the output"};
    if (path == "-") {
        keepBytes(STDOUT_FILENO);
        file.refuse(input);
        return file;
    }
    file.name_ = quoted(path);
    if (!WRITES_BESIDE) {
        file.openInPlace(path, input);
        return file;
    }
    std::error_code none;
    const auto before = std::filesystem::symlink_status(path, none);
    if (std::filesystem::exists(before)) {
        file.descriptor_ = openToWrite(path); // tells whether it may be written
        if (file.descriptor_ < 0)
            fail("Unable to write " + file.name_, errno);
        file.refuse(input);
        if (!isRegularFile(path))
            return file;
        close(file.descriptor_);
        file.descriptor_ = -1;
    }
    if (!file.openBeside(path))
        file.openInPlace(path, input);
    return file;
}

File::File(File &&other) noexcept
    : descriptor_(other.descriptor_), name_(std::move(other.name_)), path_(std::move(other.path_)),
      beside_(std::move(other.beside_)) {
    other.descriptor_ = -1;
    other.beside_.clear();
}

File::~File() {
    if (descriptor_ > STDERR_FILENO)
        close(descriptor_);
    if (beside_.empty())
        return;
    std::error_code ignored;
    std::filesystem::remove(beside_, ignored);
    removeOnInterrupt("");
}

void File::finish() {
    if (beside_.empty())
        return;
    const int closed = close(descriptor_);
    descriptor_ = -1;
    if (closed != 0)
        fail("Unable to write " + name_, errno);
    std::error_code error;
    std::filesystem::rename(beside_, path_, error);
    if (error)
        fail("Unable to write " + name_, error.value());
    removeOnInterrupt("");
    beside_.clear();
}

size_t File::read(char *to, size_t size) {
    std::ptrdiff_t count;
    do
        count = readBytes(descriptor_, to, size);
    while (count < 0 && errno == EINTR);
    if (count < 0)
        fail("Unable to read " + name_, errno);
    return static_cast<size_t>(count);
}

void File::write(std::string_view text) {
    while (!text.empty()) {
        const std::ptrdiff_t count = writeBytes(descriptor_, text.data(), text.size());
        if (count < 0 && errno != EINTR)
            fail("Unable to write " + name_, errno);
        text.remove_prefix(count > 0 ? static_cast<size_t>(count) : 0);
    }
}

std::optional<size_t> File::size() const {
    struct stat status;
    if (fstat(descriptor_, &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return static_cast<size_t>(status.st_size);
}

// --- rows

// What stands in the memory now, with as much behind it as a block has room for.
std::string_view RowSource::readOn(std::vector<char> &memory, size_t used) {
    memory.resize(std::max(memory.size(), used + BLOCK));
    const size_t end = used + BLOCK;
    while (!ended_ && used < end) {
        const size_t count = file_.read(memory.data() + used, end - used);
        ended_ = count == 0;
        used += count;
    }
    return {memory.data(), used};
}

std::string_view RowSource::next(std::vector<char> &memory) {
    memory.resize(std::max(memory.size(), rest_.size()));
    std::copy(rest_.begin(), rest_.end(), memory.begin());
    std::string_view text(memory.data(), rest_.size());
    for (size_t whole = 0; whole == 0 && !ended_;) {
        text = readOn(memory, text.size());
        whole = wholeRowsLength(text, separator_);
        if (whole == 0 && text.size() > LONGEST_ROW)
            throw Failure("A row of " + file_.name() + " has more than 64 MB: a closing quotation mark is missing.");
        if (whole == 0 || ended_)
            continue;
        rest_ = text.substr(whole);
        return text.substr(0, whole);
    }
    rest_.clear();
    return text;
}

// --- progress

void Progress::add(size_t bytes) {
    done_ += bytes;
    const auto now = Clock::now();
    if (!shown_ || now < next_)
        return;
    next_ = now + std::chrono::milliseconds(200);
    show(now);
}

void Progress::show(Clock::time_point now) {
    constexpr double MB = 1e6;
    const double seconds = std::chrono::duration<double>(now - start_).count();
    const double done = static_cast<double>(done_) / MB;
    std::string line = formatNumber("%.1f", done);
    if (total_)
        line += formatNumber(" of %.1f", static_cast<double>(*total_) / MB);
    line += " MB";
    if (seconds > 0.0)
        line += formatNumber(", %.0f MB/s", done / seconds);
    std::cerr << "\r\x1B[K" << line << std::flush;
    visible_ = true;
}

void Progress::clear() {
    if (visible_)
        std::cerr << "\r\x1B[K" << std::flush;
    visible_ = false;
}

// Files as the conversion of CSV reads and writes them: in large pieces, of any size.
#ifndef UOM_TOOL_CSV_STREAM_H
#define UOM_TOOL_CSV_STREAM_H

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// A descriptor that is closed at the end, but for those of standard input and output.
//
// A file is written under a name beside its own, which it takes when it is finished: until then, and when the work fails or
// is interrupted, what stood there stays. What is no regular file is written in place, and so is a file in a directory that
// takes no new ones.
class File {
public:
    static File toRead(const std::string &path);                     // "-" is standard input
    static File toWrite(const std::string &path, const File &input); // "-" is standard output; never the input itself
    File(File &&other) noexcept;
    ~File();

    size_t read(char *to, size_t size); // 0 at the end
    void write(std::string_view text);
    void finish();                      // behind the last write
    std::optional<size_t> size() const; // of a file that has one
    const std::string &name() const { return name_; }

private:
    File(int descriptor, std::string name) : descriptor_(descriptor), name_(std::move(name)) {}
    bool openBeside(const std::string &path);
    void openInPlace(const std::string &path, const File &input);
    void refuse(const File &input) const;
    int descriptor_;
    std::string name_;          // as messages have it
    std::string path_, beside_; // of a file that takes its name at the end
};

// Whole rows of a file, in turn into the pieces of memory that the caller has.
class RowSource {
public:
    RowSource(File file, char separator) : file_(std::move(file)), separator_(separator) {}

    // At the end the rest, which may have no line feed, and then nothing. The view is into `memory`.
    std::string_view next(std::vector<char> &memory);
    File &file() { return file_; }

private:
    std::string_view readOn(std::vector<char> &memory, size_t used);

    File file_;
    const char separator_;
    std::string rest_; // behind the last whole row
    bool ended_ = false;
};

// How far the work is, on standard error where that is a terminal.
class Progress {
public:
    Progress(std::optional<size_t> total, bool shown) : total_(total), shown_(shown) {}
    ~Progress() { clear(); }
    void add(size_t bytes);
    void clear(); // for other messages, and at the end

private:
    using Clock = std::chrono::steady_clock;
    void show(Clock::time_point now);

    const std::optional<size_t> total_;
    const bool shown_;
    bool visible_ = false;
    size_t done_ = 0;
    const Clock::time_point start_ = Clock::now();
    Clock::time_point next_ = start_;
};

#endif

// What differs between operating systems for the tool: its console, and files byte for byte.
//
// Paths are UTF-8. On Windows the tool's manifest makes them so for the C library, and lifts the limit of their length
// where the system's settings allow it.
#ifndef UOM_TOOL_SYSTEM_H
#define UOM_TOOL_SYSTEM_H

#include <cstddef>
#include <cstdio>
#include <string>

// For the life of the tool: a console of Windows takes and shows UTF-8, and knows the sequences that Progress writes.
struct Console {
    unsigned inputPage = 0, outputPage = 0; // as they were; 0 for none
    Console();
    ~Console();
    Console(const Console &) = delete;
    Console &operator=(const Console &) = delete;
};

// Whether a person is at the other end.
bool isTerminal(std::FILE *stream);

// From here on a standard stream is read or written byte for byte, ends of lines included.
void keepBytes(int descriptor);

// Files byte for byte, as POSIX has them: a descriptor or a count, or -1 with errno.
int openToRead(const std::string &path);
int openToWrite(const std::string &path); // made when it is not there; not emptied
int openNew(const std::string &path);     // fails when it is there
std::ptrdiff_t readBytes(int descriptor, char *to, size_t size);
std::ptrdiff_t writeBytes(int descriptor, const char *from, size_t size);

// A file that is removed when the tool is interrupted or ended; none for an empty path.
void removeOnInterrupt(const std::string &path);

bool isRegularFile(const std::string &path);

// Whether two descriptors are of one regular file.
bool isSameFile(int a, int b);

#endif

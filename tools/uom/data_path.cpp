#include "data_path.h"

#include <filesystem>
#include <fstream>

#if defined(_WIN32)
#include <windows.h>
#endif

namespace fs = std::filesystem;

static const char *const fileName = "uomdata.txt";

// Seen from the directory of the executable, in the order in which the library looks: beside itself, where its data is
// installed, and beside the program. In a build tree all programs lie beside the library.
static const char *const directories[] = {
#if !defined(_WIN32)
    "../lib",
    "../lib64",
    "../share/uom",
#endif
    "",
};

static fs::path executable() {
#if defined(_WIN32)
    wchar_t path[MAX_PATH];
    const DWORD length = GetModuleFileNameW(nullptr, path, MAX_PATH);
    return length < MAX_PATH ? fs::path(path, path + length) : fs::path();
#else
    std::error_code failure;
    return fs::read_symlink("/proc/self/exe", failure);
#endif
}

std::string foundDataFile() {
    const fs::path tool = executable();
    if (!tool.empty())
        for (const char *directory : directories) {
            const fs::path file = tool.parent_path() / directory / fileName;
            if (std::ifstream(file))
                return file.string();
        }
    return (fs::path(".") / fileName).string();
}

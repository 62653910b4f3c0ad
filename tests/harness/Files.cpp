#include "tests/harness/Files.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace harness {

bool exists(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::string readFile(const std::wstring& path) {
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    EXPECT_TRUE(file) << "cannot read " << testing::PrintToString(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string awaitFile(const std::wstring& path) {
    // Whoever still writes the file is not let in beside us.
    const auto isWritten = [&path] {
        const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                        FILE_ATTRIBUTE_NORMAL, nullptr);
        return file != INVALID_HANDLE_VALUE && CloseHandle(file);
    };
    std::string bytes;
    for (int i = 0; i < 100 && bytes.empty(); ++i, Sleep(100))
        if (isWritten()) bytes = readFile(path);
    return bytes;
}

void writeFile(const std::wstring& path, const std::string& bytes) {
    std::ofstream file(std::filesystem::path(path), std::ios::binary);
    file << bytes << std::flush;
    EXPECT_TRUE(file) << "cannot write " << testing::PrintToString(path);
}

std::vector<std::string> lines(const std::string& text) {
    std::vector<std::string> result;
    std::istringstream rest(text);
    for (std::string line; std::getline(rest, line); result.push_back(line))
        if (line.ends_with('\r')) line.pop_back();
    return result;
}

}  // namespace harness

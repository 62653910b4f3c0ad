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
    std::string bytes;
    for (int i = 0; i < 100 && bytes.empty(); ++i, Sleep(100))
        if (exists(path)) bytes = readFile(path);
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

#include "tests/harness/Files.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <memory>

namespace harness {
namespace {

struct Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Closer>;

}  // namespace

bool exists(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::string readFile(const std::wstring& path) {
    const File file(_wfopen(path.c_str(), L"rb"));
    if (!file) {
        ADD_FAILURE() << "cannot read " << testing::PrintToString(path);
        return {};
    }
    std::string bytes;
    char buffer[4096];
    while (const std::size_t count = std::fread(buffer, 1, sizeof(buffer), file.get())) {
        bytes.append(buffer, count);
    }
    return bytes;
}

std::string awaitFile(const std::wstring& path) {
    std::string bytes;
    for (int i = 0; i < 100 && bytes.empty(); ++i, Sleep(100))
        if (exists(path)) bytes = readFile(path);
    return bytes;
}

void writeFile(const std::wstring& path, const std::string& bytes) {
    const File file(_wfopen(path.c_str(), L"wb"));
    if (!file || std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size()) {
        ADD_FAILURE() << "cannot write " << testing::PrintToString(path);
    }
}

std::vector<std::string> lines(const std::string& text) {
    std::vector<std::string> result;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        std::string line = text.substr(start, end - start);
        if (line.ends_with('\r')) line.pop_back();
        result.push_back(std::move(line));
        start = end + 1;
    }
    return result;
}

}  // namespace harness

#include "client/InputLines.h"

#include <windows.h>

#include "client/Failure.h"
#include "support/Encoding.h"

namespace pimcall {
namespace {

std::string inputBytes() {
    const HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
    std::string bytes;
    char part[4096];
    for (DWORD count = 0;;) {
        if (!ReadFile(input, part, sizeof part, &count, nullptr)) {
            // The writer of a pipe has gone.
            if (GetLastError() == ERROR_BROKEN_PIPE) return bytes;
            throw Failure(L"The standard input cannot be read.");
        }
        if (count == 0) return bytes;
        bytes.append(part, count);
    }
}

}  // namespace

std::vector<std::wstring> inputLines() {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    std::string bytes = inputBytes();
    if (bytes.starts_with(kMark)) bytes.erase(0, kMark.size());
    std::vector<std::wstring> lines;
    for (std::size_t start = 0; start < bytes.size();) {
        const std::size_t end = std::min(bytes.find('\n', start), bytes.size());
        std::string line = bytes.substr(start, end - start);
        if (line.ends_with('\r')) line.pop_back();
        lines.push_back(zelbar::wide(line));
        start = end + 1;
    }
    return lines;
}

}  // namespace pimcall

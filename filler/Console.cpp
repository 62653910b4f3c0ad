#include "filler/Console.h"

#include <string>

#include "support/Encoding.h"

namespace filler {

Console::Console(DWORD stream) : handle_(GetStdHandle(stream)) {
    DWORD mode = 0;
    isScreen_ = GetConsoleMode(handle_, &mode) != 0;
}

void Console::write(std::wstring_view text) const {
    DWORD written = 0;
    if (isScreen_) {
        WriteConsoleW(handle_, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
        return;
    }
    const std::string bytes = zelbar::utf8(text);
    WriteFile(handle_, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

}  // namespace filler

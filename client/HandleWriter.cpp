#include "client/HandleWriter.h"

#include "client/Failure.h"
#include "support/Encoding.h"

namespace pimcall {
namespace {

/// Older consoles refuse more than about 32,000 characters at once.
constexpr size_t kConsoleChunk = 8000;

bool isHighSurrogate(wchar_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

}  // namespace

HandleWriter::HandleWriter(DWORD which) : handle_(GetStdHandle(which)) {
    DWORD mode = 0;
    isConsole_ = GetConsoleMode(handle_, &mode) != FALSE;
    CONSOLE_SCREEN_BUFFER_INFO screen{};
    hasColours_ = isConsole_ && GetConsoleScreenBufferInfo(handle_, &screen) &&
                  GetEnvironmentVariableW(L"NO_COLOR", nullptr, 0) <= 1;
    usualColours_ = screen.wAttributes;
}

void HandleWriter::colour(Colour colour) {
    if (!hasColours_) return;
    constexpr WORD kInk = FOREGROUND_RED | FOREGROUND_GREEN | FOREGROUND_BLUE | FOREGROUND_INTENSITY;
    WORD ink = usualColours_ & kInk;
    if (colour == Colour::Green) ink = FOREGROUND_GREEN | FOREGROUND_INTENSITY;
    if (colour == Colour::Yellow) ink = FOREGROUND_RED | FOREGROUND_GREEN | FOREGROUND_INTENSITY;
    if (colour == Colour::Red) ink = FOREGROUND_RED | FOREGROUND_INTENSITY;
    SetConsoleTextAttribute(handle_, static_cast<WORD>((usualColours_ & ~kInk) | ink));
}

void HandleWriter::write(std::wstring_view text) {
    if (!handle_ || handle_ == INVALID_HANDLE_VALUE) return;
    if (isConsole_)
        writeToConsole(text);
    else
        writeBytes(zelbar::utf8(text));
}

void HandleWriter::writeToConsole(std::wstring_view text) {
    while (!text.empty()) {
        size_t count = text.size() < kConsoleChunk ? text.size() : kConsoleChunk;
        if (count < text.size() && isHighSurrogate(text[count - 1])) --count;
        DWORD written = 0;
        if (!WriteConsoleW(handle_, text.data(), static_cast<DWORD>(count), &written, nullptr) ||
            written == 0)
            throw Failure(L"The output could not be written.");
        text.remove_prefix(written);
    }
}

void HandleWriter::writeBytes(const std::string& bytes) {
    for (size_t done = 0; done < bytes.size();) {
        DWORD written = 0;
        if (!WriteFile(handle_, bytes.data() + done, static_cast<DWORD>(bytes.size() - done), &written,
                       nullptr) ||
            written == 0)
            throw Failure(L"The output could not be written.");
        done += written;
    }
}

}  // namespace pimcall

#include "support/mLogError.h"

#include <cwchar>
#include <utility>

#include "support/KnownFolder.h"
#include "support/LineFile.h"
#include "support/Text.h"

namespace zelbar {
namespace {

constexpr wchar_t kNothing[] = L"-";

/// Day first and 24 hours, whatever the user's locale.
std::wstring presentTime() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    wchar_t text[32] = {};
    const int length = std::swprintf(text, std::size(text), L"%02u/%02u/%04u %02u:%02u:%02u", now.wDay,
                                     now.wMonth, now.wYear, now.wHour, now.wMinute, now.wSecond);
    return std::wstring(text, length > 0 ? static_cast<size_t>(length) : 0);
}

/// "File not found - 53 (0x35)"
std::wstring described(const std::wstring& text, const std::wstring& number, std::uint32_t code) {
    return text + L" - " + number + L" (0x" + hexadecimal(code) + L")";
}

std::wstring errorPart(const Fault& fault) {
    if (!fault) return kNothing;
    return described(fault.description, std::to_wstring(fault.number),
                     static_cast<std::uint32_t>(fault.number));
}

std::wstring systemPart(DWORD code) {
    if (code == 0) return kNothing;
    return described(GetSystemErrorText(code), std::to_wstring(code), code);
}

std::wstring placePart(const PendingError& error, const std::wstring& title, std::wstring_view procedure,
                       const wchar_t* formCaption) {
    std::wstring place = L"Err: " + (error.fault.source.empty() ? title : error.fault.source);
    if (formCaption) place.append(L".").append(formCaption);
    place.append(L" - ").append(procedure);
    if (error.line != 0) place += L" line " + std::to_wstring(error.line);
    return place;
}

std::wstring joined(const std::wstring (&fields)[5], const wchar_t* separator) {
    std::wstring line = onOneLine(fields[0]);
    for (std::size_t i = 1; i < std::size(fields); ++i) line += separator + onOneLine(fields[i]);
    return line;
}

}  // namespace

PendingError PendingError::caught() noexcept {
    return {caughtFault(), 0, 0};
}

PendingError PendingError::lastSystemError() noexcept {
    return {{}, GetLastError(), 0};
}

mLogError::mLogError(Module module) : module_(std::move(module)) {}

void mLogError::LogError(const PendingError& error, std::wstring_view procedure, const wchar_t* formCaption,
                         std::wstring_view extra, std::wstring_view time) noexcept {
    try {
        const std::wstring fields[] = {time.empty() ? presentTime() : std::wstring(time),
                                       placePart(error, module_.title, procedure, formCaption),
                                       std::wstring(extra.empty() ? kNothing : extra), errorPart(error.fault),
                                       systemPart(error.systemError)};
        if (fileName_.empty()) fileName_ = errorFilePath();
        LineFile file;
        file.open(fileName_);
        file.write(joined(fields, L"\t"));
        if constexpr (DebugOutput) OutputDebugStringW((joined(fields, L" # ") + L"\r\n").c_str());
    } catch (...) {
        // Out of memory: the line is lost.
    }
}

std::wstring errorFilePath() {
    return GetMyDocumentPath() + L"\\error_" + GetNetUserName() + L".log";
}

std::wstring GetMyDocumentPath() {
    std::wstring path;
    const HRESULT result = knownFolder(CSIDL_PERSONAL, path);
    if (result == E_INVALIDARG) {
        OutputDebugStringW(L"mLogError.GetMyDocumentPath An invalid folder ID was specified");
    } else if (result == S_FALSE) {
        OutputDebugStringW(L"mLogError.GetMyDocumentPath The folder does not exist");
    }
    return path;
}

std::wstring GetSystemErrorText(DWORD code) {
    wchar_t buffer[256] = {};
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                        code, 0, buffer, static_cast<DWORD>(std::size(buffer)), nullptr);
    if (length == 0) return L"Unknown Error.";
    // Every system text ends with a line break.
    return std::wstring(buffer, length < 2 ? 0 : length - 2);
}

std::wstring GetNetUserName() {
    wchar_t buffer[256] = {};
    DWORD size = static_cast<DWORD>(std::size(buffer)) - 1;
    if (WNetGetUserW(nullptr, buffer, &size) != NO_ERROR) return {};
    return buffer;
}

}  // namespace zelbar

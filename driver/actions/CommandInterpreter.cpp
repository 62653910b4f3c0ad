#include "actions/CommandInterpreter.h"

#include <windows.h>

#include <shlwapi.h>

#include <algorithm>

namespace zelbar {

namespace {

bool isControl(wchar_t unit) {
    return unit < 0x20 || (unit >= 0x7F && unit < 0xA0);
}

/// The last part of a path as the file system takes it: dots and blanks at its end do not count.
std::wstring_view nameIn(std::wstring_view path) {
    const std::wstring_view name = path.substr(path.find_last_of(L"\\/:") + 1);
    return name.substr(0, name.find_last_not_of(L" .") + 1);
}

bool same(std::wstring_view a, std::wstring_view b) {
    return CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b.data(), static_cast<int>(b.size()),
                                TRUE) == CSTR_EQUAL;
}

}  // namespace

bool isForInterpreter(std::wstring_view file) {
    const std::wstring_view name = nameIn(file);
    const size_t dot = std::min(name.rfind(L'.'), name.size());
    const std::wstring_view stem = name.substr(0, dot), extension = name.substr(dot);
    return same(extension, L".bat") || same(extension, L".cmd") || same(stem, L"cmd") ||
           same(stem, L"command");
}

bool opensInInterpreter(const std::wstring& file) {
    wchar_t program[MAX_PATH];
    DWORD size = MAX_PATH;
    const HRESULT result = AssocQueryStringW(ASSOCF_NONE, ASSOCSTR_EXECUTABLE,
                                             PathFindExtensionW(file.c_str()), nullptr, program, &size);
    return result != S_OK || isForInterpreter(program);
}

bool steersInterpreter(std::wstring_view text) {
    constexpr std::wstring_view kOperators = L"\"&|<>^%!()";
    return std::ranges::any_of(text, [&](wchar_t unit) {
        return isControl(unit) || kOperators.find(unit) != std::wstring_view::npos;
    });
}

}  // namespace zelbar

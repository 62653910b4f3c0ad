#pragma once

#include <windows.h>

#include <shlobj.h>

#include <string>

namespace zelbar {

/// Asks for one of the user's folders, made if missing. `path` is filled when the result is S_OK, else empty.
inline HRESULT knownFolder(int folder, std::wstring& path) {
    wchar_t buffer[MAX_PATH] = {};
    const HRESULT result =
        SHGetFolderPathW(nullptr, folder | CSIDL_FLAG_CREATE, nullptr, SHGFP_TYPE_CURRENT, buffer);
    path = result == S_OK ? buffer : L"";
    return result;
}

}  // namespace zelbar

#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "client/doctor/Machine.h"

namespace pimcall::doctor {

/// Reading the registry. `view` is KEY_WOW64_64KEY for what 64-bit programs see, 0 for this program's own
/// view. A name of "" is the key's unnamed value.
std::wstring textAt(HKEY root, const std::wstring& path, const wchar_t* name, REGSAM view = 0);
std::optional<DWORD> numberAt(HKEY root, const std::wstring& path, const wchar_t* name, REGSAM view = 0);
bool keyExists(HKEY root, const std::wstring& path, REGSAM view = 0);
std::vector<std::wstring> subkeysOf(HKEY root, const std::wstring& path, REGSAM view = 0);

/// What is to be seen of a program's file from outside. A command line's arguments and quotation marks are
/// cut off, environment variables filled in.
ProgramFile programFile(const std::wstring& commandLine);

FileFacts fileFacts(const std::wstring& path);

/// A registered class's text form: "{0006F03A-...}".
std::wstring guidText(const GUID& id);

}  // namespace pimcall::doctor

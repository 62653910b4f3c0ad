#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "tests/harness/TemporaryFolder.h"

namespace harness {

/// While it lives, HKEY_CURRENT_USER and HKEY_LOCAL_MACHINE of this process are two fresh, empty keys: tests
/// neither see nor change real settings. HKEY_CLASSES_ROOT stays as it is, so COM goes on activating what
/// is registered. At most one at a time.
class RegistrySandbox {
  public:
    RegistrySandbox();
    ~RegistrySandbox();
    RegistrySandbox(const RegistrySandbox&) = delete;
    RegistrySandbox& operator=(const RegistrySandbox&) = delete;

    void set(HKEY root, const std::wstring& path, const std::wstring& name, const std::wstring& text);
    void set(HKEY root, const std::wstring& path, const std::wstring& name, DWORD type,
             const std::string& bytes);
    /// A text value; nothing when it is missing.
    std::optional<std::wstring> get(HKEY root, const std::wstring& path, const std::wstring& name) const;

    /// Makes "Documents" and "AppData" in a folder and lets them be the user's.
    void useProfile(TemporaryFolder& folder);

  private:
    std::wstring path_;
    HKEY user_ = nullptr;
    HKEY machine_ = nullptr;
};

}  // namespace harness

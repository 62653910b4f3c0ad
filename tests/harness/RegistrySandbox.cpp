#include "tests/harness/RegistrySandbox.h"

#include <cstdlib>
#include <stdexcept>

namespace harness {
namespace {

constexpr wchar_t kUserShellFolders[] =
    L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders";

/// Lasting keys, though volatile ones would clean up after a crash: the driver makes lasting keys itself,
/// and the system refuses those below volatile ones.
HKEY makeKey(HKEY root, const std::wstring& path) {
    HKEY key = nullptr;
    if (RegCreateKeyExW(root, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr,
                        &key, nullptr) != ERROR_SUCCESS) {
        throw std::runtime_error("no temporary registry key");
    }
    return key;
}

}  // namespace

RegistrySandbox::RegistrySandbox()
    : path_(L"Software\\zelbar-test-" + std::to_wstring(GetCurrentProcessId())) {
    RegDeleteTreeW(HKEY_CURRENT_USER, path_.c_str());
    user_ = makeKey(HKEY_CURRENT_USER, path_ + L"\\user");
    machine_ = makeKey(HKEY_CURRENT_USER, path_ + L"\\machine");
    if (RegOverridePredefKey(HKEY_LOCAL_MACHINE, machine_) != ERROR_SUCCESS ||
        RegOverridePredefKey(HKEY_CURRENT_USER, user_) != ERROR_SUCCESS) {
        // Going on would mean to test with the real settings.
        std::abort();
    }
}

RegistrySandbox::~RegistrySandbox() {
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegCloseKey(user_);
    RegCloseKey(machine_);
    RegDeleteTreeW(HKEY_CURRENT_USER, path_.c_str());
}

void RegistrySandbox::set(HKEY root, const std::wstring& path, const std::wstring& name,
                          const std::wstring& text) {
    const auto* bytes = reinterpret_cast<const char*>(text.c_str());
    set(root, path, name, REG_SZ, std::string(bytes, (text.size() + 1) * sizeof(wchar_t)));
}

void RegistrySandbox::set(HKEY root, const std::wstring& path, const std::wstring& name, DWORD type,
                          const std::string& bytes) {
    HKEY key = makeKey(root, path);
    // A text without an end must stay one: Wine takes a NUL that lies behind it along.
    const std::string padded = bytes + "..";
    const auto* data = reinterpret_cast<const BYTE*>(padded.data());
    const LSTATUS status = RegSetValueExW(key, name.c_str(), 0, type, data, static_cast<DWORD>(bytes.size()));
    RegCloseKey(key);
    if (status != ERROR_SUCCESS) throw std::runtime_error("no temporary registry value");
}

std::optional<std::wstring> RegistrySandbox::get(HKEY root, const std::wstring& path,
                                                 const std::wstring& name) const {
    wchar_t text[4096];
    DWORD size = sizeof(text);
    if (RegGetValueW(root, path.c_str(), name.c_str(), RRF_RT_REG_SZ, nullptr, text, &size) != ERROR_SUCCESS)
        return std::nullopt;
    return text;
}

void RegistrySandbox::useProfile(TemporaryFolder& folder) {
    // The folders are made here: those that Wine has to make itself are links into the Unix home.
    set(HKEY_CURRENT_USER, kUserShellFolders, L"Personal", folder.makeFolder(L"Documents"));
    set(HKEY_CURRENT_USER, kUserShellFolders, L"AppData", folder.makeFolder(L"AppData"));
}

}  // namespace harness

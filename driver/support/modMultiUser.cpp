#include "support/modMultiUser.h"

#include <utility>

#include "support/KnownFolder.h"
#include "support/Settings.h"
#include "support/Text.h"

namespace zelbar {
namespace {

constexpr wchar_t kProductFolderName[] = L"Norvane Tessaria";

std::wstring trimmedSetting(const Setting& setting, const std::wstring& company) {
    return std::wstring(trimmed(readSetting(setting, company)));
}

/// A folder as it is used: another "\\" and the names of files come behind it.
std::wstring withoutSeparator(std::wstring folder) {
    while (folder.ends_with(L'\\')) folder.pop_back();
    return folder;
}

bool exists(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool isYes(const std::wstring& text) {
    return CompareStringOrdinal(text.c_str(), -1, L"yes", -1, TRUE) == CSTR_EQUAL;
}

/// Security of a folder that every user may change; attributes() is null where it could not be made.
class OpenSecurity {
  public:
    OpenSecurity(mLogError& errors, const std::wstring& path) {
        if (!InitializeSecurityDescriptor(&descriptor_, SECURITY_DESCRIPTOR_REVISION)) {
            report(
                errors,
                L"InitializeSecurityDescriptor : Unable to Initialize New Security Descriptor for File : " +
                    path);
        } else if (!SetSecurityDescriptorDacl(&descriptor_, TRUE, nullptr, FALSE)) {
            report(
                errors,
                L"SetSecurityDescriptorDaclNullUnable to Set NULL DACL to Security Descriptor for File : " +
                    path);
        } else {
            usable_ = true;
        }
    }
    SECURITY_ATTRIBUTES* attributes() { return usable_ ? &attributes_ : nullptr; }

  private:
    static void report(mLogError& errors, const std::wstring& text) {
        errors.LogError(PendingError::lastSystemError(), L"modMultiUser.MakeDir", nullptr, text);
    }

    SECURITY_DESCRIPTOR descriptor_{};
    SECURITY_ATTRIBUTES attributes_{sizeof(SECURITY_ATTRIBUTES), &descriptor_, TRUE};
    bool usable_ = false;
};

}  // namespace

modMultiUser::modMultiUser(Module module, mLogError& errors) : module_(std::move(module)), errors_(errors) {}

const std::wstring& modMultiUser::DataPath() {
    if (dataPathValue_.empty()) {
        dataPathValue_ = chosenFolder();
        MakeSubDir(dataPathValue_);
    }
    return dataPathValue_;
}

std::wstring modMultiUser::chosenFolder() {
    const std::wstring userPath = trimmedSetting(settings::kUserDataPath, module_.company);
    const std::wstring multiUser = trimmedSetting(settings::kMultiUser, module_.company);
    const std::wstring machinePath = trimmedSetting(settings::kMachineDataPath, module_.company);
    if (!userPath.empty()) {
        isPerUserPath_ = true;
        return withoutSeparator(userPath);
    }
    if (multiUser.empty() || isYes(multiUser)) {
        const std::wstring profile = GetUserProfilePath();
        if (profile.empty()) return module_.folder;
        isPerUserPath_ = true;
        return profile + L"\\" + kProductFolderName;
    }
    return machinePath.empty() ? module_.folder : withoutSeparator(machinePath);
}

std::wstring modMultiUser::GetUserProfilePath() noexcept {
    try {
        std::wstring path;
        const HRESULT result = knownFolder(CSIDL_APPDATA, path);
        const wchar_t* reason = result == E_INVALIDARG ? L"An invalid folder ID was specified"
                                : result == S_FALSE    ? L"The folder does not exist"
                                                       : nullptr;
        if (reason) errors_.LogError({}, L"modMultiUser.GetUserProfilePath", nullptr, reason);
        return path;
    } catch (...) {
        return {};
    }
}

void modMultiUser::MakeSubDir(const std::wstring& path) noexcept {
    try {
        std::size_t done = 0;
        for (;;) {
            auto separator = path.find(L'\\', done);
            if (separator == std::wstring::npos) separator = path.find(L':', done);
            if (separator == std::wstring::npos) break;
            done = separator + 1;
            MakeDir(path.substr(0, done));
        }
        MakeDir(path);
    } catch (...) {
        errors_.LogError(PendingError::caught(), L"modMultiUser.MakeSubDir", nullptr, path);
    }
}

void modMultiUser::MakeDir(const std::wstring& path) noexcept {
    try {
        if (exists(path)) return;
        const auto report = [&] {
            errors_.LogError(PendingError::lastSystemError(), L"modMultiUser.MakeDir", nullptr, path);
        };
        if (isPerUserPath_) {
            if (!CreateDirectoryW(path.c_str(), nullptr)) report();
        } else {
            OpenSecurity everyone(errors_, path);
            if (!CreateDirectoryW(path.c_str(), everyone.attributes())) report();
        }
    } catch (...) {
        errors_.LogError(PendingError::caught(), L"modMultiUser.MakeDir", nullptr, path);
    }
}

}  // namespace zelbar

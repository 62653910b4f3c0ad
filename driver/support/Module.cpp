#include "support/Module.h"

#include "support/SettingsTable.h"

#include <vector>

#include "module/OwnModule.h"

namespace zelbar {
namespace {

/// The version information is read from the loaded image: no file is opened for it.
std::vector<char> versionBlock(HMODULE module) {
    HRSRC resource = FindResourceW(module, MAKEINTRESOURCEW(VS_VERSION_INFO), RT_VERSION);
    HGLOBAL data = resource ? LoadResource(module, resource) : nullptr;
    const char* bytes = data ? static_cast<const char*>(LockResource(data)) : nullptr;
    if (!bytes) return {};
    return {bytes, bytes + SizeofResource(module, resource)};
}

std::wstring versionText(std::vector<char>& block, const wchar_t* name, std::wstring fallback) {
    void* text = nullptr;
    UINT length = 0;
    const std::wstring entry = std::wstring(L"\\StringFileInfo\\040904B0\\") + name;
    if (block.empty() || !VerQueryValueW(block.data(), entry.c_str(), &text, &length)) return fallback;
    const std::wstring value = static_cast<const wchar_t*>(text);
    return value.empty() ? fallback : value;
}

}  // namespace

Module thisModule() {
    Module module;
    module.handle = moduleHandle();
    const std::wstring path = modulePath();
    const auto slash = path.find_last_of(L'\\');
    module.folder = path.substr(0, slash == std::wstring::npos ? 0 : slash);
    module.stem = path.substr(slash == std::wstring::npos ? 0 : slash + 1);
    module.stem = module.stem.substr(0, module.stem.find_last_of(L'.'));
    std::vector<char> version = versionBlock(module.handle);
    module.company = versionText(version, L"CompanyName", kCompany);
    module.title = versionText(version, L"InternalName", module.stem);
    return module;
}

}  // namespace zelbar

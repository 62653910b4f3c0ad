#include "support/OutlookGuard.h"

#include <windows.h>

#include <optional>

#include "support/Registry.h"
#include "support/Text.h"

namespace zelbar {

namespace {

/// A 32-bit Office writes into the 32-bit view, a 64-bit one into the other.
constexpr REGSAM kViews[] = {KEY_WOW64_32KEY, KEY_WOW64_64KEY};

std::optional<DWORD> numberIn(HKEY root, const std::wstring& path, const wchar_t* name) {
    for (const REGSAM view : kViews) {
        const RegistryKey key = RegistryKey::open(root, path, KEY_READ | view);
        DWORD value = 0;
        DWORD size = sizeof value;
        if (key && !RegGetValueW(key.get(), nullptr, name, RRF_RT_REG_DWORD, nullptr, &value, &size))
            return value;
    }
    return {};
}

/// "16.0" of "16.0.17328.20162": the name of the version's key.
std::wstring keyOf(const std::wstring& version) {
    const std::size_t dot = version.find(L'.');
    const std::size_t end = dot == std::wstring::npos ? dot : version.find(L'.', dot + 1);
    return version.substr(0, end) + L"\\Outlook\\Security";
}

std::wstring said(const wchar_t* name, DWORD value) {
    return std::wstring(name) + L" is " + std::to_wstring(value);
}

/// Windows has no such service on servers, and Wine none at all.
bool isAntivirusGood() {
    constexpr DWORD kAntivirus = 4;
    constexpr int kGood = 0;
    using Question = HRESULT(WINAPI*)(DWORD, int*);
    struct Library {
        HMODULE handle = LoadLibraryExW(L"wscapi.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
        ~Library() {
            if (handle) FreeLibrary(handle);
        }
    } library;
    const FARPROC entry =
        library.handle ? GetProcAddress(library.handle, "WscGetSecurityProviderHealth") : nullptr;
    int health = -1;
    return entry && reinterpret_cast<Question>(reinterpret_cast<void*>(entry))(kAntivirus, &health) == S_OK &&
           health == kGood;
}

/// What the computer's own setting says; a policy may leave the decision to it.
OutlookGuard byComputer(const std::wstring& key) {
    constexpr DWORD kNever = 2, kAlways = 1;
    constexpr wchar_t kName[] = L"ObjectModelGuard";
    const auto guard = numberIn(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Microsoft\\Office\\" + key, kName);
    if (guard && (*guard == kNever || *guard == kAlways)) return {*guard == kNever, said(kName, *guard)};
    return isAntivirusGood() ? OutlookGuard{true, L"Windows reports an active antivirus"}
                             : OutlookGuard{false, L"Windows reports no active antivirus"};
}

}  // namespace

OutlookGuard outlookGuard(const std::wstring& version) {
    constexpr DWORD kByPolicy = 3, kAllow = 2, kComputer = 3;
    constexpr wchar_t kMode[] = L"AdminSecurityMode", kPrompt[] = L"PromptOOMAddressInformationAccess";
    const std::wstring key = keyOf(version);
    const std::wstring policies = L"Software\\Policies\\Microsoft\\Office\\" + key;
    const DWORD mode = numberIn(HKEY_CURRENT_USER, policies, kMode).value_or(0);
    if (mode == 0) return byComputer(key);
    // The other modes keep the rules in a public folder, out of reach here.
    const auto prompt = numberIn(HKEY_CURRENT_USER, policies, kPrompt);
    if (mode != kByPolicy || !prompt) return {false, said(kMode, mode)};
    if (*prompt == kComputer) return byComputer(key);
    return {*prompt == kAllow, L"a policy says so: " + said(kPrompt, *prompt)};
}

TableUse tableUse(const std::wstring& version) {
    constexpr long kFirstWithTables = 12;
    if (leadingInteger(version) < kFirstWithTables) return {false, L"Outlook " + version + L" has no tables"};
    const OutlookGuard guard = outlookGuard(version);
    return {guard.isSilent, guard.isSilent ? L"Outlook's guard does not ask: " + guard.reason
                                           : L"a table could make Outlook ask its user: " + guard.reason};
}

}  // namespace zelbar

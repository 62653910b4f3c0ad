#include "filler/Photos.h"

#include <windows.h>

#include <cwctype>

#include "support/Handle.h"

namespace filler {
namespace {

struct SearchTraits {
    using Type = HANDLE;
    static Type empty() noexcept { return INVALID_HANDLE_VALUE; }
    static void close(Type search) noexcept { FindClose(search); }
};

std::wstring upperCase(std::wstring text) {
    for (wchar_t& c : text) c = static_cast<wchar_t>(std::towupper(c));
    return text;
}

/// The identifier in a photo's name, in upper case; empty for any other file.
std::wstring identifierOf(const std::wstring& file) {
    static constexpr std::wstring_view kBegin = L"PIMCONTACT_", kEnd = L".JPG";
    const std::wstring name = upperCase(file);
    if (name.size() <= kBegin.size() + kEnd.size() || !name.starts_with(kBegin) || !name.ends_with(kEnd))
        return {};
    std::wstring identifier = name.substr(kBegin.size(), name.size() - kBegin.size() - kEnd.size());
    const bool isHexadecimal = identifier.find_first_not_of(L"0123456789ABCDEF") == std::wstring::npos;
    return isHexadecimal ? identifier : std::wstring();
}

}  // namespace

void removeOldPhotos(const std::wstring& folder, const AddressBook& book) {
    std::set<std::wstring> wanted;
    for (const AddressBook::Entry& entry : book.contacts) wanted.insert(upperCase(entry.contact.entryId));
    WIN32_FIND_DATAW found{};
    const zelbar::Handle<SearchTraits> search(
        FindFirstFileW((folder + L"\\pimcontact_*.jpg").c_str(), &found));
    if (!search) return;
    do {
        const std::wstring identifier = identifierOf(found.cFileName);
        if (!identifier.empty() && !wanted.count(identifier))
            DeleteFileW((folder + L"\\" + found.cFileName).c_str());
    } while (FindNextFileW(search.get(), &found));
}

}  // namespace filler

#include "standin/outlook/mailbox/EntryId.h"

#include <windows.h>

#include <algorithm>
#include <cwctype>

namespace standin::outlook {
namespace {

constexpr std::size_t kUidDigits = 32;
constexpr std::wstring_view kFlags = L"00000000";
// A store's id: flags, the wrapper's provider id, the provider's DLL name, then the store's unique id and
// file.
constexpr std::wstring_view kStorePrefix =
    L"0000000038A1BB1005E5101AA1BB08002B2A56C200006D737073742E646C6C00000000";
// Node numbers of the two kinds differ in their lowest five bits.
constexpr RowId kNodeStep = 32;
constexpr RowId kFolderNode = 2;
constexpr RowId kItemNode = 4;

template <class Number>
std::wstring hexadecimal(Number number, int digits) {
    std::wstring text(static_cast<std::size_t>(digits), L'0');
    for (auto digit = text.rbegin(); digit != text.rend(); ++digit, number /= 16) {
        *digit = L"0123456789ABCDEF"[static_cast<int>(number % 16)];
    }
    return text;
}

std::wstring upper(std::wstring_view text) {
    std::wstring result(text);
    std::ranges::transform(result, result.begin(),
                           [](wchar_t c) { return static_cast<wchar_t>(std::towupper(c)); });
    return result;
}

}  // namespace

std::wstring entryIdOf(const EntryName& name) {
    const RowId node = name.row * kNodeStep + (name.kind == EntryKind::Item ? kItemNode : kFolderNode);
    return std::wstring(kFlags) + name.storeUid + hexadecimal(node, 8);
}

std::wstring storeIdOf(std::wstring_view storeUid) {
    const std::wstring file = L"C:\\Outlook\\" + std::wstring(storeUid) + L".pst";
    std::wstring id = std::wstring(kStorePrefix) + std::wstring(storeUid);
    for (const wchar_t letter : file) {
        id += hexadecimal(static_cast<unsigned>(letter) & 0xFFU, 2) +
              hexadecimal(static_cast<unsigned>(letter) >> 8U, 2);
    }
    return id + L"0000";
}

bool isHexadecimal(std::wstring_view text) {
    return !text.empty() && text.size() % 2 == 0 &&
           std::ranges::all_of(text, [](wchar_t c) { return c < 128 && std::iswxdigit(c); });
}

std::optional<EntryName> parseEntryId(std::wstring_view text) {
    if (!isHexadecimal(text) || text.size() != kFlags.size() + kUidDigits + 8) return {};
    const std::wstring id = upper(text);
    if (!id.starts_with(kFlags)) return {};
    const RowId node = std::stoll(id.substr(kFlags.size() + kUidDigits), nullptr, 16);
    const RowId tag = node % kNodeStep;
    if (tag != kItemNode && tag != kFolderNode) return {};
    return EntryName{id.substr(kFlags.size(), kUidDigits),
                     tag == kItemNode ? EntryKind::Item : EntryKind::Folder, node / kNodeStep};
}

std::optional<std::wstring> parseStoreId(std::wstring_view text) {
    const std::wstring id = upper(text);
    if (!isHexadecimal(text) || !id.starts_with(kStorePrefix)) return {};
    const std::wstring uid = id.substr(kStorePrefix.size(), kUidDigits);
    if (id != storeIdOf(uid)) return {};
    return uid;
}

std::wstring newStoreUid() {
    GUID guid{};
    if (FAILED(CoCreateGuid(&guid))) throw DatabaseError("no unique number for a store");
    std::wstring uid;
    const auto* bytes = reinterpret_cast<const unsigned char*>(&guid);
    for (std::size_t i = 0; i < sizeof(guid); ++i) uid += hexadecimal(static_cast<unsigned>(bytes[i]), 2);
    return uid;
}

}  // namespace standin::outlook

#include "support/LanguageTable.h"

#include <algorithm>
#include <limits>

#include "support/Text.h"

namespace zelbar {
namespace {

constexpr std::size_t kFieldCount = 4;

std::vector<std::wstring_view> split(std::wstring_view text, wchar_t separator) {
    std::vector<std::wstring_view> parts;
    for (;;) {
        const auto end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::wstring_view::npos) return parts;
        text.remove_prefix(end + 1);
    }
}

std::int16_t charsetOf(std::wstring_view field) {
    using Limits = std::numeric_limits<std::int16_t>;
    return static_cast<std::int16_t>(
        std::clamp<std::int32_t>(leadingInteger(field), Limits::min(), Limits::max()));
}

std::wstring complaint(std::wstring_view reason, std::wstring_view entry) {
    return L"Wrong language string (" + std::wstring(reason) + L"): >" + std::wstring(entry) + L"<";
}

}  // namespace

const wchar_t kDefaultLanguageTable[] =
    L"0,us,5900,0; 1,fr,5901,0; 2,ger,5902,0; 3,sp,5903,0; 4,hun,5904,238; 5,plk,5905,238; "
    L"7,nl,5907,0; 8,it,5909,0";

LanguageTableSplit splitLanguageTable(std::wstring_view text) {
    LanguageTableSplit result;
    for (const auto entry : split(text, L';')) {
        const auto fields = split(entry, L',');
        const std::int32_t index = leadingInteger(fields.front());
        if (fields.size() != kFieldCount || index < 0) {
            result.messages.push_back(complaint(L"incorrect param number", entry));
            continue;
        }
        Language& language = result.table[index];
        language.code = trimmed(fields[1]);
        if (language.code.empty()) {
            result.messages.push_back(complaint(L"no path", entry));
            continue;
        }
        language.resource = leadingInteger(fields[2]);
        if (language.resource == 0) result.messages.push_back(complaint(L"ressource = null", entry));
        language.charset = charsetOf(fields[3]);
    }
    return result;
}

const Language* languageAt(const LanguageTable& table, std::int32_t index) {
    const auto slot = table.find(index);
    return slot == table.end() || slot->second.code.empty() ? nullptr : &slot->second;
}

}  // namespace zelbar

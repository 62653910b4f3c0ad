#pragma once

// The installation's table of languages; needs no Windows, compiles natively.

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace zelbar {

struct Language {
    std::wstring code;          ///< "us", "fr"; empty in a slot that counts as unused.
    std::int32_t resource = 0;  ///< Number of the language's text resource.
    std::int16_t charset = 0;   ///< Character set of fonts: 0 = default, 238 = Eastern European.
};

/// By language index, 0 upwards.
using LanguageTable = std::map<std::int32_t, Language>;

/// The table used while the installation holds none.
extern const wchar_t kDefaultLanguageTable[];

struct LanguageTableSplit {
    LanguageTable table;
    std::vector<std::wstring> messages;  ///< What is wrong with malformed entries, in their order.
};

/// Reads entries "index,code,resource,charset" separated by ";". A malformed entry is skipped or left
/// partly filled, and has a message.
LanguageTableSplit splitLanguageTable(std::wstring_view text);

/// The language of an index, or null when its slot is unused.
const Language* languageAt(const LanguageTable& table, std::int32_t index);

}  // namespace zelbar

#pragma once

#include <optional>
#include <string>

namespace filler {

/// How a folder's contacts are read.
enum class ReadWay {
    Items,  ///< Item by item, each property a call of its own.
    Table,  ///< Hundreds of contacts in one call, by Outlook 2007 and later.
};

struct ChosenWay {
    ReadWay way;
    std::wstring reason;  ///< For the user.
};

/// The way for the Outlook of that version: the one that the user `asked` for, else the table where it may be
/// used.
ChosenWay chooseWay(std::optional<ReadWay> asked, const std::wstring& version);

}  // namespace filler

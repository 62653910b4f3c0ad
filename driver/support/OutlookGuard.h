#pragma once

#include <string>

namespace zelbar {

/// What Outlook's guard does when a program reads addresses, or adds columns to a table.
struct OutlookGuard {
    bool isSilent = false;  ///< It lets programs read and never asks its user.
    std::wstring reason;    ///< What decides that, in words: "ObjectModelGuard is 2".
};

/// Read from the settings of the Outlook of that version ("16.0.1.2"), the policies before the user's choice,
/// and from the antivirus state where that decides. What cannot be found out counts as asking.
OutlookGuard outlookGuard(const std::wstring& version);

}  // namespace zelbar

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

/// Whether folders may be read through tables, and why, in words.
struct TableUse {
    bool isAllowed = false;
    std::wstring reason;
};

/// By the Outlook of that version: where it has tables and its guard cannot ask the user, who would meet a
/// question where item by item there is none.
TableUse tableUse(const std::wstring& version);

}  // namespace zelbar

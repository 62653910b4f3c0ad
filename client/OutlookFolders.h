#pragma once

#include <functional>
#include <string>
#include <vector>

#include "client/Automation.h"
#include "client/Failure.h"

namespace pimcall {

/// A folder of Outlook's for contacts.
struct ContactsFolder {
    /// From the store down, as in "\Store\Folder".
    std::wstring path;
    std::wstring entryId;
    std::wstring storeId;
};

/// What Outlook tells about its contacts folders.
struct OutlookFolders {
    /// Outlook could be asked at all.
    bool reached = false;
    /// Nothing was left out: no store and no folder refused to answer.
    bool complete = false;
    std::vector<ContactsFolder> folders;
};

/// Throws `Failure` when there is no Outlook.
ComPtr<IDispatch> startOutlook();

/// An object that a member gives; throws `Failure` when it is none.
ComPtr<IDispatch> objectOf(const Value& value);

/// Whether Outlook was just about to end: a new one can be asked.
bool isLeaving(const Failure& failure);

/// Runs work that begins with starting Outlook, again from its beginning while that one is just leaving.
void askOutlook(const std::function<void()>& work);

/// Asks Outlook itself, starting it where it is not running, for the contacts folders of all its stores.
OutlookFolders readOutlookFolders();

}  // namespace pimcall

#include "dialogs/FolderMaker.h"

#include "automation/Attempts.h"
#include "automation/OutlookNames.h"

namespace zelbar {

cfolder makeContactsFolder(OutlookConnection& outlook, FLog& log, const cfolder& parent,
                           const std::wstring& name) {
    const auto deadline = outlook.timeForUser();
    const Object made = outlook.GetNameSpace()
                            .object(outlook::GetFolderFromID, parent.EntryId, parent.StoreID)
                            .object(outlook::Folders)
                            .object(outlook::AddFolder, name, outlook::kDefaultContacts);
    Attempts attempt([&log](const Fault& fault) { log.fault(L"Error (frmOutListFolder): ", fault); });
    cfolder folder;
    folder.DisplayName = name;
    folder.StoreID = parent.StoreID;
    attempt.into(folder.DisplayName, [&] { return made.text(outlook::Name); });
    attempt.into(folder.StoreID, [&] { return made.text(outlook::StoreID); });
    folder.FullName = parent.FullName + L"\\" + folder.DisplayName;
    if (!attempt.into(folder.EntryId, [&] { return made.text(outlook::EntryID); })) {
        const Fault unreadable = attempt.last();
        if (attempt([&] { made.call(outlook::Delete); })) throw unreadable;
    }
    return folder;
}

}  // namespace zelbar

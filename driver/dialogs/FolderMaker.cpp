#include "dialogs/FolderMaker.h"

#include "automation/OutlookNames.h"
#include "core/DriverState.h"

namespace zelbar {

cfolder makeContactsFolder(const cfolder& parent, const std::wstring& name) {
    const Object made = driver()
                            .outlook.GetNameSpace()
                            .object(outlook::GetFolderFromID, parent.EntryId, parent.StoreID)
                            .object(outlook::Folders)
                            .object(outlook::AddFolder, name, outlook::kDefaultContacts);
    cfolder folder;
    folder.DisplayName = made.text(outlook::Name);
    folder.FullName = parent.FullName + L"\\" + folder.DisplayName;
    folder.EntryId = made.text(outlook::EntryID);
    folder.StoreID = made.text(outlook::StoreID);
    return folder;
}

}  // namespace zelbar

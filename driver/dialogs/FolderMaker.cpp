#include "dialogs/FolderMaker.h"

#include "automation/Attempts.h"
#include "automation/OutlookNames.h"

namespace zelbar {

namespace {

/// One that has no identifier is found by its name below the folder above it.
Object openFolder(const Object& session, const FolderTree& tree, size_t folder) {
    const cfolder known = tree[folder].folder;
    if (!known.EntryId.empty() || tree[folder].depth == 0)
        return session.object(outlook::GetFolderFromID, known.EntryId, known.StoreID);
    return openFolder(session, tree, parentOf(tree, folder))
        .object(outlook::Folders)
        .object(outlook::FolderAt, known.DisplayName);
}

}  // namespace

cfolder makeContactsFolder(OutlookConnection& outlook, FLog& log, const FolderTree& tree, size_t place,
                           const std::wstring& name) {
    const cfolder parent = tree[place].folder;
    const auto deadline = outlook.timeForUser();
    const Object made = openFolder(outlook.GetNameSpace(), tree, place)
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

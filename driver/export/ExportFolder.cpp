#include "export/ExportFolder.h"

#include "automation/Attempts.h"
#include "automation/Fault.h"
#include "automation/OutlookFaults.h"
#include "automation/OutlookNames.h"
#include "export/ExportMapping.h"
#include "support/Settings.h"
#include "support/Text.h"

namespace zelbar {

namespace {

constexpr wchar_t kMessageTitle[] = L"Tessaria Outlook 2000 driver.";

std::wstring configuredName() {
    return getSetting(settings::kZelbarExportFolder);
}

/// One attempt to open the folder; what it says goes into the verdict over all attempts.
template <class Question>
void attempt(LookUp& answer, FLog& log, Question&& question) {
    try {
        Object folder = question();
        if (!folder) throw runtimeFault(fault::kObjectNotSet);
        answer = {LookUp::Verdict::Found, std::move(folder), {}};
    } catch (...) {
        const Fault fault = caughtFault();
        log.fault(L"Error (GetExportFolder): ", fault);
        if (saysItemGone(fault)) return;
        if (!answer.failed()) answer.fault = fault;
        answer.verdict = LookUp::Verdict::Failed;
    }
}

bool hasFolderCalled(const Object& parent, const std::wstring& name) {
    const Object folders = parent.object(outlook::Folders);
    const long count = folders.integer(outlook::Count);
    for (long i = 1; i <= count; ++i)
        if (lstrcmpiW(folders.object(outlook::FolderAt, i).text(outlook::Name).c_str(), name.c_str()) == 0)
            return true;
    return false;
}

/// No error number says for sure that a name is taken, so the folders themselves are asked.
bool nameIsTaken(const Object& parent, const std::wstring& name) noexcept {
    try {
        return hasFolderCalled(parent, name);
    } catch (...) {
        return false;
    }
}

/// A new folder that cannot be found again would only be in the way of the next attempt.
void rememberNew(const Object& folder) {
    try {
        storeExportFolder(folder);
    } catch (...) {
        const Fault fault = caughtFault();
        Attempts()([&] { folder.call(outlook::Delete); });
        throw fault;
    }
}

}  // namespace

LookUp GetExportFolder(FLog& log, OutlookConnection& outlook) {
    log.trace(L"IN GetExportFolder");
    // One of the ways in which settings are written makes a blank of an empty text.
    const std::wstring entryId(trimmed(storedSetting(settings::kExportEntryId)));
    const std::wstring storeId(trimmed(storedSetting(settings::kExportStoreId)));
    log.trace(L"EntryId ", entryId);
    log.trace(L"StoreId ", storeId);
    LookUp answer;
    if (!entryId.empty() && !storeId.empty()) {
        log.trace(L"StoreId and StoreId <> 0");
        Object session;
        attempt(answer, log, [&] {
            session = outlook.GetNameSpace();
            return session.object(outlook::GetFolderFromID, entryId, storeId);
        });
        if (!answer.found()) {
            log.trace(L"oTargetfolder Is Nothing, try find oTargetfolder only with EntryId");
            attempt(answer, log, [&] { return session.object(outlook::GetFolderFromID, entryId); });
        }
    }
    if (answer.found()) {
        log.trace(L"oTargetfolder Is Not Nothing");
        log.trace(L"oTargetfolder Name Is ", &configuredName);
    } else {
        log.trace(L"oTargetfolder Is Nothing");
    }
    log.trace(L"Exit GetExportFolder");
    return answer;
}

Object createExportFolder(const ExportParts& parts, const std::wstring& name) {
    std::wstring chosen = name.empty() ? configuredName() : name;
    if (chosen.empty()) chosen = parts.texts.translate(categoryTextOf(ExportMode::Employee));
    const Object parent = parts.outlook.GetNameSpace()
                              .object(outlook::GetDefaultFolder, outlook::kDefaultContacts)
                              .object(outlook::Parent);
    saveSetting(settings::kIsNewWXDFolder, L"1");
    Object folder;
    try {
        folder =
            parent.object(outlook::Folders).object(outlook::AddFolder, chosen, outlook::kDefaultContacts);
    } catch (...) {
        const Fault fault = caughtFault();
        if (!nameIsTaken(parent, chosen)) throw fault;
        parts.log.fault(L"Error (createExportFolder): ", fault);
        const auto waitsForUser = parts.outlook.untimed();
        parts.user.messageBox(
            parts.texts.translate(L"#07110#A folder with this name already exists. Please use another name."),
            kMessageTitle, MB_OK | MB_ICONEXCLAMATION);
        return {};
    }
    rememberNew(folder);
    return folder;
}

void storeExportFolder(const Object& folder) {
    const std::wstring entryId = folder.text(outlook::EntryID);
    const std::wstring storeId = folder.text(outlook::StoreID);
    saveSetting(settings::kExportEntryId, entryId);
    saveSetting(settings::kExportStoreId, storeId);
}

}  // namespace zelbar

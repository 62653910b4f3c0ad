#include "connector/cDataConnector.h"

#include "automation/Attempts.h"
#include "automation/Fault.h"
#include "automation/OutlookNames.h"
#include "connector/FolderConfiguration.h"
#include "connector/Parts.h"
#include "connector/StartUp.h"
#include "core/DriverState.h"
#include "dialogs/frmOutSelFolder.h"
#include "export/Export.h"

namespace zelbar {

namespace {

/// Outlook's number among the client's contact programs.
constexpr long kOutlookPim = 0x1000;

/// The default store, then the stores of the table; `storeTried` tells the last one. None when no store has
/// it.
Object itemInAnyStore(OutlookConnection& connection, const StoreTable& stores, FLog& log,
                      const std::wstring& entryId, std::wstring& storeTried) {
    Attempts attempt;
    Object session, item;
    attempt.into(session, [&] { return connection.GetNameSpace(); });
    if (!session) return {};
    attempt.into(item, [&] { return session.object(outlook::GetItemFromID, entryId); });
    for (int i = 1; !item && i <= StoreTable::kEntries; ++i) {
        log.trace(L"  GetContactByContactID: i=", i);
        const std::wstring store = stores.at(i).storeId;
        if (store.empty()) break;
        storeTried = store;
        attempt.into(item, [&] { return session.object(outlook::GetItemFromID, entryId, store); });
    }
    return item;
}

/// The folder that a client means; none for any other name.
Object folderCalled(OutlookConnection& connection, const std::wstring& name) {
    long folder = 0;
    if (name == L"contacts") folder = outlook::kDefaultContacts;
    if (name == L"journal") folder = outlook::kDefaultJournal;
    if (folder == 0) return {};
    return connection.GetNameSpace().object(outlook::GetDefaultFolder, folder);
}

}  // namespace

cDataConnector::cDataConnector() : state_(driver()), events_(*this, DIID___cDataConnector) {
    startUp(state_);
}

cDataConnector::~cDataConnector() {
    shutDown(state_);
}

void* cDataConnector::further(REFIID id) noexcept {
    return id == __uuidof(IConnectionPointContainer) ? &events_.container() : nullptr;
}

Com<IDispatch> cDataConnector::DataConnector_GetContactItemByContactItemID(const std::wstring& entryId) {
    const auto deadline = state_.outlook.timeForCall();
    state_.log.trace(L"GetContactItemByContactItemID() ID=", entryId);
    return state_.outlook.GetNameSpace().object(outlook::GetItemFromID, entryId).target();
}

std::wstring cDataConnector::DataConnector_Version() {
    const auto deadline = state_.outlook.timeForCall();
    return state_.outlook.GetApp().text(outlook::Version);
}

bool cDataConnector::DataConnector_PIMInstalled() {
    return true;
}

long cDataConnector::DataConnector_PIMName() {
    return kOutlookPim;
}

Com<::PIMActions> cDataConnector::DataConnector_Actions() {
    return state_.actions;
}

Com<cContactRecord> cDataConnector::DataConnector_OpenContactRecord() {
    return makeObject<cContactRecord>(contactParts(state_), state_.cache);
}

void cDataConnector::DataConnector_ClosePIM() {
    const auto deadline = state_.outlook.timeForCall();
    state_.outlook.release();
}

void cDataConnector::DataConnector_ConfigPIM() {
    state_.log.trace(L"Select Outlook contacts folder...");
    showFolderSelection(windowParts(state_));
}

Com<cContact> cDataConnector::DataConnector_GetContactByContactID(const std::wstring& entryId) {
    const auto deadline = state_.outlook.timeForCall();
    FLog& log = state_.log;
    log.trace(L"GetContactByContactID: ID=", entryId);
    auto contact = makeObject<cContact>(contactParts(state_));
    std::wstring store;
    const StoreTable stores = state_.cache.stores();  // a copy: the calls may bring a new table
    const Object item = itemInAnyStore(state_.outlook, stores, log, entryId, store);
    if (!item) {
        contact->setNotInPIM(true);
        log.trace(L"GetContactByContactID: NOK");
        return contact;
    }
    Attempts([&log](const Fault& fault) { log.fault(L"Error (GetContactByContactID): ", fault); })(
        [&] { contact->SetValues(item); });
    log.trace(L"GetContactByContactID: with StoreID: ", store);
    log.trace(L"GetContactByContactID: Name=", [&] { return contact->Contact_FullName(); });
    return contact;
}

Variant cDataConnector::DataConnector_ExecuteCommand(const std::wstring& command) {
    const auto deadline = state_.outlook.timeForCall();
    return command == L"isFolderConfigured"
               ? Variant(isFolderConfigured(state_.log, state_.outlook, state_.cache))
               : Variant();
}

/// True only when a new window had to be opened: that is what clients have always been told.
bool cDataConnector::DataConnector_ShowFolder(const std::wstring& name) {
    const auto deadline = state_.outlook.timeForUser();
    const Object folder = folderCalled(state_.outlook, name);
    if (!folder) return false;
    const Object explorer = state_.outlook.GetApp().object(outlook::ActiveExplorer);
    if (!explorer) {
        folder.object(outlook::GetExplorer).call(outlook::Display);
        return true;
    }
    explorer.putReference(outlook::CurrentFolder, folder);
    explorer.object(outlook::CurrentFolder).call(outlook::Display);
    return false;
}

Com<cContact> cDataConnector::DataConnector_GetActiveContact() {
    const auto deadline = state_.outlook.timeForCall();
    const Object inspector = state_.outlook.GetApp().object(outlook::ActiveInspector);
    if (!inspector) return {};
    auto contact = makeObject<cContact>(contactParts(state_));
    contact->SetValues(inspector.object(outlook::CurrentItem));
    return contact;
}

void cDataConnector::DataConnector_WriteCache() {
    state_.log.trace(L"############## REINITIALISER LE CACHE !!! ##############");
}

void cDataConnector::DataConnector_CreateContact(const std::wstring& name, const std::wstring& number,
                                                 bool show) {
    FLog& log = state_.log;
    const auto deadline = state_.outlook.timeForUser();
    log.trace(L"Contact creation asked by user: ", name, L" from ", number);
    try {
        const Object item = state_.outlook.GetNameSpace()
                                .object(outlook::GetDefaultFolder, outlook::kDefaultContacts)
                                .object(outlook::Items)
                                .object(outlook::AddContact, outlook::kContactItemType);
        item.put(outlook::LastName, name);
        item.put(outlook::BusinessTelephoneNumber, number);
        item.call(outlook::Save);
        if (show) item.object(outlook::GetInspector).call(outlook::Display);
    } catch (...) {
        log.fault(L"Error (CreateContact): ", caughtFault());
        log.trace(L"CreateContact() Name=", name, L" Number=", number);
    }
}

bool cDataConnector::DataConnector_InitializeExportFolder(const std::wstring& databasePath,
                                                          const std::wstring& folderName,
                                                          const Com<IDispatch>& progress) {
    return initializeExportFolder(exportParts(state_), databasePath, folderName, progress);
}

bool cDataConnector::DataConnector_SynchronizeExportFolder(const std::wstring& databasePath,
                                                           const std::wstring& folderName,
                                                           const Com<IDispatch>& progress) {
    return synchronizeExportFolder(exportParts(state_), databasePath, folderName, progress);
}

}  // namespace zelbar

#include "automation/Fault.h"
#include "automation/OutlookNames.h"
#include "connector/cDataConnector.h"
#include "core/DriverState.h"

namespace zelbar {

namespace {

/// The folder that a client means; none for any other name.
Object folderCalled(const std::wstring& name) {
    long folder = 0;
    if (name == L"contacts") folder = outlook::kDefaultContacts;
    if (name == L"journal") folder = outlook::kDefaultJournal;
    if (folder == 0) return {};
    return driver().outlook.GetNameSpace().object(outlook::GetDefaultFolder, folder);
}

}  // namespace

/// True only when a new window had to be opened: that is what clients have always been told.
bool cDataConnector::DataConnector_ShowFolder(const std::wstring& name) {
    const Object folder = folderCalled(name);
    if (!folder) return false;
    const Object explorer = driver().outlook.GetApp().object(outlook::ActiveExplorer);
    if (!explorer) {
        folder.object(outlook::GetExplorer).call(outlook::Display);
        return true;
    }
    explorer.putReference(outlook::CurrentFolder, folder);
    explorer.object(outlook::CurrentFolder).call(outlook::Display);
    return false;
}

Com<cContact> cDataConnector::DataConnector_GetActiveContact() {
    if (!driver().pimInstalled) return {};
    const Object inspector = driver().outlook.GetApp().object(outlook::ActiveInspector);
    if (!inspector) return {};
    auto contact = makeObject<cContact>();
    contact->SetValues(inspector.object(outlook::CurrentItem));
    return contact;
}

void cDataConnector::DataConnector_WriteCache() {
    driver().log.trace(L"############## REINITIALISER LE CACHE !!! ##############");
}

void cDataConnector::DataConnector_CreateContact(const std::wstring& name, const std::wstring& number,
                                                 bool show) {
    FLog& log = driver().log;
    if (!driver().pimInstalled) return;
    log.trace(L"Contact creation asked by user: ", name, L" from ", number);
    try {
        const Object item = driver()
                                .outlook.GetNameSpace()
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

}  // namespace zelbar

#include "core/OutlookConnection.h"

#include <utility>

#include "automation/OutlookFaults.h"
#include "automation/OutlookNames.h"
#include "core/ItemSearch.h"
#include "support/Text.h"

namespace zelbar {

namespace {

constexpr wchar_t kGetApp[] = L"GetApp()";
constexpr wchar_t kGetNameSpace[] = L"GetNameSpace()";
constexpr wchar_t kLostTitle[] = L"Tessaria Outlook 2000 driver.";
constexpr wchar_t kLostText[] =
    L"Tessaria lost his connection to Outlook.\r\n"
    L"You have to stop Tessaria and Outlook.\r\n"
    L"Then you can restart Tessaria.";

}  // namespace

void OutlookConnection::connectApplication() {
    // The old reference goes last: when it is the only one that keeps a windowless Outlook running, releasing
    // it first would shut Outlook down only to start it again.
    const Object old = std::exchange(application_, {});
    application_ = gateway_.create(Server::Outlook, outlook::kProgId, outlook::kApplication);
}

void OutlookConnection::connectNameSpace() {
    nameSpace_ = nameSpaceOf(application_);
}

Object OutlookConnection::nameSpaceOf(const Object& application) {
    return application.object(outlook::GetNamespace, L"MAPI");
}

Object OutlookConnection::probedNameSpace() {
    log_.trace(L"    Connecting to Outlook...GetNameSpace");
    Object result = nameSpaceOf(application_);
    result.text(outlook::Type);
    nameSpace_ = {};
    log_.trace(L"    GetNameSpace: OK");
    return result;
}

void OutlookConnection::release() {
    nameSpace_ = {};
    application_ = {};
}

Object OutlookConnection::GetApp() {
    Fault fault;
    try {
        application_.text(outlook::Name);
        log_.trace(L"    GetApp: OK");
        return application_;
    } catch (...) {
        fault = caughtFault();
    }
    report(fault, kGetApp, L"Accessing Outlook Application", L"    GetApp: ERR1 ");
    try {
        log_.trace(L"    Connecting to Outlook...");
        connectApplication();
        log_.trace(L"    GetApp: OK");
        return application_;
    } catch (...) {
        fault = caughtFault();
    }
    application_ = {};
    report(fault, kGetApp, L"Creating Outlook Application", L"    GetApp: ERR2 ");
    user_.messageBox(kLostText, kLostTitle, MB_OK | MB_ICONERROR);
    raiseConnectionLost(fault, kGetApp);
}

Object OutlookConnection::GetNameSpace() {
    Fault fault;
    try {
        log_.trace(L"    Connecting to Outlook...");
        connectApplication();
        return probedNameSpace();
    } catch (...) {
        fault = caughtFault();
    }
    report(fault, kGetNameSpace, L"Accessing NameSpace", L"    GetNameSpace: ERR1 ");
    try {
        return probedNameSpace();
    } catch (...) {
        fault = caughtFault();
    }
    report(fault, kGetNameSpace, L"Creating NameSpace", L"    GetNameSpace: ERR2 ");
    try {
        nameSpace_ = {};
        log_.trace(L"    Connecting to Outlook...");
        connectApplication();
        Object result = probedNameSpace();
        release();
        return result;
    } catch (...) {
        fault = caughtFault();
    }
    release();
    report(fault, kGetNameSpace, L"Creating Outlook Application and NameSpace", L"    GetNameSpace: ERR3 ");
    raiseConnectionLost(fault, kGetNameSpace);
}

LookUp OutlookConnection::GetContactFromID(const std::wstring& entryId, const std::wstring& storeId,
                                           const wchar_t* caller, const std::wstring& context) {
    log_.trace(L"GetContactFromID() for ", caller, L" - ", context);
    log_.trace(L"  EntryId=", entryId);
    log_.trace(L"  StoreId=", storeId);
    if (entryId.empty()) return {};
    const auto reported = [this](const Fault& fault) {
        report(fault, L"GetContactFromID()", L"", L"    GetContactFromID() ");
    };
    LookUp result;
    try {
        result = ItemSearch(GetNameSpace(), entryId, reported).everywhere(storeId, stores_);
    } catch (...) {
        result = {LookUp::Verdict::Failed, {}, caughtFault()};
        reported(result.fault);
    }
    log_.trace(result.found() ? L"GetContactFromID: OK" : L"GetContactFromID: NOK");
    return result;
}

void OutlookConnection::report(const Fault& fault, const wchar_t* function, const wchar_t* stage,
                               const wchar_t* prefix) {
    errors_.LogError(PendingError{fault}, function, nullptr, stage);
    if (!log_.LogEnabled()) return;
    log_.trace(prefix, fault.number, L" (0x", hexadecimal(static_cast<std::uint32_t>(fault.number)), L") ",
               fault.description, L" in ", fault.source);
}

void OutlookConnection::raiseConnectionLost(const Fault& cause, const wchar_t* function) {
    throw Fault{kConnectionLost, L"Loss of connection with Outlook.", cause.source + L"." + function};
}

}  // namespace zelbar

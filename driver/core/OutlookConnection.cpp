#include "core/OutlookConnection.h"

#include <algorithm>
#include <utility>

#include "automation/OutlookFaults.h"
#include "automation/OutlookNames.h"
#include "core/ItemSearch.h"
#include "support/Settings.h"
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

/// Milliseconds; 0 for no limit, and the default for what is no number.
DWORD limitOf(const Setting& setting, DWORD otherwise) {
    constexpr std::int32_t kLongest = 3600000;
    const std::wstring text = readSetting(setting);
    const bool isNumber = !text.empty() && text.front() >= L'0' && text.front() <= L'9';
    return isNumber ? static_cast<DWORD>(std::min(leadingInteger(text), kLongest)) : otherwise;
}

}  // namespace

DWORD limitForCall() {
    return limitOf(settings::kOutlookTimeout, 5000);
}

Deadline OutlookConnection::timeForCall() const {
    return Deadline(gateway_, limitForCall);
}

Deadline OutlookConnection::timeForUser() const {
    return Deadline(gateway_, [] { return limitOf(settings::kOutlookTimeoutUser, 30000); });
}

Object OutlookConnection::running(const wchar_t* progId) const {
    return gateway_.running(Server::Outlook, progId, outlook::kApplication);
}

Object OutlookConnection::connectApplication() {
    // The old reference goes last: when it is the only one that keeps a windowless Outlook running, releasing
    // it first would shut Outlook down only to start it again.
    const Object old = std::exchange(application_, {});
    Object application = class_.newApplication();
    application_ = application;
    return application;
}

void OutlookConnection::connectNameSpace() {
    nameSpace_ = nameSpaceOf(application_);
}

Object OutlookConnection::nameSpaceOf(const Object& application) {
    return application.object(outlook::GetNamespace, L"MAPI");
}

Object OutlookConnection::probedNameSpace(const Object& application) {
    log_.trace(L"    Connecting to Outlook...GetNameSpace");
    Object result = nameSpaceOf(application);
    result.text(outlook::Type);
    nameSpace_ = {};
    log_.trace(L"    GetNameSpace: OK");
    return result;
}

void OutlookConnection::release() {
    nameSpace_ = {};
    application_ = {};
    class_.forget();
}

// What a connection is asked through is held by the procedure itself: while Outlook is asked the client may
// call in, and what is shared may be emptied or exchanged.

Object OutlookConnection::GetApp() {
    Fault fault;
    try {
        Object application = application_;
        application.text(outlook::Name);
        log_.trace(L"    GetApp: OK");
        return application;
    } catch (...) {
        fault = caughtFault();
    }
    report(fault, kGetApp, L"Accessing Outlook Application", L"    GetApp: ERR1 ");
    class_.forget();
    try {
        log_.trace(L"    Connecting to Outlook...");
        Object application = connectApplication();
        log_.trace(L"    GetApp: OK");
        return application;
    } catch (...) {
        fault = caughtFault();
    }
    application_ = {};
    report(fault, kGetApp, L"Creating Outlook Application", L"    GetApp: ERR2 ");
    const auto waitsForUser = untimed();
    user_.messageBox(kLostText, kLostTitle, MB_OK | MB_ICONERROR);
    raiseConnectionLost(fault, kGetApp);
}

Object OutlookConnection::GetNameSpace() {
    Fault fault;
    Object application;
    try {
        log_.trace(L"    Connecting to Outlook...");
        application = connectApplication();
        return probedNameSpace(application);
    } catch (...) {
        fault = caughtFault();
    }
    report(fault, kGetNameSpace, L"Accessing NameSpace", L"    GetNameSpace: ERR1 ");
    class_.forget();
    try {
        return probedNameSpace(application);
    } catch (...) {
        fault = caughtFault();
    }
    report(fault, kGetNameSpace, L"Creating NameSpace", L"    GetNameSpace: ERR2 ");
    try {
        nameSpace_ = {};
        log_.trace(L"    Connecting to Outlook...");
        Object result = probedNameSpace(connectApplication());
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
        Object session = GetNameSpace();
        // A copy: a second driver object that is made meanwhile reads the table anew.
        const StoreTable stores = stores_;
        result = ItemSearch(std::move(session), entryId, reported).everywhere(storeId, stores);
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

#include "client/Driver.h"

#include "client/Failure.h"

namespace pimcall {
namespace {

/// An object that the driver hands out unless something is wrong on its side.
template <class Interface>
ComPtr<Interface> expected(ComPtr<Interface> object, const wchar_t* what) {
    if (!object)
        throw Failure(std::wstring(L"The driver handed out no ") + what +
                      L"; its log and the user's error file tell why.");
    return object;
}

}  // namespace

ComPtr<Contact> Cursor::findFirst(SearchKind kind, const std::wstring& text) {
    // The driver takes the kind by reference, so it gets a variable of its own.
    auto kindForDriver = static_cast<long>(kind);
    ComPtr<Contact> contact;
    require(record_->FindFirst(&kindForDriver, Bstr(text).get(), contact.GetAddressOf()), L"FindFirst");
    return expected(contact, L"answer to the search");
}

ComPtr<Contact> Cursor::findNext() {
    ComPtr<Contact> contact;
    require(record_->FindNext(contact.GetAddressOf()), L"FindNext");
    return contact;
}

long Cursor::count() const {
    short count = 0;
    require(record_->get_RecordCount(&count), L"RecordCount");
    return count;
}

bool Cursor::noMatch() const {
    VARIANT_BOOL result = VARIANT_FALSE;
    require(record_->get_NoMatch(&result), L"NoMatch");
    return result != VARIANT_FALSE;
}

Driver Driver::create() {
    ComPtr<DataConnector> connector;
    const HRESULT result = CoCreateInstance(CLSID_cDataConnector, nullptr, CLSCTX_INPROC_SERVER,
                                            IID_PPV_ARGS(connector.GetAddressOf()));
    if (FAILED(result)) throw Failure(creationAdvice(result));
    return Driver(connector);
}

std::wstring Driver::version() const {
    Bstr version;
    require(connector_->get_Version(version.put()), L"Version");
    return version.text();
}

void Driver::requireOutlook() const {
    VARIANT_BOOL installed = VARIANT_FALSE;
    require(connector_->get_PIMInstalled(&installed), L"PIMInstalled");
    if (installed == VARIANT_FALSE)
        throw Failure(L"The driver found no Outlook on this computer; the user's error file tells why.");
}

Cursor Driver::openCursor() const {
    requireOutlook();
    ComPtr<ContactRecord> record;
    require(connector_->OpenContactRecord(record.GetAddressOf()), L"OpenContactRecord");
    return Cursor(expected(record, L"search"));
}

ComPtr<Contact> Driver::contactById(const std::wstring& id) const {
    ComPtr<Contact> contact;
    require(connector_->GetContactByContactID(Bstr(id).get(), contact.GetAddressOf()),
            L"GetContactByContactID");
    return expected(contact, L"contact");
}

ComPtr<PIMActions> Driver::actionList() const {
    ComPtr<PIMActions> list;
    require(connector_->get_Actions(list.GetAddressOf()), L"Actions");
    return expected(list, L"list of actions");
}

std::vector<Action> Driver::actions() const {
    std::vector<Action> actions;
    for (const Value& element : elementsOf(*actionList().Get())) actions.push_back(readAction(element));
    return actions;
}

OwnAction Driver::copyAction(long id) const {
    ComPtr<IDispatch> action;
    require(actionList()->Item(id, action.GetAddressOf()), L"Item");
    const Value copy = resultOf(*expected(action, L"action of this kind").Get(), L"CopyAction");
    return OwnAction(expected(copy.object<PIMAction>(), L"copy of an action"));
}

ComPtr<Contact> Driver::activeContact() const {
    requireOutlook();
    ComPtr<Contact> contact;
    require(connector_->GetActiveContact(contact.GetAddressOf()), L"GetActiveContact");
    return contact;
}

void Driver::createContact(const std::wstring& name, const std::wstring& number, bool show) const {
    requireOutlook();
    require(
        connector_->CreateContact(Bstr(name).get(), Bstr(number).get(), show ? VARIANT_TRUE : VARIANT_FALSE),
        L"CreateContact");
}

bool Driver::showFolder(const std::wstring& name) const {
    requireOutlook();
    VARIANT_BOOL opened = VARIANT_FALSE;
    require(connector_->ShowFolder(Bstr(name).get(), &opened), L"ShowFolder");
    return opened != VARIANT_FALSE;
}

void Driver::configure() const {
    require(connector_->ConfigPIM(), L"ConfigPIM");
}

bool Driver::isConfigured() const {
    Value result;
    require(connector_->ExecuteCommand(Bstr(L"isFolderConfigured").get(), Value().raw(), result.put()),
            L"isFolderConfigured");
    return result.boolean();
}

bool Driver::exportEmployees(ExportStep step, const std::wstring& database, const std::wstring& folder,
                             IDispatch& progress) const {
    requireOutlook();
    const Bstr path(database), name(folder);
    // Lent: what they hold belongs to others.
    VARIANT pathValue{}, nameValue{}, progressValue{};
    pathValue.vt = nameValue.vt = VT_BSTR;
    pathValue.bstrVal = path.get();
    nameValue.bstrVal = name.get();
    progressValue.vt = VT_DISPATCH;
    progressValue.pdispVal = &progress;
    VARIANT_BOOL complete = VARIANT_FALSE;
    require(step == ExportStep::Initialize
                ? connector_->InitializeExportFolder(path.get(), name.get(), progressValue, &complete)
                : connector_->SynchronizeExportFolder(pathValue, nameValue, progressValue, &complete),
            L"the export");
    return complete != VARIANT_FALSE;
}

std::wstring creationAdvice(HRESULT result) {
    switch (result) {
        case REGDB_E_CLASSNOTREG:
            return L"The Outlook contacts driver is not registered on this computer; run \"regsvr32 "
                   L"zelbar00.dll\" "
                   L"as administrator in the folder where it is installed.";
        case HRESULT_FROM_WIN32(ERROR_MOD_NOT_FOUND):
        case HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND):
        case CO_E_DLLNOTFOUND:
            return L"The Outlook contacts driver is registered, but its file zelbar00.dll is not where the "
                   L"registration says; run \"regsvr32 zelbar00.dll\" as administrator where it lies now.";
        case E_NOINTERFACE:
            return L"The registered Outlook contacts driver has other interfaces than this program; "
                   L"both must come from the same release.";
        default:
            return L"The Outlook contacts driver could not be started: " + describe(result) + L".";
    }
}

bool isUnknown(Contact& contact) {
    VARIANT_BOOL notInPim = VARIANT_FALSE;
    require(contact.get_NotInPIM(&notInPim), L"NotInPIM");
    return notInPim != VARIANT_FALSE;
}

}  // namespace pimcall

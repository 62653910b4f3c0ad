#include "standin/common/ClassFactory.h"

namespace standin {
namespace {

class Factory final : public IClassFactory {
  public:
    Factory(Server& server, std::function<Ref<Object>()> create)
        : server_(server), create_(std::move(create)) {}
    virtual ~Factory() = default;

    STDMETHODIMP QueryInterface(REFIID iid, void** result) noexcept override {
        if (!result) return E_POINTER;
        const bool known = iid == IID_IUnknown || iid == IID_IClassFactory;
        *result = known ? this : nullptr;
        if (known) AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() noexcept override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** result) noexcept override {
        if (!result) return E_POINTER;
        *result = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        if (const HRESULT outcome = server_.faults().creationOutcome(); FAILED(outcome)) return outcome;
        try {
            return create_()->QueryInterface(iid, result);
        } catch (const Error& error) {
            return error.code();
        } catch (...) {
            return E_FAIL;
        }
    }
    STDMETHODIMP LockServer(BOOL) noexcept override { return S_OK; }

  private:
    Server& server_;
    std::function<Ref<Object>()> create_;
    ULONG references_ = 1;
};

void check(LSTATUS status) {
    if (status != ERROR_SUCCESS) throw Error(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
}

void writeDefault(const std::wstring& key, const std::wstring& text, const wchar_t* name = nullptr) {
    const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    check(RegSetKeyValueW(HKEY_LOCAL_MACHINE, (L"Software\\Classes\\" + key).c_str(), name, REG_SZ,
                          text.c_str(), size));
}

void removeKey(const std::wstring& key) {
    const LSTATUS status = RegDeleteTreeW(HKEY_LOCAL_MACHINE, (L"Software\\Classes\\" + key).c_str());
    if (status != ERROR_FILE_NOT_FOUND) check(status);
}

std::wstring textOf(const CLSID& clsid) {
    wchar_t text[40];
    return StringFromGUID2(clsid, text, 40) ? text : L"";
}

}  // namespace

Ref<IClassFactory> makeFactory(Server& server, std::function<Ref<Object>()> create) {
    return adopt<IClassFactory>(new Factory(server, std::move(create)));
}

HostedClass::HostedClass(const CLSID& clsid, IClassFactory& factory)
    : HostedClass(clsid, factory, CLSCTX_INPROC_SERVER, REGCLS_MULTI_SEPARATE) {}

HostedClass::HostedClass(const CLSID& clsid, IClassFactory& factory, DWORD context, DWORD flags) {
    const HRESULT outcome = CoRegisterClassObject(clsid, &factory, context, flags, &cookie_);
    if (FAILED(outcome)) throw Error(outcome);
}

HostedClass::~HostedClass() {
    CoRevokeClassObject(cookie_);
}

void registerClass(const ClassEntry& entry) {
    const std::wstring clsid = textOf(entry.clsid);
    const std::wstring key = L"CLSID\\" + clsid;
    const std::wstring serverKey = key + (entry.inProcess ? L"\\InprocServer32" : L"\\LocalServer32");
    writeDefault(key, entry.description);
    writeDefault(serverKey, entry.server);
    if (entry.inProcess) writeDefault(serverKey, L"Apartment", L"ThreadingModel");
    if (!entry.progIds.empty()) writeDefault(key + L"\\ProgID", entry.progIds.front());
    for (const std::wstring& progId : entry.progIds) {
        writeDefault(progId, entry.description);
        writeDefault(progId + L"\\CLSID", clsid);
    }
}

void unregisterClass(const ClassEntry& entry) {
    removeKey(L"CLSID\\" + textOf(entry.clsid));
    for (const std::wstring& progId : entry.progIds) removeKey(progId);
}

}  // namespace standin

// Early bound: who has this number?      find NUMBER [MANIFEST]
// With a manifest (Norvane.Zelbar00.manifest beside the driver) nothing has to be registered.
//
//     widl -m32 -h -o PIMDriverAbstract.h PIMDriverAbstract.idl      (and -u for the identifiers; midl does
//     both) g++ -static -municode find.cpp PIMDriverAbstract_i.c -lole32 -loleaut32
//
// Status 0: found, 1: not, 3: no driver. The driver wants a single-threaded apartment.

#include <windows.h>

#include <PIMDriverAbstract.h>

#include <cstdio>

namespace {

/// Lets this thread see what the manifest says, as long as the program runs.
bool activate(const wchar_t* manifest) {
    ACTCTXW context{};
    context.cbSize = sizeof context;
    context.lpSource = manifest;
    ULONG_PTR cookie = 0;
    const HANDLE handle = CreateActCtxW(&context);
    return handle != INVALID_HANDLE_VALUE && ActivateActCtx(handle, &cookie);
}

/// Every member answers S_OK; what it found, or that it found nothing, is in the answer.
int find(BSTR number) {
    DataConnector* driver = nullptr;
    const HRESULT created = CoCreateInstance(CLSID_cDataConnector, nullptr, CLSCTX_INPROC_SERVER,
                                             IID_DataConnector, reinterpret_cast<void**>(&driver));
    if (FAILED(created)) {
        std::fprintf(stderr, "no driver: %08lx\n", static_cast<unsigned long>(created));
        return 3;
    }
    ContactRecord* cursor = nullptr;
    Contact* contact = nullptr;
    VARIANT_BOOL isUnknown = VARIANT_TRUE;
    LONG byNumber = 0;
    if (driver->OpenContactRecord(&cursor) == S_OK && cursor) cursor->FindFirst(&byNumber, number, &contact);
    if (contact) contact->get_NotInPIM(&isUnknown);
    if (!isUnknown) {
        BSTR name = nullptr;
        contact->get_FullName(&name);
        std::printf("%ls\n", name ? name : L"");
        SysFreeString(name);
    }
    if (contact) contact->Release();
    if (cursor) cursor->Release();
    driver->Release();
    return isUnknown ? 1 : 0;
}

}  // namespace

int wmain(int count, wchar_t** words) {
    if (count < 2 || (count > 2 && !activate(words[2]))) return 3;
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    BSTR number = SysAllocString(words[1]);
    const int status = find(number);
    SysFreeString(number);
    CoUninitialize();
    return status;
}

#include "com/Registration.h"

#include <oaidl.h>
#include <oleauto.h>

#include <iterator>
#include <string_view>

#include "automation/Com.h"
#include "com/TypeLibrary.h"
#include "module/OwnModule.h"

namespace zelbar {

namespace {

constexpr std::wstring_view kClasses = L"Software\\Classes\\";

std::wstring textOf(const GUID& id) {
    wchar_t buffer[40];
    StringFromGUID2(id, buffer, static_cast<int>(std::size(buffer)));
    return buffer;
}

std::wstring pathOf(const std::wstring& key) {
    return std::wstring(kClasses) + key;
}

HRESULT write(const std::wstring& key, const wchar_t* name, const std::wstring& value) {
    const auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    return HRESULT_FROM_WIN32(static_cast<unsigned long>(
        RegSetKeyValueW(HKEY_LOCAL_MACHINE, pathOf(key).c_str(), name, REG_SZ, value.c_str(), bytes)));
}

HRESULT removeTree(const std::wstring& key) {
    const LSTATUS status = RegDeleteTreeW(HKEY_LOCAL_MACHINE, pathOf(key).c_str());
    return status == ERROR_FILE_NOT_FOUND ? S_OK : HRESULT_FROM_WIN32(static_cast<unsigned long>(status));
}

/// The attributes of a type library, released with it.
class LibraryAttributes {
  public:
    explicit LibraryAttributes(Com<ITypeLib> library) : library_(std::move(library)) {
        if (library_) library_->GetLibAttr(&attributes_);
    }
    ~LibraryAttributes() {
        if (attributes_) library_->ReleaseTLibAttr(attributes_);
    }
    LibraryAttributes(const LibraryAttributes&) = delete;
    LibraryAttributes& operator=(const LibraryAttributes&) = delete;

    const TLIBATTR* get() const { return attributes_; }

  private:
    Com<ITypeLib> library_;
    TLIBATTR* attributes_ = nullptr;
};

HRESULT writeClass(const RegisteredClass& what, const GUID& library) {
    const std::wstring classKey = L"CLSID\\" + textOf(what.classId);
    struct Entry {
        std::wstring key;
        const wchar_t* name;
        std::wstring value;
    };
    const Entry entries[] = {
        {what.progId, nullptr, what.description},
        {what.progId + L"\\CLSID", nullptr, textOf(what.classId)},
        {classKey, nullptr, what.description},
        {classKey + L"\\ProgID", nullptr, what.progId},
        {classKey + L"\\Programmable", nullptr, L""},
        {classKey + L"\\TypeLib", nullptr, textOf(library)},
        {classKey + L"\\InprocServer32", nullptr, modulePath()},
        {classKey + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
    };
    for (const Entry& entry : entries)
        if (const HRESULT result = write(entry.key, entry.name, entry.value); FAILED(result)) return result;
    return S_OK;
}

}  // namespace

HRESULT registerServer(const RegisteredClass& what) {
    const auto library = embeddedTypeLibrary();
    const LibraryAttributes attributes(library);
    if (!attributes.get()) return TYPE_E_CANTLOADLIBRARY;
    HRESULT result = writeClass(what, attributes.get()->guid);
    std::wstring path = modulePath();
    if (SUCCEEDED(result)) result = RegisterTypeLib(library.get(), path.data(), nullptr);
    // Half a class would be found by clients and could not be used.
    if (FAILED(result)) unregisterServer(what);
    return result;
}

HRESULT unregisterServer(const RegisteredClass& what) {
    const LibraryAttributes attributes(embeddedTypeLibrary());
    if (attributes.get())
        UnRegisterTypeLib(attributes.get()->guid, attributes.get()->wMajorVerNum,
                          attributes.get()->wMinorVerNum, attributes.get()->lcid, SYS_WIN32);
    const HRESULT classRemoved = removeTree(L"CLSID\\" + textOf(what.classId));
    const HRESULT nameRemoved = removeTree(what.progId);
    return FAILED(classRemoved) ? classRemoved : nameRemoved;
}

}  // namespace zelbar

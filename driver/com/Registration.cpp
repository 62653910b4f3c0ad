#include "com/Registration.h"

#include <oaidl.h>
#include <oleauto.h>

#include <iterator>
#include <string_view>
#include <vector>

#include "automation/Bstr.h"
#include "automation/Com.h"
#include "com/TypeLibrary.h"
#include "module/OwnModule.h"

namespace zelbar {

namespace {

constexpr std::wstring_view kClasses = L"Software\\Classes\\";
// oleaut32's own classes that carry calls between apartments, for dual and for late-bound interfaces.
constexpr wchar_t kDualProxy[] = L"{00020424-0000-0000-C000-000000000046}";
constexpr wchar_t kDispatchProxy[] = L"{00020420-0000-0000-C000-000000000046}";

/// One value below the classes' key; no name means the key's own value.
struct Entry {
    std::wstring key;
    const wchar_t* name;
    std::wstring value;
};

std::wstring textOf(const GUID& id) {
    wchar_t buffer[40];
    StringFromGUID2(id, buffer, static_cast<int>(std::size(buffer)));
    return buffer;
}

std::wstring pathOf(const std::wstring& key) {
    return std::wstring(kClasses) + key;
}

/// The classes of all users, or of this one. Written by their own path: what is written below
/// HKEY_CLASSES_ROOT goes to all users.
HKEY rootOf(Audience audience) {
    return audience == Audience::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
}

HRESULT resultOf(LSTATUS status) {
    return HRESULT_FROM_WIN32(static_cast<unsigned long>(status));
}

HRESULT write(HKEY root, const std::vector<Entry>& entries) {
    for (const Entry& entry : entries) {
        const auto bytes = static_cast<DWORD>((entry.value.size() + 1) * sizeof(wchar_t));
        const HRESULT result = resultOf(
            RegSetKeyValueW(root, pathOf(entry.key).c_str(), entry.name, REG_SZ, entry.value.c_str(), bytes));
        if (FAILED(result)) return result;
    }
    return S_OK;
}

std::wstring read(HKEY root, const std::wstring& key, const wchar_t* name) {
    wchar_t text[64] = L"";
    DWORD size = sizeof(text);
    if (RegGetValueW(root, pathOf(key).c_str(), name, RRF_RT_REG_SZ, nullptr, text, &size) != ERROR_SUCCESS)
        return {};
    return text;
}

HRESULT removeTree(HKEY root, const std::wstring& key) {
    const LSTATUS status = RegDeleteTreeW(root, pathOf(key).c_str());
    return status == ERROR_FILE_NOT_FOUND ? S_OK : resultOf(status);
}

/// The embedded type library as the registry describes one.
class Library {
  public:
    struct Interface {
        std::wstring id;
        std::wstring name;
        const wchar_t* proxy;
    };

    Library() : library_(embeddedTypeLibrary()) {
        TLIBATTR* attributes = nullptr;
        if (!library_ || FAILED(library_->GetLibAttr(&attributes))) return;
        id_ = textOf(attributes->guid);
        version_ =
            std::to_wstring(attributes->wMajorVerNum) + L"." + std::to_wstring(attributes->wMinorVerNum);
        flags_ = std::to_wstring(attributes->wLibFlags & ~LIBFLAG_FHASDISKIMAGE);
        library_->ReleaseTLibAttr(attributes);
        for (UINT i = 0; i < library_->GetTypeInfoCount(); ++i) readInterface(i);
    }

    explicit operator bool() const { return !id_.empty(); }
    const std::wstring& id() const { return id_; }
    const std::wstring& version() const { return version_; }
    std::wstring key() const { return L"TypeLib\\" + id_; }
    const std::vector<Interface>& interfaces() const { return interfaces_; }

    std::vector<Entry> entries(const std::wstring& module) const {
        const std::wstring versionKey = key() + L"\\" + version_;
        std::vector<Entry> result{
            {versionKey, nullptr, nameOf(-1, Wording::Description)},
            {versionKey + L"\\0\\win32", nullptr, module},
            {versionKey + L"\\FLAGS", nullptr, flags_},
            {versionKey + L"\\HELPDIR", nullptr, module.substr(0, module.find_last_of(L'\\'))},
        };
        for (const auto& [id, name, proxy] : interfaces_) {
            const std::wstring key = L"Interface\\" + id;
            result.push_back({key, nullptr, name});
            result.push_back({key + L"\\ProxyStubClsid32", nullptr, proxy});
            result.push_back({key + L"\\TypeLib", nullptr, id_});
            result.push_back({key + L"\\TypeLib", L"Version", version_});
        }
        return result;
    }

  private:
    enum class Wording { Name, Description };

    std::wstring nameOf(int index, Wording wording) const {
        Bstr text;
        const bool isName = wording == Wording::Name;
        library_->GetDocumentation(index, isName ? text.put() : nullptr, isName ? nullptr : text.put(),
                                   nullptr, nullptr);
        return text.text();
    }
    void readInterface(UINT index) {
        Com<ITypeInfo> info;
        TYPEATTR* attributes = nullptr;
        if (FAILED(library_->GetTypeInfo(index, info.put())) || FAILED(info->GetTypeAttr(&attributes)))
            return;
        // A dual interface shows here as what it is late bound.
        if (attributes->typekind == TKIND_DISPATCH) {
            const bool isDual = (attributes->wTypeFlags & TYPEFLAG_FDUAL) != 0;
            interfaces_.push_back({textOf(attributes->guid), nameOf(static_cast<int>(index), Wording::Name),
                                   isDual ? kDualProxy : kDispatchProxy});
        }
        info->ReleaseTypeAttr(attributes);
    }

    Com<ITypeLib> library_;
    std::wstring id_, version_, flags_;
    std::vector<Interface> interfaces_;
};

std::vector<Entry> classEntries(const RegisteredClass& what, const Library& library,
                                const std::wstring& module) {
    const std::wstring key = L"CLSID\\" + textOf(what.classId);
    return {
        {what.progId, nullptr, what.description},
        {what.progId + L"\\CLSID", nullptr, textOf(what.classId)},
        {key, nullptr, what.description},
        {key + L"\\ProgID", nullptr, what.progId},
        {key + L"\\Programmable", nullptr, L""},
        {key + L"\\TypeLib", nullptr, library.id()},
        {key + L"\\InprocServer32", nullptr, module},
        {key + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
    };
}

/// This version of the library, and the interfaces that are its own: another version may stand beside it.
void removeLibrary(HKEY root, const Library& library) {
    for (const auto& [id, name, proxy] : library.interfaces()) {
        const std::wstring key = L"Interface\\" + id;
        if (read(root, key + L"\\TypeLib", nullptr) == library.id() &&
            read(root, key + L"\\TypeLib", L"Version") == library.version())
            removeTree(root, key);
    }
    removeTree(root, library.key() + L"\\" + library.version());
    // Refused as long as another version has a key below it.
    RegDeleteKeyW(root, pathOf(library.key()).c_str());
}

}  // namespace

HRESULT registerServer(const RegisteredClass& what, Audience audience) {
    const Library library;
    if (!library) return TYPE_E_CANTLOADLIBRARY;
    const HKEY root = rootOf(audience);
    const std::wstring module = modulePath();
    HRESULT result = write(root, classEntries(what, library, module));
    if (SUCCEEDED(result)) result = write(root, library.entries(module));
    // Half a class would be found by clients and could not be used.
    if (FAILED(result)) unregisterServer(what, audience);
    return result;
}

HRESULT unregisterServer(const RegisteredClass& what, Audience audience) {
    const HKEY root = rootOf(audience);
    if (const Library library; library) removeLibrary(root, library);
    const HRESULT classRemoved = removeTree(root, L"CLSID\\" + textOf(what.classId));
    const HRESULT nameRemoved = removeTree(root, what.progId);
    return FAILED(classRemoved) ? classRemoved : nameRemoved;
}

}  // namespace zelbar

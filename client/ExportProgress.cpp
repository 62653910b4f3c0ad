#include "client/ExportProgress.h"

namespace pimcall {
namespace {

constexpr wchar_t kMember[] = L"Progress";
constexpr DISPID kNumber = 1;

}  // namespace

STDMETHODIMP ExportProgress::QueryInterface(REFIID id, void** result) noexcept {
    if (!result) return E_POINTER;
    *result = id == __uuidof(IUnknown) || id == __uuidof(IDispatch) ? this : nullptr;
    return *result ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP ExportProgress::GetTypeInfoCount(UINT* count) noexcept {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
}

STDMETHODIMP ExportProgress::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                           DISPID* numbers) noexcept {
    const bool known = count == 1 && lstrcmpiW(names[0], kMember) == 0;
    numbers[0] = known ? kNumber : DISPID_UNKNOWN;
    return known ? S_OK : DISP_E_UNKNOWNNAME;
}

STDMETHODIMP ExportProgress::Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*,
                                    EXCEPINFO*, UINT*) noexcept {
    if (member != kNumber) return DISP_E_MEMBERNOTFOUND;
    if (arguments->cArgs != 3) return DISP_E_BADPARAMCOUNT;
    // The last argument comes first.
    const VARIANT* given = arguments->rgvarg;
    if (given[2].vt != VT_BSTR || given[1].vt != VT_I4 || given[0].vt != VT_I4) return DISP_E_TYPEMISMATCH;
    try {
        tell_(std::wstring(given[2].bstrVal, SysStringLen(given[2].bstrVal)), given[1].lVal, given[0].lVal);
        return S_OK;
    } catch (...) {
        return E_FAIL;
    }
}

}  // namespace pimcall

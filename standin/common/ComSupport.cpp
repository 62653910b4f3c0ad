// What <comdef.h> declares and, with this compiler, no library provides.
#include <comdef.h>

_variant_t vtMissing(static_cast<long>(DISP_E_PARAMNOTFOUND), VT_ERROR);

namespace _com_util {

BSTR WINAPI ConvertStringToBSTR(const char* text) {
    if (!text) return nullptr;
    const int size = MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0);
    BSTR result = SysAllocStringLen(nullptr, static_cast<UINT>(size - 1));
    if (result) MultiByteToWideChar(CP_ACP, 0, text, -1, result, size);
    return result;
}

char* WINAPI ConvertBSTRToString(BSTR text) {
    if (!text) return nullptr;
    const int size = WideCharToMultiByte(CP_ACP, 0, text, -1, nullptr, 0, nullptr, nullptr);
    char* result = new char[static_cast<size_t>(size)];
    WideCharToMultiByte(CP_ACP, 0, text, -1, result, size, nullptr, nullptr);
    return result;
}

}  // namespace _com_util

void WINAPI _com_issue_errorex(HRESULT code, IUnknown*, REFIID) {
    IErrorInfo* details = nullptr;
    GetErrorInfo(0, &details);
    throw _com_error(code, details);
}

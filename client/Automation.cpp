#include "client/Automation.h"

#include <new>

#include "client/Failure.h"

namespace pimcall {
namespace {

/// The arguments come the last one first.
Value invokeGet(IDispatch& object, DISPID member, std::wstring_view name,
                std::vector<VARIANT> reversed = {}) {
    Value result;
    DISPPARAMS arguments{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    require(object.Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                          &arguments, result.put(), nullptr, nullptr),
            name);
    return result;
}

DISPID memberNamed(IDispatch& object, const wchar_t* name) {
    auto* mutableName = const_cast<LPOLESTR>(name);
    DISPID member = DISPID_UNKNOWN;
    require(object.GetIDsOfNames(IID_NULL, &mutableName, 1, LOCALE_USER_DEFAULT, &member), name);
    return member;
}

std::wstring hexadecimal(HRESULT result) {
    constexpr wchar_t kDigits[] = L"0123456789ABCDEF";
    std::wstring text = L"0x";
    for (int shift = 28; shift >= 0; shift -= 4)
        text += kDigits[(static_cast<unsigned long>(result) >> shift) & 0xF];
    return text;
}

}  // namespace

Bstr::Bstr(std::wstring_view text) : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {
    if (!text_) throw std::bad_alloc();
}

Value::Value(const std::wstring& text) {
    value_.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    if (!value_.bstrVal) throw std::bad_alloc();
    value_.vt = VT_BSTR;
}

Value::Value(bool on) {
    value_.vt = VT_BOOL;
    value_.boolVal = on ? VARIANT_TRUE : VARIANT_FALSE;
}

Value::Value(long number) {
    value_.vt = VT_I4;
    value_.lVal = number;
}

Value::Value(Value&& other) noexcept : value_(other.value_) {
    VariantInit(&other.value_);
}

Value Value::convertedTo(VARTYPE type) const {
    Value result;
    // VariantChangeType declares its source writable, but only reads it.
    require(VariantChangeType(result.put(), const_cast<VARIANT*>(&value_), 0, type), L"reading a value");
    return result;
}

std::wstring Value::text() const {
    const Value converted = convertedTo(VT_BSTR);
    const BSTR text = converted.value_.bstrVal;
    return text ? std::wstring(text, SysStringLen(text)) : std::wstring();
}

std::vector<std::wstring> Value::texts() const {
    if (value_.vt != (VT_ARRAY | VT_BSTR)) return {};
    LONG first = 0, last = -1;
    require(SafeArrayGetLBound(value_.parray, 1, &first), L"reading a list");
    require(SafeArrayGetUBound(value_.parray, 1, &last), L"reading a list");
    std::vector<std::wstring> result;
    for (LONG index = first; index <= last; ++index) {
        Bstr text;
        require(SafeArrayGetElement(value_.parray, &index, text.put()), L"reading a list");
        result.push_back(text.text());
    }
    return result;
}

long Value::integer() const {
    return convertedTo(VT_I4).value_.lVal;
}

bool Value::boolean() const {
    return convertedTo(VT_BOOL).value_.boolVal != VARIANT_FALSE;
}

std::wstring describe(HRESULT result) {
    wchar_t text[512] = {};
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                  static_cast<DWORD>(result), 0, text, ARRAYSIZE(text), nullptr);
    while (length > 0 && (text[length - 1] <= L' ' || text[length - 1] == L'.')) --length;
    const std::wstring code = hexadecimal(result);
    return length == 0 ? code : std::wstring(text, length) + L" (" + code + L")";
}

void require(HRESULT result, std::wstring_view step) {
    if (FAILED(result))
        throw Failure(L"The driver failed in " + std::wstring(step) + L": " + describe(result) + L".",
                      ExitCode::Failed, result);
}

std::vector<Value> elementsOf(IDispatch& collection) {
    const auto enumerator = invokeGet(collection, DISPID_NEWENUM, L"_NewEnum").object<IEnumVARIANT>();
    if (!enumerator) throw Failure(L"The driver handed out a collection that cannot be walked.");
    std::vector<Value> elements;
    for (;;) {
        Value element;
        ULONG fetched = 0;
        const HRESULT result = enumerator->Next(1, element.put(), &fetched);
        require(result, L"walking a collection");
        if (result != S_OK || fetched == 0) return elements;
        elements.push_back(std::move(element));
    }
}

Value resultOf(IDispatch& object, const wchar_t* name) {
    return invokeGet(object, memberNamed(object, name), name);
}

Value resultOf(IDispatch& object, const wchar_t* name, const Value& argument) {
    return invokeGet(object, memberNamed(object, name), name, {argument.raw()});
}

Value resultOf(IDispatch& object, const wchar_t* name, const Value& first, const Value& second) {
    return invokeGet(object, memberNamed(object, name), name, {second.raw(), first.raw()});
}

}  // namespace pimcall

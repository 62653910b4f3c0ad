#include "automation/Variant.h"

#include <oleauto.h>

#include <new>
#include <utility>

#include "automation/Bstr.h"
#include "automation/Fault.h"

namespace zelbar {

namespace {

/// The headers of the cross compiler want a writable source for what the platform only reads.
VARIANT* writable(const VARIANT& value) {
    return const_cast<VARIANT*>(&value);
}

void checked(HRESULT result) {
    if (result == E_OUTOFMEMORY) throw std::bad_alloc();
    if (FAILED(result))
        throw runtimeFault(result == DISP_E_OVERFLOW ? fault::kOverflow : fault::kTypeMismatch);
}

}  // namespace

Variant::Variant(bool value) {
    value_.vt = VT_BOOL;
    value_.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
}
Variant::Variant(short value) {
    value_.vt = VT_I2;
    value_.iVal = value;
}
Variant::Variant(int value) : Variant(static_cast<long>(value)) {}
Variant::Variant(long value) {
    value_.vt = VT_I4;
    value_.lVal = value;
}
Variant::Variant(double value) {
    value_.vt = VT_R8;
    value_.dblVal = value;
}
Variant::Variant(std::wstring_view value) {
    value_.bstrVal = Bstr(value).detach();
    value_.vt = VT_BSTR;
}
Variant::Variant(const Com<IDispatch>& value) {
    value_.pdispVal = Com<IDispatch>(value).detach();
    value_.vt = VT_DISPATCH;
}

Variant::Variant(const Variant& other) {
    checked(VariantCopy(&value_, writable(other.value_)));
}
Variant::Variant(Variant&& other) noexcept : value_(other.detach()) {}
Variant::~Variant() {
    VariantClear(&value_);
}

Variant& Variant::operator=(Variant other) noexcept {
    std::swap(value_, other.value_);
    return *this;
}

Variant Variant::ofTexts(const std::vector<std::wstring>& texts) {
    Variant result;
    result.value_.parray = SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(texts.size()));
    if (!result.value_.parray) throw std::bad_alloc();
    result.value_.vt = VT_ARRAY | VT_BSTR;
    for (LONG i = 0; i < static_cast<LONG>(texts.size()); ++i)
        checked(SafeArrayPutElement(result.value_.parray, &i, Bstr(texts[static_cast<size_t>(i)]).get()));
    return result;
}

Variant Variant::ofDate(double days) {
    Variant result;
    result.value_.date = days;
    result.value_.vt = VT_DATE;
    return result;
}

Variant Variant::missing() {
    Variant result;
    result.value_.vt = VT_ERROR;
    result.value_.scode = DISP_E_PARAMNOTFOUND;
    return result;
}

Variant Variant::copyOf(const VARIANT& value) {
    Variant result;
    checked(VariantCopyInd(&result.value_, writable(value)));
    return result;
}

bool Variant::isNothing() const {
    return isUnset() || (value_.vt == VT_DISPATCH && !value_.pdispVal) ||
           (value_.vt == VT_UNKNOWN && !value_.punkVal);
}

Variant Variant::convertedTo(VARTYPE type) const {
    Variant result;
    checked(VariantChangeType(&result.value_, writable(value_), 0, type));
    return result;
}

std::wstring Variant::text() const {
    if (isUnset()) return {};
    if (value_.vt == VT_BSTR) return textOf(value_.bstrVal);
    return textOf(convertedTo(VT_BSTR).value_.bstrVal);
}

long Variant::integer() const {
    return isUnset() ? 0 : convertedTo(VT_I4).value_.lVal;
}

bool Variant::boolean() const {
    return !isUnset() && convertedTo(VT_BOOL).value_.boolVal != VARIANT_FALSE;
}

Com<IDispatch> Variant::object() const {
    if (isNothing()) return {};
    if (value_.vt == VT_DISPATCH) return Com<IDispatch>::share(value_.pdispVal);
    if (value_.vt != VT_UNKNOWN) throw runtimeFault(fault::kTypeMismatch);
    return Com<IUnknown>::share(value_.punkVal).as<IDispatch>();
}

std::vector<std::wstring> Variant::texts() const {
    std::vector<std::wstring> result;
    if (value_.vt != (VT_ARRAY | VT_BSTR)) return result;
    LONG last = -1;
    checked(SafeArrayGetUBound(value_.parray, 1, &last));
    for (LONG i = 0; i <= last; ++i) {
        Bstr element;
        checked(SafeArrayGetElement(value_.parray, &i, element.put()));
        result.push_back(element.text());
    }
    return result;
}

VARIANT* Variant::put() {
    VariantClear(&value_);
    return &value_;
}

VARIANT Variant::detach() {
    return std::exchange(value_, VARIANT{});
}

}  // namespace zelbar

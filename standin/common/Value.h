#pragma once

#include <comdef.h>
#include <wrl/client.h>

#include <concepts>
#include <string>
#include <string_view>
#include <vector>

namespace standin {

// What members take and return.
using Value = _variant_t;

// An owning reference to a COM object or to one of our own.
template <class T>
using Ref = Microsoft::WRL::ComPtr<T>;

// Takes over a reference that the caller owns. (This compiler's ComPtr::Attach adds one of its own.)
template <class T>
Ref<T> adopt(T* owned) noexcept {
    Ref<T> reference;
    *reference.GetAddressOf() = owned;
    return reference;
}

// A point in time as automation counts it: days since 30 December 1899.
struct Date {
    double days = 0;
};

// C++ to automation. An empty reference becomes "Nothing" (VT_DISPATCH with a null pointer).
Value toValue(std::wstring_view text);
Value toValue(Date date);
inline Value toValue(const std::wstring& text) {
    return toValue(std::wstring_view(text));
}
inline Value toValue(const wchar_t* text) {
    return toValue(std::wstring_view(text));
}
inline Value toValue(Value value) {
    return value;
}
inline Value toValue(std::same_as<bool> auto flag) {
    return Value(flag);
}
inline Value toValue(std::same_as<double> auto number) {
    return Value(number);
}
template <std::integral T>
requires(!std::same_as<T, bool>) Value toValue(T number) {
    return Value(static_cast<long>(number));
}
template <std::derived_from<IDispatch> T>
Value toValue(const Ref<T>& object) {
    return Value(static_cast<IDispatch*>(object.Get()));
}
// An enumerator, as "For Each" expects it.
template <std::derived_from<IUnknown> T>
requires(!std::derived_from<T, IDispatch>) Value toValue(const Ref<T>& object) {
    return Value(static_cast<IUnknown*>(object.Get()));
}

// An array of columns by rows, both counted from 0, of cells that follow each other row by row.
Value gridOf(std::size_t columns, std::vector<Value> cells);

// Automation to C++, with automation's own conversions; throws a plain DISP_E_TYPEMISMATCH or
// DISP_E_OVERFLOW.
std::wstring toText(const Value& value);
long toLong(const Value& value);
double toDouble(const Value& value);
bool toBool(const Value& value);
Date toDate(const Value& value);
// Never empty; throws for anything that is not an object or is "Nothing".
Ref<IDispatch> toObject(const Value& value);

// An argument left out, in the middle of a list or at its end.
bool isMissing(const Value& value);

// The conversion a setter asks for by its parameter type.
template <class T>
T valueTo(const Value& value) {
    if constexpr (std::same_as<T, std::wstring>)
        return toText(value);
    else if constexpr (std::same_as<T, bool>)
        return toBool(value);
    else if constexpr (std::integral<T>)
        return static_cast<T>(toLong(value));
    else if constexpr (std::floating_point<T>)
        return toDouble(value);
    else if constexpr (std::same_as<T, Date>)
        return toDate(value);
    else if constexpr (std::same_as<T, Ref<IDispatch>>)
        return toObject(value);
    else
        return value;
}

}  // namespace standin

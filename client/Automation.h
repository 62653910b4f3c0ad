#pragma once

#include <windows.h>

#include <oleauto.h>
#include <wrl/client.h>

#include <string>
#include <string_view>
#include <vector>

namespace pimcall {

using Microsoft::WRL::ComPtr;

/// Owns one BSTR.
class Bstr {
  public:
    Bstr() = default;
    /// Throws std::bad_alloc.
    explicit Bstr(std::wstring_view text);
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    ~Bstr() { SysFreeString(text_); }

    BSTR get() const { return text_; }
    /// The address for an out argument, only once and only of an empty one.
    BSTR* put() { return &text_; }
    std::wstring text() const { return text_ ? std::wstring(text_, SysStringLen(text_)) : std::wstring(); }

  private:
    BSTR text_ = nullptr;
};

/// Owns one VARIANT, empty until a call has filled it. The readers throw `Failure` for a value that does not
/// convert.
class Value {
  public:
    Value() = default;
    /// Throws std::bad_alloc.
    explicit Value(const std::wstring& text);
    explicit Value(bool on);
    explicit Value(long number);
    Value(Value&& other) noexcept;
    Value& operator=(Value&&) = delete;
    ~Value() { VariantClear(&value_); }

    /// The address for an out argument, only of an empty one.
    VARIANT* put() { return &value_; }
    /// For an in argument: the value stays this object's.
    const VARIANT& raw() const { return value_; }
    std::wstring text() const;
    /// The elements of an array of texts; none for anything else.
    std::vector<std::wstring> texts() const;
    long integer() const;
    bool boolean() const;
    /// The interface asked for of the object that it holds; none when it holds no such object.
    template <class Interface>
    ComPtr<Interface> object() const {
        ComPtr<Interface> result;
        if ((value_.vt == VT_DISPATCH || value_.vt == VT_UNKNOWN) && value_.punkVal)
            value_.punkVal->QueryInterface(IID_PPV_ARGS(result.GetAddressOf()));
        return result;
    }

  private:
    Value convertedTo(VARTYPE type) const;

    VARIANT value_{};
};

/// Throws `Failure` with the system's text when the named step failed.
void require(HRESULT result, std::wstring_view step);

/// The system's text for a result code and the code itself, as in "Class not registered (0x80040154)".
std::wstring describe(HRESULT result);

/// What a client's For Each delivers: all elements of a collection, in their order.
std::vector<Value> elementsOf(IDispatch& collection);

/// What a property, or a method without arguments, gives that is reached by its name.
Value resultOf(IDispatch& object, const wchar_t* name);

/// The same with one argument.
Value resultOf(IDispatch& object, const wchar_t* name, const Value& argument);

/// And with two.
Value resultOf(IDispatch& object, const wchar_t* name, const Value& first, const Value& second);

}  // namespace pimcall

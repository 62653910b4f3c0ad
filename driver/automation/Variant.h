#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>
#include <string_view>
#include <vector>

#include "automation/Com.h"

namespace zelbar {

/// Owns one VARIANT. Readers convert as automation does and throw a type-mismatch fault where that fails.
class Variant {
  public:
    Variant() = default;
    Variant(bool value);
    Variant(short value);
    Variant(int value);
    Variant(long value);
    Variant(double value);
    Variant(const wchar_t* value) : Variant(std::wstring_view(value)) {}
    Variant(const std::wstring& value) : Variant(std::wstring_view(value)) {}
    Variant(std::wstring_view value);
    Variant(const Com<IDispatch>& value);
    Variant(const Variant& other);
    Variant(Variant&& other) noexcept;
    ~Variant();
    Variant& operator=(Variant other) noexcept;

    /// An array of texts (VT_ARRAY|VT_BSTR), indexed from 0.
    static Variant ofTexts(const std::vector<std::wstring>& texts);
    /// A point in time, as days since 30 December 1899.
    static Variant ofDate(double days);
    /// What stands for an optional argument that is left out.
    static Variant missing();
    /// A copy of a foreign VARIANT, references followed.
    static Variant copyOf(const VARIANT& value);

    VARTYPE type() const { return value_.vt; }
    bool isNothing() const;

    /// Empty and Null are an empty text.
    std::wstring text() const;
    /// Empty and Null are 0 and False.
    long integer() const;
    bool boolean() const;
    /// The object held; none for Nothing. Anything but an object is a type mismatch.
    Com<IDispatch> object() const;
    /// The elements of an array of texts; empty for anything else.
    std::vector<std::wstring> texts() const;

    /// For calls only: the VARIANT as it lies here, and the address of an emptied one.
    const VARIANT& raw() const { return value_; }
    VARIANT* put();
    /// Hands the content to the caller, who clears it.
    VARIANT detach();

  private:
    Variant convertedTo(VARTYPE type) const;
    bool isUnset() const { return value_.vt == VT_EMPTY || value_.vt == VT_NULL; }

    VARIANT value_{};
};

}  // namespace zelbar

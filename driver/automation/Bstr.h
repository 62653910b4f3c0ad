#pragma once

#include <windows.h>

#include <oleauto.h>

#include <new>
#include <string>
#include <string_view>
#include <utility>

namespace zelbar {

/// The text of a BSTR; a null BSTR is an empty text, embedded NULs are kept.
inline std::wstring textOf(BSTR text) {
    return text ? std::wstring(text, SysStringLen(text)) : std::wstring();
}

/// Owns one BSTR.
class Bstr {
  public:
    Bstr() = default;
    explicit Bstr(std::wstring_view text)
        : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {
        if (!text_) throw std::bad_alloc();
    }
    Bstr(Bstr&& other) noexcept : text_(other.detach()) {}
    Bstr& operator=(Bstr&& other) noexcept {
        std::swap(text_, other.text_);
        return *this;
    }
    ~Bstr() { SysFreeString(text_); }

    BSTR get() const { return text_; }
    std::wstring text() const { return textOf(text_); }

    /// The address for an out argument; what was held is freed first.
    BSTR* put() {
        SysFreeString(std::exchange(text_, nullptr));
        return &text_;
    }

    /// Hands the BSTR to the caller, who frees it.
    BSTR detach() { return std::exchange(text_, nullptr); }

  private:
    BSTR text_ = nullptr;
};

}  // namespace zelbar

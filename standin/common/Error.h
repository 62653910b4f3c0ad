#pragma once

#include <windows.h>

#include <exception>
#include <string>

namespace standin {

// A failure that a member reports to its caller.
// Normally it travels as an automation exception (DISP_E_EXCEPTION with number, text and source);
// a plain one is the bare failing HRESULT, as the COM layer itself would answer.
class Error : public std::exception {
  public:
    // An empty source means the name of the server.
    explicit Error(HRESULT code, std::wstring description = L"", std::wstring source = L"")
        : code_(code), description_(std::move(description)), source_(std::move(source)) {}

    static Error plain(HRESULT code) {
        Error error(code);
        error.plain_ = true;
        return error;
    }

    HRESULT code() const noexcept { return code_; }
    const std::wstring& description() const noexcept { return description_; }
    const std::wstring& source() const noexcept { return source_; }
    bool isPlain() const noexcept { return plain_; }
    const char* what() const noexcept override { return "a stand-in reported an error"; }

  private:
    HRESULT code_;
    std::wstring description_;
    std::wstring source_;
    bool plain_ = false;
};

}  // namespace standin

#pragma once

#include <windows.h>

#include <exception>
#include <string>
#include <utility>

namespace pimcall {

/// What the program ends with.
enum class ExitCode { Found = 0, NotFound = 1, Usage = 2, Failed = 3 };

/// Ends the program with one plain sentence for its user.
class Failure : public std::exception {
  public:
    explicit Failure(std::wstring sentence, ExitCode exitCode = ExitCode::Failed, HRESULT result = E_FAIL)
        : sentence_(std::move(sentence)), exitCode_(exitCode), result_(result) {}

    const std::wstring& sentence() const { return sentence_; }
    ExitCode exitCode() const { return exitCode_; }
    /// What a call came back with; E_FAIL where it was no call that failed.
    HRESULT result() const { return result_; }
    const char* what() const noexcept override { return "pimcall::Failure"; }

  private:
    std::wstring sentence_;
    ExitCode exitCode_;
    HRESULT result_;
};

/// The command line is not one that the program understands.
class UsageError final : public Failure {
  public:
    explicit UsageError(std::wstring sentence) : Failure(std::move(sentence), ExitCode::Usage) {}
};

}  // namespace pimcall

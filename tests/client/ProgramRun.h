#pragma once

#include <functional>
#include <string>
#include <vector>

#include "client/Program.h"

namespace pimcall {

/// Keeps what the program writes, as a terminal or as a file.
class Recorder final : public Writer {
  public:
    explicit Recorder(bool isTerminal = false) : isTerminal_(isTerminal) {}
    bool isTerminal() const override { return isTerminal_; }
    void write(std::wstring_view text) override { text_ += text; }
    const std::wstring& text() const { return text_; }

  private:
    std::wstring text_;
    bool isTerminal_;
};

/// What came of one run of the whole program in this process.
struct ProgramRun {
    ProgramRun(const std::vector<std::wstring>& words, const std::function<Driver()>& driver) {
        Recorder outRecorder;
        Recorder errorRecorder;
        exitCode = runProgram(words, driver, outRecorder, errorRecorder);
        out = outRecorder.text();
        error = errorRecorder.text();
    }

    ExitCode exitCode;
    std::wstring out;
    std::wstring error;
};

}  // namespace pimcall

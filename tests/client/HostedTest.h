#pragma once

#include <functional>

#include "client/Program.h"
#include "com/ClassFactory.h"
#include "connector/cDataConnector.h"
#include "tests/fixture/DriverTest.h"

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

/// The program and the driver in one process, between an Outlook and a DAO that live there too.
class HostedTest : public zelbar::DriverTest {
  protected:
    HostedTest() {
        const auto factory = zelbar::makeClassFactory(
            [] { return zelbar::Com<IUnknown>(zelbar::makeObject<zelbar::cDataConnector>()); });
        EXPECT_EQ(S_OK, CoRegisterClassObject(CLSID_cDataConnector, factory.get(), CLSCTX_INPROC_SERVER,
                                              REGCLS_MULTIPLEUSE, &registration_));
    }
    void TearDown() override {
        CoRevokeClassObject(registration_);
        DriverTest::TearDown();
    }

    /// Runs the program, which must report nothing. What it answered is in `out`.
    ExitCode run(const std::vector<std::wstring>& words) {
        const ProgramRun run(words, Driver::create);
        EXPECT_EQ(L"", run.error);
        out = run.out;
        return run.exitCode;
    }
    /// Whether the last run has answered that among other things.
    testing::AssertionResult says(const std::wstring& part) const {
        return (out.find(part) != out.npos ? testing::AssertionSuccess() : testing::AssertionFailure())
               << testing::PrintToString(part) << " in:\n"
               << testing::PrintToString(out);
    }
    void expect(ExitCode exitCode, const std::vector<std::wstring>& words,
                const std::vector<std::wstring>& parts) {
        EXPECT_EQ(exitCode, run(words)) << testing::PrintToString(words);
        for (const std::wstring& part : parts) EXPECT_TRUE(says(part));
    }

    std::wstring out;

  private:
    DWORD registration_ = 0;
};

}  // namespace pimcall

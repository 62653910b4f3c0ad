#pragma once

#include "com/ClassFactory.h"
#include "connector/cDataConnector.h"
#include "tests/client/ProgramRun.h"
#include "tests/fixture/DriverTest.h"

namespace pimcall {

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

#pragma once

#include <PIMDriverAbstract.h>

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

    /// Runs the program, which must not report more than `notes`. What it answered is in `out`.
    ExitCode run(const std::vector<std::wstring>& words, const std::wstring& notes = L"") {
        const ProgramRun run(words, Driver::create);
        EXPECT_EQ(notes, run.error);
        out = run.out;
        return run.exitCode;
    }

    std::wstring out;

  private:
    DWORD registration_ = 0;
};

}  // namespace pimcall

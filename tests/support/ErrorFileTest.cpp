
#include "support/mLogError.h"
#include "tests/support/Fixture.h"

namespace zelbar {
namespace {

class ErrorFileTest : public SupportTest {
  protected:
    std::vector<std::string> written() const {
        return harness::lines(harness::readFile(errors.ErrorLogFileName()));
    }

    mLogError errors{(module.title = L"DrvTitle", module)};
};

TEST_F(ErrorFileTest, EachLineHasFiveFields) {
    const wchar_t kTime[] = L"24/05/2002 14:03:11";
    const Fault denied{70, L"Permission denied", L""};
    const Fault lost{static_cast<long>(0x800403E9), L"Loss of connection with Outlook.",
                     L"zelbar00.GetApp()"};
    errors.LogError({denied, 0, 0}, L"modMultiUser.MakeDir", nullptr, L"C:\\Data\\User", kTime);
    errors.LogError({}, L"GetApp()", nullptr, L"", kTime);
    errors.LogError({lost, 0, 12}, L"Show", L"Folders", L"Zoë\r\n\tforged", kTime);
    EXPECT_EQ(written(),
              (std::vector<std::string>{
                  "24/05/2002 14:03:11\tErr: DrvTitle - modMultiUser.MakeDir\tC:\\Data\\User\t"
                  "Permission denied - 70 (0x46)\t-",
                  "24/05/2002 14:03:11\tErr: DrvTitle - GetApp()\t-\t-\t-",
                  "24/05/2002 14:03:11\tErr: zelbar00.GetApp().Folders - Show line 12\tZo\xC3\xAB   forged\t"
                  "Loss of connection with Outlook. - -2147220503 (0x800403E9)\t-"}));
}

TEST_F(ErrorFileTest, LiesInTheDocumentsFolderUnderTheUsersName) {
    EXPECT_EQ(errors.ErrorLogFileName(), L"");
    errors.LogError({}, L"x");
    EXPECT_NE(GetNetUserName(), L"");
    EXPECT_EQ(errors.ErrorLogFileName(), folder.file(L"Documents\\error_" + GetNetUserName() + L".log"));
    harness::TemporaryFolder elsewhere;
    registry.useProfile(elsewhere);
    errors.LogError({}, L"y");
    EXPECT_EQ(written().size(), 2u) << "the name is made once";
}

}  // namespace
}  // namespace zelbar

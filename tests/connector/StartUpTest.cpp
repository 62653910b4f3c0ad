#include "core/DriverState.h"
#include "tests/fixture/DriverTest.h"

namespace zelbar {

namespace {

int sleeps = 0;

class StartUp : public DriverTest {
  protected:
    StartUp() {
        sleeps = 0;
        driver().sleep = [](DWORD milliseconds) { sleeps += milliseconds == 200 ? 1 : 1000; };
    }
};

TEST_F(StartUp, IsLoggedStepByStepAndLeavesOutlookAlone) {
    writeCache({});
    connector();
    const auto lines = trace();
    size_t at = 0;
    for (const char* expected :
         {"* Driver startup *", "* Driver initialization *", "Connecting to Outlook...",
          "Connecting to Outlook...GetNameSpace", "---> Waiting end of addin init.", "Connecting to DAO...",
          "Testing file existence (Connec00.mdb)...", "File exists: Connecting to database...",
          "ReadPst() read in connect00.mdb TStoreID table", "  i=1", "Creating default ActionList...",
          "Timer initialization", "* fin Driver initialization *"}) {
        while (at < lines.size() && lines[at].find(expected) == std::string::npos) ++at;
        EXPECT_LT(at, lines.size()) << expected << " is missing or out of order";
    }
    EXPECT_FALSE(traced("Error"));
    EXPECT_EQ(sleeps, 0);
    EXPECT_EQ(outlook.server().liveObjects(), 0);
    finish();
    EXPECT_TRUE(traced("Outlook deallocation..."));
    EXPECT_EQ(dao.server().liveObjects(), 0);
}

TEST_F(StartUp, WaitsForTheAddInAtMostTwoHundredSteps) {
    const struct {
        const wchar_t* value;
        int sleeps;
    } cases[] = {{L"1", 200}, {L"0", 0}, {L"01", 0}, {L" 1", 0}, {L"", 0}};
    for (const auto& c : cases) {
        sleeps = 0;
        popup(L"SynchroInProgress", c.value);
        connector();
        finish();
        EXPECT_EQ(sleeps, c.sleeps) << c.value;
    }
}

TEST_F(StartUp, TheNextDriverObjectSpeaksTheLanguageThatIsSetThen) {
    const auto nameOfASetting = [this](const wchar_t* lang) {
        registry.set(HKEY_CURRENT_USER, std::wstring(kClientKey) + L"\\Settings", L"lang", lang);
        // Named while start-up makes it, before the text service is set up.
        const std::wstring name = script()
                                      .object(Member{L"Actions"})
                                      .object(Member{L"Item"}, 4099)
                                      .object(Member{L"ActionProp"})
                                      .object(Member{L"Item"}, 1)
                                      .text(Member{L"PropertyName"});
        finish();
        return name;
    };
    EXPECT_EQ(nameOfASetting(L"0"), L"Address of the recipient");
    EXPECT_EQ(nameOfASetting(L"2"), L"Adresse des Empf\u00E4ngers");
}

}  // namespace

}  // namespace zelbar

#include "client/explain/Nearest.h"
#include "tests/client/HostedTest.h"

namespace pimcall::explain {
namespace {

class ExplainTest : public HostedTest {
  protected:
    ExplainTest() {
        registry.set(HKEY_CURRENT_USER, zelbar::kPopupKey, L"Country", L"SE");
        writeCache({addListed(L"Bo", L"Baker", L"+46 31 390"),
                    {L"Able", L"7", L"00FF"},
                    addListed(L"Cy", L"Carr", L"7"),
                    {L"Lost", L"8", L"00FE", L"9"}});
    }
    /// Nothing that the driver would do has been done.
    void TearDown() override {
        EXPECT_EQ(4, cacheRows());
        HostedTest::TearDown();
    }
    bool says(const std::wstring& part) const { return out.find(part) != std::wstring::npos; }
};

TEST_F(ExplainTest, AHit) {
    EXPECT_EQ(ExitCode::Found, run({L"explain", L"+46 31 390"}));
    EXPECT_TRUE(says(L"PhoneNumber Like \"+46 31 390\"")) << out.c_str();
    EXPECT_TRUE(says(L"Row 1: Baker Bo, +46 31 390\n    identity ...")) << out.c_str();
    EXPECT_TRUE(says(L"    store 1: done (1 call, ")) << out.c_str();
    EXPECT_TRUE(says(L"\nThe caller is shown as Baker, Bo.\n")) << out.c_str();
    EXPECT_EQ(ExitCode::Found, run({L"explain", L"--name", L"ba*", L"--json"}));
    EXPECT_TRUE(says(L"\"column\":\"Name\",\"pattern\":\"ba*\"")) << out.c_str();
    EXPECT_TRUE(says(L"\"answer\":\"found\"") && says(L"\"known\":true")) << out.c_str();
}

TEST_F(ExplainTest, AMissNamesWhatIsNear) {
    EXPECT_EQ(ExitCode::NotFound, run({L"explain", L"+4631390"}));
    EXPECT_TRUE(says(L"Like \"+4631390\"\n")) << out.c_str();
    EXPECT_TRUE(says(L"Baker Bo, +46 31 390\n      the same digits, written otherwise")) << out.c_str();
    EXPECT_EQ(ExitCode::NotFound, run({L"explain", L"--name", L"Bo Baker"}));
    EXPECT_TRUE(says(L"in another order")) << out.c_str();
    EXPECT_EQ(ExitCode::NotFound, run({L"explain", L"55#"}));
    EXPECT_TRUE(says(L"Like \"55[#]\"") && says(L"No row of the cache is near")) << out.c_str();
}

TEST_F(ExplainTest, AStaleRowIsOnlyNamed) {
    EXPECT_EQ(ExitCode::NotFound, run({L"explain", L"7"}));
    EXPECT_TRUE(
        says(L"Row 1: Able, 7\n    identity 00FF, store 1\n    store 1: there is no such item (0x8004"))
        << out.c_str();
    EXPECT_TRUE(says(L"delete that row, and show the next call as Carr, Cy.")) << out.c_str();
    EXPECT_TRUE(says(L"-> gone; the driver would delete this row")) << out.c_str();
    EXPECT_EQ(ExitCode::NotFound, run({L"explain", L"8"}));
    EXPECT_TRUE(says(L"which the table of stores does not have") && says(L"the row stays")) << out.c_str();
}

TEST_F(ExplainTest, AnOutlookThatDoesNotAnswer) {
    auto& faults = outlook.server().faults();
    faults.failCreation(CO_E_SERVER_EXEC_FAILURE);
    EXPECT_EQ(ExitCode::NotFound, run({L"explain", L"+46*"}));
    EXPECT_TRUE(says(L"runs with other rights than this program (0x80080005) (1 call, ")) << out.c_str();
    EXPECT_TRUE(says(L"\nAn unknown caller: Outlook did not give the contact: it is starting"))
        << out.c_str();
    faults.clear();
    faults.failMember(L"GetItemFromID", {E_FAIL, L"Offline."});
    EXPECT_EQ(ExitCode::NotFound, run({L"explain", L"+46*", L"--json"}));
    EXPECT_TRUE(says(L"\"answer\":\"failed\",\"error\":\"Offline (0x80004005)")) << out.c_str();
    EXPECT_TRUE(says(L"\"wouldBeDeleted\":false")) << out.c_str();
    faults.clear();
    execute(L"Drop Table TStoreID");
    EXPECT_EQ(ExitCode::NotFound, run({L"explain", L"+46*"}));
    EXPECT_TRUE(says(L"An unknown caller: the cache cannot be read")) << out.c_str();
}

TEST(Nearness, SaysWhyARowDoesNotMatch) {
    const struct {
        bool byNumber;
        const wchar_t* searched;
        const wchar_t* stored;
        const wchar_t* part;
    } cases[] = {
        {true, L"0313900601", L"+46 31 390 06 01", L"the same last 9 digits (313900601)"},
        {true, L"+46313900601", L"0046 (31) 3900601", L"the same last 11 digits"},
        {true, L"390060", L"390060-12", L"\"390060*\" would"},
        {true, L"900601", L"900602", nullptr},
        {true, L"12", L"912", nullptr},
        {false, L"lind", L"Lind Zo\u00EB", L"\"lind*\" would"},
        {false, L"ZO\u00CB", L"Lind Zo\u00EB", L"\"*ZO\u00CB*\" would"},
        {false, L"Ann Lind", L"Lind Ann Maria", L"among others"},
        {false, L"Bo", L"", nullptr},
    };
    for (const auto& row : cases) {
        const Nearness nearness =
            row.byNumber ? nearNumber(row.searched, row.stored) : nearName(row.searched, row.stored);
        EXPECT_EQ(row.part != nullptr, nearness.points > 0) << row.searched;
        EXPECT_TRUE(!row.part || nearness.reason.find(row.part) != std::wstring::npos)
            << nearness.reason.c_str();
    }
}

}  // namespace
}  // namespace pimcall::explain

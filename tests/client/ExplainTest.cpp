#include "client/explain/Nearest.h"
#include "tests/client/HostedTest.h"

namespace pimcall::explain {
namespace {

class ExplainTest : public HostedTest {
  protected:
    ExplainTest() {
        popup(L"Country", L"SE");
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
};

TEST_F(ExplainTest, AHit) {
    expect(ExitCode::Found, {L"explain", L"+46 31 390"},
           {L"PhoneNumber Like \"+46 31 390\"", L"Row 1: Baker Bo, +46 31 390\n    identity ...",
            L"    store 1: done (1 call, ", L"\nThe caller is shown as Baker, Bo.\n"});
    expect(ExitCode::Found, {L"explain", L"--name", L"ba*", L"--json"},
           {L"\"column\":\"Name\",\"pattern\":\"ba*\"", L"\"answer\":\"found\"", L"\"known\":true"});
}

TEST_F(ExplainTest, AMissNamesWhatIsNear) {
    expect(ExitCode::NotFound, {L"explain", L"+4631390"},
           {L"Like \"+4631390\"\n", L"Baker Bo, +46 31 390\n      the same digits, written otherwise"});
    expect(ExitCode::NotFound, {L"explain", L"--name", L"Bo Baker"}, {L"in another order"});
    expect(ExitCode::NotFound, {L"explain", L"55#"}, {L"Like \"55[#]\"", L"No row of the cache is near"});
}

TEST_F(ExplainTest, AStaleRowIsOnlyNamed) {
    expect(ExitCode::NotFound, {L"explain", L"7"},
           {L"Row 1: Able, 7\n    identity 00FF, store 1\n    store 1: there is no such item (0x8004",
            L"delete that row, and show the next call as Carr, Cy.",
            L"-> gone; the driver would delete this row"});
    expect(ExitCode::NotFound, {L"explain", L"8"},
           {L"which the table of stores does not have", L"the row stays"});
}

TEST_F(ExplainTest, AnOutlookThatDoesNotAnswer) {
    faults().failCreation(CO_E_SERVER_EXEC_FAILURE);
    expect(ExitCode::NotFound, {L"explain", L"+46*"},
           {L"runs with other rights than this program (0x80080005) (1 call, ",
            L"\nAn unknown caller: Outlook did not give the contact: it is starting"});
    faults().clear();
    faults().failMember(L"GetItemFromID", {E_FAIL, L"Offline."});
    expect(ExitCode::NotFound, {L"explain", L"+46*", L"--json"},
           {L"\"answer\":\"failed\",\"error\":\"Offline (0x80004005)", L"\"wouldBeDeleted\":false"});
    faults().clear();
    execute(L"Drop Table TStoreID");
    expect(ExitCode::NotFound, {L"explain", L"+46*"}, {L"An unknown caller: the cache cannot be read"});
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

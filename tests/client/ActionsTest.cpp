#include "client/CallInformation.h"
#include "core/DriverState.h"
#include "tests/client/HostedTest.h"

namespace pimcall {
namespace {

using standin::outlook::ItemRecord;
using standin::outlook::SpecialFolder;

/// Calls whose actions are run, looked at in Outlook's mailbox afterwards.
class ActionsTest : public HostedTest {
  protected:
    ActionsTest() { writeCache({addListed(L"Bo", L"Baker", L"21")}); }

    /// The full name in the card of the contact whose window is in front; empty without one.
    std::wstring inFront() {
        return run({L"active"}) == ExitCode::Found ? out.substr(0, out.find(L'\n')) : L"";
    }
};

TEST_F(ActionsTest, AreListedWithTheirSettings) {
    expect(ExitCode::Found, {L"actions"},
           {L"Open the contact\n  Open the contact: Open the contact when it is found\n    * Open",
            L"\nClose the contact\n\nSend an e-mail\n  Address of the recipient: (empty)\n"});
    EXPECT_EQ(ExitCode::Found, run({L"actions", L"--json"}));
    const std::wstring opens = LR"("Open the contact when it is found")";
    EXPECT_EQ(
        out,
        LR"([{"id":4097,"name":"Open the contact","passive":true,"settings":[)"
        LR"({"key":"NewOnInexistant","label":"Open the contact","type":"list","value":)" +
            opens + LR"(,"index":0,"choices":[)" + opens +
            LR"(,"Create a contact for an unknown caller",)"
            LR"("Open the contact, and create one for an unknown caller"]}]},)"
            LR"({"id":4098,"name":"Close the contact","passive":true,"settings":[]},)"
            LR"({"id":4099,"name":"Send an e-mail","passive":true,"settings":[)"
            LR"({"key":"DestinationAddress","label":"Address of the recipient","type":"text","value":""},)"
            LR"({"key":"AutomaticSend","label":"Send without asking","type":"boolean","value":true}]},)"
            LR"({"id":4100,"name":"Write a journal entry","passive":true,"settings":[]},)"
            LR"({"id":4101,"name":"Start a program","passive":true,"settings":[)"
            LR"({"key":"Path","label":"Folder","type":"text","value":""},)"
            LR"({"key":"Arguments","label":"Program and arguments","type":"text","value":""}]}])"
            L"\n");
}

TEST_F(ActionsTest, RunWithWhatIsSaidOfTheCall) {
    EXPECT_EQ(ExitCode::Found,
              run({L"call", L"--from=21", L"--action=journal,mail", L"--to-address=desk@example.org",
                   L"--start=2003-02-01 10:00", L"--duration=42"}));
    EXPECT_TRUE(out.ends_with(L"\nRun: Write a journal entry; Send an e-mail\n")) << out.c_str();
    const ItemRecord entry = saved(SpecialFolder::Journal).back();
    EXPECT_EQ(L"Bo Baker called", entry.field(L"Subject"));
    EXPECT_DOUBLE_EQ(37653 + 10.0 / 24, std::stod(entry.field(L"Start")));
    EXPECT_EQ(L"desk@example.org", saved(SpecialFolder::SentMail).back().recipients.at(0).name);
}

TEST_F(ActionsTest, WindowsOpenAndCloseAndTheDriversOwnSettingsStay) {
    run({L"actions", L"--json"});
    const std::wstring before = out;
    run({L"call", L"--from=21", L"--action=open"});
    EXPECT_EQ(L"Baker, Bo", inFront());
    run({L"call", L"--from=21", L"--action=close", L"--json"});
    EXPECT_TRUE(out.ends_with(L"\"run\":[\"Close the contact\"],\"contactReleased\":true}\n"));
    EXPECT_EQ(L"", inFront());
    run({L"call", L"--from=22", L"--action=open", L"--create"});
    const auto contacts = saved(SpecialFolder::Contacts);
    ASSERT_EQ(2u, contacts.size());
    EXPECT_EQ(L"22", contacts.back().field(L"BusinessTelephoneNumber"));

    run({L"call", L"--from=21", L"--action=mail", L"--leave-open"});
    EXPECT_TRUE(saved(SpecialFolder::SentMail).empty());
    run({L"actions", L"--json"});
    EXPECT_EQ(before, out);
}

TEST_F(ActionsTest, ContactsAreMadeAndFoldersShown) {
    EXPECT_EQ(ExitCode::Found, run({L"create", L"--name", L"Di Dale", L"--number", L"23"}));
    EXPECT_EQ(L"Outlook was asked to keep Di Dale, 23.\n", out);
    EXPECT_EQ(L"", inFront());
    const ItemRecord made = saved(SpecialFolder::Contacts).back();
    EXPECT_EQ(L"Di Dale", made.field(L"LastName"));
    EXPECT_EQ(L"23", made.field(L"BusinessTelephoneNumber"));
    EXPECT_EQ(ExitCode::Found, run({L"create", L"--name=Eve", L"--number=24", L"--show", L"--json"}));
    EXPECT_EQ(L"{\"name\":\"Eve\",\"number\":\"24\",\"show\":true}\n", out);
    EXPECT_EQ(L"Eve", inFront());

    expect(ExitCode::Found, {L"active", L"--json"}, {L"{\"inPim\":true,\"fullName\":\"Eve\""});

    expect(ExitCode::Found, {L"show-folder", L"journal"}, {L"Outlook shows the folder in a new window.\n"});
    expect(ExitCode::Found, {L"show-folder", L"contacts", L"--json"},
           {L"{\"folder\":\"contacts\",\"newWindow\":false}\n"});
}

TEST(CallInformation, NoDetailPassesForAnother) {
    EXPECT_EQ(L"TYPE=outgoing;START=2003-02-01 10:00;DURATION=1 min;LOCALNUMBER=2;ORIGIN=a=b;PHONENUMBER=+1;",
              callInformation({false, L"+1", L"2003-02-01 10:00", L"1 min", L"2", L"a=b"}));
    EXPECT_THROW(callInformation({true, L"1", L"", L"", L"", L"PHONENUMBER=2"}), UsageError);
    EXPECT_THROW(callInformation({true, L"1", L"DURATION=2", L"", L"", L""}), UsageError);
}

}  // namespace
}  // namespace pimcall

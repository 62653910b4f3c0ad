#include <objidl.h>

#include "tests/client/HostedTest.h"

namespace pimcall {
namespace {

using CallTest = HostedTest;
using zelbar::Com;

constexpr wchar_t kActions[] =
    L"\nActions: Open the contact; Close the contact; Send an e-mail; Write a journal entry; "
    L"Start a program\n";

TEST_F(CallTest, AKnownCaller) {
    popup(L"NoEmailAddressAccess", L"0");
    const auto item = addContact({{L"FirstName", L"Zo\u00EB"},
                                  {L"LastName", L"Lind"},
                                  {L"CompanyName", L"Nord"},
                                  {L"BusinessTelephoneNumber", L"+46 1"},
                                  {L"MobileTelephoneNumber", L"+46 2"},
                                  {L"Email1Address", L"zoe@example.org"}});
    const std::wstring id = mailbox.entryId(item);
    writeCache({{L"Lind Zo\u00EB", L"+46 2", id}});
    const std::wstring contact =
        L"Lind, Zo\u00EB\n"
        L"  Company       Nord\n"
        L"  Telephone     Business  +46 1\n"
        L"                Mobile    +46 2\n"
        L"  E-mail        zoe@example.org\n"
        L"  In Outlook    yes\n";

    EXPECT_EQ(ExitCode::Found, run({L"call", L"--from", L"+46 2"}));
    EXPECT_EQ(L"Incoming call from +46 2\n\n" + contact + kActions, out);
    EXPECT_EQ(ExitCode::Found, run({L"show", id}));
    EXPECT_EQ(contact, out);
    EXPECT_EQ(ExitCode::Found, run({L"show", id, L"--verbose"}));
    EXPECT_TRUE(out.starts_with(contact + L"  Contact id    " + id + L"\n  Store id      "));
    expect(ExitCode::Found, {L"show", id, L"--json"},
           {LR"("numbers":[{"label":"Business","number":"+46 1"},{"label":"Mobile",)",
            LR"("mainEmail":"zoe@example.org","emails":[{"label":"E-mail",)", L"\"contactId\":\"" + id});
}

TEST_F(CallTest, AnUnknownCaller) {
    writeCache({});
    expect(ExitCode::Found, {L"--version"}, {L"pimcall ", L"\nDriver: installed, with Outlook 11."});
    EXPECT_EQ(ExitCode::NotFound, run({L"call", L"--to", L"012\x1B"}));
    EXPECT_EQ(std::wstring(L"Outgoing call to 012 \n\nUnknown caller\n") + kActions, out);
    EXPECT_EQ(ExitCode::NotFound, run({L"call", L"--from", L"0\"1", L"--json"}));
    EXPECT_TRUE(
        out.starts_with(L"{\"direction\":\"incoming\",\"number\":\"0\\\"1\",\"known\":false,"
                        L"\"matches\":0,\"noMatch\":true,\"contact\":{\"inPim\":false,"));
    EXPECT_TRUE(says(L"\"actions\":[{\"id\":4097,\"name\":\"Open the contact\",\"passive\":true,"));
    EXPECT_TRUE(out.ends_with(L"\"run\":[],\"contactReleased\":false}\n"));
}

TEST_F(CallTest, FindsOneOrAll) {
    writeCache({addListed(L"Bo", L"Baker", L"21"), addListed(L"Cy", L"Carr", L"22")});
    const std::wstring baker = L"Baker, Bo\n  Telephone     Business  21\n  In Outlook    yes\n";
    const std::wstring carr = L"Carr, Cy\n  Telephone     Business  22\n  In Outlook    yes\n";

    EXPECT_EQ(ExitCode::Found, run({L"call", L"--from", L"2*"}));
    EXPECT_EQ(L"Incoming call from 2*\n\n" + baker + L"\n2 entries of the cache match; this is the first.\n" +
                  kActions,
              out);
    EXPECT_EQ(ExitCode::Found, run({L"find", L"--name", L"c*"}));
    EXPECT_EQ(carr, out);
    EXPECT_EQ(ExitCode::Found, run({L"find", L"--number", L"2*", L"--all"}));
    EXPECT_EQ(baker + L"\n" + carr + L"\n2 contacts\n", out);
    EXPECT_EQ(ExitCode::NotFound, run({L"find", L"--number", L"3", L"--all"}));
    EXPECT_EQ(L"No contact matches.\n", out);
    EXPECT_EQ(ExitCode::Found, run({L"find", L"--number=2*", L"--json", L"--all"}));
    EXPECT_TRUE(out.starts_with(L"[{\"inPim\":true,\"fullName\":\"Baker, Bo\",") && out.ends_with(L"}]\n"));
}

TEST_F(CallTest, ListsWhatStandsBehindAStaleEntry) {
    writeCache({{L"Able", L"1", L"00FF"}, {L"Aft", L"3", L"00FE"}, addListed(L"Bo", L"Baker", L"2")});
    expect(ExitCode::NotFound, {L"call", L"--from", L"3"},
           {L"The search did find something, or could not be carried out"});
    EXPECT_EQ(ExitCode::Found, run({L"find", L"--name", L"*", L"--all"}));
    EXPECT_TRUE(out.starts_with(L"Baker, Bo\n") && out.ends_with(L"\n1 contact\n")) << out.c_str();
}

TEST_F(CallTest, ABusyOutlookIsTriedAgainForSomeSeconds) {
    bool asked = false;
    const ProgramRun run({L"actions"}, [&asked] {
        Com<IMessageFilter> filter;
        CoRegisterMessageFilter(nullptr, filter.put());
        if ((asked = bool(filter))) {
            EXPECT_EQ(filter->RetryRejectedCall(nullptr, 9999, SERVERCALL_REJECTED), 200u);
            EXPECT_EQ(filter->RetryRejectedCall(nullptr, 10000, SERVERCALL_REJECTED), MAXDWORD);
            EXPECT_EQ(filter->MessagePending(nullptr, 60000, 1), PENDINGMSG_WAITDEFPROCESS);
        }
        return Driver::create();
    });
    EXPECT_TRUE(asked);
}

}  // namespace
}  // namespace pimcall

#include "actions/CallTime.h"
#include "support/Clock.h"
#include "tests/actions/ActionTest.h"

namespace zelbar {

namespace {

class Mail : public ActionTest {
  protected:
    /// What stands behind the call in a body written now.
    static std::wstring moment() {
        const DATE now = currentDate();
        return L" on " + dayText(now) + L" at " + timeText(now);
    }
    /// Runs again when the clock has moved on meanwhile.
    void expectBody(const Com<::CallAction>& mail, const Com<::Contact>& contact, const std::wstring& call,
                    const std::wstring& link) {
        std::wstring before, after, body;
        do {
            before = moment();
            run(*mail, contact);
            body = saved(SpecialFolder::SentMail).back().field(L"Body");
            after = moment();
        } while (before != after);
        EXPECT_EQ(body, call + before + link);
    }
};

TEST_F(Mail, EveryCallIsWrittenWhole) {
    const auto mail = action(kMail, {{L"DestinationAddress", L"desk@example.com"}});
    const std::wstring link = L"\n\rContact:  <Outlook://Personal Folders/Contacts/~Anna Berg> ";
    expectBody(mail, known(L"TYPE=incoming;"), L"Anna Berg called", link);
    expectBody(mail, known(L"TYPE=outgoing;"), L"Call to Anna Berg", link);
    expectBody(mail, known(), L"Call with Anna Berg", link);
    const auto toAnna = saved(SpecialFolder::SentMail).back();
    expectBody(mail, unknown(L"TYPE=incoming;"), L"0123 called", L"");
    const auto fromUnknown = saved(SpecialFolder::SentMail).back();
    expectBody(mail, {}, L"Call with ", L"");

    EXPECT_EQ(toAnna.field(L"Subject"), L"Call with Anna Berg");
    EXPECT_EQ(fromUnknown.field(L"Subject"), L"Call with 0123");
    ASSERT_EQ(toAnna.recipients.size(), 1u);
    EXPECT_EQ(toAnna.recipients[0].name, L"desk@example.com");
    for (const char* line :
         {"MAIL -------------------", "Sending mail to desk@example.com called by Berg, Anna",
          "Body = Anna Berg called on ", "Mail sent...", "Item is nothing...",
          "Mail : Item get from ID is nothing !"})
        EXPECT_TRUE(traced(line)) << line;
}

TEST_F(Mail, WithoutAutomaticSendItIsShownAndNotSent) {
    const auto mail = action(kMail, {{L"AutomaticSend", false}});
    run(*mail, known(L"TYPE=incoming;"));
    EXPECT_EQ(windows(), std::vector<std::wstring>{L"Call with Anna Berg"});
    EXPECT_TRUE(saved(SpecialFolder::SentMail).empty());
    EXPECT_TRUE(traced("Mail displayed..."));
    EXPECT_FALSE(traced("Sending mail to "));
}

TEST_F(Mail, ARefusedSendIsALoggedFailure) {
    run(*action(kMail), known());  // nobody to send it to
    EXPECT_TRUE(traced("Error (ExecuteAction - ActionSendMail): "));
    outlook.server().setOption(L"Guard", L"deny");
    run(*action(kMail, {{L"DestinationAddress", L"desk@example.com"}}), known());
    EXPECT_TRUE(saved(SpecialFolder::SentMail).empty());
    EXPECT_FALSE(traced("Mail sent..."));
}

TEST_F(Mail, SettingsOfWrongTypesAreConvertedOrFailTheAction) {
    const auto object = Variant(Com<IDispatch>(unknown()));
    run(*action(kMail, {{L"DestinationAddress", object}}), known());
    run(*action(kMail, {{L"DestinationAddress", L"desk@example.com"}, {L"AutomaticSend", L"perhaps"}}),
        known());
    EXPECT_TRUE(saved(SpecialFolder::SentMail).empty());
    run(*action(kMail, {{L"DestinationAddress", L"desk@example.com"}, {L"AutomaticSend", 1}}), known());
    EXPECT_EQ(saved(SpecialFolder::SentMail).size(), 1u);
    EXPECT_TRUE(traced("Error (ExecuteAction - ActionSendMail): Type mismatch"));
}

}  // namespace

}  // namespace zelbar

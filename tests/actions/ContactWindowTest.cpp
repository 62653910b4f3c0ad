#include "tests/actions/ActionTest.h"

namespace zelbar {

namespace {

class ContactWindow : public ActionTest {
  protected:
    size_t contacts() { return saved(SpecialFolder::Contacts).size(); }
    static Object unknownCalled(const wchar_t* name) {
        const auto caller = unknown();
        caller.put({L"FullName"}, name);
        return caller;
    }
};

TEST_F(ContactWindow, TheChoiceDecidesWhatIsOpenedAndMade) {
    const struct {
        short choice;
        bool opens, creates;
    } cases[] = {{0, true, false}, {1, false, true}, {2, true, true}};
    for (const auto& c : cases) {
        run(opener(c.choice), known());
        EXPECT_EQ(windows().size(), c.opens ? 1u : 0u) << c.choice;
        EXPECT_EQ(contacts(), 1u);
        outlook.quit();

        const auto caller = unknownCalled(L"Carl Dorn");
        const auto after = run(opener(c.choice), caller);
        EXPECT_EQ(after.target().get(), caller.target().get()) << "the caller's contact stays";
        EXPECT_EQ(contacts(), c.creates ? 2u : 1u) << c.choice;
        EXPECT_EQ(windows(), std::vector<std::wstring>(c.creates ? 1 : 0, L"Carl Dorn"));
        outlook.quit();
        if (!c.creates) continue;
        const auto made = saved(SpecialFolder::Contacts).back();
        EXPECT_EQ(made.field(L"FullName"), L"Carl Dorn");
        EXPECT_EQ(made.field(L"BusinessTelephoneNumber"), L"0123");
        mailbox.eraseItem(made.id);
    }
    for (const char* line : {"Opening Berg, Anna (555 100)", "OPEN ------------------",
                             "Opening Berg, Anna...", "Unknown contact: Carl Dorn (Not found in Outlook)...",
                             "Creating new contact from: Carl Dorn and 0123..."})
        EXPECT_TRUE(traced(line)) << line;
}

TEST_F(ContactWindow, AContactThatHasGoneIsUnknownButOneThatCannotBeReadIsNot) {
    const auto caller = known();
    faults().failMember(L"GetItemFromID", {static_cast<HRESULT>(0x80010001)});
    run(opener(1), caller);
    EXPECT_EQ(contacts(), 1u) << "Outlook was busy; making Anna again would double her";
    EXPECT_TRUE(traced("Error (ExecuteAction - ActionOpenContact): "));
    faults().clear();
    letOutlookRest();
    mailbox.eraseItem(anna.id);
    run(opener(2), caller);
    EXPECT_EQ(contacts(), 1u);
    EXPECT_EQ(windows(), std::vector<std::wstring>{L"Anna Berg"});
}

TEST_F(ContactWindow, ManyContactsAndNobodyAreNeitherKnownNorUnknown) {
    run(opener(2), unknownCalled(L"MANY"));
    EXPECT_FALSE(run(opener(2), {}));
    EXPECT_EQ(contacts(), 1u);
    EXPECT_TRUE(windows().empty());
    EXPECT_FALSE(traced("Unknown contact"));
    EXPECT_TRUE(traced("CITem = Nothing"));
}

TEST_F(ContactWindow, ClosingTakesTheContactAwayInEveryCase) {
    run(opener(0), known());
    EXPECT_FALSE(run(action(kClose), known()));
    EXPECT_TRUE(windows().empty());
    EXPECT_TRUE(traced("Closing Berg, Anna"));
    EXPECT_TRUE(traced("CLOSE -----------------"));

    const auto gone = known();
    mailbox.eraseItem(anna.id);
    EXPECT_FALSE(run(action(kClose), gone));
    EXPECT_TRUE(
        traced("Error (ExecuteAction - ActionCloseContact): Object variable or With block variable not set"));
    outlook.server().calls().reset();
    EXPECT_FALSE(run(action(kClose), unknown()));
    EXPECT_FALSE(trace().back().starts_with("Error")) << "nothing to close";
    EXPECT_FALSE(run(action(kClose), {}));
    EXPECT_EQ(outlook.server().calls().invocations(), 0);
    EXPECT_EQ(trace().back(), "Closing ");
}

}  // namespace

}  // namespace zelbar

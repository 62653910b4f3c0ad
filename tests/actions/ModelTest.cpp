#include "tests/actions/ActionTest.h"

namespace zelbar {

namespace {

class Model : public ActionTest {};

/// An action and its settings as a script reads them.
std::wstring described(const Object& action) {
    std::wstring text = std::to_wstring(action.integer({L"ActionID"})) + L" " + action.text({L"ActionName"});
    if (!action.boolean({L"PassiveAction"})) text += L" (not passive)";
    const Object settings = action.object({L"ActionProp"});
    for (long i = 1; i <= settings.integer({L"Count"}); ++i) {
        const Object setting = settings.object({L"Item"}, i);
        for (const wchar_t* member : {L"Key", L"PropertyName", L"PropertyType", L"Value"})
            text += (member == std::wstring(L"Key") ? L" | " : L", ") + setting.text({member});
    }
    return text;
}

TEST_F(Model, EveryKindHasItsDefaultSettings) {
    const Object actions = lateBound(makeActions(actionParts(driver())));
    EXPECT_EQ(actions.integer({L"Count"}), 5);
    const std::pair<long, const wchar_t*> cases[] = {
        {kOpen,
         L"4097 Open the contact"
         L" | NewOnInexistant, Open the contact, 8200, Open the contact when it is found"},
        {kClose, L"4098 Close the contact"},
        {kMail,
         L"4099 Send an e-mail | DestinationAddress, Address of the recipient, 8, "
         L" | AutomaticSend, Send without asking, 11, -1"},
        {kJournal, L"4100 Write a journal entry"},
        {kLaunch, L"4101 Start a program | Path, Folder, 8,  | Arguments, Program and arguments, 8, "},
    };
    for (const auto& [id, expected] : cases) {
        EXPECT_EQ(described(actions.object({L"Item"}, id)), expected);
        EXPECT_EQ(described(action(id)), expected);
    }
    for (const long id : {1L, 4102L}) {
        EXPECT_FALSE(actions.object({L"Item"}, id)) << "identifiers are no positions: " << id;
        EXPECT_FALSE(actions.object({L"NewAction"}, id)) << id;
    }
}

TEST_F(Model, OnlyAListHasAChosenEntry) {
    const auto open = action(kOpen);
    const auto list = settingOf(open, L"NewOnInexistant");
    const struct {
        short put, index;
        const wchar_t* value;
        bool passive;
    } cases[] = {
        {1, 1, L"Create a contact for an unknown caller", false},
        {3, 1, L"Create a contact for an unknown caller", false},
        {2, 2, L"Open the contact, and create one for an unknown caller", false},
        {0, 0, L"Open the contact when it is found", true},
    };
    for (const auto& c : cases) {
        list.put({L"ValueIndex"}, c.put);
        EXPECT_EQ(list.integer({L"ValueIndex"}), c.index);
        EXPECT_EQ(valueOf(open, L"NewOnInexistant"), c.value);
        EXPECT_EQ(open.boolean({L"PassiveAction"}), c.passive);
        EXPECT_EQ(valueOf(open.object({L"CopyAction"}), L"NewOnInexistant"), c.value);
    }
}

}  // namespace

}  // namespace zelbar

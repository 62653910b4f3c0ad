#include "tests/actions/ActionTest.h"

namespace zelbar {

namespace {

using Model = ActionTest;

TEST_F(Model, IdentifiersAreNoPositions) {
    const Object actions = lateBound(makeActions(actionParts(driver())));
    EXPECT_EQ(actions.object({L"Item"}, kMail).integer({L"ActionID"}), kMail);
    EXPECT_EQ(action(kMail).integer({L"ActionID"}), kMail);
    for (const long id : {1L, 4102L})
        for (const wchar_t* member : {L"Item", L"NewAction"})
            EXPECT_FALSE(actions.object({member}, id)) << id;
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
    }
    list.put({L"ValueIndex"}, 1);
    list.put({L"Value"}, L"put instead");
    EXPECT_EQ(valueOf(open.object({L"CopyAction"}), L"NewOnInexistant"), cases[0].value);
}

}  // namespace

}  // namespace zelbar

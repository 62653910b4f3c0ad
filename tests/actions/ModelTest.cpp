#include "actions/cActionProperties.h"
#include "actions/cPIMAction.h"
#include "com/ModuleState.h"
#include "tests/actions/ActionTest.h"

namespace zelbar {

namespace {

class Model : public ActionTest {};

struct ExpectedSetting {
    std::wstring key, label;
    long type;
    std::wstring value;
    bool operator==(const ExpectedSetting&) const = default;
};

const struct ExpectedAction {
    long id;
    const wchar_t* name;
    std::vector<ExpectedSetting> settings;
} kExpected[] = {
    {kOpen,
     L"Open the contact",
     {{L"NewOnInexistant", L"Open the contact", 8200, L"Open the contact when it is found"}}},
    {kClose, L"Close the contact", {}},
    {kMail,
     L"Send an e-mail",
     {{L"DestinationAddress", L"Address of the recipient", 8, L""},
      {L"AutomaticSend", L"Send without asking", 11, L"-1"}}},
    {kJournal, L"Write a journal entry", {}},
    {kLaunch,
     L"Start a program",
     {{L"Path", L"Folder", 8, L""}, {L"Arguments", L"Program and arguments", 8, L""}}},
};

std::vector<ExpectedSetting> settingsByName(const Object& action) {
    const Object properties = action.object({L"ActionProp"});
    std::vector<ExpectedSetting> result;
    for (long i = 1; i <= properties.integer({L"Count"}); ++i) {
        const Object property = properties.object({L"Item"}, i);
        result.push_back({property.text({L"Key"}), property.text({L"PropertyName"}),
                          property.integer({L"PropertyType"}), property.text({L"Value"})});
    }
    return result;
}

TEST_F(Model, EveryKindHasItsDefaultSettings) {
    const auto actions = makeActions();
    const Object script = lateBound(actions);
    ASSERT_EQ(script.integer({L"Count"}), 5);
    Com<IUnknown> walker;
    ASSERT_EQ(actions->NewEnum(walker.put()), S_OK);
    for (const auto& expected : kExpected) {
        const Object action = script.object({L"Item"}, expected.id);
        Variant next;
        ASSERT_EQ(walker.as<IEnumVARIANT>()->Next(1, next.put(), nullptr), S_OK);
        EXPECT_EQ(next.object().get(), action.target().get());
        EXPECT_EQ(action.integer({L"ActionID"}), expected.id);
        EXPECT_EQ(action.text({L"ActionName"}), expected.name);
        EXPECT_TRUE(action.boolean({L"PassiveAction"})) << expected.name;
        EXPECT_EQ(settingsByName(action), expected.settings) << expected.name;
    }
}

TEST_F(Model, IdentifiersAreNoPositions) {
    const auto actions = makeActions();
    for (const long id : {0L, 1L, 5L, 4096L, 4102L, -1L}) {
        Com<IDispatch> item, fresh;
        EXPECT_EQ(actions->Item(id, item.put()), S_OK);
        EXPECT_EQ(actions->NewAction(id, fresh.put()), S_OK);
        EXPECT_FALSE(item || fresh) << id;
    }
    EXPECT_EQ(actions->Item(kMail, nullptr), E_POINTER);
    EXPECT_FALSE(traced("NewAction"));
}

TEST_F(Model, SettingsAreFoundByKeyAndByPosition) {
    const auto mail = action(kMail);
    Com<::ActionProperties> settings, again;
    mail->get_ActionProp(settings.put());
    mail->get_ActionProp(again.put());
    EXPECT_EQ(settings.get(), again.get());
    const struct {
        Variant index;
        const wchar_t* key;
    } cases[] = {{L"AutomaticSend", L"AutomaticSend"},
                 {L"automaticsend", L"AutomaticSend"},
                 {1, L"DestinationAddress"},
                 {2.0, L"AutomaticSend"},
                 {L"1", L""},
                 {L"", L""},
                 {0, L""},
                 {3, L""},
                 {Variant(), L""},
                 {Variant(Com<IDispatch>(settings)), L""}};
    for (const auto& c : cases) {
        Com<::ActionProperty> found;
        EXPECT_EQ(settings->Item(c.index.raw(), found.put()), S_OK);
        Bstr key;
        if (found) found->get_Key(key.put());
        EXPECT_EQ(key.text(), c.key);
    }
}

TEST_F(Model, ASettingWithoutAKeyHasAPosition) {
    const auto settings = makeObject<cActionProperties>();
    settings->Add(L"", L"label", L"value", kTextSetting);
    settings->Add(L"Other", L"label", L"value", kTextSetting);
    EXPECT_EQ(settings->ActionProperties_Item(1)->ActionProperty_Key(), L"");
    EXPECT_THROW(settings->ActionProperties_Item(L""), Fault);
    settings->Remove(1);
    settings->Remove(L"OTHER");
    EXPECT_EQ(settings->ActionProperties_Count(), 0);
    EXPECT_THROW(settings->Remove(1), Fault);
}

TEST_F(Model, OnlyAListHasAChosenEntry) {
    const auto open = action(kOpen);
    const auto list = settingOf(*open, L"NewOnInexistant");
    const struct {
        short put, index;
        const wchar_t* value;
        bool passive;
    } cases[] = {
        {1, 1, L"Create a contact for an unknown caller", false},
        {3, 1, L"Create a contact for an unknown caller", false},
        {-1, 1, L"Create a contact for an unknown caller", false},
        {2, 2, L"Open the contact, and create one for an unknown caller", false},
        {0, 0, L"Open the contact when it is found", true},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(list->put_ValueIndex(c.put), S_OK);
        EXPECT_EQ(lateBound(list).integer({L"ValueIndex"}), c.index);
        EXPECT_EQ(valueOf(*open, L"NewOnInexistant"), c.value);
        EXPECT_EQ(lateBound(open).boolean({L"PassiveAction"}), c.passive);
    }
    const auto path = settingOf(*action(kLaunch, {{L"Path", L"C:\\"}}), L"Path");
    path->put_ValueIndex(0);
    EXPECT_EQ(lateBound(path).text({L"Value"}), L"C:\\");
}

TEST_F(Model, AValueIsTakenAsItComesUnlessAnArrayOfTextsIsHeld) {
    const auto open = action(kOpen, {{L"NewOnInexistant", L"own words"}});
    EXPECT_EQ(valueOf(*open, L"NewOnInexistant"), L"own words");
    EXPECT_EQ(lateBound(settingOf(*open, L"NewOnInexistant")).integer({L"ValueIndex"}), 0);
    const auto path = settingOf(*action(kLaunch), L"Path");
    for (const Variant& value : {Variant(7), Variant(), Variant::ofTexts({L"a", L"b"})})
        EXPECT_EQ(path->put_Value(value.raw()), S_OK);
    path->put_Value(Variant(L"too late").raw());
    EXPECT_EQ(lateBound(path).get({L"Value"}).texts(), (std::vector<std::wstring>{L"a", L"b"}));
}

TEST_F(Model, ASettingOutlivesItsAction) {
    auto mail = action(kMail, {{L"DestinationAddress", L"a@example.com"}});
    const auto address = settingOf(*mail, L"DestinationAddress");
    mail.reset();
    EXPECT_EQ(lateBound(address).text({L"Value"}), L"a@example.com");
    EXPECT_EQ(moduleState().liveObjects, 1);
}

TEST_F(Model, ACopyKeepsTheValuesAndGoesItsOwnWay) {
    for (const auto& expected : kExpected) {
        const auto original = action(expected.id);
        if (expected.id == kOpen) settingOf(*original, L"NewOnInexistant")->put_ValueIndex(2);
        for (const auto& setting : expected.settings)
            settingOf(*original, setting.key.c_str())->put_Value(Variant(L"first").raw());
        Com<IDispatch> copied;
        ASSERT_EQ(original->CopyAction(copied.put()), S_OK);
        const auto copy = copied.as<::CallAction>();
        EXPECT_EQ(lateBound(copied).integer({L"ActionID"}), expected.id);
        EXPECT_EQ(lateBound(copied).boolean({L"PassiveAction"}), expected.id != kOpen);
        for (const auto& setting : expected.settings) {
            // A list's index is carried over behind its value, and shows its own entry.
            const bool isList = setting.type == 8200;
            EXPECT_EQ(valueOf(*copy, setting.key.c_str()),
                      isList ? L"Open the contact, and create one for an unknown caller" : L"first");
            settingOf(*original, setting.key.c_str())->put_Value(Variant(L"second").raw());
            settingOf(*copy, setting.key.c_str())->put_Value(Variant(L"third").raw());
            EXPECT_EQ(valueOf(*original, setting.key.c_str()), L"second");
        }
    }
}

TEST_F(Model, TheInertActionAnswersWithNothing) {
    const auto inert = makeObject<cPIMAction>();
    const Object script = lateBound(inert);
    EXPECT_EQ(script.text({L"ActionName"}), L"");
    EXPECT_TRUE(script.boolean({L"PassiveAction"}));
    EXPECT_EQ(script.integer({L"ActionID"}), 0);
    EXPECT_FALSE(script.object({L"ActionProp"}));
    EXPECT_EQ(script.get({L"ExecuteCommand"}, L"x").type(), VT_EMPTY);
}

}  // namespace

}  // namespace zelbar

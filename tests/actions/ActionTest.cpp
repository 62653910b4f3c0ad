#include "tests/actions/ActionTest.h"

#include "automation/OutlookNames.h"

namespace zelbar {

ActionTest::ActionTest() {
    driver().log.load();
    anna = addContact(
        {{L"FirstName", L"Anna"}, {L"LastName", L"Berg"}, {L"BusinessTelephoneNumber", L"555 100"}});
}

Com<::CallAction> ActionTest::action(long id,
                                     std::initializer_list<std::pair<const wchar_t*, Variant>> settings) {
    Com<IDispatch> made;
    EXPECT_EQ(makeActions(actionParts(driver()))->NewAction(id, made.put()), S_OK);
    const auto result = made.as<::CallAction>();
    for (const auto& [key, value] : settings)
        EXPECT_EQ(settingOf(*result, key)->put_Value(value.raw()), S_OK);
    return result;
}

Com<::CallAction> ActionTest::opener(short choice) {
    const auto result = action(kOpen);
    EXPECT_EQ(settingOf(*result, L"NewOnInexistant")->put_ValueIndex(choice), S_OK);
    return result;
}

Com<cContact> ActionTest::known(const std::wstring& callInformation, const std::wstring& storeId) {
    auto contact = makeObject<cContact>(contactParts(driver()));
    contact->SetValues(
        driver().outlook.GetContactFromID(mailbox.entryId(anna), storeId, L"test", L"known").item);
    contact->Contact_PersonalData(callInformation);
    return contact;
}

Com<cContact> ActionTest::unknown(const std::wstring& callInformation) {
    auto contact = makeObject<cContact>(contactParts(driver()));
    contact->MakeUnknownContact(kSearchByNumber, L"0123");
    contact->Contact_PersonalData(callInformation);
    return contact;
}

Com<::Contact> ActionTest::run(::CallAction& action, Com<::Contact> contact) {
    ::Contact* callers = contact.detach();
    VARIANT_BOOL result = VARIANT_TRUE;
    EXPECT_EQ(action.ExecuteAction(&callers, &result), S_OK);
    EXPECT_EQ(result, VARIANT_FALSE);
    return Com<::Contact>::adopt(callers);
}

std::vector<ItemRecord> ActionTest::saved(SpecialFolder place) {
    std::vector<ItemRecord> result;
    for (const auto id : mailbox.items(mailbox.specialFolder(place).id)) result.push_back(*mailbox.item(id));
    return result;
}

std::vector<std::wstring> ActionTest::windows() {
    const Object inspectors =
        Gateway().create(Server::Outlook, outlook::kProgId, outlook::kApplication).object({L"Inspectors"});
    std::vector<std::wstring> result;
    for (long i = 1; i <= inspectors.integer(outlook::Count); ++i) {
        const Object item = inspectors.object({L"Item"}, i).object({L"CurrentItem"});
        const bool isContact = item.integer(outlook::Class) == outlook::kContact;
        result.push_back(item.text({isContact ? L"FullName" : L"Subject"}));
    }
    return result;
}

Com<::ActionProperty> settingOf(::CallAction& action, const wchar_t* key) {
    Com<::ActionProperties> properties;
    EXPECT_EQ(action.get_ActionProp(properties.put()), S_OK);
    Com<::ActionProperty> property;
    EXPECT_EQ(properties->Item(Variant(key).raw(), property.put()), S_OK);
    EXPECT_TRUE(property) << "no setting";
    return property;
}

std::wstring valueOf(::CallAction& action, const wchar_t* key) {
    Variant value;
    EXPECT_EQ(settingOf(action, key)->get_Value(value.put()), S_OK);
    return value.text();
}

}  // namespace zelbar

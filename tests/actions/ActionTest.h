#pragma once

#include "actions/cPIMActions.h"
#include "automation/OutlookNames.h"
#include "connector/Parts.h"
#include "search/cContact.h"
#include "tests/com/LateClient.h"
#include "tests/fixture/DriverTest.h"

namespace zelbar {

inline constexpr long kOpen = 4097, kClose = 4098, kMail = 4099, kJournal = 4100, kLaunch = 4101;

using standin::outlook::ItemRecord;
using standin::outlook::SpecialFolder;

/// The call actions between a script and a hosted Outlook. `anna` is a contact that Outlook has.
class ActionTest : public DriverTest {
  protected:
    ActionTest() { driver().log.load(); }

    static Object action(long id, std::initializer_list<std::pair<const wchar_t*, Variant>> settings = {}) {
        Com<IDispatch> made;
        EXPECT_EQ(makeActions(actionParts(driver()))->NewAction(id, made.put()), S_OK);
        const Object result = lateBound(made);
        for (const auto& [key, value] : settings) settingOf(result, key).put({L"Value"}, value);
        return result;
    }
    /// The action that opens contacts, with this entry of its list chosen.
    static Object opener(short choice) {
        const Object result = action(kOpen);
        settingOf(result, L"NewOnInexistant").put({L"ValueIndex"}, choice);
        return result;
    }
    static Object settingOf(const Object& action, const wchar_t* key) {
        return action.object({L"ActionProp"}).object({L"Item"}, key);
    }
    static std::wstring valueOf(const Object& action, const wchar_t* key) {
        return settingOf(action, key).text({L"Value"});
    }
    /// Anna as a search delivers her, and a caller whom nobody knows.
    Object known(const std::wstring& callInformation = {}, const std::wstring& storeId = {}) {
        const auto contact = makeObject<cContact>(contactParts(driver()));
        contact->SetValues(
            driver().outlook.GetContactFromID(mailbox.entryId(anna), storeId, L"test", L"known").item);
        contact->Contact_PersonalData(callInformation);
        return lateBound(contact);
    }
    static Object unknown(const std::wstring& callInformation = {}) {
        const auto contact = makeObject<cContact>(contactParts(driver()));
        contact->MakeUnknownContact(kSearchByNumber, L"0123");
        contact->Contact_PersonalData(callInformation);
        return lateBound(contact);
    }
    /// Runs an action. What the caller's variable holds afterwards; the answer must be False.
    static Object run(const Object& action, const Object& contact) {
        IDispatch* callers = contact.target().detach();
        const auto answer = late(*action.target().get(), L"ExecuteAction", {referenceTo(callers)});
        EXPECT_EQ(answer.result, S_OK);
        EXPECT_FALSE(answer.value.boolean());
        return lateBound(Com<IDispatch>::adopt(callers));
    }

    /// Full names or subjects of the items whose windows are open.
    static std::vector<std::wstring> windows() {
        const Object inspectors = Gateway()
                                      .create(Server::Outlook, outlook::kProgId, outlook::kApplication)
                                      .object({L"Inspectors"});
        std::vector<std::wstring> result;
        for (long i = 1; i <= inspectors.integer({L"Count"}); ++i) {
            const Object item = inspectors.object({L"Item"}, i).object({L"CurrentItem"});
            const bool isContact = item.integer({L"Class"}) == outlook::kContact;
            result.push_back(item.text({isContact ? L"FullName" : L"Subject"}));
        }
        return result;
    }

    ItemRecord anna = addContact(
        {{L"FirstName", L"Anna"}, {L"LastName", L"Berg"}, {L"BusinessTelephoneNumber", L"555 100"}});
};

}  // namespace zelbar

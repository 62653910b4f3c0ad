#include <windows.h>

#include "standin/common/Object.h"
#include "tests/actions/ActionTest.h"

namespace zelbar {

namespace {

/// A contact of the client's own making, of which nothing but names is known.
class ClientContact final : public standin::Object {
  public:
    explicit ClientContact(standin::Server& server) : Object(server) {}
    std::wstring fullName = L"Eva Falk", number = L"777", contactId, storeId;
    bool notInPim = false;
    std::wstring data = L"TYPE=incoming;PHONENUMBER=777;";

  private:
    const standin::MemberTable& members() const override {
        using Self = ClientContact;
        static const standin::MemberTable table(
            L"ClientContact", {
                                  standin::readOnly<&Self::getFullName>(L"FullName", 30),
                                  standin::readOnly<&Self::getNumber>(L"MainPhoneNumber", 22),
                                  standin::readOnly<&Self::getContactId>(L"ContactId", 20),
                                  standin::readOnly<&Self::getStoreId>(L"StoreId", 21),
                                  standin::readOnly<&Self::getNotInPim>(L"NotInPIM", 31),
                                  standin::readOnly<&Self::getData>(L"PersonalData", 32),
                              });
        return table;
    }
    std::wstring getFullName() const { return fullName; }
    std::wstring getNumber() const { return number; }
    std::wstring getContactId() const { return contactId; }
    std::wstring getStoreId() const { return storeId; }
    bool getNotInPim() const { return notInPim; }
    std::wstring getData() const { return data; }
};

class CallContacts : public ActionTest {
  protected:
    standin::Server client{L"Client"};
    standin::Ref<ClientContact> eva() { return standin::makeObject<ClientContact>(client); }

    /// `ExecuteAction` as a script calls it, with the argument that it hands over.
    static HRESULT runByName(const Com<::CallAction>& action, VARIANT argument) {
        wchar_t name[] = L"ExecuteAction";
        wchar_t* names = name;
        DISPID id = 0;
        EXPECT_EQ(action->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id), S_OK);
        DISPPARAMS parameters{&argument, nullptr, 1, 0};
        Variant result;
        const HRESULT outcome = action->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                                               &parameters, result.put(), nullptr, nullptr);
        EXPECT_FALSE(result.boolean());
        return outcome;
    }
    static VARIANT reference(IDispatch*& object) {
        VARIANT result{};
        result.vt = VT_BYREF | VT_DISPATCH;
        result.ppdispVal = &object;
        return result;
    }
    static VARIANT reference(Variant& variable) {
        VARIANT result{};
        result.vt = VT_BYREF | VT_VARIANT;
        result.pvarVal = const_cast<VARIANT*>(&variable.raw());
        return result;
    }
};

TEST_F(CallContacts, AClientsOwnContactIsReadByName) {
    const auto contact = eva();
    IDispatch* callers = contact.Get();
    EXPECT_EQ(runByName(action(kJournal), reference(callers)), S_OK);
    contact->contactId = outlook.mailbox().entryId(anna);
    EXPECT_EQ(runByName(action(kJournal), reference(callers)), S_OK);
    contact->notInPim = true;
    EXPECT_EQ(runByName(action(kJournal), reference(callers)), S_OK);
    EXPECT_EQ(callers, contact.Get());
    const auto entries = saved(SpecialFolder::Journal);
    ASSERT_EQ(entries.size(), 3u);
    EXPECT_EQ(entries[0].field(L"Subject"), L"777 called");
    EXPECT_EQ(entries[1].field(L"Subject"), L"Anna Berg called");
    EXPECT_EQ(entries[2].field(L"Subject"), L"777 called");
}

TEST_F(CallContacts, ABrokenContactFailsTheActionOnly) {
    const auto contact = eva();
    IDispatch* callers = contact.Get();
    client.faults().failMember(L"PersonalData", {E_FAIL, L"broken"});
    for (const long id : {kMail, kJournal, kLaunch})
        EXPECT_EQ(runByName(action(id), reference(callers)), S_OK);
    EXPECT_TRUE(traced("Error (ExecuteAction - ActionStoreInJournal): broken in "));
    EXPECT_TRUE(saved(SpecialFolder::Journal).empty());
    EXPECT_TRUE(saved(SpecialFolder::SentMail).empty());
}

TEST_F(CallContacts, LateBoundCallersAreWrittenBack) {
    Variant nobody, nothing(Com<IDispatch>{}), somebody{Com<IDispatch>(unknown())};
    EXPECT_EQ(runByName(action(kJournal), reference(nobody)), S_OK);
    EXPECT_TRUE(lateBound(nobody.object()).boolean({L"NotInPIM"}));
    EXPECT_EQ(runByName(action(kMail), reference(nothing)), S_OK);
    EXPECT_FALSE(lateBound(nothing.object()).boolean({L"NotInPIM"}));
    EXPECT_EQ(runByName(action(kClose), reference(somebody)), S_OK);
    EXPECT_TRUE(somebody.isNothing());
    IDispatch* typed = nullptr;
    EXPECT_EQ(runByName(action(kJournal), reference(typed)), S_OK);
    EXPECT_TRUE(typed);
    EXPECT_EQ(runByName(action(kClose), reference(typed)), S_OK);
    EXPECT_FALSE(typed);
}

TEST_F(CallContacts, AValueStaysItsOwners) {
    const auto contact = eva();
    VARIANT value{};
    value.vt = VT_DISPATCH;
    value.pdispVal = contact.Get();
    EXPECT_EQ(runByName(action(kClose), value), S_OK);
    EXPECT_EQ(value.pdispVal, contact.Get());
    EXPECT_EQ(client.liveObjects(), 1);
    contact.Get()->AddRef();
    EXPECT_EQ(contact.Get()->Release(), 1u);
}

TEST_F(CallContacts, EarlyBoundCallersAreWrittenBack) {
    const auto made = run(*action(kJournal), {});
    ASSERT_TRUE(made);
    EXPECT_TRUE(notInPim(made.get()));
    VARIANT_BOOL result = VARIANT_TRUE;
    EXPECT_EQ(action(kJournal)->ExecuteAction(nullptr, &result), E_POINTER);
}

}  // namespace

}  // namespace zelbar

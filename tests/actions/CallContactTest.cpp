#include <windows.h>

#include "automation/Bstr.h"
#include "tests/actions/ActionTest.h"
#include "tests/automation/StrictObject.h"

namespace zelbar {

namespace {

enum : DISPID { kFullName, kNumber, kContactId, kStoreId, kNotInPim, kData };

class CallContacts : public ActionTest {
  protected:
    /// Runs an action as a script does.
    void runByName(long id, const Variant& argument) {
        EXPECT_FALSE(lateBound(action(id)).get({L"ExecuteAction"}, argument).boolean());
    }
    static Variant reference(IDispatch*& object) {
        Variant result;
        VARIANT* raw = result.put();
        raw->vt = VT_BYREF | VT_DISPATCH;
        raw->ppdispVal = &object;
        return result;
    }

    /// A contact of the client's own making, with its members by number. Unset ones are broken.
    Variant eva[6] = {L"Eva Falk", L"777", L"", L"", false, L"TYPE=incoming;PHONENUMBER=777;"};
    StrictObject client{{{L"FullName", kFullName},
                         {L"MainPhoneNumber", kNumber},
                         {L"ContactId", kContactId},
                         {L"StoreId", kStoreId},
                         {L"NotInPIM", kNotInPim},
                         {L"PersonalData", kData}},
                        [this](DISPID member, DISPPARAMS&, VARIANT* result, EXCEPINFO* exception) {
                            *result = Variant(eva[member]).detach();
                            if (result->vt != VT_EMPTY) return S_OK;
                            exception->bstrDescription = Bstr(L"broken").detach();
                            return DISP_E_EXCEPTION;
                        }};
};

TEST_F(CallContacts, AClientsOwnContactIsReadByName) {
    IDispatch* callers = &client;
    const auto subject = [&] {
        runByName(kJournal, reference(callers));
        return saved(SpecialFolder::Journal).back().field(L"Subject");
    };
    EXPECT_EQ(subject(), L"777 called");
    eva[kContactId] = outlook.mailbox().entryId(anna);
    EXPECT_EQ(subject(), L"Anna Berg called");
    eva[kNotInPim] = true;
    EXPECT_EQ(subject(), L"777 called");
    EXPECT_EQ(callers, &client);
    EXPECT_EQ(client.references, 1);
}

TEST_F(CallContacts, CallersAreWrittenBackAndAValueStaysItsOwners) {
    for (const auto& [id, notInPim] : {std::pair{kJournal, true}, std::pair{kMail, false}}) {
        IDispatch* late = nullptr;
        runByName(id, reference(late));
        ASSERT_TRUE(late);
        EXPECT_EQ(lateBound(Com<IDispatch>::share(late)).boolean({L"NotInPIM"}), notInPim);
        runByName(kClose, reference(late));
        EXPECT_FALSE(late);

        const auto early = run(*action(id), {});
        ASSERT_TRUE(early);
        EXPECT_EQ(zelbar::notInPim(early.get()), notInPim);
        EXPECT_FALSE(run(*action(kClose), early));
    }
    const Variant value(client.reference());
    runByName(kClose, value);
    EXPECT_EQ(value.object().get(), &client);
    EXPECT_EQ(client.references, 2) << "the test's and the value's";
}

}  // namespace

}  // namespace zelbar

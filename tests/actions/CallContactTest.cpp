#include "tests/actions/ActionTest.h"
#include "tests/automation/StrictObject.h"

namespace zelbar {

namespace {

enum : DISPID { kFullName, kNumber, kContactId, kStoreId, kNotInPim, kData };

class CallContacts : public ActionTest {
  protected:
    void runByName(long id, VARIANT argument, bool named = false) {
        const auto answer = late(*action(id).target().get(), L"ExecuteAction", {argument}, kRead,
                                 std::vector<const wchar_t*>(named, L"CallContact"));
        EXPECT_EQ(answer.result, S_OK);
        EXPECT_FALSE(answer.value.boolean());
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
        runByName(kJournal, referenceTo(callers));
        return saved(SpecialFolder::Journal).back().field(L"Subject");
    };
    EXPECT_EQ(subject(), L"777 called");
    eva[kContactId] = mailbox.entryId(anna);
    EXPECT_EQ(subject(), L"Anna Berg called");
    eva[kNotInPim] = true;
    EXPECT_EQ(subject(), L"777 called");
    EXPECT_EQ(callers, &client);
    EXPECT_EQ(client.references, 1);
}

TEST_F(CallContacts, AVariableGetsWhatTheActionPutsThere) {
    for (const auto& [id, notInPim] : {std::pair{kJournal, true}, std::pair{kMail, false}}) {
        for (const bool isVariant : {false, true}) {
            IDispatch* object = nullptr;
            VARIANT variant = lent(VT_EMPTY);
            IDispatch*& content = isVariant ? variant.pdispVal : object;
            const VARIANT variable = isVariant ? referenceTo(variant) : referenceTo(object);
            runByName(id, variable);
            ASSERT_TRUE(content);
            EXPECT_EQ(lateBound(Com<IDispatch>::share(content)).boolean({L"NotInPIM"}), notInPim);
            runByName(kClose, variable, true);
            EXPECT_FALSE(content);
        }
    }
    IDispatch* object = client.reference().detach();
    runByName(kClose, referenceTo(object));
    EXPECT_FALSE(object);
    EXPECT_EQ(client.references, 1) << "the caller's reference was taken";
}

TEST_F(CallContacts, WhatIsPassedByValueStaysTheCallers) {
    IDispatch* object = &client;
    IUnknown* unknown = object;
    for (const VARIANT argument : {lent(object), referenceTo(unknown)})
        for (const bool named : {false, true}) {
            runByName(kClose, argument, named);
            EXPECT_EQ(unknown, object);
            EXPECT_EQ(client.references, 1);
        }
}

}  // namespace

}  // namespace zelbar

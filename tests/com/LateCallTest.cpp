#include "com/LateCall.h"

#include <functional>

#include "automation/Bstr.h"
#include "com/CallActionBorder.h"
#include "connector/Parts.h"
#include "search/cContactRecord.h"
#include "support/Encoding.h"
#include "tests/automation/StrictObject.h"
#include "tests/com/LateClient.h"
#include "tests/fixture/DriverTest.h"

namespace zelbar {
namespace {

/// A cursor without a cache: each search gives an unknown caller, who tells what was searched and how.
struct LateSearchTest : DriverTest {
    Com<cContactRecord> cursor = makeObject<cContactRecord>(contactParts(driver()), driver().cache);
    Bstr text{L"Ada"};

    void TearDown() override {
        cursor.reset();
        DriverTest::TearDown();
    }
    LateAnswer find(std::vector<VARIANT> arguments, const std::vector<const wchar_t*>& named = {}) {
        return late(*cursor.get(), L"FindFirst", std::move(arguments), kRead, named);
    }
    /// "name Ada" or "number Ada".
    static std::wstring told(const LateAnswer& answer) {
        const auto contact = answer.value.object().as<::Contact>();
        const std::wstring name = firstName(contact.get());
        return name.empty() ? L"number " + mainNumber(contact.get()) : L"name " + name;
    }
};

TEST_F(LateSearchTest, AKindOfSearchMayComeInAnyForm) {
    Bstr one{L"1"}, word{L"one"};
    long number = 1;
    short small = 1;
    VARIANT variant = lent(short{1}), referring = referenceTo(number);
    const struct {
        const char* form;
        VARIANT argument;
        HRESULT result;
    } kCases[] = {
        {"long", lent(1L), S_OK},
        {"double", lent(1.0), S_OK},
        {"text", lent(one.get()), S_OK},
        {"long variable", referenceTo(number), S_OK},
        {"short variable", referenceTo(small), S_OK},
        {"variant", referenceTo(variant), S_OK},
        {"variant that refers", referenceTo(referring), S_OK},
        {"no number", lent(word.get()), DISP_E_TYPEMISMATCH},
        {"too large", lent(1e12), DISP_E_OVERFLOW},
        {"Null", lent(VT_NULL), DISP_E_TYPEMISMATCH},
        {"Nothing", lent(static_cast<IDispatch*>(nullptr)), DISP_E_TYPEMISMATCH},
        {"left out", lent(VT_ERROR), DISP_E_PARAMNOTOPTIONAL},
        {"nowhere", nowhere<VARIANT>(), E_POINTER},
    };
    for (const auto& c : kCases) {
        const LateAnswer answer = find({c.argument, lent(text.get())});
        EXPECT_EQ(answer.result, c.result) << c.form;
        EXPECT_TRUE(c.result != S_OK || told(answer) == L"name Ada") << c.form;
    }
    EXPECT_EQ(told(find({lent(VT_EMPTY), lent(text.get())})), L"number Ada");
}

TEST_F(LateSearchTest, ArgumentsMayBeNamed) {
    VARIANT kind = lent(short{1});
    for (VARIANT argument : {referenceTo(kind), lent(1L)})
        EXPECT_EQ(told(find({lent(text.get()), argument}, {L"SearchText", L"SearchKind"})), L"name Ada");
    EXPECT_EQ(told(find({referenceTo(kind), lent(text.get())}, {L"SearchText"})), L"name Ada");
    EXPECT_EQ(find({lent(text.get())}, {L"Text"}).result, DISP_E_UNKNOWNNAME);
    EXPECT_EQ(find({lent(text.get())}, {L"SearchText", L"SearchKind"}).result, DISP_E_BADPARAMCOUNT);
}

/// An action that does with its contact what the test says.
class TestAction final : public CallActionBorder<TestAction> {
  public:
    std::function<void(ContactArgument&)> execute;

    bool PIMAction_ExecuteAction(ContactArgument& contact) {
        execute(contact);
        return false;
    }
    std::wstring PIMAction_ActionName() { return L"Test"; }
    bool PIMAction_PassiveAction() { return true; }
    long PIMAction_ActionID() { return 1; }
    Com<::ActionProperties> PIMAction_ActionProp() { return {}; }
    Com<IDispatch> PIMAction_CopyAction() { return {}; }
};

/// A caller whose contact is `mine`, and an action that puts another one, or none, in its place.
struct LateActionTest : DriverTest {
    StrictObject mine{{}}, other{{}};
    const IUnknown* arrived = nullptr;

    HRESULT run(VARIANT argument, IDispatch* replacement, bool named = false) {
        const auto action = makeObject<TestAction>();
        action->execute = [&](ContactArgument& contact) {
            arrived = contact.given().get();
            contact.replace(Com<::Contact>::share(static_cast<::Contact*>(replacement)));
        };
        return late(static_cast<::CallAction&>(*action.get()), L"ExecuteAction", {argument}, kRead,
                    std::vector<const wchar_t*>(named, L"CallContact"))
            .result;
    }
};

TEST_F(LateActionTest, WhatIsPassedByValueStaysTheCallers) {
    IDispatch* contact = &mine;
    IUnknown* asUnknown = contact;
    for (IDispatch* replacement : {static_cast<IDispatch*>(nullptr), static_cast<IDispatch*>(&other)})
        for (VARIANT argument : {lent(contact), referenceTo(asUnknown)})
            for (const bool named : {false, true}) {
                EXPECT_EQ(run(argument, replacement, named), S_OK);
                EXPECT_EQ(arrived, contact);
                EXPECT_EQ(asUnknown, contact);
                EXPECT_EQ(mine.references, 1);
                EXPECT_EQ(other.references, 1);
            }
}

TEST_F(LateActionTest, AVariableGetsWhatTheActionPutsThere) {
    for (const bool named : {false, true})
        for (const bool isVariant : {false, true}) {
            IDispatch* object = mine.reference().detach();
            VARIANT variant = lent(object);
            const VARIANT variable = isVariant ? referenceTo(variant) : referenceTo(object);
            IDispatch*& content = isVariant ? variant.pdispVal : object;
            const auto expect = [&](IDispatch* before, IDispatch* after) {
                EXPECT_EQ(run(variable, after, named), S_OK) << named << isVariant;
                EXPECT_EQ(arrived, before) << named << isVariant;
                EXPECT_EQ(content, after) << named << isVariant;
                EXPECT_EQ(variant.vt, VT_DISPATCH);
                EXPECT_EQ(mine.references, after == &mine ? 2 : 1) << "the caller's reference was taken";
                EXPECT_EQ(other.references, after == &other ? 2 : 1);
            };
            expect(&mine, &other);
            expect(&other, nullptr);
            if (isVariant) variant = lent(VT_EMPTY);
            expect(nullptr, &mine);
            content->Release();
        }
}

}  // namespace
}  // namespace zelbar

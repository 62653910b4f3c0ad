#include "com/LateCall.h"

#include <functional>

#include "automation/Bstr.h"
#include "com/CallActionBorder.h"
#include "search/cContactRecord.h"
#include "support/Encoding.h"
#include "tests/automation/HeapBlocks.h"
#include "tests/automation/StrictObject.h"
#include "tests/com/LateClient.h"
#include "tests/fixture/DriverTest.h"

namespace zelbar {
namespace {

/// A cursor without a cache: each search gives an unknown caller, who tells what was searched and how.
struct LateSearchTest : DriverTest {
    Com<cContactRecord> cursor = makeObject<cContactRecord>();
    Bstr text{L"Ada"};

    void TearDown() override {
        cursor.reset();
        DriverTest::TearDown();
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
        {"short", lent(short{1}), S_OK},
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
    };
    for (const auto& c : kCases) {
        const LateAnswer answer = late(*cursor.get(), L"FindFirst", {c.argument, lent(text.get())});
        EXPECT_EQ(answer.result, c.result) << c.form;
        if (c.result == S_OK)
            EXPECT_EQ(told(answer), L"name Ada") << c.form;
        else
            EXPECT_EQ(answer.value.type(), VT_EMPTY) << c.form;
    }
    EXPECT_EQ(told(late(*cursor.get(), L"FindFirst", {lent(VT_EMPTY), lent(text.get())})), L"number Ada");
}

TEST_F(LateSearchTest, ArgumentsMayBeNamed) {
    VARIANT kind = lent(short{1});
    for (VARIANT argument : {referenceTo(kind), lent(1L)})
        EXPECT_EQ(told(late(*cursor.get(), L"FindFirst", {lent(text.get()), argument}, kRead,
                            {L"SearchText", L"SearchKind"})),
                  L"name Ada");
    EXPECT_EQ(told(late(*cursor.get(), L"FindFirst", {referenceTo(kind), lent(text.get())}, kRead,
                        {L"SearchText"})),
              L"name Ada");
    EXPECT_EQ(late(*cursor.get(), L"FindFirst", {lent(text.get())}, kRead, {L"Text"}).result,
              DISP_E_UNKNOWNNAME);
}

TEST_F(LateSearchTest, ACallersMistakeIsACallersError) {
    const VARIANT nowhere = referenceTo(*static_cast<VARIANT*>(nullptr));
    const struct {
        const wchar_t* member;
        std::vector<VARIANT> arguments;
        HRESULT result;
        WORD kind = kRead;
    } kCases[] = {
        {L"FindLast", {}, DISP_E_UNKNOWNNAME},
        {L"FindNext", {lent(1L)}, DISP_E_BADPARAMCOUNT},
        {L"FindFirst", {lent(1L)}, DISP_E_BADPARAMCOUNT},
        {L"FindFirst", {nowhere, lent(text.get())}, E_POINTER},
        {L"EOF", {lent(1L)}, DISP_E_MEMBERNOTFOUND, DISPATCH_PROPERTYPUT},
    };
    for (const auto& c : kCases)
        EXPECT_EQ(late(*cursor.get(), c.member, c.arguments, c.kind).result, c.result) << utf8(c.member);
    EXPECT_EQ(cursor->Invoke(1, IID_NULL, 0, kRead, nullptr, nullptr, nullptr, nullptr), E_POINTER);
}

TEST_F(LateSearchTest, AResultThatNobodyWantsIsReleased) {
    VARIANT arguments[] = {lent(text.get()), lent(1L)};
    DISPPARAMS parameters{arguments, nullptr, 2, 0};
    constexpr DISPID kFindFirst = 7;
    const long before = moduleState().liveObjects;
    for (int i = 0; i < 50; ++i)
        EXPECT_EQ(
            cursor->Invoke(kFindFirst, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr),
            S_OK);
    EXPECT_EQ(moduleState().liveObjects, before + 1) << "only the current contact is left";
}

TEST_F(LateSearchTest, OptionalArgumentsMayBeLeftOut) {
    Bstr command{L"isFolderConfigured"};
    for (const auto& arguments :
         {std::vector<VARIANT>{lent(command.get())}, {lent(command.get()), lent(VT_ERROR)}})
        EXPECT_EQ(late(connector(), L"ExecuteCommand", arguments).value.type(), VT_BOOL);
    EXPECT_EQ(late(connector(), L"ExecuteCommand").result, DISP_E_BADPARAMCOUNT);
}

TEST_F(LateSearchTest, CallsLeaveNothingBehind) {
    VARIANT kind = lent(short{1});
    EXPECT_LT(blocksLeftBy([&] {
                  late(*cursor.get(), L"FindFirst", {referenceTo(kind), lent(text.get())});
                  late(*cursor.get(), L"FindFirst", {lent(VT_NULL), lent(text.get())});
              }),
              kFewBlocks);
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

/// A caller whose contact is `mine`, and an action that may put another one in its place.
struct LateActionTest : DriverTest {
    Com<TestAction> action = makeObject<TestAction>();
    Com<cContact> contact = makeObject<cContact>(), other = makeObject<cContact>();
    IDispatch* mine = nullptr;
    const IUnknown* arrived = nullptr;

    void SetUp() override {
        mine = contact.get();
        leaveAlone();
    }
    void TearDown() override {
        action.reset();
        contact.reset();
        other.reset();
        DriverTest::TearDown();
    }
    void leaveAlone() {
        action->execute = [this](ContactArgument& argument) { arrived = argument.given().get(); };
    }
    void replaceBy(Com<::Contact> replacement) {
        action->execute = [this, replacement](ContactArgument& argument) {
            arrived = argument.given().get();
            argument.replace(replacement);
        };
    }
    HRESULT run(VARIANT argument, const std::vector<const wchar_t*>& named = {}) {
        arrived = nullptr;
        return late(static_cast<::CallAction&>(*action.get()), L"ExecuteAction", {argument}, kRead, named)
            .result;
    }
    static ULONG references(IUnknown* object) {
        object->AddRef();
        return object->Release();
    }
};

TEST_F(LateActionTest, WhatIsPassedByValueStaysTheCallers) {
    IUnknown* asUnknown = mine;
    for (const auto& replacement : {Com<::Contact>(), Com<::Contact>(other)}) {
        replaceBy(replacement);
        for (VARIANT argument : {lent(mine), referenceTo(asUnknown)}) {
            EXPECT_EQ(run(argument), S_OK);
            EXPECT_EQ(arrived, mine);
            EXPECT_EQ(run(argument, {L"CallContact"}), S_OK);
            EXPECT_EQ(arrived, mine);
            EXPECT_EQ(references(mine), 1u);
        }
        EXPECT_EQ(asUnknown, mine);
    }
    EXPECT_EQ(references(other.get()), 2u) << "this test's and the action's";
}

TEST_F(LateActionTest, AVariableGetsWhatTheActionPutsThere) {
    for (const bool named : {false, true})
        for (const bool isVariant : {false, true}) {
            const std::vector<const wchar_t*> names(named ? 1 : 0, L"CallContact");
            IDispatch* object = Com<IDispatch>::share(mine).detach();
            VARIANT variant = lent(object);
            const VARIANT variable = isVariant ? referenceTo(variant) : referenceTo(object);
            IDispatch*& content = isVariant ? variant.pdispVal : object;
            const auto expect = [&](IDispatch* before, IDispatch* after) {
                EXPECT_EQ(run(variable, names), S_OK) << named << isVariant;
                EXPECT_EQ(arrived, before) << named << isVariant;
                EXPECT_EQ(content, after) << named << isVariant;
                EXPECT_EQ(variant.vt, VT_DISPATCH);
            };
            leaveAlone();
            expect(mine, mine);
            EXPECT_EQ(references(mine), 2u);
            replaceBy(other);
            expect(mine, other.get());
            EXPECT_EQ(references(mine), 1u) << "the caller's reference was taken";
            replaceBy({});
            expect(other.get(), nullptr);
            replaceBy(other);
            expect(nullptr, other.get());
            content->Release();
            if (isVariant) {
                variant = lent(VT_EMPTY);
                expect(nullptr, other.get());
                VariantClear(&variant);
            }
            leaveAlone();
            EXPECT_EQ(references(other.get()), 1u);
        }
}

TEST_F(LateActionTest, OnlyObjectsAreContacts) {
    Bstr text{L"Ada"};
    VARIANT variant = lent(text.get());
    for (VARIANT argument : {lent(text.get()), referenceTo(variant), lent(1L)})
        EXPECT_EQ(run(argument), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(variant.bstrVal, text.get());

    StrictObject foreign({});
    {
        IDispatch* object = &foreign;
        VARIANT inVariant = lent(&foreign);
        for (VARIANT argument : {lent(&foreign), referenceTo(object), referenceTo(inVariant)}) {
            EXPECT_EQ(run(argument), S_OK) << "an object of the client's own making is judged by the action";
            EXPECT_EQ(arrived, &foreign);
        }
    }
    EXPECT_EQ(foreign.references, 1);
}

}  // namespace
}  // namespace zelbar

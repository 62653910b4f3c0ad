#include "com/LateCall.h"

#include "automation/Bstr.h"
#include "connector/Parts.h"
#include "search/cContactRecord.h"
#include "support/Encoding.h"
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
        const Object contact = lateBound(answer.value.object());
        const std::wstring name = contact.text({L"FirstName"});
        return name.empty() ? L"number " + contact.text({L"MainPhoneNumber"}) : L"name " + name;
    }
};

TEST_F(LateSearchTest, AKindOfSearchMayComeInAnyForm) {
    Bstr one{L"1"};
    long number = 1;
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
        {"variant", referenceTo(variant), S_OK},
        {"variant that refers", referenceTo(referring), S_OK},
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

}  // namespace
}  // namespace zelbar

#include "automation/Variant.h"

#include <gtest/gtest.h>

#include "automation/Fault.h"

namespace zelbar {
namespace {

/// What reading it gives: the text, or "!" and the number of the fault.
template <class Read>
std::wstring outcome(Read&& read) {
    try {
        return read();
    } catch (const Fault& fault) {
        return L"!" + std::to_wstring(fault.number);
    }
}

Variant null() {
    Variant result;
    result.put()->vt = VT_NULL;
    return result;
}

TEST(VariantTest, ReadersConvertAsAutomationDoes) {
    const struct {
        Variant value;
        std::wstring text;
        const wchar_t *integer, *boolean;
    } kCases[] = {
        {{}, L"", L"0", L"no"},
        {null(), L"", L"0", L"no"},
        {true, L"-1", L"-1", L"yes"},
        {short{-7}, L"-7", L"-7", L"yes"},
        {0, L"0", L"0", L"no"},
        {2.5, L"2.5", L"2", L"yes"},
        {1e12, L"1000000000000", L"!6", L"yes"},
        {L"", L"", L"!13", L"!13"},
        {L"12", L"12", L"12", L"yes"},
        {L"twelve", L"twelve", L"!13", L"!13"},
        {L"True", L"True", L"!13", L"yes"},
        {std::wstring(L"a\0b", 3), std::wstring(L"a\0b", 3), L"!13", L"!13"},
        {Variant::missing(), L"!13", L"!13", L"!13"},
        {Com<IDispatch>(), L"!13", L"!13", L"!13"},
    };
    for (const auto& c : kCases) {
        EXPECT_EQ(outcome([&] { return c.value.text(); }), c.text);
        EXPECT_EQ(outcome([&] { return std::to_wstring(c.value.integer()); }), c.integer) << c.text.c_str();
        EXPECT_EQ(outcome([&] { return std::wstring(c.value.boolean() ? L"yes" : L"no"); }), c.boolean)
            << c.text.c_str();
    }
}

TEST(VariantTest, OnlyObjectsAndNothingAreObjects) {
    EXPECT_FALSE(Variant().object());
    EXPECT_FALSE(Variant(Com<IDispatch>()).object());
    EXPECT_TRUE(Variant(Com<IDispatch>()).isNothing());
    EXPECT_THROW(Variant(L"text").object(), Fault);
    EXPECT_THROW(Variant::missing().object(), Fault);
}

TEST(VariantTest, CopiesOfForeignValuesFollowReferences) {
    long number = 42;
    VARIANT inner{};
    inner.vt = VT_BYREF | VT_I4;
    inner.plVal = &number;
    VARIANT outer{};
    outer.vt = VT_BYREF | VT_VARIANT;
    outer.pvarVal = &inner;
    EXPECT_EQ(Variant::copyOf(inner).type(), VT_I4);
    EXPECT_EQ(Variant::copyOf(outer).integer(), 42);
    VARIANT garbage{};
    garbage.vt = static_cast<VARTYPE>(4711);
    EXPECT_THROW(Variant::copyOf(garbage), Fault);
}

TEST(VariantTest, AnArrayOfTextsComesBack) {
    const std::vector<std::wstring> texts{L"one", L"", std::wstring(L"t\0o", 3)};
    EXPECT_EQ(Variant::ofTexts(texts).texts(), texts);
    EXPECT_EQ(Variant(Variant::ofTexts(texts)).texts(), texts);
    EXPECT_TRUE(Variant::ofTexts({}).texts().empty());
    EXPECT_TRUE(Variant(L"one").texts().empty());
}

}  // namespace
}  // namespace zelbar

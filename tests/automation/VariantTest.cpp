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

TEST(VariantTest, ReadersConvertAsAutomationDoes) {
    Variant null;
    null.put()->vt = VT_NULL;
    const struct {
        Variant value;
        std::wstring text;
        const wchar_t *integer, *boolean;
    } kCases[] = {
        {{}, L"", L"0", L"no"},
        {null, L"", L"0", L"no"},
        {true, L"-1", L"-1", L"yes"},
        {2.5, L"2.5", L"2", L"yes"},
        {1e12, L"1000000000000", L"!6", L"yes"},
        {L"", L"", L"!13", L"!13"},
        {std::wstring(L"a\0b", 3), std::wstring(L"a\0b", 3), L"!13", L"!13"},
        {Variant::missing(), L"!13", L"!13", L"!13"},
        {Com<IDispatch>(), L"!13", L"!13", L"!13"},
    };
    for (const auto& c : kCases) {
        EXPECT_EQ(outcome([&] { return c.value.text(); }), c.text);
        EXPECT_EQ(outcome([&] { return std::to_wstring(c.value.integer()); }), c.integer) << c.text.c_str();
        EXPECT_EQ(outcome([&] { return std::wstring(c.value.boolean() ? L"yes" : L"no"); }), c.boolean);
    }
    EXPECT_FALSE(Variant().object());
    EXPECT_FALSE(Variant(Com<IDispatch>()).object());
    EXPECT_THROW(Variant(L"text").object(), Fault);
}

TEST(VariantTest, AnArrayOfTextsComesBack) {
    const std::vector<std::wstring> texts{L"one", L"", std::wstring(L"t\0o", 3)};
    EXPECT_EQ(Variant(Variant::ofTexts(texts)).texts(), texts);
    EXPECT_TRUE(Variant::ofTexts({}).texts().empty());
    EXPECT_TRUE(Variant(L"one").texts().empty());
}

}  // namespace
}  // namespace zelbar

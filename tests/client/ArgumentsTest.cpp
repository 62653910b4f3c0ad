#include "client/Arguments.h"

#include <gtest/gtest.h>

#include <optional>

#include "client/Failure.h"

namespace pimcall {
namespace {

constexpr Option kKnown[] = {{L"--from", L"NUMBER"}, {L"--to", L"NUMBER"}, {L"--all", nullptr}};

/// Everything understood, as one text; nothing for a usage error.
std::optional<std::wstring> understood(const std::vector<std::wstring>& words) {
    try {
        const Arguments arguments = Arguments::parse(words, kKnown);
        std::wstring text;
        for (const Option& option : kKnown)
            if (arguments.has(option.name))
                text += option.name + (L"[" + arguments.value(option.name)) + L"]";
        try {
            arguments.refuseOperands();
        } catch (const UsageError&) {
            text += L" operand[" + arguments.operand(L"operand") + L"]";
        }
        return text;
    } catch (const UsageError&) {
        return std::nullopt;
    }
}

TEST(Arguments, UnderstandsWhatTheHelpPromises) {
    const std::wstring longText(40000, L'7');
    const struct {
        std::vector<std::wstring> words;
        std::optional<std::wstring> expected;
    } cases[] = {
        {{}, L""},
        {{L"--from", L"12"}, L"--from[12]"},
        {{L"--from=12"}, L"--from[12]"},
        {{L"--from=a=b"}, L"--from[a=b]"},
        {{L"--from", L"-12"}, L"--from[-12]"},
        {{L"--from", L" "}, L"--from[ ]"},
        {{L"--from=--to"}, L"--from[--to]"},
        {{L"--from", L"\"x\" *?[#]"}, L"--from[\"x\" *?[#]]"},
        {{L"--from", longText}, L"--from[" + longText + L"]"},
        {{L"--all", L"x", L"--to", L"1"}, L"--to[1]--all[] operand[x]"},
        {{L"--", L"--to"}, L" operand[--to]"},
        {{L"-"}, L" operand[-]"},
        {{L"--from"}, std::nullopt},
        {{L"--from", L""}, std::nullopt},
        {{L"--from="}, std::nullopt},
        {{L"--from", L"--to", L"1"}, std::nullopt},
        {{L"--from", L"--", L"1"}, std::nullopt},
        {{L"--from", L"1", L"--from", L"1"}, std::nullopt},
        {{L"--all=1"}, std::nullopt},
        {{L"--all="}, std::nullopt},
        {{L"--fro", L"1"}, std::nullopt},
        {{L"--FROM", L"1"}, std::nullopt},
        {{L"--=1"}, std::nullopt},
        {{L"x", L"y"}, std::nullopt},
        {{L""}, std::nullopt},
    };
    for (const auto& row : cases)
        EXPECT_EQ(row.expected, understood(row.words)) << testing::PrintToString(row.words).substr(0, 200);
}

TEST(Arguments, WantsExactlyOneOfTwo) {
    const auto chosen = [](const std::vector<std::wstring>& words) {
        return std::wstring(Arguments::parse(words, kKnown).oneOf(L"--from", L"--to"));
    };
    EXPECT_EQ(L"--from", chosen({L"--from=1"}));
    EXPECT_EQ(L"--to", chosen({L"--to=1"}));
    EXPECT_THROW(chosen({}), UsageError);
    EXPECT_THROW(chosen({L"--from=1", L"--to=1"}), UsageError);
}

}  // namespace
}  // namespace pimcall

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
    const struct {
        std::vector<std::wstring> words;
        std::optional<std::wstring> expected;
    } cases[] = {
        {{L"--from", L"12"}, L"--from[12]"},
        {{L"--from=12"}, L"--from[12]"},
        {{L"--from", L"-12"}, L"--from[-12]"},
        {{L"--from=--to"}, L"--from[--to]"},
        {{L"--from", L"\"x\" *?[#]"}, L"--from[\"x\" *?[#]]"},
        {{L"--all", L"x", L"--to", L"1"}, L"--to[1]--all[] operand[x]"},
        {{L"--", L"--to"}, L" operand[--to]"},
        {{L"--from="}, std::nullopt},
        {{L"--from", L"--to", L"1"}, std::nullopt},
        {{L"--from", L"1", L"--from", L"1"}, std::nullopt},
        {{L"--all=1"}, std::nullopt},
    };
    for (const auto& row : cases)
        EXPECT_EQ(row.expected, understood(row.words)) << testing::PrintToString(row.words);
}

}  // namespace
}  // namespace pimcall

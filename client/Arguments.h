#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pimcall {

/// One option of a command.
struct Option {
    /// With its dashes, as in "--from".
    const wchar_t* name;
    /// What the help calls its value, as in "NUMBER"; null for a switch.
    const wchar_t* value;
};

/// The words behind the command's name, taken apart.
class Arguments {
  public:
    /// Options may stand anywhere, as "--name VALUE" or "--name=VALUE"; after "--" everything is an operand.
    /// Throws `UsageError` for options that are unknown or given twice and for missing or empty values.
    static Arguments parse(std::span<const std::wstring> words, std::span<const Option> known);

    bool has(std::wstring_view option) const { return values_.contains(std::wstring(option)); }
    /// The value of an option that is there; empty for a switch.
    const std::wstring& value(std::wstring_view option) const { return values_.at(std::wstring(option)); }
    /// The value of an option; empty when it is not there.
    std::wstring valueOrNone(std::wstring_view option) const {
        return has(option) ? value(option) : std::wstring();
    }
    /// The value of an option; throws `UsageError` when it is not there.
    const std::wstring& needed(std::wstring_view option) const;
    /// Which one of two options is there; throws `UsageError` unless it is exactly one.
    const wchar_t* oneOf(const wchar_t* first, const wchar_t* second) const;
    /// Throws `UsageError` unless there is exactly one operand, and that not empty; `meaning` names it.
    const std::wstring& operand(std::wstring_view meaning) const;
    /// The same where there may be none; empty then.
    std::wstring operandOrNone(std::wstring_view meaning) const;
    /// All operands; throws `UsageError` when there is none. `meaning` names one.
    const std::vector<std::wstring>& operands(std::wstring_view meaning) const;
    /// Throws `UsageError` if there is any operand.
    void refuseOperands() const;

  private:
    /// Takes the option that comes first, and its value; returns the words behind them.
    std::span<const std::wstring> takeOption(std::span<const std::wstring> words,
                                             std::span<const Option> known);

    std::map<std::wstring, std::wstring> values_;
    std::vector<std::wstring> operands_;
};

}  // namespace pimcall

#include "client/Arguments.h"

#include <utility>

#include "client/Failure.h"
#include "support/Similar.h"

namespace pimcall {
namespace {

const Option& find(std::wstring_view name, std::span<const Option> known) {
    std::vector<std::wstring_view> names;
    for (const Option& option : known) {
        if (option.name == name) return option;
        names.push_back(option.name);
    }
    const std::wstring similar(zelbar::similarWord(name, names));
    throw UsageError(L"There is no option " + std::wstring(name) + L" here" +
                     (similar.empty() ? L"." : L"; did you mean " + similar + L"?"));
}

bool looksLikeOption(std::wstring_view word) {
    return word.starts_with(L"--");
}

}  // namespace

Arguments Arguments::parse(std::span<const std::wstring> words, std::span<const Option> known) {
    Arguments result;
    while (!words.empty()) {
        const std::wstring& word = words.front();
        if (word == L"--") {
            result.operands_.insert(result.operands_.end(), words.begin() + 1, words.end());
            break;
        }
        if (looksLikeOption(word)) {
            words = result.takeOption(words, known);
        } else {
            result.operands_.push_back(word);
            words = words.subspan(1);
        }
    }
    return result;
}

std::span<const std::wstring> Arguments::takeOption(std::span<const std::wstring> words,
                                                    std::span<const Option> known) {
    const std::wstring& word = words.front();
    words = words.subspan(1);
    const size_t equals = word.find(L'=');
    const bool attached = equals != std::wstring::npos;
    const std::wstring name = word.substr(0, equals);
    std::wstring value = attached ? word.substr(equals + 1) : L"";
    if (find(name, known).value) {
        if (!attached && !words.empty() && !looksLikeOption(words.front())) {
            value = words.front();
            words = words.subspan(1);
        }
        if (value.empty()) throw UsageError(name + L" needs a value that is not empty.");
    } else if (attached) {
        throw UsageError(name + L" takes no value.");
    }
    if (!values_.emplace(name, std::move(value)).second)
        throw UsageError(name + L" is given more than once.");
    return words;
}

const std::wstring& Arguments::needed(std::wstring_view option) const {
    if (!has(option)) throw UsageError(std::wstring(option) + L" is needed.");
    return value(option);
}

const wchar_t* Arguments::oneOf(const wchar_t* first, const wchar_t* second) const {
    if (has(first) == has(second))
        throw UsageError(std::wstring(L"Exactly one of ") + first + L" and " + second + L" is needed.");
    return has(first) ? first : second;
}

const std::wstring& Arguments::operand(std::wstring_view meaning) const {
    if (operands_.size() != 1 || operands_.front().empty())
        throw UsageError(L"Exactly one " + std::wstring(meaning) + L" is needed.");
    return operands_.front();
}

std::wstring Arguments::operandOrNone(std::wstring_view meaning) const {
    return operands_.empty() ? std::wstring() : operand(meaning);
}

const std::vector<std::wstring>& Arguments::operands(std::wstring_view meaning) const {
    if (operands_.empty()) throw UsageError(L"At least one " + std::wstring(meaning) + L" is needed.");
    return operands_;
}

void Arguments::refuseOperands() const {
    if (!operands_.empty()) throw UsageError(L"\"" + operands_.front() + L"\" is not understood here.");
}

}  // namespace pimcall

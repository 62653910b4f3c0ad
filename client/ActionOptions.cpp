#include "client/ActionOptions.h"

#include <algorithm>
#include <span>

#include "client/Failure.h"

namespace pimcall {
namespace {

using Names = std::span<const wchar_t* const>;

constexpr const wchar_t* kOfCall[] = {L"--start", L"--duration", L"--local-number", L"--origin"};
constexpr const wchar_t* kOfOpening[] = {L"--create", L"--create-only"};
constexpr const wchar_t* kOfMail[] = {L"--to-address", L"--leave-open"};
constexpr const wchar_t* kOfLaunch[] = {L"--path", L"--arguments"};

void setUpOpening(const Arguments& arguments, OwnAction& action) {
    constexpr wchar_t kNewOnInexistant[] = L"NewOnInexistant";
    constexpr short kCreateUnknown = 1, kOpenAndCreate = 2;
    if (arguments.has(L"--create")) action.choose(kNewOnInexistant, kOpenAndCreate);
    if (arguments.has(L"--create-only")) action.choose(kNewOnInexistant, kCreateUnknown);
}

void setUpMail(const Arguments& arguments, OwnAction& action) {
    action.set(L"DestinationAddress", arguments.valueOrNone(L"--to-address"));
    action.set(L"AutomaticSend", !arguments.has(L"--leave-open"));
}

void setUpLaunch(const Arguments& arguments, OwnAction& action) {
    action.set(L"Path", arguments.valueOrNone(L"--path"));
    action.set(L"Arguments", arguments.valueOrNone(L"--arguments"));
}

void setUpNothing(const Arguments&, OwnAction&) {}

/// How an action is asked for.
struct Kind {
    const wchar_t* word;
    long id;
    Names options;
    void (*setUp)(const Arguments& arguments, OwnAction& action);
};

const Kind kKinds[] = {
    {L"open", 4097, kOfOpening, setUpOpening}, {L"close", 4098, {}, setUpNothing},
    {L"mail", 4099, kOfMail, setUpMail},       {L"journal", 4100, {}, setUpNothing},
    {L"launch", 4101, kOfLaunch, setUpLaunch},
};

const Kind& kindCalled(const std::wstring& word) {
    const auto* found = std::ranges::find_if(kKinds, [&](const Kind& kind) { return kind.word == word; });
    if (found == std::end(kKinds))
        throw UsageError(L"There is no action \"" + word +
                         L"\": there are open, mail, journal, launch, close.");
    return *found;
}

/// The words between the commas.
std::vector<std::wstring> split(const std::wstring& list) {
    std::vector<std::wstring> words(1);
    for (const wchar_t unit : list) {
        if (unit == L',')
            words.emplace_back();
        else
            words.back() += unit;
    }
    return words;
}

void refuse(const Arguments& arguments, Names options, const std::wstring& without) {
    for (const wchar_t* option : options)
        if (arguments.has(option))
            throw UsageError(std::wstring(option) + L" means nothing without " + without + L".");
}

}  // namespace

ActionOptions ActionOptions::parse(const Arguments& arguments) {
    ActionOptions result(arguments);
    if (arguments.has(L"--action"))
        for (const std::wstring& word : split(arguments.value(L"--action")))
            result.ids_.push_back(kindCalled(word).id);
    else
        refuse(arguments, kOfCall, L"--action");
    for (const Kind& kind : kKinds)
        if (std::ranges::find(result.ids_, kind.id) == result.ids_.end())
            refuse(arguments, kind.options, std::wstring(L"--action ") + kind.word);
    if (arguments.has(L"--create") && arguments.has(L"--create-only"))
        throw UsageError(L"Only one of --create and --create-only can be meant.");
    if (arguments.has(L"--duration") && !arguments.has(L"--start"))
        throw UsageError(L"--duration needs --start: the driver works the length out from the start.");
    return result;
}

void ActionOptions::describe(CallDetails& details) const {
    details.start = arguments_.valueOrNone(L"--start");
    details.duration = arguments_.valueOrNone(L"--duration");
    details.localNumber = arguments_.valueOrNone(L"--local-number");
    details.origin = arguments_.valueOrNone(L"--origin");
}

std::vector<OwnAction> ActionOptions::configure(const Driver& driver) const {
    std::vector<OwnAction> actions;
    for (const long id : ids_) {
        const auto* kind = std::ranges::find(kKinds, id, &Kind::id);
        kind->setUp(arguments_, actions.emplace_back(driver.copyAction(id)));
    }
    return actions;
}

}  // namespace pimcall

#include "actions/ActionLaunchExe.h"

#include <string_view>

#include "actions/CallInformation.h"
#include "actions/ProgramStart.h"
#include "search/TaggedValue.h"
#include "support/mLogError.h"

namespace zelbar {

namespace {

constexpr wchar_t kPath[] = L"Path";
constexpr wchar_t kArguments[] = L"Arguments";

/// An empty field becomes ";", so that no placeholder vanishes from the command line without a trace.
std::wstring orMark(const std::wstring& field) {
    return field.empty() ? L";" : field;
}

std::wstring directionWord(const std::wstring& type) {
    if (type.empty()) return {};
    return type == call::kOutgoing ? L"OUT" : L"INC";
}

/// The system's text for a start that failed; some of them name the file.
std::wstring describe(const StartResult& result, const std::wstring& command) {
    constexpr std::wstring_view kPlaceOfFile = L"%1";
    std::wstring text = GetSystemErrorText(result.error);
    if (const size_t at = text.find(kPlaceOfFile); at != std::wstring::npos)
        text.replace(at, kPlaceOfFile.size(), result.file.empty() ? command : result.file);
    return text;
}

/// Two starts that fail one after the other make one message: the open window keeps its text.
void tellFailure(const UserDoor& user, const std::wstring& text) {
    MessageWindow* const window = user.messageWindow;
    if (!window) return;
    if (window->isOpen())
        window->Show();
    else
        window->ShowMessage(L"__NO_TITLE__", 0, text);
}

}  // namespace

ActionLaunchExe::ActionLaunchExe(const ActionParts& parts) : ActionBase(parts) {
    addSetting(kPath, L"#05401#", L"", kTextSetting);
    addSetting(kArguments, L"#05402#", L"", kTextSetting);
}

void ActionLaunchExe::execute(ContactArgument& argument) {
    FLog& log = parts_.log;
    log.trace(L"LAUNCH EXE -------------------");
    log.trace(L"Application Path = ", [&] { return value(kPath).text(); });
    log.trace(L"Arguments = ", [&] { return value(kArguments).text(); });
    if (!argument.given()) {
        giveEmptyContact(argument, true, parts_.contact);
        log.trace(L"Item is nothing...");
    }
    CommandLine line = filledArguments(CallContact(argument, parts_.gateway));
    log.trace(L"Arguments = ", line.text());
    prependFolder(line);
    if (const StartResult result = startProgram(line); result.error != ERROR_SUCCESS)
        tellFailure(parts_.user, describe(result, line.text()) + L": " + line.text() + L".");
}

CommandLine ActionLaunchExe::filledArguments(const CallContact& contact) const {
    const std::wstring information = contact.callInformation();
    const auto read = [&](const wchar_t* key, const wchar_t* shownAs) {
        std::wstring field = GetTaggedValue(information, key);
        parts_.log.trace(L"From Popup PersonalData(", shownAs, L")=", field);
        return field;
    };
    const std::wstring origin = read(call::kOrigin, L"CALLORIGIN");
    const std::wstring type = read(call::kType, L"CALLTYPE");
    const std::wstring localNumber = read(call::kLocalNumber, L"LOCALNUMBER");
    const std::wstring phoneNumber = read(call::kPhoneNumber, L"PHONENUMBER");

    // One after the other, so that a placeholder within a field is filled by a later step.
    CommandLine line(value(kArguments).text());
    line.fillWithDetail(L"$1", orMark(phoneNumber));
    line.fillWithDetail(L"$2", orMark(localNumber));
    line.fillWithWord(L"$3", orMark(directionWord(type)));
    line.fillWithDetail(L"$4", orMark(origin));
    return line;
}

void ActionLaunchExe::prependFolder(CommandLine& line) {
    std::wstring path = value(kPath).text();
    if (!path.ends_with(L'\\') && !line.text().starts_with(L'\\')) {
        path += L'\\';
        // The user sees the folder as it has been used.
        setting(kPath)->ActionProperty_Value(path);
    }
    line.prepend(path);
}

}  // namespace zelbar

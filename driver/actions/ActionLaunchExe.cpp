#include "actions/ActionLaunchExe.h"

#include <string_view>

#include "actions/CallInformation.h"
#include "actions/ProgramStart.h"
#include "dialogs/frmMessageForm.h"
#include "search/TaggedValue.h"
#include "support/mLogError.h"

namespace zelbar {

namespace {

constexpr wchar_t kPath[] = L"Path";
constexpr wchar_t kArguments[] = L"Arguments";

/// Replaces every placeholder by a field's text. An empty one becomes ";", so that no placeholder vanishes
/// from the command line without a trace.
void fill(std::wstring& line, std::wstring_view placeholder, const std::wstring& field) {
    const std::wstring text = field.empty() ? L";" : field;
    for (size_t at = line.find(placeholder); at != std::wstring::npos;
         at = line.find(placeholder, at + text.size()))
        line.replace(at, placeholder.size(), text);
}

std::wstring directionWord(const std::wstring& type) {
    if (type.empty()) return {};
    return type == call::kOutgoing ? L"OUT" : L"INC";
}

/// Two starts that fail one after the other make one message: the open window keeps its text.
void tellFailure(const std::wstring& text) {
    MessageWindow& window = driver().user.messageWindow ? *driver().user.messageWindow : messageForm();
    if (window.isOpen())
        window.Show();
    else
        window.ShowMessage(L"__NO_TITLE__", 0, text);
}

}  // namespace

ActionLaunchExe::ActionLaunchExe() {
    addSetting(kPath, L"#05401#", L"", kTextSetting);
    addSetting(kArguments, L"#05402#", L"", kTextSetting);
}

void ActionLaunchExe::execute(ContactArgument& argument) {
    FLog& log = driver().log;
    log.trace(L"LAUNCH EXE -------------------");
    log.trace(L"Application Path = ", value(kPath).text());
    log.trace(L"Arguments = ", value(kArguments).text());
    if (!argument.given()) {
        giveEmptyContact(argument, true);
        log.trace(L"Item is nothing...");
    }
    const std::wstring arguments = filledArguments(CallContact(argument));
    log.trace(L"Arguments = ", arguments);
    const std::wstring command = joinedCommand(arguments);
    if (const DWORD error = startProgram(command))
        tellFailure(GetSystemErrorText(error) + L": " + command + L".");
}

std::wstring ActionLaunchExe::filledArguments(const CallContact& contact) const {
    const std::wstring information = contact.callInformation();
    const auto read = [&](const wchar_t* key, const wchar_t* shownAs) {
        std::wstring field = GetTaggedValue(information, key);
        driver().log.trace(L"From Popup PersonalData(", shownAs, L")=", field);
        return field;
    };
    const std::wstring origin = read(call::kOrigin, L"CALLORIGIN");
    const std::wstring type = read(call::kType, L"CALLTYPE");
    const std::wstring localNumber = read(call::kLocalNumber, L"LOCALNUMBER");
    const std::wstring phoneNumber = read(call::kPhoneNumber, L"PHONENUMBER");

    // One after the other, so that a placeholder within a field is filled by a later step.
    std::wstring line = value(kArguments).text();
    fill(line, L"$1", phoneNumber);
    fill(line, L"$2", localNumber);
    fill(line, L"$3", directionWord(type));
    fill(line, L"$4", origin);
    return line;
}

std::wstring ActionLaunchExe::joinedCommand(const std::wstring& arguments) {
    std::wstring path = value(kPath).text();
    if (!path.ends_with(L'\\') && !arguments.starts_with(L'\\')) {
        path += L'\\';
        // The user sees the folder as it has been used.
        setting(kPath)->ActionProperty_Value(path);
    }
    return path + arguments;
}

}  // namespace zelbar

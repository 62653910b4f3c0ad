#include "client/CallInformation.h"

#include "client/Failure.h"

namespace pimcall {

std::wstring callInformation(const CallDetails& details) {
    // A reader takes the first place where a key stands, even within another field. So all fields are
    // written, empty ones as well, and those with free text last.
    const struct {
        const wchar_t* key;
        const std::wstring& value;
    } fields[] = {
        {L"PHONENUMBER=", details.number}, {L"LOCALNUMBER=", details.localNumber}, {L"START=", details.start},
        {L"DURATION=", details.duration},  {L"ORIGIN=", details.origin},
    };
    std::wstring text = details.incoming ? L"TYPE=incoming;" : L"TYPE=outgoing;";
    for (const auto& field : fields) {
        if (field.value.find(L';') != std::wstring::npos)
            throw UsageError(L"\"" + field.value + L"\" cannot be told to an action: it contains \";\".");
        text += field.key + field.value + L";";
    }
    return text;
}

}  // namespace pimcall

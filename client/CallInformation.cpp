#include "client/CallInformation.h"

#include <iterator>

#include "client/Failure.h"

namespace pimcall {
namespace {

void refuse(const std::wstring& detail, const std::wstring& part) {
    if (detail.find(part) != std::wstring::npos)
        throw UsageError(L"\"" + detail + L"\" cannot be told to an action: it contains \"" + part + L"\".");
}

}  // namespace

std::wstring callInformation(const CallDetails& details) {
    // A reader takes the first place where a key stands, even within another field. So all fields are
    // written, empty ones as well, and last the number, which a stranger chooses.
    const struct {
        const wchar_t* key;
        const std::wstring& value;
    } fields[] = {
        {L"START=", details.start},
        {L"DURATION=", details.duration},
        {L"LOCALNUMBER=", details.localNumber},
        {L"ORIGIN=", details.origin},
        {L"PHONENUMBER=", details.number},
    };
    std::wstring text = details.incoming ? L"TYPE=incoming;" : L"TYPE=outgoing;";
    for (const auto* field = std::begin(fields); field != std::end(fields); ++field) {
        refuse(field->value, L";");
        for (const auto* later = field + 1; later != std::end(fields); ++later)
            refuse(field->value, later->key);
        text += field->key + field->value + L";";
    }
    return text;
}

}  // namespace pimcall

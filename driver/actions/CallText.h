#pragma once

#include <string>

#include "actions/ActionParts.h"
#include "actions/CallContact.h"
#include "automation/Object.h"

namespace zelbar {

/// Whom a call was with: how mails and journal entries name him, and his Outlook item where he has one.
struct CallParty {
    std::wstring name;
    Object item;
};

/// The Outlook item's full name; for a contact without an item, or with a nameless one, the main number. An
/// item that Outlook does not give, whatever its reason, is not there for this call: `notFoundLine` is
/// logged. `asker` is for the log.
CallParty callPartyOf(const ActionParts& parts, const CallContact& contact, const wchar_t* asker,
                      const wchar_t* notFoundLine);

/// The words for a call whose direction is left open; also the subject of every mail.
std::wstring neutralCallText(cLocalizedText& texts, const std::wstring& name);

/// The words for a call by the type field of its call information.
std::wstring callText(cLocalizedText& texts, const std::wstring& type, const std::wstring& name);

/// The line that leads a reader to the contact's item, which must be there.
std::wstring contactLink(const CallParty& party);

}  // namespace zelbar

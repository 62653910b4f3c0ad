#include "actions/CallText.h"

#include "actions/CallInformation.h"
#include "automation/OutlookNames.h"

namespace zelbar {

namespace {

/// The folders from the top of the store down to the item's own, each followed by "/".
std::wstring folderPath(const Object& item) {
    // Folders are never nested this deep; the bound only keeps a broken chain from holding the client.
    constexpr int kDeepest = 200;
    std::wstring path;
    Object folder = item.object(outlook::ItemFolder);
    for (int depth = 0; depth < kDeepest && folder.objectClass() != outlook::kNameSpace; ++depth) {
        const std::wstring name = folder.text(outlook::Name);
        if (name == L"Outlook") break;
        path = name + L"/" + path;
        folder = folder.object(outlook::Parent);
    }
    return path;
}

}  // namespace

CallParty callPartyOf(const ActionParts& parts, const CallContact& contact, const wchar_t* asker,
                      const wchar_t* notFoundLine) {
    FLog& log = parts.log;
    CallParty party;
    if (contact.NotInPIM()) {
        log.trace(L"Not in PIM: Reinit...");
    } else {
        party.item =
            parts.outlook.GetContactFromID(contact.ContactId(), contact.StoreId(), asker, L"ExecuteAction")
                .item;
        if (party.item)
            party.name = party.item.text(outlook::FullName);
        else
            log.trace(notFoundLine);
    }
    if (party.name.empty()) party = {contact.MainPhoneNumber(), {}};
    log.trace(L"Name = ", party.name);
    return party;
}

std::wstring neutralCallText(cLocalizedText& texts, const std::wstring& name) {
    return texts.translate(L"#05203#") + L" " + name;
}

std::wstring callText(cLocalizedText& texts, const std::wstring& type, const std::wstring& name) {
    if (type == call::kOutgoing) return texts.translate(L"#05207#") + L" " + name;
    if (type == call::kIncoming) return name + L" " + texts.translate(L"#05204#");
    return neutralCallText(texts, name);
}

std::wstring contactLink(const CallParty& party) {
    // Line feed before carriage return: readers of old entries look for them in this order.
    return L"\n\rContact:  <Outlook://" + folderPath(party.item) + L"~" + party.name + L"> ";
}

}  // namespace zelbar

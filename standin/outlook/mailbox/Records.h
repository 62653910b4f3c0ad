#pragma once

#include <map>
#include <string>
#include <vector>

#include "standin/outlook/mailbox/Database.h"

namespace standin::outlook {

// The numbers are Outlook's own (OlItemType).
enum class ItemType : long {
    Mail = 0,
    Appointment = 1,
    Contact = 2,
    Task = 3,
    Journal = 4,
    Note = 5,
    Post = 6,
    DistributionList = 7
};

// Folders that a store has once (OlDefaultFolders); None for all others.
enum class SpecialFolder : long {
    None = 0,
    DeletedItems = 3,
    Outbox = 4,
    SentMail = 5,
    Inbox = 6,
    Calendar = 9,
    Contacts = 10,
    Journal = 11,
    Notes = 12,
    Tasks = 13,
    Drafts = 16
};

struct StoreRecord {
    RowId id = 0;
    std::wstring name;
    std::wstring uid;
    bool isDefault = false;
    RowId root = 0;
};

struct FolderRecord {
    RowId id = 0;
    RowId store = 0;
    // 0 for the root folder of a store.
    RowId parent = 0;
    std::wstring name;
    ItemType type = ItemType::Mail;
    SpecialFolder special = SpecialFolder::None;
};

struct Attachment {
    std::wstring displayName;
    std::wstring fileName;
    Bytes data;
};

// The type is Outlook's own number (OlUserPropertyType). Numbers and dates are kept as decimal text, yes/no
// as 1 and 0.
struct UserProperty {
    std::wstring name;
    long type = 1;
    std::wstring value;
};

struct Recipient {
    std::wstring name;
    // 1 to, 2 cc, 3 bcc.
    long type = 1;
};

using Fields = std::map<std::wstring, std::wstring, std::less<>>;

// An item as a client works on it: a copy that the mailbox keeps when it is saved.
struct ItemRecord {
    // 0 until it is saved.
    RowId id = 0;
    RowId folder = 0;
    ItemType type = ItemType::Mail;
    // By property name; dates as decimal day counts. A property that is not there is empty.
    Fields fields;
    std::vector<UserProperty> userProperties;
    std::vector<Attachment> attachments;
    std::vector<Recipient> recipients;

    std::wstring field(std::wstring_view name) const {
        const auto found = fields.find(name);
        return found == fields.end() ? std::wstring() : found->second;
    }
};

// The attachment that holds a contact's picture has this name, whatever the picture's own format.
inline constexpr wchar_t kPictureName[] = L"ContactPicture.jpg";

}  // namespace standin::outlook

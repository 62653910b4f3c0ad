#include "standin/outlook/vcard/ContactMapper.h"

#include "standin/outlook/mailbox/ContactNames.h"
#include "standin/outlook/mailbox/DateText.h"
#include "standin/outlook/mailbox/Text.h"
#include "standin/outlook/vcard/Decoding.h"
#include "standin/outlook/vcard/Telephones.h"

namespace standin::outlook::vcard {
namespace {

struct SimpleField {
    const char* property;
    const wchar_t* field;
};

constexpr SimpleField kSimpleFields[] = {
    {"TITLE", L"JobTitle"},
    {"ROLE", L"Profession"},
    {"NICKNAME", L"NickName"},
    {"NOTE", L"Body"},
    {"URL", L"WebPage"},
    {"CATEGORIES", L"Categories"},
    {"X-MS-MANAGER", L"ManagerName"},
    {"X-MS-ASSISTANT", L"AssistantName"},
    {"X-MS-SPOUSE", L"Spouse"},
};

void set(Fields& fields, const std::wstring& name, const std::wstring& text) {
    const std::wstring value = trimmed(text);
    if (!value.empty() && !fields.contains(name)) fields[name] = value;
}

void setParts(Fields& fields, const std::vector<std::wstring>& parts,
              std::initializer_list<const wchar_t*> names) {
    auto part = parts.begin();
    for (const wchar_t* name : names) {
        if (part == parts.end()) return;
        set(fields, name, *part);
        ++part;
    }
}

void setNames(const Card& card, Fields& fields) {
    if (const Property* name = card.find("N")) {
        setParts(fields, card.parts(*name), {L"LastName", L"FirstName", L"MiddleName", L"Title", L"Suffix"});
    }
    if (const Property* organisation = card.find("ORG")) {
        setParts(fields, card.parts(*organisation), {L"CompanyName", L"Department"});
    }
    const Property* full = card.find("FN");
    const bool hasName = fields.contains(L"FirstName") || fields.contains(L"LastName");
    if (!full || hasName) return;
    const std::wstring shown = trimmed(card.text(*full));
    const auto company = fields.find(L"CompanyName");
    if (company == fields.end() || company->second != shown) setFullName(fields, shown);
}

void setEmails(const Card& card, ImportedContact& contact) {
    int slot = 1;
    for (const Property& property : card.properties) {
        const std::wstring address = property.name == "EMAIL" ? trimmed(card.text(property)) : L"";
        if (address.empty() || property.has("X400") || property.has("TLX")) continue;
        if (slot > 3)
            contact.leftOut.push_back(L"no place for " + address);
        else
            contact.fields[L"Email" + std::to_wstring(slot++) + L"Address"] = address;
    }
}

// "1980-03-22", "19800322", either with a time behind it.
void setBirthday(const Card& card, Fields& fields) {
    const Property* property = card.find("BDAY");
    if (!property) return;
    std::string digits = property->value.substr(0, 10);
    std::erase(digits, '-');
    if (digits.size() < 8 || digits.find_first_not_of("0123456789") < 8) return;
    const int year = std::stoi(digits.substr(0, 4));
    const int month = std::stoi(digits.substr(4, 2));
    const int day = std::stoi(digits.substr(6, 2));
    if (year < 1600 || month < 1 || month > 12 || day < 1 || day > 31) return;
    fields[L"Birthday"] = textFromDate(dayOf(year, month, day));
}

Bytes pictureOf(const Card& card) {
    const Property* photo = card.find("PHOTO");
    if (!photo) return {};
    constexpr std::string_view marker = ";BASE64,";
    const std::size_t data = upper(photo->value.substr(0, 64)).find(marker);
    if (photo->value.starts_with("data:") && data != std::string::npos) {
        return decodeBase64(std::string_view(photo->value).substr(data + marker.size()));
    }
    return photo->base64 && !photo->uri ? decodeBase64(photo->value) : Bytes();
}

}  // namespace

ImportedContact contactFrom(const Card& card) {
    ImportedContact contact;
    Fields& fields = contact.fields;
    setNames(card, fields);
    for (const std::string& line : card.unread) contact.leftOut.push_back(fromUtf8(line));
    for (const std::wstring& number : placeTelephones(card, fields))
        contact.leftOut.push_back(L"no place for " + number);
    setEmails(card, contact);
    setBirthday(card, fields);
    for (const SimpleField& simple : kSimpleFields) {
        if (const Property* property = card.find(simple.property))
            set(fields, simple.field, card.text(*property));
    }
    try {
        contact.picture = pictureOf(card);
    } catch (const Malformed& error) {
        contact.leftOut.push_back(fromUtf8(error.what()));
    }
    return contact;
}

}  // namespace standin::outlook::vcard

#include "standin/outlook/vcard/Telephones.h"

#include <algorithm>
#include <span>

#include "standin/outlook/mailbox/Text.h"

namespace standin::outlook::vcard {
namespace {

// A kind of number: the types it needs, and the fields it may go to, best first. The first kind that fits
// counts.
struct Kind {
    std::initializer_list<const char*> types;
    std::initializer_list<const wchar_t*> fields;
};

const Kind kKinds[] = {
    {{"FAX", "HOME"}, {L"HomeFaxNumber", L"OtherFaxNumber"}},
    {{"FAX", "OTHER"}, {L"OtherFaxNumber"}},
    {{"FAX"}, {L"BusinessFaxNumber", L"OtherFaxNumber", L"HomeFaxNumber"}},
    {{"PAGER"}, {L"PagerNumber"}},
    {{"CELL"}, {L"MobileTelephoneNumber"}},
    {{"CAR"}, {L"CarTelephoneNumber"}},
    {{"ISDN"}, {L"ISDNNumber"}},
    {{"TTY"}, {L"TTYTDDTelephoneNumber"}},
    {{"TELEX"}, {L"TelexNumber"}},
    {{"RADIO"}, {L"RadioTelephoneNumber"}},
    {{"CALLBACK"}, {L"CallbackTelephoneNumber"}},
    {{"ASSISTANT"}, {L"AssistantTelephoneNumber"}},
    {{"MAIN"}, {L"CompanyMainTelephoneNumber"}},
    {{"WORK"}, {L"BusinessTelephoneNumber", L"Business2TelephoneNumber"}},
    {{"HOME"}, {L"HomeTelephoneNumber", L"Home2TelephoneNumber"}},
    {{"OTHER"}, {L"OtherTelephoneNumber"}},
    {{"PREF"}, {L"PrimaryTelephoneNumber"}},
    {{}, {L"OtherTelephoneNumber", L"PrimaryTelephoneNumber"}},
};

// Where a number goes whose own places are taken.
constexpr const wchar_t* kSpare[] = {
    L"OtherTelephoneNumber",
    L"PrimaryTelephoneNumber",
    L"CallbackTelephoneNumber",
    L"RadioTelephoneNumber",
    L"CarTelephoneNumber",
    L"AssistantTelephoneNumber",
    L"CompanyMainTelephoneNumber",
    L"Business2TelephoneNumber",
    L"Home2TelephoneNumber",
    L"ISDNNumber",
    L"PagerNumber",
    L"TelexNumber",
    L"TTYTDDTelephoneNumber",
    L"BusinessTelephoneNumber",
    L"HomeTelephoneNumber",
    L"MobileTelephoneNumber",
    L"OtherFaxNumber",
    L"HomeFaxNumber",
    L"BusinessFaxNumber",
};

// Programs write types in many ways (CELL, X-MOBILE, HOMEFAX) or give a number a label beside it
// (_$!<WorkFAX>!$_): what counts are the words in them.
struct Word {
    const wchar_t* text;
    const char* type;
};

constexpr Word kWords[] = {
    {L"Assistant", "ASSISTANT"},
    {L"Business", "WORK"},
    {L"Callback", "CALLBACK"},
    {L"Car", "CAR"},
    {L"Cell", "CELL"},
    {L"Company", "MAIN"},
    {L"Fax", "FAX"},
    {L"Home", "HOME"},
    {L"iPhone", "CELL"},
    {L"ISDN", "ISDN"},
    {L"Main", "MAIN"},
    {L"Mobile", "CELL"},
    {L"Other", "OTHER"},
    {L"Pager", "PAGER"},
    {L"Pref", "PREF"},
    {L"Primary", "PREF"},
    {L"Radio", "RADIO"},
    {L"Telex", "TELEX"},
    {L"Textphone", "TTY"},
    {L"TLX", "TELEX"},
    {L"TTY", "TTY"},
    {L"Work", "WORK"},
};

bool containsText(std::wstring_view text, std::wstring_view part) {
    for (std::size_t i = 0; i + part.size() <= text.size(); ++i) {
        if (sameText(text.substr(i, part.size()), part)) return true;
    }
    return false;
}

void addTypes(std::wstring_view text, std::set<std::string>& types) {
    for (const Word& word : kWords) {
        if (containsText(text, word.text)) types.insert(word.type);
    }
}

std::set<std::string> typesOf(const Card& card, const Property& telephone) {
    std::set<std::string> types;
    for (const std::string& type : telephone.types) addTypes(fromUtf8(type), types);
    if (telephone.group.empty()) return types;
    for (const Property& property : card.properties) {
        if (property.name == "X-ABLABEL" && property.group == telephone.group)
            addTypes(card.text(property), types);
    }
    return types;
}

// The first kind all of whose types are there.
const Kind& kindOf(const std::set<std::string>& types) {
    return *std::ranges::find_if(kKinds, [&](const Kind& kind) {
        return std::ranges::all_of(kind.types, [&](const char* type) { return types.contains(type); });
    });
}

using Places = std::span<const wchar_t* const>;

bool place(Fields& fields, const std::wstring& number, Places places) {
    for (const wchar_t* field : places) {
        if (fields.contains(std::wstring_view(field))) continue;
        fields[field] = number;
        return true;
    }
    return false;
}

bool stands(const Fields& fields, const std::wstring& number, Places places) {
    return std::ranges::any_of(places, [&](const wchar_t* field) {
        const auto found = fields.find(std::wstring_view(field));
        return found != fields.end() && found->second == number;
    });
}

// "+49-30-1;ext=5;phone-context=x" as people write it.
std::wstring readable(const std::wstring& uri) {
    std::wstring number = uri.substr(0, uri.find(L';'));
    constexpr std::wstring_view kExtension = L";ext=";
    for (std::size_t i = 0; i + kExtension.size() < uri.size(); ++i) {
        if (!sameText(std::wstring_view(uri).substr(i, kExtension.size()), kExtension)) continue;
        const std::size_t begin = i + kExtension.size();
        return number + L" x " + uri.substr(begin, uri.find(L';', begin) - begin);
    }
    return number;
}

std::wstring numberOf(const Card& card, const Property& telephone) {
    constexpr std::wstring_view kScheme = L"tel:";
    std::wstring number = trimmed(card.text(telephone));
    if (sameText(std::wstring_view(number).substr(0, kScheme.size()), kScheme))
        number = readable(number.substr(kScheme.size()));
    std::ranges::replace_if(
        number, [](wchar_t unit) { return unit < L' '; }, L' ');
    return number;
}

// Outlook writes a telex as a kind of e-mail.
bool isTelephone(const Property& property) {
    return property.name == "TEL" || property.name == "X-MS-TEL" ||
           (property.name == "EMAIL" && property.has("TLX"));
}

}  // namespace

std::vector<std::wstring> placeTelephones(const Card& card, Fields& fields) {
    std::vector<std::wstring> spilled;
    for (const Property& property : card.properties) {
        const std::wstring number = isTelephone(property) ? numberOf(card, property) : L"";
        const Kind& kind = kindOf(typesOf(card, property));
        const Places places(kind.fields.begin(), kind.fields.size());
        if (number.empty() || stands(fields, number, places) || place(fields, number, places)) continue;
        spilled.push_back(number);
    }
    std::erase_if(spilled, [&](const std::wstring& number) {
        return stands(fields, number, kSpare) || place(fields, number, kSpare);
    });
    return spilled;
}

}  // namespace standin::outlook::vcard

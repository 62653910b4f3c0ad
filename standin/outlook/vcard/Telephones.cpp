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
    {{"IPHONE"}, {L"MobileTelephoneNumber"}},
    {{"CAR"}, {L"CarTelephoneNumber"}},
    {{"ISDN"}, {L"ISDNNumber"}},
    {{"TTY-TDD"}, {L"TTYTDDTelephoneNumber"}},
    {{"TTY"}, {L"TTYTDDTelephoneNumber"}},
    {{"TLX"}, {L"TelexNumber"}},
    {{"TELEX"}, {L"TelexNumber"}},
    {{"RADIO"}, {L"RadioTelephoneNumber"}},
    {{"CALLBACK"}, {L"CallbackTelephoneNumber"}},
    {{"ASSISTANT"}, {L"AssistantTelephoneNumber"}},
    {{"COMPANY"}, {L"CompanyMainTelephoneNumber"}},
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

// Labels that address books give to a number beside it, and the types they stand for.
struct Label {
    const wchar_t* text;
    std::initializer_list<const char*> types;
};

const Label kLabels[] = {
    {L"Assistant", {"ASSISTANT"}},
    {L"Callback", {"CALLBACK"}},
    {L"Car", {"CAR"}},
    {L"Company", {"COMPANY"}},
    {L"HomeFax", {"HOME", "FAX"}},
    {L"WorkFax", {"WORK", "FAX"}},
    {L"OtherFax", {"OTHER", "FAX"}},
    {L"Main", {"MAIN"}},
    {L"Mobile", {"CELL"}},
    {L"Pager", {"PAGER"}},
    {L"Radio", {"RADIO"}},
    {L"Telex", {"TELEX"}},
    {L"Work", {"WORK"}},
    {L"Home", {"HOME"}},
    {L"Other", {"OTHER"}},
};

bool containsText(std::wstring_view text, std::wstring_view part) {
    for (std::size_t i = 0; i + part.size() <= text.size(); ++i) {
        if (sameText(text.substr(i, part.size()), part)) return true;
    }
    return false;
}

std::set<std::string> typesOf(const Card& card, const Property& telephone) {
    std::set<std::string> types = telephone.types;
    if (telephone.group.empty()) return types;
    for (const Property& property : card.properties) {
        if (property.name != "X-ABLABEL" || property.group != telephone.group) continue;
        const std::wstring text = card.text(property);
        const auto label =
            std::ranges::find_if(kLabels, [&](const Label& l) { return containsText(text, l.text); });
        if (label != std::end(kLabels)) types.insert(label->types.begin(), label->types.end());
    }
    return types;
}

const Kind& kindOf(const std::set<std::string>& types) {
    return *std::ranges::find_if(kKinds, [&](const Kind& kind) {
        return std::ranges::all_of(kind.types, [&](const char* type) { return types.contains(type); });
    });
}

bool place(Fields& fields, const std::wstring& number, std::span<const wchar_t* const> places) {
    for (const wchar_t* field : places) {
        if (fields.contains(std::wstring_view(field))) continue;
        fields[field] = number;
        return true;
    }
    return false;
}

std::wstring numberOf(const Card& card, const Property& telephone) {
    std::wstring number = trimmed(card.text(telephone));
    if (number.size() > 4 && sameText(number.substr(0, 4), L"tel:")) number.erase(0, 4);
    return number;
}

}  // namespace

void placeTelephones(const Card& card, Fields& fields) {
    std::vector<std::wstring> spilled;
    std::set<std::wstring> seen;
    for (const Property& property : card.properties) {
        if (property.name != "TEL") continue;
        const std::wstring number = numberOf(card, property);
        if (number.empty() || !seen.insert(number).second) continue;
        const Kind& kind = kindOf(typesOf(card, property));
        if (!place(fields, number, std::span(kind.fields.begin(), kind.fields.size())))
            spilled.push_back(number);
    }
    for (const std::wstring& number : spilled) place(fields, number, kSpare);
}

}  // namespace standin::outlook::vcard

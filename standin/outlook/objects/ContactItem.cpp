#include "standin/outlook/objects/ContactItem.h"

#include <algorithm>

#include "standin/outlook/mailbox/ContactNames.h"
#include "standin/outlook/mailbox/DateText.h"
#include "standin/outlook/mailbox/Text.h"
#include "standin/outlook/objects/Attachments.h"
#include "standin/outlook/objects/ContactFields.h"

namespace standin::outlook {
namespace {

constexpr DISPID kHasPicture = 0xFABF;
constexpr long kFirstVersionWithPictures = 11;

}  // namespace

const MemberTable& ContactItem::members() const {
    using Self = ContactItem;
    static const MemberTable table = [] {
        std::vector<Member> rows = {
            property<&Self::fullName, &Self::setFullNameMember>(L"FullName", 0x3001),
            readOnly<&Self::lastNameAndFirstName>(L"LastNameAndFirstName", 0x8017),
            property<&Self::fileAs, &Self::setTextField>(L"FileAs", 0x8005),
            property<&Self::subject, &Self::setTextField>(L"Subject", 0x37),
            property<&Self::birthday, &Self::setBirthday>(L"Birthday", 0x3A42),
            readOnly<&Self::hasPicture>(L"HasPicture", kHasPicture),
        };
        for (const FieldName& field : kNameParts) {
            rows.push_back(property<&Self::textField, &Self::setNamePart>(field.name, field.id));
        }
        for (const FieldName& field : kTextFields) {
            rows.push_back(property<&Self::textField, &Self::setTextField>(field.name, field.id));
        }
        for (const FieldName& field : kTelephones) {
            rows.push_back(property<&Self::textField, &Self::setTextField>(field.name, field.id));
        }
        for (const FieldName& field : kEmails) {
            rows.push_back(property<&Self::guardedField, &Self::setTextField>(field.name, field.id));
        }
        return MemberTable(L"ContactItem", std::move(rows), L"FullName", &itemMembers());
    }();
    return table;
}

bool ContactItem::offers(const Member& member) const {
    return member.id != kHasPicture || session().version() >= kFirstVersionWithPictures;
}

void ContactItem::beforeSave() {
    completeNames(record().fields, defaultFileAs(record().fields));
}

void ContactItem::setNamePart(const Arguments& arguments) {
    const std::wstring previous = defaultFileAs(record().fields);
    setTextField(arguments);
    completeNames(record().fields, previous);
}

std::wstring ContactItem::fullName() const {
    return fullNameOf(record().fields);
}

void ContactItem::setFullNameMember(const std::wstring& name) {
    const std::wstring previous = defaultFileAs(record().fields);
    setFullName(record().fields, name);
    completeNames(record().fields, previous);
    touch();
}

std::wstring ContactItem::lastNameAndFirstName() const {
    return lastNameAndFirstNameOf(record().fields);
}

std::wstring ContactItem::fileAs(const Arguments& arguments) {
    const std::wstring chosen = textField(arguments);
    return chosen.empty() ? defaultFileAs(record().fields) : chosen;
}

std::wstring ContactItem::subject(const Arguments& arguments) {
    const std::wstring chosen = textField(arguments);
    return chosen.empty() ? fullName() : chosen;
}

Date ContactItem::birthday() const {
    const std::wstring text = record().field(L"Birthday");
    return text.empty() ? kNoDate : dateFromText(text);
}

void ContactItem::setBirthday(Date date) {
    record().fields[L"Birthday"] = textFromDate(date);
    touch();
}

bool ContactItem::hasPicture() const {
    return std::ranges::any_of(record().attachments,
                               [](const Attachment& a) { return sameText(a.fileName, kPictureName); });
}

const MemberTable& DistListItem::members() const {
    using Self = DistListItem;
    static const MemberTable table(L"DistListItem",
                                   {
                                       property<&Self::textField, &Self::setTextField>(L"Subject", 0x37),
                                   },
                                   L"Subject", &itemMembers());
    return table;
}

}  // namespace standin::outlook

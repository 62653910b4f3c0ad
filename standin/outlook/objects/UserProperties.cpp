#include "standin/outlook/objects/UserProperties.h"

#include <algorithm>

#include "standin/outlook/mailbox/DateText.h"
#include "standin/outlook/mailbox/Text.h"
#include "standin/outlook/objects/Errors.h"

namespace standin::outlook {
namespace {

constexpr std::size_t kMaxName = 64;

bool isKnown(UserPropertyType type) {
    constexpr UserPropertyType known[] = {
        UserPropertyType::Text,    UserPropertyType::Number,   UserPropertyType::Date,
        UserPropertyType::YesNo,   UserPropertyType::Keywords, UserPropertyType::Currency,
        UserPropertyType::Percent, UserPropertyType::Duration, UserPropertyType::Integer};
    return std::ranges::find(known, type) != std::end(known);
}

bool isNumeric(const Value& value) {
    switch (value.vt) {
        case VT_I2:
        case VT_I4:
        case VT_R4:
        case VT_R8:
        case VT_CY:
        case VT_UI1:
        case VT_UI2:
        case VT_UI4:
        case VT_I1:
        case VT_INT:
        case VT_UINT:
        case VT_DECIMAL:
            return true;
        default:
            return false;
    }
}

// The value as it is kept; empty when it is not of the property's type.
std::optional<std::wstring> kept(UserPropertyType type, const Value& value) {
    switch (type) {
        case UserPropertyType::Text:
        case UserPropertyType::Keywords:
            if (value.vt == VT_BSTR) return toText(value);
            return {};
        case UserPropertyType::Date:
            if (value.vt == VT_DATE) return textFromDate(toDate(value));
            return {};
        case UserPropertyType::YesNo:
            if (value.vt == VT_BOOL || isNumeric(value)) return toBool(value) ? L"1" : L"0";
            return {};
        case UserPropertyType::Integer:
            if (isNumeric(value)) return std::to_wstring(toLong(value));
            return {};
        default:
            if (isNumeric(value)) return textFromNumber(toDouble(value));
            return {};
    }
}

}  // namespace

const MemberTable& UserProperties::members() const {
    using Self = UserProperties;
    static const MemberTable table(L"UserProperties",
                                   {
                                       readOnly<&Self::count>(L"Count", 0x50),
                                       method<&Self::item>(L"Item", 0x51, 1),
                                       method<&Self::find>(L"Find", 0x67, 1, 2),
                                       method<&Self::add>(L"Add", 0x66, 2, 4),
                                       method<&Self::remove>(L"Remove", 0x52, 1),
                                   },
                                   L"Find", &commonMembers());
    return table;
}

Ref<Object> UserProperties::named(const std::wstring& name) {
    const auto& entries = item_->record().userProperties;
    const bool there =
        std::ranges::any_of(entries, [&](const UserProperty& p) { return sameText(p.name, name); });
    return there ? makeOf<UserPropertyObject>(*this, item_, name) : Ref<Object>();
}

Ref<Object> UserProperties::item(const Arguments& arguments) {
    if (arguments[0].vt == VT_BSTR) return named(arguments.text(0));
    const long position = arguments.number(0);
    if (position < 1 || position > count()) throw outOfBounds(server());
    return named(item_->record().userProperties[static_cast<std::size_t>(position) - 1].name);
}

Ref<Object> UserProperties::find(const Arguments& arguments) {
    return named(arguments.text(0));
}

Ref<Object> UserProperties::add(const Arguments& arguments) {
    const std::wstring name = arguments.text(0);
    const auto type = static_cast<UserPropertyType>(arguments.number(1));
    const bool badName =
        name.empty() || name.size() > kMaxName || name.find_first_of(L"[]_#") != std::wstring::npos;
    if (badName || !isKnown(type)) throw badParameter(server());
    auto& entries = item_->record().userProperties;
    const auto same =
        std::ranges::find_if(entries, [&](const UserProperty& p) { return sameText(p.name, name); });
    if (same == entries.end()) {
        entries.push_back({name, static_cast<long>(type), L""});
        item_->touch();
    } else if (same->type != static_cast<long>(type)) {
        throw outlookError(server(), E_FAIL, L"A field with this name already exists. Enter another name.");
    }
    return named(name);
}

void UserProperties::remove(const Arguments& arguments) {
    const long position = arguments.number(0);
    if (position < 1 || position > count()) throw outOfBounds(server());
    auto& entries = item_->record().userProperties;
    entries.erase(entries.begin() + position - 1);
    item_->touch();
}

const MemberTable& UserPropertyObject::members() const {
    using Self = UserPropertyObject;
    static const MemberTable table(L"UserProperty",
                                   {
                                       property<&Self::value, &Self::setValue>(L"Value", DISPID_VALUE),
                                       readOnly<&Self::name>(L"Name", 0x70),
                                       readOnly<&Self::type>(L"Type", 0x6D),
                                       method<&Self::remove>(L"Delete", 0x6C),
                                   },
                                   nullptr, &commonMembers());
    return table;
}

Ref<Object> UserPropertyObject::parent() {
    return makeOf<UserProperties>(*this, item_);
}

UserProperty& UserPropertyObject::entry() const {
    auto& entries = item_->record().userProperties;
    const auto own =
        std::ranges::find_if(entries, [&](const UserProperty& p) { return sameText(p.name, name_); });
    if (own == entries.end()) throw itemGone(server());
    return *own;
}

Value userPropertyValue(const UserProperty& own) {
    switch (static_cast<UserPropertyType>(own.type)) {
        case UserPropertyType::Text:
        case UserPropertyType::Keywords:
            return toValue(own.value);
        case UserPropertyType::Date:
            return toValue(own.value.empty() ? kNoDate : dateFromText(own.value));
        case UserPropertyType::YesNo:
            return toValue(own.value == L"1");
        case UserPropertyType::Integer:
            return toValue(std::wcstol(own.value.c_str(), nullptr, 10));
        default:
            return toValue(dateFromText(own.value).days);
    }
}

void UserPropertyObject::setValue(const Value& value) {
    UserProperty& own = entry();
    std::optional<std::wstring> text = kept(static_cast<UserPropertyType>(own.type), value);
    if (!text) {
        throw outlookError(server(), E_INVALIDARG,
                           L"The value you entered for the user-defined property does not match its type.");
    }
    own.value = std::move(*text);
    item_->touch();
}

void UserPropertyObject::remove() {
    entry();
    std::erase_if(item_->record().userProperties,
                  [&](const UserProperty& p) { return sameText(p.name, name_); });
    item_->touch();
}

}  // namespace standin::outlook

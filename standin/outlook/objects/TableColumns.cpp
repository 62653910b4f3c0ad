#include "standin/outlook/objects/TableColumns.h"

#include <algorithm>
#include <cwchar>
#include <initializer_list>
#include <span>

#include "standin/outlook/mailbox/ContactNames.h"
#include "standin/outlook/objects/ContactFields.h"
#include "standin/outlook/objects/UserProperties.h"

namespace standin::outlook {
namespace {

constexpr std::size_t kWidestCell = 255;
constexpr wchar_t kOwnField[] =
    L"http://schemas.microsoft.com/mapi/string/{00020329-0000-0000-C000-000000000046}/";
constexpr wchar_t kTag[] = L"http://schemas.microsoft.com/mapi/proptag/0x";
constexpr wchar_t kLastingId[] = L"66700102";
constexpr wchar_t kRowId[] = L"0FFF0102";
constexpr wchar_t kTextType[] = L"001F";

constexpr const wchar_t* kOwnNames[] = {L"EntryID", L"Subject", L"MessageClass", L"FullName", L"FileAs"};

template <std::size_t size>
bool isOneOf(const std::wstring& name, const FieldName (&fields)[size]) {
    return std::ranges::any_of(fields, [&](const FieldName& field) { return name == field.name; });
}

bool isTextProperty(const std::wstring& name) {
    return isOneOf(name, kNameParts) || isOneOf(name, kTelephones) || isOneOf(name, kEmails) ||
           isOneOf(name, kTextFields) || name == L"Categories" || name == L"BillingInformation";
}

// The part behind the namespace; empty for a name of another kind. Namespaces are compared with their case.
std::wstring tagOf(const std::wstring& name) {
    return name.starts_with(kTag) ? name.substr(std::size(kTag) - 1) : std::wstring();
}

// The telephone property that a tag names; empty for another one.
std::wstring telephoneOf(const std::wstring& tag) {
    if (tag.size() != 8 || !tag.ends_with(kTextType)) return {};
    const DISPID id = static_cast<DISPID>(std::wcstol(tag.substr(0, 4).c_str(), nullptr, 16));
    const auto found = std::ranges::find(kTelephones, id, &FieldName::id);
    return found == std::end(kTelephones) ? std::wstring() : found->name;
}

Value missing(const OutlookObject& reader) {
    if (reader.server().option(L"TableMissing") != L"error") return {};
    constexpr long kNotFound = static_cast<long>(0x8004010FUL);
    return Value(kNotFound, VT_ERROR);
}

// The types of users' own fields that can be columns, as a column's name gives them.
struct FieldType {
    const wchar_t* suffix;
    std::initializer_list<UserPropertyType> types;
};
const FieldType kFieldTypes[] = {
    {L"/0x0000001f", {UserPropertyType::Text}},
    {L"/0x00000005", {UserPropertyType::Number, UserPropertyType::Percent}},
    {L"/0x00000003", {UserPropertyType::Integer, UserPropertyType::Duration}},
};

// What of these a column is; nullptr for another one.
const FieldType* fieldTypeOf(const std::wstring& column) {
    if (!column.starts_with(kOwnField)) return nullptr;
    const auto found = std::ranges::find_if(
        kFieldTypes, [&](const FieldType& type) { return column.ends_with(type.suffix); });
    return found == std::end(kFieldTypes) ? nullptr : found;
}

// A field of the same name that has another type is another property, which the column does not show.
Value ownField(const OutlookObject& reader, const ItemRecord& item, const std::wstring& column,
               const FieldType& type) {
    const std::wstring rest = column.substr(std::size(kOwnField) - 1);
    const std::wstring name = rest.substr(0, rest.size() - std::wcslen(type.suffix));
    for (const UserProperty& field : item.userProperties) {
        const bool isOfType =
            std::ranges::find(type.types, static_cast<UserPropertyType>(field.type)) != type.types.end();
        if (field.name == name && isOfType) return userPropertyValue(field);
    }
    return missing(reader);
}

// A text of several values names them with commas, however the item's own text does.
std::wstring commaText(std::wstring text) {
    std::ranges::replace(text, L';', L',');
    return text;
}

std::wstring messageClassOf(const ItemRecord& item) {
    const std::wstring own = item.field(L"MessageClass");
    if (!own.empty()) return own;
    switch (item.type) {
        case ItemType::Contact:
            return L"IPM.Contact";
        case ItemType::DistributionList:
            return L"IPM.DistList";
        case ItemType::Journal:
            return L"IPM.Activity";
        default:
            return L"IPM.Note";
    }
}

bool hasShortIds(const OutlookObject& reader) {
    return reader.server().option(L"TableIds").starts_with(L"short");
}

// An identifier for the session only begins with other flags than one that is kept.
std::wstring rowId(const OutlookObject& reader, const std::wstring& lasting) {
    return hasShortIds(reader) ? L"EF" + lasting.substr(2) : lasting;
}

// The bytes that hexadecimal digits stand for.
Value bytesOf(const std::wstring& digits) {
    const auto count = static_cast<ULONG>(digits.size() / 2);
    VARIANT raw;
    VariantInit(&raw);
    raw.parray = SafeArrayCreateVector(VT_UI1, 0, count);
    if (!raw.parray) throw std::bad_alloc();
    raw.vt = VT_ARRAY | VT_UI1;
    for (ULONG i = 0; i < count; ++i)
        static_cast<BYTE*>(raw.parray->pvData)[i] =
            static_cast<BYTE>(std::wcstoul(digits.substr(i * 2, 2).c_str(), nullptr, 16));
    Value value;
    value.Attach(raw);
    return value;
}

std::wstring textOf(const ItemRecord& item, const std::wstring& column) {
    if (column == L"MessageClass") return messageClassOf(item);
    if (column == L"FullName" || column == L"Subject")
        return item.type == ItemType::Contact ? fullNameOf(item.fields) : item.field(L"Subject");
    if (column == L"FileAs" && item.field(column).empty()) return defaultFileAs(item.fields);
    if (column == L"Categories") return commaText(item.field(column));
    const std::wstring telephone = telephoneOf(tagOf(column));
    return item.field(telephone.empty() ? column : telephone);
}

}  // namespace

std::vector<std::wstring> defaultColumns(ItemType folderType) {
    std::vector<std::wstring> names = {L"EntryID", L"Subject", L"CreationTime", L"LastModificationTime",
                                       L"MessageClass"};
    if (folderType == ItemType::Contact)
        names.insert(names.end(), {L"FirstName", L"LastName", L"CompanyName"});
    return names;
}

bool isColumn(const std::wstring& name) {
    const std::wstring tag = tagOf(name);
    if (fieldTypeOf(name)) return true;
    if (!tag.empty()) return tag == kLastingId || tag == kRowId || !telephoneOf(tag).empty();
    return isTextProperty(name) || std::ranges::find(kOwnNames, name) != std::end(kOwnNames);
}

bool showsContent(const std::wstring& column) {
    const std::wstring tag = tagOf(column);
    return column != L"EntryID" && tag != kRowId && tag != kLastingId;
}

Value cellOf(const OutlookObject& reader, const ItemRecord& item, const std::wstring& column) {
    const auto lastingId = [&] { return reader.mailbox().entryId(item); };
    if (column == L"EntryID") return toValue(rowId(reader, lastingId()));
    const std::wstring tag = tagOf(column);
    if (tag == kRowId) return bytesOf(rowId(reader, lastingId()));
    if (tag == kLastingId)
        return reader.server().option(L"TableIds") == L"short" ? bytesOf(lastingId()) : missing(reader);
    if (const FieldType* type = fieldTypeOf(column)) return ownField(reader, item, column, *type);
    const std::wstring text = textOf(item, column);
    return text.empty() ? missing(reader) : toValue(text.substr(0, kWidestCell));
}

}  // namespace standin::outlook

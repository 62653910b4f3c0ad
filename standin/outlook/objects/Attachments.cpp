#include "standin/outlook/objects/Attachments.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "standin/common/Enumerator.h"
#include "standin/outlook/objects/Errors.h"

namespace standin::outlook {

Bytes readFile(Server& server, const std::wstring& path) {
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    if (!file) {
        throw outlookError(server, HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND),
                           L"Cannot find this file. Verify the path and file name are correct.");
    }
    return Bytes(std::istreambuf_iterator<char>(file), {});
}

const MemberTable& Attachments::members() const {
    using Self = Attachments;
    static const MemberTable table(L"Attachments",
                                   {
                                       readOnly<&Self::count>(L"Count", 0x50),
                                       method<&Self::item>(L"Item", 0x51, 1),
                                       method<&Self::add>(L"Add", 0x65, 1, 4),
                                       method<&Self::remove>(L"Remove", 0x54, 1),
                                       readOnly<&Self::newEnum>(L"_NewEnum", DISPID_NEWENUM),
                                   },
                                   L"Item", &commonMembers());
    return table;
}

Ref<Object> Attachments::at(long position) {
    if (position < 1 || position > count()) throw outOfBounds(server());
    return makeOf<AttachmentObject>(*this, item_, static_cast<std::size_t>(position) - 1);
}

Ref<Object> Attachments::add(const Arguments& arguments) {
    const std::wstring path = arguments.text(0);
    const std::wstring name = std::filesystem::path(path).filename().wstring();
    const std::wstring shown = arguments.has(3) ? arguments.text(3) : name;
    item_->record().attachments.push_back({shown, name, readFile(server(), path)});
    item_->touch();
    return at(count());
}

void Attachments::remove(const Arguments& arguments) {
    const long position = arguments.number(0);
    if (position < 1 || position > count()) throw outOfBounds(server());
    auto& entries = item_->record().attachments;
    entries.erase(entries.begin() + position - 1);
    item_->touch();
}

Ref<IEnumVARIANT> Attachments::newEnum() {
    const Ref<Attachments> self(this);
    return makeEnumerator(
        server(), [self] { return self->count(); },
        [self](long position) { return toValue(self->at(position)); });
}

const MemberTable& AttachmentObject::members() const {
    using Self = AttachmentObject;
    // Parent has a number of its own here, so the common members are not inherited.
    static const MemberTable table(
        L"Attachment",
        {
            readOnly<&Self::application>(L"Application", 0xF000),
            readOnly<&Self::objectClass>(L"Class", 0xF00A),
            readOnly<&Self::parentMember>(L"Parent", 0x71),
            property<&Self::displayName, &Self::setDisplayName>(L"DisplayName", 0x3001),
            readOnly<&Self::fileName>(L"FileName", 0x3704),
            readOnly<&Self::type>(L"Type", 0x3705),
            readOnly<&Self::index>(L"Index", 0x67),
            method<&Self::saveAsFile>(L"SaveAsFile", 0x68, 1),
            method<&Self::remove>(L"Delete", 0x69),
        },
        L"DisplayName");
    return table;
}

Ref<Object> AttachmentObject::parent() {
    return makeOf<Attachments>(*this, item_);
}

Attachment& AttachmentObject::entry() const {
    auto& entries = item_->record().attachments;
    if (index_ >= entries.size()) throw itemGone(server());
    return entries[index_];
}

void AttachmentObject::setDisplayName(const std::wstring& name) {
    entry().displayName = name;
    item_->touch();
}

void AttachmentObject::saveAsFile(const Arguments& arguments) {
    const Bytes& data = entry().data;
    std::ofstream file(std::filesystem::path(arguments.text(0)), std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(data.data()), static_cast<std::streamsize>(data.size()));
    file.close();
    if (file.fail()) {
        throw outlookError(server(), HRESULT_FROM_WIN32(ERROR_PATH_NOT_FOUND),
                           L"Cannot save the attachment. Path does not exist. Verify the path is correct.");
    }
}

void AttachmentObject::remove() {
    auto& entries = item_->record().attachments;
    entry();
    entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(index_));
    item_->touch();
}

}  // namespace standin::outlook

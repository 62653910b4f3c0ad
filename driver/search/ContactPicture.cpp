#include "search/ContactPicture.h"

#include <windows.h>

#include "automation/Attempts.h"
#include "automation/OutlookNames.h"

namespace zelbar {

namespace {

bool namesPicture(const std::wstring& name) {
    return CompareStringOrdinal(name.c_str(), static_cast<int>(name.size()), L"ContactPicture.jpg", -1,
                                TRUE) == CSTR_EQUAL;
}

std::wstring pathOf(const std::wstring& entryId, const std::wstring& folder) {
    if (entryId.empty() || entryId.find_first_not_of(L"0123456789ABCDEFabcdef") != entryId.npos)
        throw Fault{fault::kTypeMismatch, L"Not an entry identifier: " + entryId, L"ContactPicture"};
    return folder + L"\\pimcontact_" + entryId + L".jpg";
}

void removeFile(const std::wstring& path) {
    if (DeleteFileW(path.c_str())) return;
    const DWORD error = GetLastError();
    if (error != ERROR_FILE_NOT_FOUND) throw faultOf(HRESULT_FROM_WIN32(error), path);
}

}  // namespace

std::wstring savePicture(const Object& item, const std::wstring& entryId, const std::wstring& folder) {
    if (!item.boolean(outlook::HasPicture)) return {};
    const Object attachments = item.object(outlook::Attachments);
    const long count = attachments.integer(outlook::Count);
    for (long i = 1; i <= count; ++i) {
        const Object attachment = attachments.object(outlook::AttachmentAt, i);
        if (!namesPicture(attachment.text(outlook::DisplayName)) &&
            !namesPicture(attachment.text(outlook::FileName)))
            continue;
        const std::wstring path = pathOf(entryId, folder);
        removeFile(path);
        attachment.call(outlook::SaveAsFile, path);
        return path;
    }
    return {};
}

void removePicture(const std::wstring& entryId, const std::wstring& folder) noexcept {
    Attempts()([&] { removeFile(pathOf(entryId, folder)); });
}

}  // namespace zelbar

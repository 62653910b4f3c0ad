#include "search/ContactPicture.h"

#include <windows.h>

#include "automation/OutlookNames.h"

namespace zelbar {

namespace {

bool namesPicture(const std::wstring& name) {
    return CompareStringOrdinal(name.c_str(), static_cast<int>(name.size()), L"ContactPicture.jpg", -1,
                                TRUE) == CSTR_EQUAL;
}

}  // namespace

std::wstring savePicture(const Object& item, const std::wstring& folder) {
    if (!item.boolean(outlook::HasPicture)) return {};
    const Object attachments = item.object(outlook::Attachments);
    const long count = attachments.integer(outlook::Count);
    for (long i = 1; i <= count; ++i) {
        const Object attachment = attachments.object(outlook::AttachmentAt, i);
        if (!namesPicture(attachment.text(outlook::DisplayName)) &&
            !namesPicture(attachment.text(outlook::FileName)))
            continue;
        const std::wstring path = folder + L"\\pimcontact_" + item.text(outlook::EntryID) + L".jpg";
        attachment.call(outlook::SaveAsFile, path);
        return path;
    }
    return {};
}

}  // namespace zelbar

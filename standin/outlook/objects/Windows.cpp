#include "standin/outlook/objects/Windows.h"

#include "standin/outlook/objects/Errors.h"
#include "standin/outlook/objects/Folders.h"
#include "standin/outlook/objects/Item.h"

namespace standin::outlook {

const MemberTable& Explorer::members() const {
    using Self = Explorer;
    static const MemberTable table(
        L"Explorer",
        {
            reference<&Self::currentFolder, &Self::setCurrentFolder>(L"CurrentFolder", 0x2101),
            method<&Self::display>(L"Display", 0x2104),
            method<&Self::close>(L"Close", 0x2103),
        },
        nullptr, &commonMembers());
    return table;
}

Ref<Object> Explorer::currentFolder() {
    return makeOf<Folder>(*this, window_->folder);
}

void Explorer::setCurrentFolder(const Ref<IDispatch>& folder) {
    const Ref<Object> object = Object::from(folder.Get());
    const auto* chosen = dynamic_cast<Folder*>(object.Get());
    if (!chosen) throw Error::plain(DISP_E_TYPEMISMATCH);
    window_->folder = chosen->row();
}

const MemberTable& Inspector::members() const {
    using Self = Inspector;
    static const MemberTable table(L"Inspector",
                                   {
                                       readOnly<&Self::currentItem>(L"CurrentItem", 0x2102),
                                       method<&Self::display>(L"Display", 0x2104, 0, 1),
                                       method<&Self::close>(L"Close", 0x2103, 1),
                                   },
                                   nullptr, &commonMembers());
    return table;
}

Ref<Object> Inspector::currentItem() {
    return wrapItem(sharedSession(), window_->item);
}

void Inspector::close(const Arguments& arguments) {
    closeItem(session(), window_->item, static_cast<CloseMode>(arguments.number(0)));
}

const MemberTable& Inspectors::members() const {
    static const MemberTable table(
        L"Inspectors",
        {readOnly<&Inspectors::count>(L"Count", 0x50), method<&Inspectors::item>(L"Item", 0x51, 1)}, L"Item",
        &commonMembers());
    return table;
}

Ref<Object> Inspectors::item(const Arguments& arguments) {
    const auto& windows = session().inspectors();
    const long position = arguments.number(0);
    if (position < 1 || position > static_cast<long>(windows.size())) throw outOfBounds(server());
    return makeOf<Inspector>(*this, windows[static_cast<std::size_t>(position) - 1]);
}

}  // namespace standin::outlook

#include "client/ExportFolder.h"

#include <windows.h>

#include <optional>
#include <vector>

#include "client/Failure.h"
#include "client/OutlookFolders.h"
#include "client/Text.h"
#include "support/Settings.h"

namespace pimcall {
namespace {

constexpr long kDeletedItems = 3;
constexpr long kContacts = 10;
constexpr long kNameSpace = 1;

namespace settings = zelbar::settings;

/// Empty when there is none. A blank stands for an empty text in the driver's settings.
std::wstring setting(const zelbar::Setting& setting) {
    const std::wstring text = zelbar::getSetting(setting);
    return text == L" " ? std::wstring() : text;
}

void remember(const zelbar::Setting& setting, const std::wstring& text) {
    if (!zelbar::saveSetting(setting, text))
        throw Failure(L"The folder cannot be remembered: the registry does not take it.");
}

bool sameName(const std::wstring& one, const std::wstring& other) {
    return lstrcmpiW(one.c_str(), other.c_str()) == 0;
}

template <class Reading>
auto orNone(const Reading& reading) -> std::optional<decltype(reading())> {
    try {
        return reading();
    } catch (const Failure& failure) {
        if (isLeaving(failure)) throw;
        return {};
    }
}

/// Outlook's folders, as far as the export folder goes.
class Session {
  public:
    /// Throws `Failure` when there is no Outlook.
    Session()
        : application_(startOutlook()),
          session_(objectOf(resultOf(*application_.Get(), L"GetNamespace", Value(std::wstring(L"MAPI"))))) {}

    /// Looked for as the driver does; none when Outlook does not open it.
    ComPtr<IDispatch> folder(const std::wstring& entryId, const std::wstring& storeId) const {
        const auto inItsStore = orNone([&] {
            return objectOf(resultOf(*session_.Get(), L"GetFolderFromID", Value(entryId), Value(storeId)));
        });
        if (inItsStore) return *inItsStore;
        return orNone([&] { return objectOf(resultOf(*session_.Get(), L"GetFolderFromID", Value(entryId))); })
            .value_or(nullptr);
    }

    /// Throws when the folder lies in its store's Deleted Items: what is exported to there is lost.
    void refuseDeleted(const ComPtr<IDispatch>& folder) const {
        const auto deleted = objectOf(resultOf(*session_.Get(), L"GetDefaultFolder", Value(kDeletedItems)));
        const std::wstring deletedId = resultOf(*deleted.Get(), L"EntryID").text();
        const std::wstring deletedName = resultOf(*deleted.Get(), L"Name").text();
        // Another store's own has an identifier of its own, but the same name and place.
        const auto isDeletedItems = [&](const ComPtr<IDispatch>& at, const ComPtr<IDispatch>& above) {
            return resultOf(*at.Get(), L"EntryID").text() == deletedId ||
                   (isTop(parentOf(above)) && sameName(resultOf(*at.Get(), L"Name").text(), deletedName));
        };
        for (auto at = folder, above = parentOf(at); !isTop(above); at = above, above = parentOf(at)) {
            if (!isDeletedItems(at, above)) continue;
            throw Failure(L"The export folder \"" + oneLine(resultOf(*folder.Get(), L"Name").text()) +
                          L"\" lies in Deleted Items. Move it back in Outlook; or empty Deleted Items there, "
                          L"and \"pimcall export init --database FILE --folder NAME\" makes a new one.");
        }
    }

    /// Throws when the folder cannot be made, since one beside the default contacts folder is called so.
    void refuseTaken(const std::wstring& name) const {
        const auto contacts = objectOf(resultOf(*session_.Get(), L"GetDefaultFolder", Value(kContacts)));
        const auto folders = objectOf(resultOf(*parentOf(contacts).Get(), L"Folders"));
        const long count = resultOf(*folders.Get(), L"Count").integer();
        for (long i = 1; i <= count; ++i) {
            const auto folder = objectOf(resultOf(*folders.Get(), L"Item", Value(i)));
            if (!sameName(resultOf(*folder.Get(), L"Name").text(), name)) continue;
            throw Failure(L"There is a folder \"" + oneLine(name) +
                          L"\" already. If it is the export folder that another computer has made, run "
                          L"\"pimcall export adopt --folder NAME\" and then sync; otherwise choose another "
                          L"name.");
        }
    }

  private:
    static ComPtr<IDispatch> parentOf(const ComPtr<IDispatch>& folder) {
        return objectOf(resultOf(*folder.Get(), L"Parent"));
    }
    static bool isTop(const ComPtr<IDispatch>& object) {
        return resultOf(*object.Get(), L"Class").integer() == kNameSpace;
    }

    ComPtr<IDispatch> application_;
    ComPtr<IDispatch> session_;
};

bool isExported(IDispatch& items, long index) {
    return orNone([&] {
               const auto item = objectOf(resultOf(items, L"Item", Value(index)));
               const auto properties = objectOf(resultOf(*item.Get(), L"UserProperties"));
               return static_cast<bool>(
                   resultOf(*properties.Get(), L"Item", Value(std::wstring(L"EmployeeId")))
                       .object<IDispatch>());
           })
        .value_or(false);
}

/// True for an empty folder as well.
bool mayBeOfAnExport(IDispatch& folder) {
    const auto items = objectOf(resultOf(folder, L"Items"));
    const long count = resultOf(*items.Get(), L"Count").integer();
    for (long i = 1; i <= count; ++i)
        if (isExported(*items.Get(), i)) return true;
    return count == 0;
}

ContactsFolder theOneCalled(const std::wstring& name) {
    const OutlookFolders outlook = readOutlookFolders();
    std::vector<ContactsFolder> found;
    for (const ContactsFolder& folder : outlook.folders)
        if (sameName(folder.path, name) || sameName(folder.path.substr(folder.path.rfind(L'\\') + 1), name))
            found.push_back(folder);
    if (found.empty())
        throw Failure(L"There is no contacts folder \"" + oneLine(name) + L"\"" +
                      (outlook.complete ? L"." : L" among those that Outlook shows now; try again."));
    if (found.size() == 1) return found.front();
    std::wstring sentence = L"There is more than one contacts folder of this name; give the path:";
    for (const ContactsFolder& folder : found) sentence += L" \"" + oneLine(folder.path) + L"\"";
    throw Failure(sentence);
}

void look(ExportStep step, const std::wstring& name) {
    const Session session;
    const std::wstring entryId = setting(settings::kExportEntryId);
    const std::wstring storeId = setting(settings::kExportStoreId);
    if (!entryId.empty() && !storeId.empty())
        if (const auto folder = session.folder(entryId, storeId)) return session.refuseDeleted(folder);
    const bool initializes = step == ExportStep::Initialize;
    const std::wstring made = name.empty() && initializes ? setting(settings::kZelbarExportFolder) : name;
    if (made.empty())
        throw Failure(L"There is no export folder" +
                      std::wstring(entryId.empty() ? L" yet" : L" any more, or its store is not open") +
                      L". \"pimcall export init --database FILE --folder NAME\" makes one; \"pimcall export "
                      L"adopt --folder NAME\" takes the one that another computer has made.");
    session.refuseTaken(made);
}

std::wstring adopted(const std::wstring& name) {
    const Session session;
    const ContactsFolder chosen = theOneCalled(name);
    const auto folder = session.folder(chosen.entryId, chosen.storeId);
    if (!folder) throw Failure(L"Outlook does not open the folder \"" + oneLine(chosen.path) + L"\".");
    session.refuseDeleted(folder);
    if (!mayBeOfAnExport(*folder.Get()))
        throw Failure(L"The contacts in \"" + oneLine(chosen.path) +
                      L"\" are such as no export has made; the folder is left alone.");
    remember(settings::kExportEntryId, chosen.entryId);
    remember(settings::kExportStoreId, chosen.storeId);
    return chosen.path;
}

}  // namespace

void requireExportFolder(ExportStep step, const std::wstring& name) {
    askOutlook([&] { look(step, name); });
}

std::wstring adoptExportFolder(const std::wstring& name) {
    std::wstring path;
    askOutlook([&] { path = adopted(name); });
    return path;
}

}  // namespace pimcall

#include "filler/FillCache.h"

#include "automation/Fault.h"
#include "automation/Gateway.h"
#include "filler/AddressBook.h"
#include "filler/CacheFile.h"
#include "filler/FolderChoice.h"
#include "filler/Photos.h"
#include "filler/SynchroFlag.h"
#include "numbers/PresentedForms.h"
#include "support/Module.h"
#include "support/mLogError.h"
#include "support/modMultiUser.h"

namespace filler {
namespace {

std::wstring counted(long count, const wchar_t* one, const wchar_t* many) {
    return std::to_wstring(count) + L" " + (count == 1 ? one : many);
}

}  // namespace

FillResult fillCache(Observer& observer, const numbers::Place& place, std::optional<ReadWay> asked) {
    const zelbar::Module module = zelbar::thisModule();
    zelbar::mLogError errors(module);
    zelbar::modMultiUser paths(module, errors);
    const std::wstring path = paths.DataPath() + L"\\connec00.mdb";
    try {
        SynchroFlag flag;
        zelbar::Gateway gateway;
        const FolderChoice choice = readFolderChoice();
        // Before Outlook, which takes minutes: a cache that cannot be written is told at once.
        CacheFile file(gateway, path);
        const AddressBook book = readAddressBook(gateway, choice, asked, observer);
        observer.changesBegin();
        const CacheChange change = updateCache(file, book, numbers::PresentedForms(place), flag, observer);
        if (book.isComplete() && paths.IsPerUserPath()) removeOldPhotos(paths.DataPath(), book);
        if (flag.isOthers())
            observer.note(
                L"SynchroInProgress in the registry says that another program is filling the cache. If "
                L"none is, delete that value: the client waits for it whenever it starts.");
        return {book.folderCount, book.contactCount, book.unreadCount, change, book.way};
    } catch (const zelbar::Fault& fault) {
        throw Failure{L"The cache " + path + L" cannot be updated: " + fault.description};
    }
}

std::wstring describe(const FillResult& result) {
    const CacheChange& change = result.change;
    std::wstring text = std::wstring(L"Outlook was read ") +
                        (result.way.way == ReadWay::Table ? L"through its tables: " : L"item by item: ") +
                        result.way.reason + L".\n";
    text += counted(result.contactCount, L"contact", L"contacts") + L" in " +
            counted(result.folderCount, L"folder", L"folders") + L", " +
            counted(change.numberCount, L"number", L"numbers") + L".\n";
    if (!change.any()) return text + L"Nothing changed.\n";
    text += counted(change.added, L"row", L"rows") + L" added, " + std::to_wstring(change.removed) +
            L" removed.\n";
    if (change.created || change.storesChanged)
        text += L"Restart the telephony client: it reads the list of stores only when it starts.\n";
    return text;
}

}  // namespace filler

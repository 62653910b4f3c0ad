#include "filler/FillCache.h"

#include "automation/Gateway.h"
#include "filler/AddressBook.h"
#include "filler/FolderChoice.h"
#include "filler/SynchroFlag.h"
#include "support/Module.h"
#include "support/mLogError.h"
#include "support/modMultiUser.h"

namespace filler {
namespace {

std::wstring counted(long count, const wchar_t* one, const wchar_t* many) {
    return std::to_wstring(count) + L" " + (count == 1 ? one : many);
}

}  // namespace

std::wstring cachePath() {
    const zelbar::Module module = zelbar::thisModule();
    zelbar::mLogError errors(module);
    return zelbar::modMultiUser(module, errors).DataPath() + L"\\connec00.mdb";
}

FillResult fillCache(Observer& observer) {
    SynchroFlag flag;
    zelbar::Gateway gateway;
    const AddressBook book = readAddressBook(gateway, readFolderChoice(), observer);
    const CacheChange change = updateCache(gateway, cachePath(), book, flag, observer);
    return {book.folderCount, book.contactCount, book.unreadCount, change};
}

std::wstring describe(const FillResult& result) {
    const CacheChange& change = result.change;
    std::wstring text = counted(result.contactCount, L"contact", L"contacts") + L" in " +
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

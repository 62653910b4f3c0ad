#include "filler/FillMark.h"

#include "automation/DaoNames.h"
#include "filler/Digest.h"
#include "module/OwnModule.h"

namespace filler {
namespace {

/// The checksum that the linker has put into this program.
std::wstring ownBuild() {
    const auto* base = reinterpret_cast<const char*>(zelbar::moduleHandle());
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    return std::to_wstring(headers->OptionalHeader.CheckSum);
}

const TableLayout& markLayout() {
    static constexpr const wchar_t* kColumns[] = {L"Mark"};
    static constexpr const wchar_t* kStatements[] = {L"Create Table TFill (Mark Text(255))"};
    static constexpr TableLayout kLayout{L"TFill", kColumns, kStatements};
    return kLayout;
}

bool hasMarks(const CacheFile& file) {
    return !file.isNew() && tableExists(file.database(), markLayout());
}

}  // namespace

std::wstring sourcesMark(const AddressBook& book, const std::vector<StoreKey>& keys,
                         const numbers::Place& place) {
    const std::wstring build = ownBuild() + L" " + std::to_wstring(static_cast<int>(place.withoutPrefix));
    Digest digest;
    digest.add(L"place", RecordView{place.region, place.areaCode, place.outsideLine, build});
    for (const StoreKey& key : keys) digest.add(L"store", RecordView{key.index, key.storeId});
    for (const auto& [store, contact] : book.contacts)
        for (const std::wstring& number : contact.numbers)
            digest.add(L"number", RecordView{contact.name, number, contact.entryId, keys[store].index});
    return digest.text();
}

std::wstring rowsMark(const zelbar::Object& database, Observer& observer) {
    Digest digest;
    for (const TableLayout* layout : {&storeLayout(), &numberLayout()})
        for (CacheTable table(database, *layout, CacheTable::Use::Read); !table.atEnd(); table.next()) {
            goOn(observer);
            if (const auto row = table.current()) digest.add(layout->name, *row);
        }
    return digest.text();
}

std::wstring storedMark(const CacheFile& file) {
    if (!hasMarks(file)) return {};
    CacheTable table(file.database(), markLayout(), CacheTable::Use::Read);
    const auto row = table.atEnd() ? std::optional<RecordView>() : table.current();
    return row ? std::wstring((*row)[0]) : std::wstring();
}

void storeMark(const CacheFile& file, const std::wstring& mark) {
    if (hasMarks(file))
        file.database().call(zelbar::dao::Execute, L"Delete From TFill");
    else
        makeTable(file.database(), markLayout());
    if (!mark.empty())
        file.database().call(zelbar::dao::Execute, L"Insert Into TFill (Mark) Values (\"" + mark + L"\")");
}

}  // namespace filler

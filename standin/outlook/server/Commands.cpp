#include "standin/outlook/server/Commands.h"

#include <functional>
#include <set>
#include <span>

#include "standin/common/Object.h"
#include "standin/outlook/host/Host.h"
#include "standin/outlook/mailbox/Text.h"
#include "standin/outlook/objects/ContactFields.h"
#include "standin/outlook/server/Console.h"
#include "standin/outlook/vcard/Import.h"

namespace standin::outlook {
namespace {

using Words = std::span<const std::wstring>;

struct UsageError {
    std::wstring text;
};

// Takes the value behind an option out of the words.
std::wstring optionValue(Words& words) {
    if (words.size() < 2) throw UsageError{words.front() + L" needs a value"};
    std::wstring value = words[1];
    words = words.subspan(2);
    return value;
}

// Calls back for every item of every folder except those in Deleted Items.
using FolderVisitor = std::function<void(const FolderRecord&, int depth)>;
using ItemVisitor = std::function<void(const ItemRecord&, int depth)>;

void walk(Mailbox& mailbox, const FolderRecord& folder, int depth, const FolderVisitor& onFolder,
          const ItemVisitor& onItem) {
    if (folder.special == SpecialFolder::DeletedItems) return;
    if (onFolder) onFolder(folder, depth);
    for (const RowId row : mailbox.items(folder.id)) {
        if (const std::optional<ItemRecord> item = mailbox.item(row)) onItem(*item, depth + 1);
    }
    for (const FolderRecord& below : mailbox.subfolders(folder.id))
        walk(mailbox, below, depth + 1, onFolder, onItem);
}

void walkStores(Mailbox& mailbox, const FolderVisitor& onFolder, const ItemVisitor& onItem) {
    for (const StoreRecord& store : mailbox.stores())
        walk(mailbox, *mailbox.folder(store.root), 0, onFolder, onItem);
}

std::wstring counted(int count, const wchar_t* noun) {
    return std::to_wstring(count) + L" " + noun + (count == 1 ? L"" : L"s");
}

int importBooks(Mailbox& mailbox, Words words) {
    std::wstring storeName;
    std::wstring path;
    while (!words.empty() && words.front().starts_with(L"--")) {
        if (words.front() == L"--store")
            storeName = optionValue(words);
        else if (words.front() == L"--folder")
            path = optionValue(words);
        else
            throw UsageError{L"unknown option " + words.front()};
    }
    if (words.empty()) throw UsageError{L"import needs a file"};
    const std::optional<StoreRecord> known =
        storeName.empty() ? mailbox.defaultStore() : mailbox.findStore(storeName);
    const StoreRecord store = known ? *known : mailbox.addStore(storeName);
    const FolderRecord folder = path.empty() ? mailbox.specialFolder(SpecialFolder::Contacts, store.id)
                                             : mailbox.ensureFolder(store, path, ItemType::Contact);
    int failures = 0;
    for (const std::wstring& file : words) {
        try {
            const vcard::ImportReport report = vcard::importFile(mailbox, folder.id, file);
            printLine(file + L": " + counted(report.contacts, L"contact") + L" into " + store.name + L"\\" +
                      (path.empty() ? folder.name : path));
            if (report.leftOut.empty()) continue;
            printError(file + L": " + counted(static_cast<int>(report.leftOut.size()), L"detail") +
                       L" left out");
            for (const std::wstring& what : report.leftOut) printError(L"    " + what);
        } catch (const std::exception& error) {
            ++failures;
            printError(file + L": " + fromUtf8(error.what()));
        }
    }
    return failures == 0 ? kDone : kFailed;
}

bool isNamed(const ItemRecord& item, const std::wstring& name) {
    for (const wchar_t* field :
         {L"FullName", L"LastNameAndFirstName", L"FileAs", L"DLName", L"CompanyName"}) {
        if (sameText(item.field(field), name)) return true;
    }
    return false;
}

int deleteContacts(Mailbox& mailbox, Words words) {
    if (words.empty() || words.front() != L"--name") throw UsageError{L"delete needs --name TEXT"};
    const std::wstring name = optionValue(words);
    if (!words.empty() || name.empty()) throw UsageError{L"delete takes one name"};
    std::vector<RowId> found;
    walkStores(mailbox, {}, [&](const ItemRecord& item, int) {
        if (isNamed(item, name)) found.push_back(item.id);
    });
    for (const RowId row : found) mailbox.eraseItem(row);
    if (found.empty())
        printError(L"nobody is named " + name);
    else
        printLine(std::to_wstring(found.size()) + L" deleted");
    return found.empty() ? kNothingFound : kDone;
}

int listNumbers(Mailbox& mailbox, Words words) {
    if (!words.empty()) throw UsageError{L"numbers takes no arguments"};
    std::set<std::wstring> seen;
    walkStores(mailbox, {}, [&](const ItemRecord& item, int) {
        for (const FieldName& telephone : kTelephones) {
            const std::wstring number = item.field(telephone.name);
            if (!number.empty() && seen.insert(number).second) printLine(number);
        }
    });
    return kDone;
}

void printContact(const ItemRecord& item, int depth) {
    const std::wstring indent(static_cast<std::size_t>(depth) * 2, L' ');
    std::wstring name = item.field(L"FileAs");
    if (name.empty()) name = item.field(L"Subject");
    const std::wstring company = item.field(L"CompanyName");
    printLine(indent + (name.empty() ? L"(no name)" : name) +
              (company.empty() || company == name ? L"" : L", " + company));
    for (const FieldName& telephone : kTelephones) {
        const std::wstring number = item.field(telephone.name);
        if (!number.empty()) printLine(indent + L"    " + telephone.name + L": " + number);
    }
}

int listMailbox(Mailbox& mailbox, Words words) {
    if (!words.empty()) throw UsageError{L"list takes no arguments"};
    const auto printFolder = [&](const FolderRecord& folder, int depth) {
        const std::size_t count = mailbox.items(folder.id).size();
        printLine(std::wstring(static_cast<std::size_t>(depth) * 2, L' ') + folder.name +
                  (depth == 0 ? L"" : L" (" + std::to_wstring(count) + L")"));
    };
    walkStores(mailbox, printFolder, printContact);
    return kDone;
}

int quitRunning() {
    Ref<IUnknown> running;
    if (FAILED(GetActiveObject(kApplicationClsid, nullptr, &running))) {
        printError(L"Outlook's stand-in is not running");
        return kNothingFound;
    }
    const Ref<IDispatch> application = toObject(Value(running.Get()));
    wchar_t name[] = L"Quit";
    LPOLESTR names = name;
    DISPID id = 0;
    DISPPARAMS none{};
    HRESULT outcome = application->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
    if (SUCCEEDED(outcome)) {
        outcome = application->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, nullptr,
                                      nullptr, nullptr);
    }
    if (FAILED(outcome)) printError(L"Outlook's stand-in does not answer");
    return SUCCEEDED(outcome) ? kDone : kFailed;
}

int dispatch(const std::wstring& name, Words words) {
    if (name == L"quit") return quitRunning();
    using Command = int (*)(Mailbox&, Words);
    const std::pair<const wchar_t*, Command> commands[] = {{L"import", importBooks},
                                                           {L"delete", deleteContacts},
                                                           {L"numbers", listNumbers},
                                                           {L"list", listMailbox}};
    for (const auto& [known, command] : commands) {
        if (name != known) continue;
        Mailbox mailbox(configuredMailboxFile());
        return command(mailbox, words);
    }
    throw UsageError{L"unknown command " + name};
}

constexpr const wchar_t* kHelp[] = {
    L"usage: outlook_standin                     start as a user does, with a window",
    L"       outlook_standin /regserver | /unregserver",
    L"       outlook_standin import [--store NAME] [--folder PATH] FILE.vcf...",
    L"       outlook_standin delete --name TEXT",
    L"       outlook_standin numbers | list | quit",
};

}  // namespace

int runCommand(const std::vector<std::wstring>& arguments) {
    try {
        return dispatch(arguments.front(), Words(arguments).subspan(1));
    } catch (const UsageError& error) {
        printError(error.text);
        for (const wchar_t* line : kHelp) printError(line);
        return kUsage;
    } catch (const std::exception& error) {
        printError(fromUtf8(error.what()));
        return kFailed;
    }
}

}  // namespace standin::outlook

#include <algorithm>
#include <cwchar>
#include <string>
#include <vector>

#include "client/Automation.h"
#include "client/Json.h"
#include "client/OutlookFolders.h"
#include "client/Text.h"
#include "client/commands/Commands.h"
#include "support/Settings.h"

namespace pimcall {
namespace {

using zelbar::StoredFolder;

struct Selection {
    std::vector<StoredFolder> folders;
    /// The cache has not been filled since the choice changed.
    bool changed = false;

    size_t selected() const {
        return static_cast<size_t>(std::ranges::count_if(folders, &StoredFolder::selected));
    }
};

/// A folder of Outlook's, of the stored selection, or of both.
struct Row {
    const wchar_t* state;
    ContactsFolder folder;
    const StoredFolder* stored;  ///< None for a folder that is not stored.
    size_t number = 0;           ///< Of the stored one, from 1.
};

Selection storedSelection() {
    const std::wstring changed = zelbar::getSetting(zelbar::settings::kConfigChanged);
    return {zelbar::storedFolders(), std::wcstol(changed.c_str(), nullptr, 10) != 0};
}

/// First Outlook's folders in its order, then the stored ones that were not met there.
std::vector<Row> compare(const Selection& selection, const OutlookFolders& outlook) {
    const auto same = [](const auto& one, const auto& other) {
        return one.entryId == other.entryId && one.storeId == other.storeId;
    };
    const auto numberOf = [&](const StoredFolder& stored) {
        return static_cast<size_t>(&stored - selection.folders.data()) + 1;
    };
    std::vector<Row> rows;
    for (const ContactsFolder& folder : outlook.folders) {
        const auto stored = std::ranges::find_if(
            selection.folders, [&](const StoredFolder& entry) { return same(entry, folder); });
        if (stored == selection.folders.end())
            rows.push_back({L"not stored", folder, nullptr});
        else
            rows.push_back(
                {stored->selected ? L"selected" : L"not selected", folder, &*stored, numberOf(*stored)});
    }
    for (const StoredFolder& stored : selection.folders) {
        if (std::ranges::any_of(outlook.folders, [&](const auto& folder) { return same(stored, folder); }))
            continue;
        rows.push_back({outlook.complete ? L"gone" : L"not seen",
                        {L"", stored.entryId, stored.storeId},
                        &stored,
                        numberOf(stored)});
    }
    return rows;
}

std::wstring rowText(const Row& row, bool verbose) {
    constexpr size_t kStateWidth = 14;
    std::wstring state = row.state;
    state.resize(kStateWidth, L' ');
    std::wstring text = L"  " + state;
    if (row.folder.path.empty())
        text += L"(number " + std::to_wstring(row.number) + L" of the stored ones, " +
                (row.stored->selected ? L"selected)" : L"not selected)");
    else
        text += oneLine(row.folder.path);
    text += L'\n';
    if (!verbose) return text;
    const std::wstring indent(2 + kStateWidth, L' ');
    return text + indent + L"Folder id  " + oneLine(row.folder.entryId) + L'\n' + indent + L"Store id   " +
           oneLine(row.folder.storeId) + L'\n';
}

std::wstring textOf(const Selection& selection, const OutlookFolders& outlook, bool verbose) {
    std::wstring text = L"Contacts folders: " + std::to_wstring(selection.folders.size()) + L" stored, " +
                        std::to_wstring(selection.selected()) + L" of them selected.\n";
    for (const Row& row : compare(selection, outlook)) text += rowText(row, verbose);
    if (selection.changed) text += L"The choice has changed, and the cache has not been filled since.\n";
    if (!outlook.reached)
        text += L"Outlook cannot be reached: these are the stored folders only.\n";
    else if (!outlook.complete)
        text += L"Outlook did not show everything: there may be more folders than these.\n";
    return text;
}

std::wstring jsonOf(const Selection& selection, const OutlookFolders& outlook) {
    json::Array folders;
    for (const Row& row : compare(selection, outlook)) {
        json::Object folder;
        folder.text(L"state", row.state).text(L"path", row.folder.path);
        if (row.stored)
            folder.number(L"number", static_cast<long>(row.number))
                .boolean(L"selected", row.stored->selected);
        folder.text(L"entryId", row.folder.entryId).text(L"storeId", row.folder.storeId);
        folders.add(folder.str());
    }
    return json::Object()
        .number(L"stored", static_cast<long>(selection.folders.size()))
        .number(L"selected", static_cast<long>(selection.selected()))
        .boolean(L"configChanged", selection.changed)
        .boolean(L"outlookReached", outlook.reached)
        .boolean(L"outlookComplete", outlook.complete)
        .raw(L"folders", folders.str())
        .str();
}

ExitCode run(const Context& context) {
    context.arguments.refuseOperands();
    const Selection selection = storedSelection();
    const OutlookFolders outlook = readOutlookFolders();
    if (context.json())
        context.out.line(jsonOf(selection, outlook));
    else
        context.out.write(textOf(selection, outlook, context.verbose()));
    return selection.selected() > 0 ? ExitCode::Found : ExitCode::NotFound;
}

}  // namespace

const Command kFolders = {
    .name = L"folders",
    .synopsis = L"folders",
    .brief = L"the chosen contacts folders, beside those of Outlook",
    .details = L"Lists the contacts folders that are chosen, beside those that Outlook has.",
    .examples = L"pimcall folders\n",
    .run = run};

}  // namespace pimcall

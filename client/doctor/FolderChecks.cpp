#include <algorithm>

#include "client/doctor/Finding.h"
#include "client/doctor/Machine.h"

namespace pimcall::doctor {
namespace {

/// The client's window reads that many stored folders back.
constexpr std::size_t kRemembered = 16;

std::size_t count(const Machine& machine, auto&& condition) {
    return static_cast<std::size_t>(std::ranges::count_if(machine.folders.chosen, condition));
}

Finding chosen(const Machine& machine) {
    const std::size_t all = machine.folders.chosen.size();
    if (all == 0)
        return notice(L"No contacts folders are chosen: fillcache reads the default one.",
                      L"To choose others: pimcall config.");
    const std::size_t selected = count(machine, [](const auto& folder) { return folder.stored.selected; });
    if (selected == 0)
        return problem(L"A choice of contacts folders is stored, and none of them is checked.",
                       L"Check the folders to be searched: pimcall config; then run fillcache.");
    const std::size_t gone = count(machine, [](const ChosenFolder& folder) {
        return folder.stored.selected && folder.state == ChosenFolder::State::Gone;
    });
    if (gone > 0)
        return problem(std::to_wstring(gone) + L" of the " + std::to_wstring(selected) +
                           L" chosen folders are not in Outlook any more.",
                       L"pimcall folders shows them; choose again (pimcall config) and run fillcache.");
    if (all > kRemembered)
        return notice(std::to_wstring(all) + L" folders are stored, and the window remembers the first " +
                          std::to_wstring(kRemembered) + L": OK there would drop the others.",
                      L"Close that window with Cancel unless you check all folders again.");
    return good(std::to_wstring(selected) + L" of " + std::to_wstring(all) + L" stored folders are chosen.");
}

Finding upToDate(const Machine& machine) {
    if (!machine.folders.configChanged) return good(L"The choice of folders has not changed since.");
    return notice(L"The choice of folders has changed, and the cache was perhaps not filled since.",
                  L"Run fillcache, then start the client again.");
}

Finding synchro(const Machine& machine) {
    const FolderFacts& folders = machine.folders;
    if (!folders.isSynchroUp) return good(L"Nobody is filling the cache now.");
    if (folders.isSynchroAlive) return good(L"fillcache is filling the cache just now.");
    if (!folders.synchroProcess.empty())
        return problem(
            L"A fillcache that was killed has left its sign: the client waits 40 seconds at each start.",
            L"Run fillcache; it takes the sign back.");
    return notice(
        L"Another program is filling the cache (SynchroInProgress is 1), or was killed doing so: the "
        L"client waits up to 40 seconds at each start.",
        L"If this stays so: reg add HKCU\\Software\\Norvane\\7316\\Popup /v SynchroInProgress /d 0 /f");
}

}  // namespace

std::span<const Check> folderChecks() {
    static constexpr Check kChecks[] = {
        {L"folders", L"Chosen folders", chosen},
        {L"folders-changed", L"Folders' cache", upToDate},
        {L"synchro", L"Filling", synchro},
    };
    return kChecks;
}

}  // namespace pimcall::doctor

#include "filler/SynchroFlag.h"

#include <windows.h>

#include "automation/Attempts.h"
#include "filler/Failure.h"
#include "support/Handle.h"
#include "support/Settings.h"
#include "support/Text.h"

namespace filler {
namespace {

using zelbar::settings::kSynchroInProgress;
using zelbar::settings::kSynchroProcess;

bool isUp() {
    return zelbar::readSetting(kSynchroInProgress) == L"1";
}

/// The flag first: a kill in between leaves the name of a process, which nobody minds.
void takeDown() {
    zelbar::writeSetting(kSynchroInProgress, L"0");
    zelbar::saveSetting(kSynchroProcess, L"");
}

/// Number and start of a process: the number alone is given again to others.
std::wstring nameOf(HANDLE process, DWORD number) {
    FILETIME begun{}, unused{};
    GetProcessTimes(process, &begun, &unused, &unused, &unused);
    return std::to_wstring(number) + L" " + zelbar::hexadecimal(begun.dwHighDateTime) + L" " +
           zelbar::hexadecimal(begun.dwLowDateTime);
}

bool runs(const std::wstring& name) {
    const auto number = static_cast<DWORD>(zelbar::leadingInteger(name));
    const zelbar::FileHandle process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, number));
    // One that may not be opened is another user's, who has got the number meanwhile.
    return process.get() && nameOf(process.get(), number) == name;
}

void lookForOthers() {
    const std::wstring name = zelbar::getSetting(kSynchroProcess);
    if (!isUp() || name.empty()) return;
    if (runs(name))
        throw Failure{L"Another fillcache is writing the cache just now. Wait until it has ended"};
    takeDown();
}

}  // namespace

SynchroFlag::SynchroFlag() {
    lookForOthers();
}

void SynchroFlag::raise() {
    lookForOthers();
    if (isUp()) return;
    if (!zelbar::saveSetting(kSynchroProcess, nameOf(GetCurrentProcess(), GetCurrentProcessId())) ||
        !zelbar::writeSetting(kSynchroInProgress, L"1"))
        throw Failure{L"The registry does not take the sign that the cache is being written."};
    raised_ = true;
}

bool SynchroFlag::isOthers() const {
    return !raised_ && isUp();
}

SynchroFlag::~SynchroFlag() {
    if (raised_) zelbar::Attempts()(takeDown);
}

}  // namespace filler

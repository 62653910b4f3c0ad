#include "filler/SynchroFlag.h"

#include "automation/Attempts.h"
#include "filler/Failure.h"
#include "support/ProcessName.h"
#include "support/Settings.h"

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

void lookForOthers() {
    const std::wstring name = zelbar::getSetting(kSynchroProcess);
    if (!isUp() || name.empty()) return;
    if (zelbar::isProcessRunning(name))
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
    if (!zelbar::saveSetting(kSynchroProcess, zelbar::ownProcessName()) ||
        !zelbar::writeSetting(kSynchroInProgress, L"1"))
        throw Failure{L"The registry does not take the sign that the cache is being written."};
    raised_ = true;
}

bool SynchroFlag::isOthers() const {
    return !raised_ && isUp();
}

SynchroFlag::~SynchroFlag() {
    // Twice, since a client waits for as long as it is up.
    if (raised_ && !zelbar::Attempts()(takeDown)) zelbar::Attempts()(takeDown);
}

}  // namespace filler

#include "filler/SynchroFlag.h"

#include "automation/Attempts.h"
#include "filler/Failure.h"
#include "support/Settings.h"

namespace filler {
void SynchroFlag::raise() {
    if (!zelbar::writeSetting(zelbar::settings::kSynchroInProgress, L"1"))
        throw Failure{L"The registry does not take the sign that the cache is being written."};
}

SynchroFlag::~SynchroFlag() {
    zelbar::Attempts()([] {
        using zelbar::settings::kSynchroInProgress;
        if (zelbar::readSetting(kSynchroInProgress) == L"1") zelbar::writeSetting(kSynchroInProgress, L"0");
    });
}

}  // namespace filler

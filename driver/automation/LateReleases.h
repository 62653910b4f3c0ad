#pragma once

#include <unknwn.h>

#include <functional>
#include <vector>

#include "automation/Com.h"

namespace zelbar {

/// References that have lost their last owner while their server did not answer: to release them is a call
/// too, and would wait for it.
class LateReleases {
  public:
    LateReleases() = default;
    /// What still waits goes with the process.
    ~LateReleases();
    LateReleases(const LateReleases&) = delete;
    LateReleases& operator=(const LateReleases&) = delete;

    void keep(Com<IUnknown> reference) noexcept;

    /// Releases one after the other as long as `mayGoOn` says so.
    void release(const std::function<bool()>& mayGoOn);

  private:
    std::vector<Com<IUnknown>> kept_;
};

}  // namespace zelbar

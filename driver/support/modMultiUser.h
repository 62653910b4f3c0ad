#pragma once

#include <string>

#include "support/Module.h"
#include "support/mLogError.h"

namespace zelbar {

/// Finds and makes the folder of the driver's data files. Failures go to the error file and no further.
class modMultiUser {
  public:
    /// `errors` must outlive this object.
    modMultiUser(Module module, mLogError& errors);

    /// The data folder, without trailing "\"; chosen and made on the first call, then fixed.
    const std::wstring& DataPath();
    /// True when the data folder belongs to the current user alone; decided with it.
    bool IsPerUserPath() const noexcept { return isPerUserPath_; }
    /// The folder as `DataPath` would choose it now; nothing is made.
    std::wstring chosenFolder();

    /// The user's roaming application-data folder, or empty.
    std::wstring GetUserProfilePath() noexcept;
    /// Makes a folder and every missing parent.
    void MakeSubDir(const std::wstring& path) noexcept;
    /// Makes one folder if missing, open to every user unless the data folder is per user.
    void MakeDir(const std::wstring& path) noexcept;

  private:
    Module module_;
    mLogError& errors_;
    std::wstring dataPathValue_;
    bool isPerUserPath_ = false;
};

}  // namespace zelbar

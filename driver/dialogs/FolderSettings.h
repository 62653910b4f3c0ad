#pragma once

#include <optional>
#include <string>
#include <vector>

#include "dialogs/FolderRules.h"
#include "support/CRegSettings.h"

namespace zelbar {

/// The user's settings that the choice of folders reads and writes.
class FolderSettings {
  public:
    /// The stored selection; none when no first folder is stored.
    std::optional<StoredSelection> selection() const;

    /// Puts the folders in the place of the stored selection, and says whether the cache must be rebuilt.
    void save(const std::vector<cfolder*>& folders, bool configChanged);

    /// The text that limits the number of stores searched.
    std::wstring LimitPST() const { return settings_.GetSetting(L"", L"LimitPST"); }
    /// How many stores the installation has counted.
    long InitPSTnumber() const;

  private:
    std::wstring stored(const wchar_t* name, size_t number) const;
    void store(const wchar_t* name, size_t number, const std::wstring& value);

    CRegSettings settings_{L"7316\\Popup"};
};

}  // namespace zelbar

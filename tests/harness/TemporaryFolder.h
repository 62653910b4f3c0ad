#pragma once

#include <string>
#include <vector>

namespace harness {

/// A fresh, empty folder. When this object goes, the folder goes with the files in it, as do subfolders made
/// by `makeFolder`. Others are left where they are, on purpose: Wine makes some of the user's folders links
/// into the Unix home and shows them as plain folders, so a recursive deletion could end up there.
class TemporaryFolder {
  public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// Without trailing "\".
    const std::wstring& path() const { return folders_.front(); }
    std::wstring file(const std::wstring& name) const { return path() + L"\\" + name; }
    const std::wstring& makeFolder(const std::wstring& name);

  private:
    std::vector<std::wstring> folders_;
};

}  // namespace harness

#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

namespace zelbar {

/// Settings below `SoftwareKey` \ `Company` \ `AppName` under a root. Every operation goes to the registry.
/// A section names a subkey of that path ("" = the path itself), the value name "*" its unnamed value.
class CRegSettings {
  public:
    /// Settings of the application itself.
    CRegSettings();
    /// Settings of the client's application `appName` ("7316\Popup") under the current user.
    explicit CRegSettings(const std::wstring& appName);

    HKEY hKey() const noexcept { return root_; }
    /// Anything that is no predefined root (compared as a signed 32-bit number) becomes the current user.
    void hKey(HKEY root) noexcept;

    /// The parts of the path; blanks around a new one are dropped, an empty one restores the default.
    const std::wstring& SoftwareKey() const noexcept { return softwareKey_; }
    void SoftwareKey(const std::wstring& name);
    const std::wstring& Company() const noexcept { return company_; }
    void Company(const std::wstring& name);
    const std::wstring& AppName() const noexcept { return appName_; }
    void AppName(const std::wstring& name);

    /// The value's text; the default when it does not exist.
    std::wstring GetSetting(const std::wstring& section, const std::wstring& name,
                            const std::wstring& defaultValue = L"") const;
    /// A value of 4 bytes as a number; 0 when there is none such, -1 (never the default) without the key.
    std::int32_t GetSettingLong(const std::wstring& section, const std::wstring& name,
                                std::int32_t defaultValue = 0) const;
    /// False only when the text begins with "0".
    bool bGetSetting(const std::wstring& section, const std::wstring& name, bool defaultValue) const;
    /// The number at the start of the text. Throws the overflow fault beyond 16 bits.
    std::int16_t iGetSetting(const std::wstring& section, const std::wstring& name,
                             std::int16_t defaultValue) const;
    /// Writes a text; an empty one deletes the value. True when all of it succeeded.
    bool SaveSetting(const std::wstring& section, const std::wstring& name, const std::wstring& value);
    /// Deletes a value, or with an empty name the whole section (which must have no subkeys).
    bool DeleteSetting(const std::wstring& section, const std::wstring& name);

    /// As the operations above, after assigning `hKey` and `AppName`, which stay assigned.
    std::wstring GetSettingFromHKey(HKEY root, const std::wstring& appName, const std::wstring& section,
                                    const std::wstring& name, const std::wstring& defaultValue = L"");
    /// The number as decimal text.
    std::wstring GetSettingLongFromHKey(HKEY root, const std::wstring& appName, const std::wstring& section,
                                        const std::wstring& name, std::int32_t defaultValue = 0);
    bool SaveSettingToHKey(HKEY root, const std::wstring& appName, const std::wstring& section,
                           const std::wstring& name, const std::wstring& value);
    bool DeleteKey(HKEY root, const std::wstring& appName, const std::wstring& section,
                   const std::wstring& name);

    /// True when "Software" under the root opens with full access.
    static bool IsUserAdmin(HKEY root);

  private:
    std::wstring pathOf(const std::wstring& section) const;

    HKEY root_ = HKEY_CURRENT_USER;
    std::wstring title_;
    std::wstring softwareKey_;
    std::wstring company_;
    std::wstring appName_;
};

}  // namespace zelbar

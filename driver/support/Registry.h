#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "support/Handle.h"

namespace zelbar {

/// An open registry key. Members report failure by their result.
class RegistryKey {
  public:
    /// Opens an existing key; an empty object when that fails, for which `status` says why.
    static RegistryKey open(HKEY root, const std::wstring& path, REGSAM access,
                            LSTATUS* status = nullptr) noexcept;
    /// Opens a key, made with all its parents if missing; an empty object when that fails.
    static RegistryKey create(HKEY root, const std::wstring& path, REGSAM access) noexcept;

    explicit operator bool() const noexcept { return static_cast<bool>(key_); }
    HKEY get() const noexcept { return key_.get(); }

    /// The characters of a value as stored, whatever its type; nothing when it cannot be read, for which
    /// `status` says why.
    std::optional<std::wstring> characters(const std::wstring& name, LSTATUS* status = nullptr) const;
    /// Writes a REG_SZ value; the system adds the terminating NUL.
    bool write(const std::wstring& name, const std::wstring& value) noexcept;
    bool deleteValue(const std::wstring& name) noexcept;
    /// Deletes a subkey that has no subkeys of its own.
    bool deleteSubkey(const std::wstring& name) noexcept;

  private:
    Handle<RegistryTraits> key_;
};

/// A value as text: string values as they are (variables are not expanded), DWORDs by `decodedDword`. Empty
/// when the key or the value cannot be read, is longer than 1023 characters or of another type.
std::wstring RegReadString(HKEY root, const std::wstring& path, const std::wstring& name);

/// The characters of a value up to the first NUL; empty when there is none. Throws a Fault when the registry
/// does not tell: what cannot be read is not missing.
std::wstring RegReadStored(HKEY root, const std::wstring& path, const std::wstring& name);

/// Writes a string value, making the key if needed. An empty text is written as one blank.
bool RegWriteString(HKEY root, const std::wstring& path, const std::wstring& name, const std::wstring& value);

bool RegKeyExists(HKEY root, const std::wstring& path);

}  // namespace zelbar

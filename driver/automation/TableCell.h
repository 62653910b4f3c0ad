#pragma once

#include <windows.h>

#include <oaidl.h>

#include <optional>
#include <string>

/// What the cells of Outlook's tables say.
namespace zelbar {

/// A cell's text, empty for a property that the item does not have; nothing where only the item can tell: the
/// text may have been cut, or the table could not give it.
std::optional<std::wstring> cellText(const VARIANT& cell);

/// An identifier in a cell, as hexadecimal digits in upper case; empty for none.
std::wstring cellIdentifier(const VARIANT& cell);

}  // namespace zelbar

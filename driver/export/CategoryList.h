#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zelbar {

/// Outlook's text of an item's categories ("Friends, Phone sets"), taken apart; the list separator may be a
/// comma or a semicolon, whatever the user's settings say.
std::vector<std::wstring> splitCategories(std::wstring_view categories);

/// The categories with one among them and another not. What else the user has put there stays, and a text
/// that is right already comes back unchanged.
std::wstring refiled(const std::wstring& categories, const std::wstring& wanted,
                     const std::wstring& unwanted);

}  // namespace zelbar

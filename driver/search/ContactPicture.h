#pragma once

#include <string>

#include "automation/Object.h"

namespace zelbar {

/// Saves the picture of the Outlook contact with that identifier into a folder and gives the file's path;
/// empty when the contact has no picture. What is there under that name goes first: in a folder that others
/// may write to it could be a link to any file. Throws when Outlook fails, when what is there cannot be
/// removed, and for an identifier that is not hexadecimal, as Outlook's are.
std::wstring savePicture(const Object& item, const std::wstring& entryId, const std::wstring& folder);

/// Removes the picture that was saved for an identifier, if there is one.
void removePicture(const std::wstring& entryId, const std::wstring& folder) noexcept;

}  // namespace zelbar

#pragma once

#include <string>

#include "automation/Object.h"

namespace zelbar {

/// Saves the picture of an Outlook contact into a folder and gives the file's path; empty when the contact
/// has no picture. Throws when Outlook fails.
std::wstring savePicture(const Object& item, const std::wstring& folder);

}  // namespace zelbar

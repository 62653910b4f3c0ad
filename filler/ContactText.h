#pragma once

#include <string>
#include <vector>

namespace filler {

/// The widest text that the cache holds, in characters; also the widest that Jet indexes.
inline constexpr std::size_t kWidestText = 255;

/// The parts of a contact that can name it.
struct NameParts {
    std::wstring last;
    std::wstring first;
    std::wstring company;
    std::wstring fileAs;
};

/// The name under which a contact is searched: "Last First", so that "Last*" finds it. There is no comma as
/// in Outlook's own "Last, First": whoever searches for both names types a blank between them. Without either
/// name it is the company, without that what the contact is filed as. Runs of white space, line breaks
/// included, become one blank; what is wider than the cache is cut.
std::wstring searchName(const NameParts& parts);

/// The numbers as they are stored: as Outlook has them, since a search compares the text as it stands, but
/// without white space around them, which no caller's number has. Empty ones, repeated ones and those wider
/// than the cache are left out; the order stays.
std::vector<std::wstring> storedNumbers(const std::vector<std::wstring>& numbers);

}  // namespace filler

#pragma once

#include "standin/outlook/mailbox/Records.h"

namespace standin::outlook {

// Outlook's rules between the name fields of a contact. The fields are kept under the property names
// Title, FirstName, MiddleName, LastName, Suffix, FullName, FileAs, LastNameAndFirstName.

// Splits a full name ("Dr. Ada M. Byron Jr." or "Byron, Ada") over the five parts, overwriting them.
void setFullName(Fields& fields, std::wstring_view fullName);

// "Title First Middle Last Suffix", as far as they are there.
std::wstring fullNameOf(const Fields& fields);
// "Last, First", or the part that is there.
std::wstring lastNameAndFirstNameOf(const Fields& fields);
// "Last, First Middle", or else the company: what a contact is filed under unless it says otherwise.
std::wstring defaultFileAs(const Fields& fields);

// Writes FullName and LastNameAndFirstName, and FileAs when it is empty or was only the default before.
void completeNames(Fields& fields, std::wstring_view previousDefaultFileAs = L"");

}  // namespace standin::outlook

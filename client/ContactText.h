#pragma once

#include <string>

#include "client/ContactCard.h"

namespace pimcall {

/// The contact as a person reads it: the name on a line, then one indented line for each thing known. The
/// identifiers are left out unless `verbose`. Ends with a line end.
std::wstring contactText(const ContactCard& card, bool verbose);

/// The best name there is: the full name, else first and last name, else the number.
std::wstring displayName(const ContactCard& card);

}  // namespace pimcall

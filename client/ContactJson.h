#pragma once

#include <string>

#include "client/ContactCard.h"

namespace pimcall {

/// The contact as one JSON object. It always has the same members; what is not known is empty.
std::wstring contactJson(const ContactCard& card);

}  // namespace pimcall

#pragma once

#include "standin/outlook/mailbox/Records.h"
#include "standin/outlook/vcard/Card.h"

namespace standin::outlook::vcard {

// Puts a card's numbers into the telephone fields. Returns those for which there is no place.
std::vector<std::wstring> placeTelephones(const Card& card, Fields& fields);

}  // namespace standin::outlook::vcard

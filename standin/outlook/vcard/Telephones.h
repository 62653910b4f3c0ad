#pragma once

#include "standin/outlook/mailbox/Records.h"
#include "standin/outlook/vcard/Card.h"

namespace standin::outlook::vcard {

// Puts a card's numbers into the telephone fields.
void placeTelephones(const Card& card, Fields& fields);

}  // namespace standin::outlook::vcard

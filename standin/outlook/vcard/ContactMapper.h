#pragma once

#include "standin/outlook/mailbox/Records.h"
#include "standin/outlook/vcard/Card.h"

namespace standin::outlook::vcard {

struct ImportedContact {
    Fields fields;
    // Empty when the card has none.
    Bytes picture;
    // What the card has and the contact has not, in words.
    std::vector<std::wstring> leftOut;
};

// A card as Outlook's contact fields; properties without a counterpart are left out.
// A telephone number goes where its types say, or, when that place is taken, to any free one of
// the 19.
ImportedContact contactFrom(const Card& card);

}  // namespace standin::outlook::vcard

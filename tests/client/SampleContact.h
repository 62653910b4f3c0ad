#pragma once

#include "client/ContactCard.h"

namespace pimcall {

/// A contact that has nearly everything.
inline ContactCard sampleContact() {
    ContactCard card;
    card.inPim = true;
    card.fullName = L"Lee, Ann";
    card.company = L"Holm & S\u00F8n";
    card.department = L"Sales";
    card.mainNumber = L"+45 33 1";
    card.mainHomeNumber = L"+45 44 2";
    card.numbers = {{L"Business", L"+45 33 1"}, {L"Home", L"+45 44 2"}};
    card.mainEmail = L"ann@example.org";
    card.emails = {{L"E-mail", L"ann@example.org"}, {L"E-mail", L"lee@example.org"}};
    card.photo = L"C:\\data\\pimcontact_1.jpg";
    card.contactId = L"00AB";
    card.storeId = L"00CD";
    card.employeeId = L"7";
    return card;
}

}  // namespace pimcall

#include "standin/outlook/vcard/Import.h"

#include <fstream>
#include <iterator>

#include "standin/outlook/vcard/ContactMapper.h"

namespace standin::outlook::vcard {

int importFile(Mailbox& mailbox, RowId folder, const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream) throw std::runtime_error("the file cannot be read");
    const std::vector<Card> cards = parseCards(std::string(std::istreambuf_iterator<char>(stream), {}));
    Transaction transaction(mailbox.database());
    for (const Card& card : cards) {
        ImportedContact contact = contactFrom(card);
        ItemRecord item = mailbox.addContact(folder, std::move(contact.fields));
        if (!contact.picture.empty()) mailbox.setPicture(item, std::move(contact.picture));
    }
    transaction.commit();
    return static_cast<int>(cards.size());
}

}  // namespace standin::outlook::vcard

#include "standin/outlook/vcard/Import.h"

#include <fstream>
#include <iterator>

#include "standin/outlook/vcard/ContactMapper.h"

namespace standin::outlook::vcard {

ImportReport importFile(Mailbox& mailbox, RowId folder, const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream) throw std::runtime_error("the file cannot be read");
    const std::vector<Card> cards = parseCards(std::string(std::istreambuf_iterator<char>(stream), {}));
    Transaction transaction(mailbox.database());
    ImportReport report;
    for (const Card& card : cards) {
        ImportedContact contact = contactFrom(card);
        ItemRecord item = mailbox.addContact(folder, std::move(contact.fields));
        ++report.contacts;
        for (const std::wstring& what : contact.leftOut)
            report.leftOut.push_back(item.field(L"FileAs") + L": " + what);
        if (!contact.picture.empty()) mailbox.setPicture(item, std::move(contact.picture));
    }
    transaction.commit();
    return report;
}

}  // namespace standin::outlook::vcard

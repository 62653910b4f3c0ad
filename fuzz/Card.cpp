// vCards as the stand-in for Outlook imports them.

#include "standin/outlook/vcard/Card.h"

#include "fuzz/Input.h"
#include "standin/outlook/mailbox/ContactNames.h"
#include "standin/outlook/vcard/Telephones.h"

namespace {

using namespace standin::outlook;

constexpr std::size_t kTelephoneFields = 19;

void tryTelephones(const vcard::Card& card) {
    Fields fields;
    const auto leftOut = vcard::placeTelephones(card, fields);
    FUZZ_EXPECT(fields.size() <= kTelephoneFields);
    FUZZ_EXPECT(leftOut.empty() || !fields.empty());
    for (const auto& [name, number] : fields) FUZZ_EXPECT(!number.empty());
}

void tryNames(const std::wstring& text) {
    Fields fields;
    setFullName(fields, text);
    completeNames(fields);
    // A name that was taken apart is taken apart in the same way when it is put together again.
    const std::wstring whole = fullNameOf(fields);
    Fields again;
    setFullName(again, whole);
    FUZZ_EXPECT(fullNameOf(again).size() <= whole.size());
}

void tryCard(const vcard::Card& card) {
    for (const vcard::Property& property : card.properties) {
        FUZZ_EXPECT(!card.parts(property).empty());
        const std::wstring text = card.text(property);
        if (property.name == "FN") tryNames(text);
        try {
            FUZZ_EXPECT(vcard::decodeBase64(property.value).size() <= property.value.size());
        } catch (const vcard::Malformed&) {
        }
    }
    tryTelephones(card);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        for (const vcard::Card& card : vcard::parseCards(std::string(data, data + size))) tryCard(card);
    } catch (const vcard::Malformed& error) {
        FUZZ_EXPECT(*error.what());
    }
    return 0;
}

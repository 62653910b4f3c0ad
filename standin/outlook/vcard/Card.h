#pragma once

#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "standin/outlook/mailbox/Database.h"

namespace standin::outlook::vcard {

// The text names the line and says what is wrong with it.
class Malformed : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// One property of a card, such as "item1.TEL;TYPE=WORK,VOICE:+33 1".
struct Property {
    // Group and name in upper case; the group is often empty.
    std::string group;
    std::string name;
    // Upper-case values of TYPE, and bare parameters of version 2.1.
    std::set<std::string> types;
    // Name of a character set in upper case, empty when none is given.
    std::string charset;
    bool base64 = false;
    bool quotedPrintable = false;
    // Not a value but a reference to one.
    bool uri = false;
    // Unfolded, quoted-printable decoded; escapes and characters as they stand in the file.
    std::string value;

    bool has(const char* type) const { return types.contains(type); }
};

struct Card {
    // Version 2.1 knows fewer escapes.
    bool isOldVersion = false;
    std::vector<Property> properties;
    // What could not be read, each with its line in the file.
    std::vector<std::string> unread;

    const Property* find(std::string_view name) const;
    // Whole value as text.
    std::wstring text(const Property& property) const;
    // The parts between semicolons; a list within a part is joined with blanks.
    std::vector<std::wstring> parts(const Property& property) const;
};

// All cards of a file, versions 2.1 to 4.0, UTF-8, UTF-16 with byte order mark or 8-bit.
// Cards nested in a card are passed over, as are lines that are no properties; the card tells of both.
// Throws Malformed when there is no card or one does not end.
std::vector<Card> parseCards(std::string bytes);

// Throws Malformed when it is not base64. Blanks are skipped.
Bytes decodeBase64(std::string_view text);

}  // namespace standin::outlook::vcard

// Address books as programs write them.
#include "standin/outlook/vcard/ContactMapper.h"

#include <gtest/gtest.h>

namespace standin::outlook::vcard {
namespace {

ImportedContact contactOf(const std::string& lines) {
    const auto cards = parseCards("BEGIN:VCARD\r\n" + lines + "END:VCARD\r\n");
    EXPECT_EQ(cards.size(), 1U);
    return contactFrom(cards.front());
}

std::wstring field(const std::string& lines, const std::wstring& name) {
    const Fields fields = contactOf(lines).fields;
    const auto found = fields.find(name);
    return found == fields.end() ? L"" : found->second;
}

TEST(VCard, ValuesAreDecoded) {
    const struct {
        const char* lines;
        const wchar_t* field;
        const wchar_t* expected;
    } cases[] = {
        {"VERSION:3.0\r\nN:M\xC3\xBCller;J\xC3\xBCrgen;;;\r\n", L"LastName", L"Müller"},
        {"VERSION:2.1\r\nN;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:M=C3=BCller;J=C3=BCrg=\r\nen\r\n",
         L"FirstName", L"Jürgen"},
        {"VERSION:2.1\r\nNOTE;QUOTED-PRINTABLE:one=0D=0Atwo = =3D three\r\n", L"Body",
         L"one\r\ntwo = = three"},
        {"VERSION:3.0\r\nNOTE:a long\r\n  text\\, folded\\nonce\r\n", L"Body",
         L"a long text, folded\r\nonce"},
        {"VERSION:3.0\r\r\nNOTE:two\r\r\n  returns\r\r\n", L"Body", L"two returns"},
        {"VERSION:3.0\r\nORG:A\\;B;Dept\r\n", L"Department", L"Dept"},
        {"VERSION:3.0\r\nN:Doe;John;Q.,Z.;Mr.;Jr.\r\n", L"MiddleName", L"Q. Z."},
        {"VERSION:3.0\r\nFN:Ada Byron\r\n", L"LastName", L"Byron"},
        {"VERSION:3.0\r\nEMAIL:\r\nEMAIL:a@b\r\nEMAIL;TYPE=X400:c\r\nEMAIL:d@e\r\n", L"Email2Address",
         L"d@e"},
    };
    for (const auto& c : cases) EXPECT_EQ(field(c.lines, c.field), c.expected) << c.lines;
    EXPECT_EQ(contactOf("PHOTO;ENCODING=b:AAEC\r\n").picture, (Bytes{0, 1, 2}));
}

TEST(VCard, NumbersFindTheirPlaces) {
    const struct {
        const char* type;
        const wchar_t* field;
        const wchar_t* number = L"5";
    } cases[] = {
        {"TEL;CELL;WORK:5", L"MobileTelephoneNumber"},
        {"TEL;TYPE=home;TYPE=fax:5", L"HomeFaxNumber"},
        {"TEL;TYPE=textphone:5", L"TTYTDDTelephoneNumber"},
        {"i.TEL:5\r\ni.X-ABLabel:_$!<WorkFAX>!$_", L"BusinessFaxNumber"},
        {"TEL;TYPE=work:tel:5;phone-context=+1", L"BusinessTelephoneNumber"},
        {"TEL;WORK:+49 30\r\n  5\r\n 6", L"BusinessTelephoneNumber", L"+49 30 56"},
        {"TEL;HOME;ENCODING=QUOTED-PRINTABLE:=2B49=2030= \r\n5", L"HomeTelephoneNumber", L"+49 305"},
        {"PHOTO;ENCODING=b:AAEC\r\nTEL\r\n ;HOME:5", L"HomeTelephoneNumber"},
    };
    for (const auto& c : cases) EXPECT_EQ(field(std::string(c.type) + "\r\n", c.field), c.number) << c.type;
}

}  // namespace
}  // namespace standin::outlook::vcard

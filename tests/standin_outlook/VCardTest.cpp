// Address books as programs write them.
#include "standin/outlook/vcard/ContactMapper.h"

#include <algorithm>

#include "standin/outlook/vcard/Import.h"
#include "tests/harness/Files.h"
#include "tests/standin_outlook/Fixture.h"

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
        {"VERSION:2.1\r\nN;CHARSET=ISO-8859-1:M\xFCller;J\r\n", L"LastName", L"Müller"},
        {"VERSION:2.1\r\nN;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:M=C3=BCller;J=C3=BCrg=\r\nen\r\n",
         L"FirstName", L"Jürgen"},
        {"VERSION:2.1\r\nNOTE;QUOTED-PRINTABLE:one=0D=0Atwo = =3D three\r\n", L"Body",
         L"one\r\ntwo = = three"},
        {"VERSION:3.0\r\nNOTE:a long\r\n  text\\, folded\\nonce\r\n", L"Body",
         L"a long text, folded\r\nonce"},
        {"VERSION:2.1\r\nNOTE:a long\r\n text\\, kept\r\n", L"Body", L"a long text\\, kept"},
        {"VERSION:3.0\nNOTE:bare\n  feeds\n", L"Body", L"bare feeds"},
        {"VERSION:3.0\rNOTE:bare\r  returns\rTITLE:x\r", L"Body", L"bare returns"},
        {"VERSION:3.0\r\r\nNOTE:two\r\r\n  returns\r\r\n", L"Body", L"two returns"},
        {"VERSION:3.0\r\nORG:A\\;B;Dept\r\n", L"CompanyName", L"A;B"},
        {"VERSION:3.0\r\nORG:A\\;B;Dept\r\n", L"Department", L"Dept"},
        {"VERSION:3.0\r\nN:Doe;John;Q.,Z.;Mr.;Jr.\r\n", L"MiddleName", L"Q. Z."},
        {"VERSION:3.0\r\nFN:Ada Byron\r\n", L"LastName", L"Byron"},
        {"VERSION:3.0\r\nFN:Engines\r\nORG:Engines\r\n", L"FirstName", L""},
        {"VERSION:3.0\r\nEMAIL:\r\nEMAIL:a@b\r\nEMAIL;TYPE=X400:c\r\nEMAIL:d@e\r\n", L"Email2Address",
         L"d@e"},
    };
    for (const auto& c : cases) EXPECT_EQ(field(c.lines, c.field), c.expected) << c.lines;
}

TEST(VCard, NumbersFindTheirPlaces) {
    const struct {
        const char* type;
        const wchar_t* field;
        const wchar_t* number = L"5";
    } cases[] = {
        {"TEL;TYPE=WORK,VOICE:5", L"BusinessTelephoneNumber"},
        {"TEL;CELL;WORK:5", L"MobileTelephoneNumber"},
        {"TEL;TYPE=home;TYPE=fax:5", L"HomeFaxNumber"},
        {"TEL;TYPE=\"fax,home\":5", L"HomeFaxNumber"},
        {"TEL;TYPE=x-homefax:5", L"HomeFaxNumber"},
        {"TEL:5", L"OtherTelephoneNumber"},
        {"TEL;TYPE=textphone:5", L"TTYTDDTelephoneNumber"},
        {"X-MS-TEL;VOICE;CALLBACK:5", L"CallbackTelephoneNumber"},
        {"X-MS-TEL;TYPE=ASSISTANT:5", L"AssistantTelephoneNumber"},
        {"X-MS-TEL;VOICE;COMPANY:5", L"CompanyMainTelephoneNumber"},
        {"EMAIL;TLX:5", L"TelexNumber"},
        {"i.TEL:5\r\ni.X-ABLabel:_$!<WorkFAX>!$_", L"BusinessFaxNumber"},
        {"TEL;VALUE=uri;TYPE=\"voice,work\":tel:+1-5;ext=51;isub=2", L"BusinessTelephoneNumber",
         L"+1-5 x 51"},
        {"TEL;TYPE=work:tel:5;phone-context=+1", L"BusinessTelephoneNumber"},
        {"TEL;WOR\r\n K\r\n\t:5", L"BusinessTelephoneNumber"},
        {"TEL ; TYPE = work :5", L"BusinessTelephoneNumber"},
        {"TEL;TYPE=\"work:5", L"BusinessTelephoneNumber"},
        {"TEL;WORK:+49 30\r\n  5\r\n 6", L"BusinessTelephoneNumber", L"+49 30 56"},
        {"TEL;HOME;ENCODING=QUOTED-PRINTABLE:=2B49=2030= \r\n5", L"HomeTelephoneNumber", L"+49 305"},
        {"PHOTO;ENCODING=b:AAEC\r\nTEL\r\n ;HOME:5", L"HomeTelephoneNumber"},
    };
    for (const auto& c : cases) EXPECT_EQ(field(std::string(c.type) + "\r\n", c.field), c.number) << c.type;
}

TEST(VCard, NumbersUnderSeveralLabelsAndWithoutAPlace) {
    const Fields twice = contactOf("TEL;WORK:1\r\nTEL;CELL:1\r\nTEL;WORK:1\r\n").fields;
    EXPECT_EQ(twice.at(L"BusinessTelephoneNumber"), L"1");
    EXPECT_EQ(twice.at(L"MobileTelephoneNumber"), L"1");
    EXPECT_FALSE(twice.contains(L"Business2TelephoneNumber"));

    std::string lines;
    for (int i = 1; i <= 21; ++i) lines += "TEL;CELL:" + std::to_string(i) + "\r\n";
    const ImportedContact full = contactOf(lines + "TEL;CELL:3\r\nTEL;TYPE=work:100\r\n");
    EXPECT_EQ(full.fields.at(L"BusinessTelephoneNumber"), L"100")
        << "a spilled number takes nobody's own place";
    EXPECT_EQ(std::ranges::count_if(full.fields, [](const auto& f) { return f.first.ends_with(L"Number"); }),
              19);
    EXPECT_EQ(full.leftOut,
              (std::vector<std::wstring>{L"no place for 19", L"no place for 20", L"no place for 21"}));
}

TEST(VCard, WhatCannotBeReadIsNamed) {
    const ImportedContact contact = contactOf(
        "VERSION:2.1\r\nno property\r\n\r\nAGENT:\r\nBEGIN:VCARD\r\nTEL:1\r\nEND:VCARD\r\n"
        "AGENT:BEGIN:VCARD\r\nTEL:2\r\nEND:VCARD\r\nAGENT:BEGIN:VCARD\\nTEL:3\\nEND:VCARD\r\n"
        "EMAIL:a\r\nEMAIL:b\r\nEMAIL:c\r\nEMAIL:d\r\nPHOTO;BASE64:?%&\r\n\r\nTEL;WORK:9\r\n");
    EXPECT_EQ(contact.leftOut,
              (std::vector<std::wstring>{L"line 3: not a line of an address book",
                                         L"line 6: a card within the card", L"line 9: a card within the card",
                                         L"line 12: a card within the card", L"no place for d",
                                         L"a picture is not base64"}));
    EXPECT_EQ(contact.fields.at(L"BusinessTelephoneNumber"), L"9");
}

TEST(VCard, Pictures) {
    const Bytes expected = {0, 1, 2, 0xFF};
    EXPECT_EQ(contactOf("VERSION:3.0\r\nPHOTO;ENCODING=b;TYPE=JPEG:AA\r\n EC/w==\r\n").picture, expected);
    EXPECT_EQ(contactOf("VERSION:2.1\r\nPHOTO;BASE64:\r\n AAEC\r\n /w==\r\n\r\nTITLE:x\r\n").picture,
              expected);
    EXPECT_EQ(contactOf("VERSION:2.1\r\nPHOTO;ENCODING=BASE64:\r\nAAEC\r\n/w==\r\n\r\nTITLE:x\r\n").picture,
              expected);
    EXPECT_EQ(contactOf("VERSION:3.0\r\nPHOTO;VALUE=uri:http://x/y.jpg\r\n").picture, Bytes());
}

TEST(VCard, WhatIsNoAddressBookIsRefused) {
    const std::string cases[] = {
        "",
        "hello",
        "BEGIN:VCARD\r\nN:x\r\n",
        "BEGIN:VCARD\r\nBEGIN:VCARD\r\nEND:VCARD\r\n",
        "\xFF\xFE",
        "BEGIN:VCARD\r\nNOTE;QUOTED-PRINTABLE:=",
        "BEGIN:VCARD\r\nPHOTO;BASE64:",
    };
    for (const std::string& bytes : cases) EXPECT_THROW(parseCards(bytes), Malformed) << bytes;
}

TEST(VCard, BrokenFilesNeverDoHarm) {
    const std::string whole =
        "\xEF\xBB\xBF"
        "BEGIN:VCARD\r\nVERSION:2.1\r\nN;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:M=C3=BC=\r\nller;J\r\n"
        "item1.TEL;TYPE=\"work,fax\":tel:+1\r\nitem1.X-ABLabel:_$!<WorkFAX>!$_\r\nADR;HOME:;;\\;x\r\nBDAY:"
        "1980-03-22\r\n"
        "PHOTO;ENCODING=b;TYPE=JPEG:AAEC\r\n /w==\r\n\r\nEND:VCARD\r\n";
    const auto survive = [](const std::string& bytes) {
        try {
            for (const Card& card : parseCards(bytes)) contactFrom(card);
            return true;
        } catch (const Malformed&) {
            return false;
        }
    };
    ASSERT_TRUE(survive(whole));
    // Any other exception, or a crash, fails the test.
    for (std::size_t size = 0; size < whole.size() - 3; ++size)
        EXPECT_FALSE(survive(whole.substr(0, size)) && size < whole.size() - 20);
    for (std::size_t place = 0; place < whole.size(); ++place) {
        for (const char letter : {'\0', '=', ':', ';', '\\', '\r', '\n', ' ', '"', '\xFF', '9'}) {
            std::string broken = whole;
            broken[place] = letter;
            survive(broken);
            survive(broken.erase(place, 2));
        }
    }
}

TEST(VCard, Utf16AndByteOrderMarks) {
    const std::string plain = "BEGIN:VCARD\r\nTITLE:Chef\r\nEND:VCARD\r\n";
    std::string wide = "\xFF\xFE";
    for (const char letter : plain) wide += std::string{letter, '\0'};
    for (const std::string& bytes : {"\xEF\xBB\xBF" + plain, wide}) {
        EXPECT_EQ(contactFrom(parseCards(bytes).at(0)).fields.at(L"JobTitle"), L"Chef");
    }
}

TEST(VCard, AFileIsImportedWholeOrNotAtAll) {
    harness::TemporaryFolder folder;
    Mailbox mailbox(folder.file(L"mailbox.db"));
    const RowId contacts = mailbox.specialFolder(SpecialFolder::Contacts).id;
    const std::string good =
        "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Byron;Ada\r\nPHOTO;ENCODING=b:AAEC\r\nEND:VCARD\r\n";
    const std::string bad = "BEGIN:VCARD\r\nN:Unfinished\r\n";
    harness::writeFile(folder.file(L"good.vcf"), good + good);
    harness::writeFile(folder.file(L"bad.vcf"), good + bad);
    EXPECT_EQ(importFile(mailbox, contacts, folder.file(L"good.vcf")).contacts, 2);
    EXPECT_THROW(importFile(mailbox, contacts, folder.file(L"bad.vcf")), Malformed);
    EXPECT_THROW(importFile(mailbox, contacts, folder.file(L"missing.vcf")), std::runtime_error);
    ASSERT_EQ(mailbox.items(contacts).size(), 2U);
    const ItemRecord item = *mailbox.item(mailbox.items(contacts).front());
    EXPECT_EQ(item.field(L"FileAs"), L"Byron, Ada");
    EXPECT_EQ(item.attachments.at(0).fileName, kPictureName);
    EXPECT_EQ(item.attachments.at(0).data, (Bytes{0, 1, 2}));
}

}  // namespace
}  // namespace standin::outlook::vcard

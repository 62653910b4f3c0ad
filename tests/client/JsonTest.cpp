#include "client/Json.h"

#include <gtest/gtest.h>

#include "client/ContactJson.h"
#include "tests/client/SampleContact.h"

namespace pimcall {
namespace {

TEST(Json, EscapesWhatStrictReadersRefuse) {
    const struct {
        std::wstring text;
        std::wstring expected;
    } cases[] = {
        {L"", L"\"\""},
        {L"a \"b\" c:\\d", L"\"a \\\"b\\\" c:\\\\d\""},
        {std::wstring(L"\0\x01\x1F", 3), L"\"\\u0000\\u0001\\u001f\""},
        {L"\t\r\n", L"\"\\t\\u000d\\n\""},
        {L"\x7F\x85\x2028\x202E", L"\"\\u007f\\u0085\\u2028\\u202e\""},
        {L"\u00E9\U0001F600", L"\"\u00E9\U0001F600\""},
        {L"\xD83D", L"\"\uFFFD\""},
        {L"\xDE00\xD83D", L"\"\uFFFD\uFFFD\""},
        {L"\xD83D\xD83D\xDE00x", L"\"\uFFFD\U0001F600x\""},
    };
    for (const auto& row : cases) EXPECT_EQ(row.expected, json::quoted(row.text));
}

TEST(Json, AContactIsOneObject) {
    ContactCard card = sampleContact();
    card.fullName = L"\"Lee\", \\Ann\n\u0416";
    EXPECT_EQ(
        LR"({"inPim":true,"fullName":"\"Lee\", \\Ann\nЖ","firstName":"","lastName":"",)"
        LR"("company":"Holm & Søn","department":"Sales","mainNumber":"+45 33 1",)"
        LR"("mainHomeNumber":"+45 44 2","numbers":[{"label":"Business","number":"+45 33 1"},)"
        LR"({"label":"Home","number":"+45 44 2"}],"mainEmail":"ann@example.org",)"
        LR"("emails":[{"label":"E-mail","address":"ann@example.org"},)"
        LR"({"label":"E-mail","address":"lee@example.org"}],"photo":"C:\\data\\pimcontact_1.jpg",)"
        LR"("contactId":"00AB","storeId":"00CD","employeeId":"7","categoryId":"","assistantId":""})",
        contactJson(card));
}

}  // namespace
}  // namespace pimcall

#include "client/Json.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <optional>

#include "client/ContactJson.h"
#include "client/Text.h"
#include "tests/client/SampleContact.h"

namespace pimcall {
namespace {

/// SQLite's JSON functions are the judge: they know nothing of our writer.
std::optional<std::string> evaluate(const char* sql, const std::string& json, const std::string& path = "$") {
    sqlite3* database = nullptr;
    sqlite3_open(":memory:", &database);
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database, sql, -1, &statement, nullptr);
    sqlite3_bind_text(statement, 1, json.data(), static_cast<int>(json.size()), SQLITE_TRANSIENT);
    if (sqlite3_bind_parameter_count(statement) > 1)
        sqlite3_bind_text(statement, 2, path.data(), static_cast<int>(path.size()), SQLITE_TRANSIENT);
    std::optional<std::string> result;
    if (sqlite3_step(statement) == SQLITE_ROW && sqlite3_column_text(statement, 0))
        result = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
    sqlite3_finalize(statement);
    sqlite3_close(database);
    return result;
}

bool isValid(const std::wstring& json) {
    return evaluate("select json_valid(?1)", utf8(json)) == "1";
}

std::optional<std::string> read(const std::wstring& json, const std::string& path) {
    return evaluate("select json_extract(?1, ?2)", utf8(json), path);
}

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
    for (const auto& row : cases) {
        EXPECT_EQ(row.expected, json::quoted(row.text));
        EXPECT_TRUE(isValid(json::quoted(row.text)));
    }
}

TEST(Json, AContactReadsBackAsItWas) {
    ContactCard card = sampleContact();
    card.fullName = L"\"Lee\", \\Ann\n\u0416";
    const std::wstring json = contactJson(card);
    ASSERT_TRUE(isValid(json)) << utf8(json);
    const std::pair<const char*, std::wstring> cases[] = {
        {"$.inPim", L"1"},
        {"$.fullName", card.fullName},
        {"$.mainHomeNumber", card.mainHomeNumber},
        {"$.numbers[1].label", L"Home"},
        {"$.numbers[1].number", L"+45 44 2"},
        {"$.emails[0].address", L"ann@example.org"},
        {"$.photo", card.photo},
        {"$.storeId", card.storeId},
        {"$.assistantId", L""},
    };
    for (const auto& [path, expected] : cases) EXPECT_EQ(utf8(expected), read(json, path)) << path;
    EXPECT_EQ("2", evaluate("select json_array_length(?1, ?2)", utf8(json), "$.numbers"));
}

}  // namespace
}  // namespace pimcall

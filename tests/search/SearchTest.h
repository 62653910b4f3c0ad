#pragma once

#include "tests/fixture/DriverTest.h"

namespace zelbar {

/// A script with one search cursor and what it has found last.
class SearchTest : public DriverTest {
  protected:
    void TearDown() override {
        release();
        DriverTest::TearDown();
    }
    void release() {
        found = cursor = {};
        finish();
    }
    void open(const std::vector<TestRow>& rows) {
        writeCache(rows);
        cursor = openCursor();
    }
    const Object& first(long kind, const std::wstring& text) {
        return found = cursor.object({L"FindFirst"}, kind, text);
    }
    const Object& next() { return found = cursor.object({L"FindNext"}); }
    const Object& previous() { return found = cursor.object({L"FindPrevious"}); }
    const Object& current() { return found = cursor.object({L"Contact"}); }
    static std::wstring fullName(const Object& contact) { return contact.text({L"FullName"}); }
    static std::wstring firstName(const Object& contact) { return contact.text({L"FirstName"}); }
    static bool notInPim(const Object& contact) { return contact.boolean({L"NotInPIM"}); }

    /// The values of a list, contacts by their numbers.
    static std::vector<std::wstring> values(const Object& list) {
        std::vector<std::wstring> result;
        for (long i = 1; list && i <= list.integer({L"Count"}); ++i) {
            const Variant entry = list.get({L"Item"}, i);
            result.push_back(entry.type() == VT_BSTR ? entry.text()
                                                     : lateBound(entry.object()).text({L"MainPhoneNumber"}));
        }
        return result;
    }
    std::vector<std::wstring> collect(long kind, const std::wstring& text) {
        return values(cursor.object({L"FillContactCollection"}, kind, text));
    }

    Object cursor;
    Object found;
};

}  // namespace zelbar

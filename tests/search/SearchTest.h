#pragma once

#include "automation/Bstr.h"
#include "tests/fixture/DriverTest.h"

namespace zelbar {

/// A client with one search cursor and what it has found last.
class SearchTest : public DriverTest {
  protected:
    void TearDown() override {
        release();
        DriverTest::TearDown();
    }
    void release() {
        found.reset();
        cursor.reset();
        finish();
    }
    void open(const std::vector<TestRow>& rows) {
        writeCache(rows);
        cursor = openCursor();
    }
    ::Contact* first(long kind, const std::wstring& text) {
        found = findFirst(*cursor.get(), kind, text);
        return found.get();
    }
    ::Contact* next() { return (found = findNext(*cursor.get())).get(); }
    ::Contact* previous() { return (found = findPrevious(*cursor.get())).get(); }
    ::Contact* current() {
        EXPECT_EQ(cursor->get_Contact(found.put()), S_OK);
        return found.get();
    }
    /// The values of a list that a member gives, contacts by their numbers.
    template <class Self, class Member, class... Arguments>
    std::vector<std::wstring> list(Self& self, Member member, Arguments... arguments) {
        Com<IDispatch> values;
        EXPECT_EQ((self.*member)(arguments..., values.put()), S_OK);
        std::vector<std::wstring> result;
        if (!values) return result;
        const Object entries = lateBound(values);
        for (long i = 1; i <= entries.integer(zelbar::Member{L"Count"}); ++i) {
            const Variant entry = entries.get(zelbar::Member{L"Item"}, i);
            result.push_back(entry.type() == VT_BSTR ? entry.text()
                                                     : mainNumber(entry.object().as<::Contact>().get()));
        }
        return result;
    }
    std::vector<std::wstring> collect(long kind, const std::wstring& text) {
        return list(*cursor, &::ContactRecord::FillContactCollection, &kind, Bstr(text).get());
    }

    Com<::ContactRecord> cursor;
    Com<::Contact> found;
};

}  // namespace zelbar

#include <algorithm>
#include <random>
#include "automation/Bstr.h"

#include "standin/dao/Sqlite.h"
#include "tests/standin_dao/Client.h"

namespace client {
namespace {

/// Where a recordset stands after a row of moves: "b" and "e" for BOF and EOF, the name of the current
/// record, or the number of the error that the last move raised.
std::wstring walk(const Object& rows, const std::wstring& moves) {
    long error = 0;
    for (const wchar_t move : moves) {
        const wchar_t* member = move == L'F'   ? L"MoveFirst"
                                : move == L'L' ? L"MoveLast"
                                : move == L'N' ? L"MoveNext"
                                : move == L'P' ? L"MovePrevious"
                                               : L"Delete";
        error = errorOf([&] { rows.call({member}); });
    }
    const bool before = rows.boolean({L"BOF"});
    const bool after = rows.boolean({L"EOF"});
    std::wstring place = std::wstring(before ? L"b" : L"") + (after ? L"e" : L"");
    if (place.empty()) {
        const long unreadable = errorOf([&] { place = text(rows, L"Name"); });
        if (unreadable) place = L"?" + std::to_wstring(unreadable);
    }
    return place + (error ? L"!" + std::to_wstring(error) : L"") + L" " +
           std::to_wstring(rows.integer({L"RecordCount"}));
}

using CursorTest = DaoTest;

/// What a dynaset of the records A, B, C, ... must do, said with a list of letters.
class Model {
  public:
    explicit Model(std::size_t size)
        : live_(size, true), before_(size == 0), after_(size == 0), seen_(std::min<std::size_t>(size, 1)) {}

    std::wstring walk(wchar_t move) {
        bool failed = false;
        if (move == L'F') {
            step(-1, 1);
            failed = isNowhere();
        } else if (move == L'L') {
            step(static_cast<int>(live_.size()), -1);
            failed = isNowhere();
            if (!failed) seen_ = live_.size();
        } else if (move == L'N') {
            failed = after_;
            if (!failed) step(before_ ? -1 : at_, 1);
        } else if (move == L'P') {
            failed = before_;
            if (!failed) step(after_ ? static_cast<int>(live_.size()) : at_, -1);
        } else {
            failed = before_ || after_ || !live_[static_cast<std::size_t>(at_)];
            if (!failed) live_[static_cast<std::size_t>(at_)] = false;
        }
        const auto counted =
            std::count(live_.begin(), live_.begin() + static_cast<std::ptrdiff_t>(seen_), true);
        return place() + (failed ? L"!3021 " : L" ") + std::to_wstring(counted);
    }

  private:
    bool isNowhere() const { return before_ && after_; }

    void step(int from, int direction) {
        int next = from + direction;
        while (next >= 0 && next < static_cast<int>(live_.size()) && !live_[static_cast<std::size_t>(next)]) {
            next += direction;
        }
        before_ = next < 0;
        after_ = next >= static_cast<int>(live_.size());
        at_ = next;
        if (std::count(live_.begin(), live_.end(), true) == 0) before_ = after_ = true;
        seen_ = std::max(seen_, std::min(live_.size(), static_cast<std::size_t>(std::max(next, -1) + 1)));
    }

    std::wstring place() const {
        if (before_ || after_) return std::wstring(before_ ? L"b" : L"") + (after_ ? L"e" : L"");
        if (!live_[static_cast<std::size_t>(at_)]) return L"?3021";
        return std::wstring(1, static_cast<wchar_t>(L'A' + at_));
    }

    std::vector<bool> live_;
    int at_ = 0;
    bool before_;
    bool after_;
    std::size_t seen_;
};

TEST_F(CursorTest, RandomWalksGoAsTheModelDoes) {
    makeCache({});
    engine_.call({L"BeginTrans"});
    std::mt19937 random(20020524);
    for (int round = 0; round < 60; ++round) {
        run(L"DELETE FROM TCache");
        const std::size_t size = random() % 6;
        for (std::size_t i = 0; i < size; ++i) {
            run(L"INSERT INTO TCache (Name) VALUES ('" + std::wstring(1, static_cast<wchar_t>(L'A' + i)) +
                L"')");
        }
        const Object rows = query(L"Select * From TCache Order By Name");
        Model model(size);
        std::wstring path;
        for (int move = 0; move < 25; ++move) {
            path += L"NNPPNDFLD"[random() % 9];
            ASSERT_EQ(walk(rows, path.substr(path.size() - 1)), model.walk(path.back())) << path;
        }
    }
    engine_.call({L"Rollback"});
}

TEST_F(CursorTest, RecordDeletedByOthersStaysInTheKeysetAndCannotBeRead) {
    makeCache({L"A", L"B", L"C"});
    const Object rows = query(L"Select * From TCache Order By Name");
    rows.call({L"MoveLast"});
    rows.call({L"MoveFirst"});
    const Object other = open(path_);
    other.call({L"Execute"}, L"DELETE FROM TCache WHERE Name = 'B'", kFailOnError);

    EXPECT_EQ(rows.integer({L"RecordCount"}), 3);
    rows.call({L"MoveNext"});
    EXPECT_EQ(rows.integer({L"RecordCount"}), 2);
    EXPECT_EQ(errorOf([&] { text(rows, L"Name"); }), 3167);
    EXPECT_EQ(errorOf([&] { rows.call({L"Delete"}); }), 3167);
    rows.call({L"MoveNext"});
    EXPECT_EQ(text(rows, L"Name"), L"C");
}

TEST_F(CursorTest, AddsThroughTheBuffer) {
    makeCache({L"A"});
    const Object rows = query(L"Select * From TCache");
    const Object name = rows.object({L"Fields"}, L"Name");
    EXPECT_EQ(errorOf([&] { name.put({L"Value"}, L"x"); }), 3020);
    EXPECT_EQ(errorOf([&] { rows.call({L"Update"}); }), 3020);

    rows.call({L"AddNew"});
    EXPECT_EQ(name.get({L"Value"}).type(), VT_NULL);
    name.put({L"Value"}, std::wstring(255, L'x'));
    EXPECT_EQ(errorOf([&] { name.put({L"Value"}, std::wstring(256, L'x')); }), 3163);
    rows.call({L"Update"});
    EXPECT_EQ(name.text({L"Value"}), L"A") << "the record before AddNew is current again";
    EXPECT_EQ(rows.integer({L"RecordCount"}), 2);
}

TEST_F(CursorTest, RecordLockedWhenMetIsNotTakenForDeleted) {
    makeCache({L"A", L"B", L"C"});
    const Object rows = query(L"Select * From TCache Order By Name");
    {
        standin::dao::Connection other(path_, standin::dao::Access::readWrite);
        other.run(L"BEGIN EXCLUSIVE");
        EXPECT_EQ(errorOf([&] { rows.call({L"MoveNext"}); }), 3260);
        EXPECT_EQ(errorOf([&] { text(rows, L"Name"); }), 3260);
        EXPECT_EQ(errorOf([&] { rows.call({L"Delete"}); }), 3260);
    }
    EXPECT_EQ(text(rows, L"Name"), L"B");
    EXPECT_EQ(rows.integer({L"RecordCount"}), 2);
}

TEST_F(CursorTest, KindsDifferInWhatTheyCountAndAllow) {
    makeCache({L"A", L"B", L"C"});
    constexpr long kTable = 1, kSnapshot = 4, kForwardOnly = 8;
    const auto openAs = [&](const wchar_t* source, long kind) {
        return database_.object({L"OpenRecordset"}, source, kind);
    };
    const Object table = openAs(L"TCache", kTable);
    EXPECT_EQ(table.integer({L"RecordCount"}), 3);
    EXPECT_EQ(errorOf([&] { openAs(L"Select * From TCache", kTable); }), 3219);

    const Object snapshot = openAs(L"Select * From TCache", kSnapshot);
    EXPECT_EQ(errorOf([&] { snapshot.call({L"Delete"}); }), 3251);
    run(L"DELETE FROM TCache WHERE Name = 'B'");
    EXPECT_EQ(column(snapshot, L"Name"), L"A B C ") << "a snapshot does not see what happens later";
    const Object forward = openAs(L"Select * From TCache", kForwardOnly);
    EXPECT_EQ(errorOf([&] { forward.call({L"MoveLast"}); }), 3219);
    EXPECT_EQ(column(forward, L"Name"), L"A C ");

    table.call({L"MoveFirst"});
    table.call({L"Delete"});
    EXPECT_EQ(errorOf([&] { text(table, L"Name"); }), 3167) << "where a dynaset has 3021";
}

TEST_F(CursorTest, ValuesKeepTheirTypes) {
    run(L"CREATE TABLE T (A YESNO, B LONG, C MEMO)");
    run(L"INSERT INTO T (A, B, C) VALUES (True, 70000, 'x')");
    const Object rows = query(L"Select * From T");
    int index = 0;
    for (const VARTYPE type : {VT_BOOL, VT_I4, VT_BSTR})
        EXPECT_EQ(rows.object({L"Fields"}, index++).get({L"Value"}).type(), type);
    rows.call({L"AddNew"});
    EXPECT_EQ(errorOf([&] { rows.object({L"Fields"}, L"B").put({L"Value"}, L"many"); }), 3421);
}

TEST_F(CursorTest, RowsComeAsAnArrayToo) {
    makeCache({L"A", L"B", L"C"});
    const Object rows = query(L"Select Name, PhoneNumber From TCache Order By Name");
    const auto taken = [&](long most) {
        const auto array = rows.get({L"GetRows"}, most);
        const SAFEARRAYBOUND* bounds = array.raw().parray->rgsabound;
        EXPECT_EQ(bounds[1].cElements, 2u) << "fields, then rows";
        const auto* cells = static_cast<const VARIANT*>(array.raw().parray->pvData);
        return zelbar::textOf(cells[0].bstrVal) + L" " + zelbar::textOf(cells[1].bstrVal) + L" " +
               std::to_wstring(bounds[0].cElements);
    };
    EXPECT_EQ(taken(2), L"A 1001 2");
    EXPECT_EQ(taken(2), L"C 1003 1");
    EXPECT_EQ(errorOf([&] { taken(2); }), 3021);
}

TEST_F(CursorTest, ClosingReachesEverythingInside) {
    makeCache({L"A"});
    const Object otherRows = query(L"Select * From TCache");
    database_.call({L"Close"});
    EXPECT_EQ(errorOf([&] { otherRows.call({L"MoveNext"}); }), 3420);
    EXPECT_EQ(errorOf([&] { query(L"Select * From TCache"); }), 3420);
}

}  // namespace
}  // namespace client

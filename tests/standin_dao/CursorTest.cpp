#include <algorithm>
#include <random>

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

struct Walk {
    const wchar_t* moves;
    const wchar_t* outcome;
};

class CursorTest : public DaoTest {
  protected:
    void expectWalks(const std::vector<std::wstring>& names, const std::vector<Walk>& walks) {
        makeCache({});
        engine_.call({L"BeginTrans"});
        for (const Walk& w : walks) {
            run(L"DELETE FROM TCache");
            for (const std::wstring& name : names) run(L"INSERT INTO TCache (Name) VALUES ('" + name + L"')");
            EXPECT_EQ(walk(query(L"Select * From TCache Order By Name"), w.moves), w.outcome) << w.moves;
        }
        engine_.call({L"CommitTrans"});
    }
};

TEST_F(CursorTest, MovesOverThreeRecords) {
    expectWalks({L"A", L"B", L"C"}, {{L"", L"A 1"},
                                     {L"N", L"B 2"},
                                     {L"L", L"C 3"},
                                     {L"LF", L"A 3"},
                                     {L"NP", L"A 2"},
                                     {L"P", L"b 1"},
                                     {L"PP", L"b!3021 1"},
                                     {L"PN", L"A 1"},
                                     {L"PL", L"C 3"},
                                     {L"PF", L"A 1"},
                                     {L"LN", L"e 3"},
                                     {L"LNN", L"e!3021 3"},
                                     {L"LNP", L"C 3"},
                                     {L"LNF", L"A 3"},
                                     {L"LNL", L"C 3"},
                                     {L"NNN", L"e 3"},
                                     {L"NNNP", L"C 3"}});
}

TEST_F(CursorTest, DeletedRecordStaysCurrentUntilTheNextMove) {
    expectWalks({L"A", L"B", L"C"}, {{L"D", L"?3021 0"},
                                     {L"DD", L"?3021!3021 0"},
                                     {L"LFD", L"?3021 2"},
                                     {L"DN", L"B 1"},
                                     {L"DP", L"b 0"},
                                     {L"ND", L"?3021 1"},
                                     {L"NDN", L"C 2"},
                                     {L"NDP", L"A 1"},
                                     {L"NDNP", L"A 2"},
                                     {L"NDNPP", L"b 2"},
                                     {L"LD", L"?3021 2"},
                                     {L"LDN", L"e 2"},
                                     {L"LDNP", L"B 2"},
                                     {L"DNDND", L"?3021 0"},
                                     {L"DNDNDN", L"be 0"},
                                     {L"DNDNDF", L"be!3021 0"}});
}

TEST_F(CursorTest, OneRecordOrNone) {
    expectWalks(
        {L"A"},
        {{L"N", L"e 1"}, {L"D", L"?3021 0"}, {L"DN", L"be 0"}, {L"DP", L"be 0"}, {L"DNN", L"be!3021 0"}});
    run(L"DROP TABLE TCache");
    expectWalks({}, {{L"", L"be 0"},
                     {L"F", L"be!3021 0"},
                     {L"L", L"be!3021 0"},
                     {L"N", L"be!3021 0"},
                     {L"P", L"be!3021 0"},
                     {L"D", L"be!3021 0"}});
}

/// What a dynaset of the records A, B, C, ... must do, said with a list of letters.
class Model {
  public:
    explicit Model(std::size_t size) : live_(size, true) {}

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
    bool before_ = false;
    bool after_ = false;
    std::size_t seen_ = 1;
};

TEST_F(CursorTest, RandomWalksGoAsTheModelDoes) {
    makeCache({});
    engine_.call({L"BeginTrans"});
    std::mt19937 random(20020524);
    for (int round = 0; round < 60; ++round) {
        run(L"DELETE FROM TCache");
        const std::size_t size = 1 + random() % 6;
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
    EXPECT_EQ(errorOf([&] { rows.call({L"Edit"}); }), 3167);
    rows.call({L"MoveNext"});
    EXPECT_EQ(text(rows, L"Name"), L"C");
}

TEST_F(CursorTest, AddsAndEditsThroughTheBuffer) {
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

    rows.call({L"Edit"});
    name.put({L"Value"}, L"B");
    EXPECT_EQ(query(L"Select * From TCache Where Name = 'A'").integer({L"RecordCount"}), 1);
    rows.call({L"Update"});
    EXPECT_EQ(name.text({L"Value"}), L"B");
    rows.call({L"Edit"});
    name.put({L"Value"}, L"C");
    rows.call({L"MoveLast"});
    EXPECT_EQ(name.text({L"Value"}).size(), 255U);
    EXPECT_EQ(query(L"Select * From TCache Where Name = 'C'").integer({L"RecordCount"}), 0)
        << "a move gives up";
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

TEST_F(CursorTest, RefusedUpdateCanBeMended) {
    run(L"CREATE TABLE T (A TEXT(5) NOT NULL PRIMARY KEY)");
    run(L"INSERT INTO T VALUES ('x')");
    const Object rows = database_.object({L"OpenRecordset"}, L"T");
    const Object field = rows.object({L"Fields"}, L"A");
    rows.call({L"AddNew"});
    EXPECT_EQ(errorOf([&] { rows.call({L"Update"}); }), 3314);
    field.put({L"Value"}, L"X");
    EXPECT_EQ(errorOf([&] { rows.call({L"Update"}); }), 3022);
    field.put({L"Value"}, L"y");
    rows.call({L"Update"});
    rows.call({L"AddNew"});
    rows.call({L"CancelUpdate"});
    EXPECT_EQ(errorOf([&] { rows.call({L"CancelUpdate"}); }), 3020);
    EXPECT_EQ(column(query(L"Select * From T Order By A"), L"A"), L"x y ");
}

TEST_F(CursorTest, KindsDifferInWhatTheyCountAndAllow) {
    makeCache({L"A", L"B", L"C"});
    constexpr long kTable = 1, kSnapshot = 4, kForwardOnly = 8, kReadOnly = 4;
    const auto openAs = [&](const wchar_t* source, long kind, long options) {
        return database_.object({L"OpenRecordset"}, source, kind, options);
    };
    const Object table = openAs(L"TCache", kTable, 0);
    EXPECT_EQ(table.integer({L"RecordCount"}), 3);
    EXPECT_EQ(errorOf([&] { openAs(L"Select * From TCache", kTable, 0); }), 3219);

    const Object snapshot = openAs(L"Select * From TCache", kSnapshot, 0);
    EXPECT_EQ(errorOf([&] { snapshot.call({L"Delete"}); }), 3251);
    run(L"DELETE FROM TCache WHERE Name = 'B'");
    EXPECT_EQ(column(snapshot, L"Name"), L"A B C ") << "a snapshot does not see what happens later";
    table.call({L"MoveNext"});
    EXPECT_EQ(errorOf([&] { text(table, L"Name"); }), 3167);

    const Object forward = openAs(L"Select * From TCache", kForwardOnly, 0);
    EXPECT_EQ(errorOf([&] { forward.call({L"MoveLast"}); }), 3219);
    EXPECT_EQ(column(forward, L"Name"), L"A C ");

    const Object dynaset = openAs(L"Select * From TCache", kDynaset, kReadOnly);
    EXPECT_FALSE(dynaset.boolean({L"Updatable"}));
    EXPECT_EQ(errorOf([&] { dynaset.call({L"Delete"}); }), 3027);
    table.call({L"MoveFirst"});
    table.call({L"Delete"});
    EXPECT_EQ(errorOf([&] { text(table, L"Name"); }), 3167) << "where a dynaset has 3021";
}

TEST_F(CursorTest, FirstRecordAddedToAnEmptyTableCanBeReached) {
    makeCache({});
    const Object rows = database_.object({L"OpenRecordset"}, L"TCache");
    rows.call({L"AddNew"});
    rows.call({L"Update"});
    EXPECT_EQ(errorOf([&] { rows.call({L"MoveFirst"}); }), 0);
    EXPECT_EQ(rows.integer({L"RecordCount"}), 1);
}

TEST_F(CursorTest, FieldsAreReachedInEveryWayThatScriptsKnow) {
    makeCache({L"Ann"});
    const Object rows = query(L"Select * From TCache");
    const Object fields = rows.object({L"Fields"});
    EXPECT_EQ(fields.integer({L"Count"}), 4);
    EXPECT_EQ(fields.object({L"Item"}, L"name").text({L"Value"}), L"Ann");
    EXPECT_EQ(rows.object({L"Fields"}, 0).text({L"Value"}), L"Ann");
    EXPECT_EQ(rows.text({L"Collect"}, L"NAME"), L"Ann");
    EXPECT_EQ(rows.object({L"Fields"}, L"EntryId").get({L"Value"}).type(), VT_NULL);
    EXPECT_EQ(errorOf([&] { fields.object({L"Item"}, L"Nobody"); }), 3265);
    EXPECT_EQ(errorOf([&] { fields.object({L"Item"}, 4); }), 3265);
    EXPECT_EQ(errorOf([&] { fields.object({L"Item"}, -1); }), 3265);
}

TEST_F(CursorTest, ValuesKeepTheirTypes) {
    run(L"CREATE TABLE T (A YESNO, B LONG, C DOUBLE, D DATETIME, E MEMO, F COUNTER, G SHORT)");
    run(L"INSERT INTO T (A, B, C, D, E, G) VALUES (True, 70000, 1.5, #5/24/2002#, 'x', 3)");
    const Object rows = query(L"Select * From T");
    const VARTYPE types[] = {VT_BOOL, VT_I4, VT_R8, VT_DATE, VT_BSTR, VT_I4, VT_I2};
    int index = 0;
    for (const VARTYPE type : types) {
        EXPECT_EQ(rows.object({L"Fields"}, index).get({L"Value"}).type(), type) << index;
        ++index;
    }
    EXPECT_EQ(text(rows, L"F"), L"1");
    rows.call({L"Edit"});
    EXPECT_EQ(errorOf([&] { rows.object({L"Fields"}, L"B").put({L"Value"}, L"many"); }), 3421);
}

TEST_F(CursorTest, ClosingReachesEverythingInside) {
    makeCache({L"A"});
    const Object rows = query(L"Select * From TCache");
    const Object field = rows.object({L"Fields"}, L"Name");
    const Object otherRows = query(L"Select * From TCache");
    rows.call({L"Close"});
    EXPECT_EQ(errorOf([&] { rows.boolean({L"EOF"}); }), 3420);
    EXPECT_EQ(errorOf([&] { rows.call({L"Close"}); }), 3420);
    EXPECT_EQ(errorOf([&] { field.text({L"Value"}); }), 3420);
    database_.call({L"Close"});
    EXPECT_EQ(errorOf([&] { otherRows.call({L"MoveNext"}); }), 3420);
    EXPECT_EQ(errorOf([&] { query(L"Select * From TCache"); }), 3420);
}

}  // namespace
}  // namespace client

#include <gtest/gtest.h>

#include "export/CategoryList.h"
#include "export/ExportPlan.h"

namespace zelbar {

namespace {

const ExportCategories kNames{L"Sets", L"Staff"};
constexpr size_t kGone = static_cast<size_t>(-1);

TEST(ExportPlan, GivesEachContactItsRow) {
    struct Contact {
        long id;
        const wchar_t* categories;
    };
    struct Row {
        long id;
        ExportMode mode;
    };
    constexpr auto kSet = ExportMode::PhoneSet;
    constexpr auto kStaff = ExportMode::Employee;
    const struct {
        const char* what;
        std::vector<Contact> contacts;
        std::vector<Row> rows;
        std::vector<size_t> rowOfContact;
        std::vector<size_t> missing;
    } cases[] = {
        {"new", {}, {{1, kSet}, {2, kStaff}}, {}, {0, 1}},
        {"gone", {{1, L"Sets"}, {2, L"Staff"}}, {{2, kStaff}}, {kGone, 0}, {}},
        {"both pages, any order", {{1, L"Staff"}, {1, L"Sets"}}, {{1, kSet}, {1, kStaff}}, {1, 0}, {}},
        {"one of two pages is missing", {{1, L"Friends; Staff"}}, {{1, kSet}, {1, kStaff}}, {1}, {0}},
        {"category taken away", {{1, L""}, {1, L"Sets"}}, {{1, kSet}, {1, kStaff}}, {1, 0}, {}},
        {"moved to the other page", {{1, L"Sets"}}, {{1, kStaff}}, {0}, {}},
        {"gone from one page", {{1, L"Sets"}, {1, L"Staff"}}, {{1, kStaff}}, {kGone, 0}, {}},
        {"copies", {{1, L"Sets"}, {1, L"Sets"}, {1, L"Mine"}}, {{1, kSet}}, {0, 0, 0}, {}},
        {"twice on a page", {{1, L"Sets"}}, {{1, kSet}, {1, kSet}}, {0}, {1}},
    };
    for (const auto& c : cases) {
        std::vector<ExportedContact> contacts;
        for (const Contact& contact : c.contacts)
            contacts.push_back({L"", contact.id, {}, contact.categories, {}});
        std::vector<EmployeeRow> rows;
        for (const Row& row : c.rows) rows.push_back({row.mode, row.id, {}, {}});
        const ExportPlan plan = planExport(contacts, rows, kNames);
        std::vector<size_t> given;
        for (const auto& row : plan.rowOfContact) given.push_back(row.value_or(kGone));
        EXPECT_EQ(given, c.rowOfContact) << c.what;
        EXPECT_EQ(plan.missing, c.missing) << c.what;
    }
}

TEST(ExportCategories, KeepWhatTheUserHasFiled) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"", L"Staff"},
        {L"Staff", L"Staff"},
        {L" Staff ;Friends", L" Staff ;Friends"},
        {L"Sets", L"Staff"},
        {L"Friends,Sets; Golf", L"Friends, Golf, Staff"},
        {L"Staff, Sets", L"Staff"},
        {L"Staffroom", L"Staffroom, Staff"},
        {L" ; ,", L"Staff"},
    };
    for (const auto& [before, after] : cases) EXPECT_EQ(refiled(before, L"Staff", L"Sets"), after) << before;
    EXPECT_EQ(refiled(L"Same", L"Same", L"Same"), L"Same") << "a language may have one word for both";
}

}  // namespace

}  // namespace zelbar

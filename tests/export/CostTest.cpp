#include "tests/export/ExportTest.h"

namespace zelbar {

namespace {

/// Thousands of employees must not cost more calls each than ten do.
TEST_F(ExportTest, TheCallsForAnEmployeeDoNotDependOnTheirNumber) {
    std::vector<long> adding, comparing, changing;
    for (const long count : {10, 20, 40}) {
        directory.execute(L"Delete From BLFPagesContents");
        directory.execute(L"Delete From Employees");
        directory.fill(count);
        registry.set(HKEY_CURRENT_USER, kExportFolderKey, L"EntryId", L"");
        const auto callsOf = [&](auto&& run) {
            const long before = outlook.server().calls().invocations();
            EXPECT_TRUE(run());
            return outlook.server().calls().invocations() - before;
        };
        adding.push_back(callsOf([&] { return initialize(L"Staff " + std::to_wstring(count)); }));
        comparing.push_back(callsOf([&] { return synchronize(); }));
        directory.execute(L"Update Employees Set Department = \"New\"");
        changing.push_back(callsOf([&] { return synchronize(); }));
    }
    const auto perEmployee = [](const std::vector<long>& calls) { return (calls[1] - calls[0]) / 10; };
    for (const auto* calls : {&adding, &comparing, &changing})
        EXPECT_EQ((*calls)[2] - (*calls)[1], 2 * ((*calls)[1] - (*calls)[0]));
    RecordProperty("new", static_cast<int>(perEmployee(adding)));
    RecordProperty("unchanged", static_cast<int>(perEmployee(comparing)));
    RecordProperty("changed", static_cast<int>(perEmployee(changing)));
    EXPECT_LE(perEmployee(adding), 12);
    EXPECT_LE(perEmployee(comparing), 22);
    EXPECT_LE(perEmployee(changing), perEmployee(comparing) + 4);
}

}  // namespace

}  // namespace zelbar

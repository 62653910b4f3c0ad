#include "tests/export/ExportTest.h"

#include <algorithm>
#include <numeric>

#include "core/DriverState.h"

namespace zelbar {

void ExportTest::SetUp() {
    messages.clear();
    driver().user.messageBox = [](const std::wstring& text, const std::wstring&, UINT) {
        messages.push_back(text);
        return IDOK;
    };
    connector();
}

void ExportTest::TearDown() {
    directory.close();
    DriverTest::TearDown();
}

bool ExportTest::run(const wchar_t* member, const std::wstring& name, IDispatch* progress) {
    Gateway gateway;
    const Object client(gateway, Server::Client, Com<IDispatch>::share(&connector()), kUnknownClass);
    return client.boolean(Member{member}, folder.file(L"wxd.mdb"), name, Com<IDispatch>::share(progress));
}

bool ExportTest::initialize(const std::wstring& name, IDispatch* progress) {
    return run(L"InitializeExportFolder", name, progress);
}

bool ExportTest::synchronize(const std::wstring& name, IDispatch* progress) {
    return run(L"SynchronizeExportFolder", name, progress);
}

standin::outlook::FolderRecord ExportTest::folderCalled(const std::wstring& name) {
    auto& mailbox = outlook.mailbox();
    const auto found = mailbox.findFolder(mailbox.defaultStore().root, name);
    EXPECT_TRUE(found) << "no folder " << std::string(name.begin(), name.end());
    return found.value_or(standin::outlook::FolderRecord{});
}

std::vector<standin::outlook::ItemRecord> ExportTest::contacts(const std::wstring& name) {
    std::vector<standin::outlook::ItemRecord> result;
    for (const auto row : outlook.mailbox().items(folderCalled(name).id))
        result.push_back(*outlook.mailbox().item(row));
    return result;
}

std::map<std::wstring, standin::outlook::ItemRecord> ExportTest::byName() {
    std::map<std::wstring, standin::outlook::ItemRecord> result;
    for (const auto& item : contacts())
        EXPECT_TRUE(result.emplace(item.field(L"LastName"), item).second) << "a double";
    return result;
}

Ids ExportTest::employeeIds(const std::wstring& name) {
    Ids result;
    for (const auto& item : contacts(name))
        result.push_back(std::wcstol(userProperty(item, L"EmployeeId").c_str(), nullptr, 10));
    std::sort(result.begin(), result.end());
    return result;
}

void ExportTest::expectOneEach(long count, const std::wstring& name) {
    Ids expected(static_cast<size_t>(count));
    std::iota(expected.begin(), expected.end(), 1L);
    EXPECT_EQ(employeeIds(name), expected);
}

long ExportTest::timesTraced(const std::string& part) const {
    const auto all = trace();
    return static_cast<long>(std::count_if(all.begin(), all.end(), [&](const std::string& line) {
        return line.find(part) != std::string::npos;
    }));
}

std::wstring userProperty(const standin::outlook::ItemRecord& item, const std::wstring& name) {
    for (const auto& property : item.userProperties)
        if (property.name == name) return property.value;
    return {};
}

}  // namespace zelbar

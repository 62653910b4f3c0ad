#include "tests/export/ExportTest.h"

#include <algorithm>
#include <numeric>

#include "automation/Bstr.h"
#include "core/DriverState.h"

namespace zelbar {

namespace {

VARIANT lent(const Bstr& text) {
    VARIANT value{};
    value.vt = VT_BSTR;
    value.bstrVal = text.get();
    return value;
}

VARIANT lent(IDispatch* object) {
    VARIANT value{};
    value.vt = VT_DISPATCH;
    value.pdispVal = object;
    return value;
}

}  // namespace

std::vector<std::wstring>& ExportTest::messages() {
    static std::vector<std::wstring> shown;
    return shown;
}

void ExportTest::SetUp() {
    messages().clear();
    driver().user.messageBox = [](const std::wstring& text, const std::wstring&, UINT) {
        messages().push_back(text);
        return IDOK;
    };
    connector();
}

void ExportTest::TearDown() {
    directory.close();
    DriverTest::TearDown();
}

bool ExportTest::initialize(const std::wstring& name, IDispatch* progress) {
    const Bstr path(folder.file(L"wxd.mdb")), folderName(name);
    VARIANT_BOOL result = VARIANT_FALSE;
    EXPECT_EQ(connector().InitializeExportFolder(path.get(), folderName.get(), lent(progress), &result),
              S_OK);
    return result != VARIANT_FALSE;
}

bool ExportTest::synchronize(const std::wstring& name, IDispatch* progress) {
    const Bstr path(folder.file(L"wxd.mdb")), folderName(name);
    VARIANT_BOOL result = VARIANT_FALSE;
    EXPECT_EQ(connector().SynchronizeExportFolder(lent(path), lent(folderName), lent(progress), &result),
              S_OK);
    return result != VARIANT_FALSE;
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

std::map<std::wstring, standin::outlook::ItemRecord> ExportTest::byName(const std::wstring& name) {
    std::map<std::wstring, standin::outlook::ItemRecord> result;
    for (const auto& item : contacts(name))
        EXPECT_TRUE(result.emplace(item.field(L"FullName"), item).second) << "a double";
    return result;
}

std::vector<long> ExportTest::employeeIds(const std::wstring& name) {
    std::vector<long> result;
    for (const auto& item : contacts(name))
        result.push_back(std::wcstol(userProperty(item, L"EmployeeId").c_str(), nullptr, 10));
    std::sort(result.begin(), result.end());
    return result;
}

void ExportTest::expectOneEach(long count, const std::wstring& name) {
    std::vector<long> expected(static_cast<size_t>(count));
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

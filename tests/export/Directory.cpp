#include "tests/export/Directory.h"

#include "automation/DaoNames.h"

namespace zelbar {

Directory::Directory(const std::wstring& path)
    : engine_(gateway_.create(Server::Dao, dao::kEngineProgIds[0], dao::kEngine)),
      database_(engine_.object(dao::CreateDatabase, path, L";LANGID=0x0409;CP=1252;COUNTRY=0")) {
    execute(
        L"Create Table Employees (EmployeeId Long Primary Key, FirstName Text(50), LastName Text(50), "
        L"Department Text(50), EmailAddress Text(80), BusinessPhone Text(40), BusinessPhone2 Text(40), "
        L"MobilePhone Text(40), HomePhone Text(40), PagerPhone Text(40), OtherPhone Text(40), "
        L"BillingInformation Text(80), Categories Long, AssistantID Long)");
    execute(L"Create Table BLFPagesContents (BLFpageId Long, EmployeeId Long, BindToEmployee YesNo)");
}

void Directory::close() {
    database_.call(dao::Close);
    database_ = {};
    engine_ = {};
}

void Directory::execute(const std::wstring& sql) {
    constexpr long kFailOnError = 128;
    database_.call(dao::Execute, sql, kFailOnError);
}

void Directory::add(long id, std::vector<std::pair<const wchar_t*, std::wstring>> columns) {
    const Object table = database_.object(dao::OpenRecordset, L"Employees");
    table.call(dao::AddNew);
    table.object(dao::FieldNamed, L"EmployeeId").put(dao::Value, id);
    for (const auto& [name, text] : columns) table.object(dao::FieldNamed, name).put(dao::Value, text);
    table.call(dao::Update);
}

void Directory::place(long id, long page, bool bound) {
    execute(L"Insert Into BLFPagesContents Values (" + std::to_wstring(page) + L", " + std::to_wstring(id) +
            (bound ? L", -1)" : L", 0)"));
}

void Directory::fill(long count) {
    engine_.call(dao::BeginTrans);
    for (long id = 1; id <= count; ++id) {
        const std::wstring number = std::to_wstring(id);
        add(id, {{L"FirstName", L"Ann"},
                 {L"LastName", L"Employee " + number},
                 {L"BusinessPhone", L"+44 20 7946 " + number}});
        place(id, 2);
    }
    engine_.call(dao::CommitTrans);
}

}  // namespace zelbar

#include "search/ContactEmployee.h"

#include "automation/Attempts.h"
#include "automation/DaoNames.h"
#include "automation/OutlookNames.h"

namespace zelbar {

namespace {

/// Nothing (or an empty value) for the contacts that no export has made.
Variant employeeProperty(const Object& item) {
    const Object property =
        item.object(outlook::UserProperties).object(outlook::UserPropertyAt, L"EmployeeId");
    return property ? property.get(outlook::Value) : Variant();
}

std::wstring columnOf(const Object& row, const wchar_t* name) noexcept {
    std::wstring result;
    if (row) Attempts().into(result, [&] { return columnText(row, name); });
    return result;
}

}  // namespace

std::wstring employeeIdOf(const Object& item) {
    return employeeProperty(item).text();
}

ContactEmployee::~ContactEmployee() {
    Attempts attempt;
    for (const Object& row : {employee_, labels_})
        if (row) attempt([&] { row.call(dao::Close); });
}

void ContactEmployee::link(const Object& item) noexcept {
    Attempts attempt([this](const Fault& fault) { log_.fault(L"Error (employee link): ", fault); });
    attempt([&] {
        if (const Variant id = employeeProperty(item); !id.isNothing()) open(id.integer());
    });
}

void ContactEmployee::open(long employeeId) {
    employee_ =
        directory_.openDynaset(L"Select * from Employees where EmployeeId = " + std::to_wstring(employeeId));
    Attempts attempt;
    attempt.into(labels_, [&] { return directory_.openDynaset(L"select * from Default"); });
    exists_ = !employee_.boolean(dao::EOF_);
}

std::wstring ContactEmployee::column(const wchar_t* name) const noexcept {
    return exists_ ? columnOf(employee_, name) : std::wstring();
}

std::wstring ContactEmployee::label(const wchar_t* name) const noexcept {
    return columnOf(labels_, name);
}

}  // namespace zelbar

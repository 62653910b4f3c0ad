#include "export/ExportRun.h"

#include <utility>

#include "automation/MessageYield.h"
#include "automation/OutlookFaults.h"

namespace zelbar {

namespace {

constexpr long kPermissionDenied = 70;
/// How many parts of a step are done between two reports.
constexpr size_t kReportEvery = 50;
constexpr Member kProgress{L"Progress"};

}  // namespace

ExportRun::ExportRun(const ExportParts& parts, const wchar_t* routine, Com<IDispatch> client)
    : parts_(parts), routine_(routine) {
    if (parts.exporting) throw Fault{kPermissionDenied, L"The export folder is being worked on.", routine};
    if (client) client_ = Object(parts.gateway, Server::Client, std::move(client), kUnknownClass);
    categories_ = {parts.texts.translate(categoryTextOf(ExportMode::PhoneSet)),
                   parts.texts.translate(categoryTextOf(ExportMode::Employee))};
    parts.exporting = true;
}

ExportRun::~ExportRun() {
    parts_.exporting = false;
}

std::vector<EmployeeRow> ExportRun::readDirectory(const std::wstring& path) {
    parts_.employees.open(path);
    std::vector<EmployeeRow> rows = readEmployeeRows(parts_.employees, [this] { yield(); });
    trace(L" rows of the directory: ", rows.size());
    return rows;
}

void ExportRun::add(const Object& items, const EmployeeRow& row, size_t line) {
    guarded(line, [&] { addContact(items, row, categories_, addresses_, parts_.log); });
}

void ExportRun::rowFailed(const Fault& fault, size_t line) {
    complete_ = false;
    outlookFailed_ = outlookFailed_ || saysOutlookFailed(fault);
    parts_.log.trace(L"cDataConnector.copyToContactItem", L" Error in ", fault.source, L". ",
                     fault.description, L" (", fault.number, L") at line ", line);
    if (saysServerGone(fault) || saysNotAnswering(fault)) throw fault;
}

void ExportRun::begin(const wchar_t* step, size_t total) {
    step_ = step;
    done_ = 0;
    total_ = total;
    report();
}

void ExportRun::advance() {
    ++done_;
    if (done_ % kReportEvery == 0 || done_ == total_) report();
    yield();
}

void ExportRun::yield() noexcept {
    const auto untimed = parts_.outlook.untimed();
    yieldToMessages();
}

void ExportRun::report() noexcept {
    trace(L" ", step_, L" ", done_, L" of ", total_);
    if (!client_) return;
    try {
        client_.call(kProgress, step_, static_cast<long>(done_), static_cast<long>(total_));
    } catch (...) {
        // A client that cannot be told is not told again; the export is none the worse for it.
        parts_.log.fault(L"Error (export progress): ", caughtFault());
        client_ = {};
    }
}

}  // namespace zelbar

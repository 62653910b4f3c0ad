#include <array>
#include <cmath>
#include <cstdio>
#include <memory>
#include <stdexcept>

#include "automation/Bstr.h"
#include "automation/DaoNames.h"
#include "automation/Variant.h"
#include "benchmark/Benchmarks.h"
#include "benchmark/Measure.h"
#include "benchmark/World.h"
#include "standin/outlook/host/Host.h"

namespace benchmark {

namespace {

namespace dao = zelbar::dao;
using zelbar::Bstr;
using zelbar::Variant;

constexpr wchar_t kFolderKey[] = L"Software\\Norvane\\7316\\Popup\\outlook98\\TransfertFolder";
constexpr wchar_t kFolderName[] = L"Staff";

/// How much more a row may cost in the larger step before the growth no longer counts as linear.
constexpr double kTolerance = 1.25;

/// A directory database of employees on the second supervision page, each with six texts.
class Directory {
  public:
    Directory(const std::filesystem::path& path, long count) : path_(path) {
        std::filesystem::remove(path);
        engine_ = gateway_.create(zelbar::Server::Dao, dao::kEngineProgIds[0], dao::kEngine);
        database_ = engine_.object(dao::CreateDatabase, path.native(), L";LANGID=0x0409;CP=1252;COUNTRY=0");
        database_.call(
            dao::Execute,
            L"Create Table Employees (EmployeeId Long Primary Key, FirstName Text(50), LastName Text(50), "
            L"Department Text(50), EmailAddress Text(80), BusinessPhone Text(40), MobilePhone Text(40))");
        database_.call(
            dao::Execute,
            L"Create Table BLFPagesContents (BLFpageId Long, EmployeeId Long, BindToEmployee YesNo)");
        engine_.call(dao::BeginTrans);
        fill(count);
        engine_.call(dao::CommitTrans);
    }
    ~Directory() { database_.call(dao::Close); }
    Directory(const Directory&) = delete;
    Directory& operator=(const Directory&) = delete;

    const std::wstring& path() const { return path_.native(); }
    void moveEverybodyTo(const std::wstring& department) {
        database_.call(dao::Execute, L"Update Employees Set Department = \"" + department + L"\"");
    }

  private:
    void fill(long count) {
        const Object employees = database_.object(dao::OpenRecordset, L"Employees");
        const Object page = database_.object(dao::OpenRecordset, L"BLFPagesContents");
        const auto set = [](const Object& table, const wchar_t* column, const Variant& value) {
            table.object(dao::FieldNamed, column).put(dao::Value, value);
        };
        for (long id = 1; id <= count; ++id) {
            const std::wstring number = std::to_wstring(id);
            employees.call(dao::AddNew);
            set(employees, L"EmployeeId", id);
            set(employees, L"FirstName", L"Ada");
            set(employees, L"LastName", L"Employee " + number);
            set(employees, L"Department", L"Department");
            set(employees, L"EmailAddress", L"ada" + number + L"@example.org");
            set(employees, L"BusinessPhone", L"+44 20 7946 " + number);
            set(employees, L"MobilePhone", L"+44 7700 " + number);
            employees.call(dao::Update);
            page.call(dao::AddNew);
            set(page, L"BLFpageId", 2);
            set(page, L"EmployeeId", id);
            page.call(dao::Update);
        }
    }

    std::filesystem::path path_;
    zelbar::Gateway gateway_;
    Object engine_;
    Object database_;
};

/// Which folder the driver exports to is kept in the settings; every round begins without one.
struct NoFolder {
    NoFolder() { forget(); }
    ~NoFolder() { forget(); }
    NoFolder(const NoFolder&) = delete;
    NoFolder& operator=(const NoFolder&) = delete;

    static void forget() {
        for (const wchar_t* value : {L"EntryId", L"StoreId"})
            RegDeleteKeyValueW(HKEY_CURRENT_USER, kFolderKey, value);
    }
};

/// While it lives, the driver may read tables: a policy says that Outlook does not ask.
class SilentGuard {
  public:
    SilentGuard() {
        constexpr DWORD kByPolicy = 3, kAllow = 2;
        set(L"AdminSecurityMode", kByPolicy);
        set(L"PromptOOMAddressInformationAccess", kAllow);
    }
    ~SilentGuard() { RegDeleteTreeW(HKEY_CURRENT_USER, kKey); }
    SilentGuard(const SilentGuard&) = delete;
    SilentGuard& operator=(const SilentGuard&) = delete;

  private:
    static constexpr wchar_t kKey[] = L"Software\\Policies\\Microsoft\\Office\\16.0\\Outlook\\Security";
    static void set(const wchar_t* name, DWORD value) {
        RegSetKeyValueW(HKEY_CURRENT_USER, kKey, name, REG_DWORD, &value, sizeof value);
    }
};

/// The runs of one kind on a directory of one size.
struct Runs {
    Times times;
    long calls = 0;  ///< Name look-ups and invocations of the latest.
};

/// Initialising; nothing changed, read through the table and item by item; every row changed.
enum Kind { kNew, kUnchanged, kUnchangedItems, kChanged, kKinds };
constexpr const char* kKindNames[kKinds] = {"new (initialising run)", "unchanged, through the table",
                                            "unchanged, item by item", "changed, through the table"};

struct Size {
    long rows;
    int roundsInTurn;
    std::array<Runs, kKinds> runs{};
};

void requireFolder(standin::outlook::Host& host, long rows) {
    auto& mailbox = host.mailbox();
    const auto folder = mailbox.findFolder(mailbox.defaultStore().root, kFolderName);
    if (!folder || static_cast<long>(mailbox.items(folder->id).size()) != rows)
        throw std::runtime_error("the export folder does not hold the directory");
}

/// One run of each kind in a mailbox of its own.
void measureRound(Size& size, Directory& directory, const DataFolder& data, int round) {
    const NoFolder none;
    const SilentGuard guard;
    const std::filesystem::path mailbox = data.path() / L"exports.db";
    std::filesystem::remove(mailbox);
    standin::outlook::Host host(mailbox);
    const auto driver = createDriver();
    const Bstr path(directory.path()), name(kFolderName);
    const Variant pathGiven(directory.path()), nobody = Variant::missing();
    const auto run = [&](Kind kind, auto&& member) {
        host.server().calls().reset();
        VARIANT_BOOL complete = VARIANT_FALSE;
        HRESULT result = E_FAIL;
        size.runs[kind].times.measure([&] { result = member(&complete); });
        size.runs[kind].calls = host.server().calls().lookUps() + host.server().calls().invocations();
        if (FAILED(result) || !complete) throw std::runtime_error("an export run was not complete");
    };
    const auto synchronize = [&](VARIANT_BOOL* complete) {
        return driver->SynchronizeExportFolder(pathGiven.raw(), nobody.raw(), nobody.raw(), complete);
    };
    run(kNew, [&](VARIANT_BOOL* complete) {
        return driver->InitializeExportFolder(path.get(), name.get(), nobody.raw(), complete);
    });
    run(kUnchangedItems, synchronize);
    host.server().setOption(L"Version", L"16.0");
    run(kUnchanged, synchronize);
    directory.moveEverybodyTo(L"Department " + std::to_wstring(round));
    run(kChanged, synchronize);
    requireFolder(host, size.rows);
}

/// The sizes in turns, so that a machine that is slower for a while is so for all of them: three turns, or
/// two when they take longer than a minute.
void measureInTurns(std::array<Size, 3>& sizes, const DataFolder& data, int most) {
    const int least = std::min(2, most);
    constexpr ULONGLONG kEnough = 60'000;
    std::vector<std::unique_ptr<Directory>> directories;
    for (const Size& size : sizes)
        directories.push_back(std::make_unique<Directory>(
            data.path() / (L"directory" + std::to_wstring(size.rows) + L".mdb"), size.rows));
    const ULONGLONG start = GetTickCount64();
    int round = 0;
    for (int turn = 0; turn < most && (turn < least || GetTickCount64() - start < kEnough); ++turn)
        for (size_t i = 0; i < sizes.size(); ++i)
            for (int again = 0; again < sizes[i].roundsInTurn; ++again)
                measureRound(sizes[i], *directories[i], data, round++);
}

/// What one more row costs between two sizes.
template <class Figure>
double perFurtherRow(const Size& small, const Size& large, Figure&& figure) {
    return (figure(large) - figure(small)) / static_cast<double>(large.rows - small.rows);
}

void printCalls(const std::array<Size, 3>& sizes) {
    std::printf("| calls to Outlook, whole run |");
    for (const Size& size : sizes) std::printf(" %ld rows |", size.rows);
    std::printf(" per further row: first step | second step |\n|---|---|---|---|---|---|\n");
    // A block of rows more or less.
    constexpr double kBlocks = 0.01;
    bool constant = true;
    double unchanged = 0;
    for (int kind = 0; kind < kKinds; ++kind) {
        const auto calls = [&](const Size& size) { return static_cast<double>(size.runs[kind].calls); };
        const double first = perFurtherRow(sizes[0], sizes[1], calls);
        const double second = perFurtherRow(sizes[1], sizes[2], calls);
        std::printf("| %s |", kKindNames[kind]);
        for (const Size& size : sizes) std::printf(" %ld |", size.runs[kind].calls);
        std::printf(" %.2f | %.2f |\n", first, second);
        constant = constant && std::abs(first - second) <= kBlocks;
        if (kind == kUnchanged) unchanged = second;
    }
    std::printf("\n");
    reportAim("the calls for a further row do not depend on how many there are",
              constant ? "they do not" : "they do", constant);
    constexpr double kMostCalls = 0.02;
    reportAim("calls for an unchanged contact, through the table", unchanged, kMostCalls);
    std::printf("\n");
}

/// Rows that seem to get cheaper tell that the machine was not equally fast for all sizes.
void reportGrowth(const char* kind, double growth) {
    if (growth < 1 / kTolerance) {
        std::printf("NOT JUDGED: %s: the machine was too uneven\n", kind);
        return;
    }
    reportAim(std::string(kind) + ": a further row's cost in the second step over the first (shortest)",
              growth, kTolerance);
}

void printTimes(const std::array<Size, 3>& sizes) {
    std::printf("| microseconds per row: median (least) |");
    for (const Size& size : sizes)
        std::printf(" %ld rows, %zu runs |", size.rows, size.runs[kNew].times.count());
    std::printf(" per further row: first step | second step | second over first |\n");
    std::printf("|---|---|---|---|---|---|---|\n");
    std::array<double, kKinds> growth{};
    for (int kind = 0; kind < kKinds; ++kind) {
        const auto least = [&](const Size& size) { return size.runs[kind].times.least(); };
        const double first = perFurtherRow(sizes[0], sizes[1], least);
        const double second = perFurtherRow(sizes[1], sizes[2], least);
        std::printf("| %s |", kKindNames[kind]);
        for (const Size& size : sizes) {
            const double rows = static_cast<double>(size.rows);
            std::printf(" %.0f (%.0f) |", size.runs[kind].times.median() / rows, least(size) / rows);
        }
        std::printf(" %.0f | %.0f | %.2f |\n", first, second, second / first);
        growth[static_cast<size_t>(kind)] = second / first;
    }
    std::printf("\n");
    for (size_t kind = 0; kind < kKinds; ++kind) reportGrowth(kKindNames[kind], growth[kind]);
}

}  // namespace

void measureExports(const Scale& scale) {
    const DataFolder data;
    data.writeCache({1, {}});
    std::array<Size, 3> sizes{Size{scale(100, 50), 3}, Size{scale(1000, 200), 2}, Size{scale(5000, 500), 1}};
    measureInTurns(sizes, data, scale.isQuick ? 1 : 3);
    std::printf("## The export folder, Outlook and DAO in the same process\n\n");
    std::printf(
        "The steps are those from the first size to the second and from the second to the third.\n\n");
    printCalls(sizes);
    printTimes(sizes);
    std::printf("\n");
}

}  // namespace benchmark

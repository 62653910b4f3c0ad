#include <filesystem>

#include "automation/DaoNames.h"
#include "automation/OutlookNames.h"
#include "benchmark/Benchmarks.h"
#include "benchmark/Child.h"
#include "benchmark/Measure.h"
#include "benchmark/Replay.h"

namespace benchmark {

namespace {

namespace dao = zelbar::dao;
namespace outlook = zelbar::outlook;

std::filesystem::path beside(const wchar_t* name) {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::filesystem::path(path).replace_filename(name);
}

double kilobytes(const wchar_t* name) {
    return static_cast<double>(std::filesystem::file_size(beside(name))) / 1024;
}

/// What start-up asks of DAO and Outlook, asked without the driver.
void startUpCalls(const std::filesystem::path& cache) {
    zelbar::Gateway gateway;
    const Object application =
        gateway.create(zelbar::Server::Outlook, outlook::kProgId, outlook::kApplication);
    application.text(outlook::Version);
    application.object(outlook::GetNamespace, L"MAPI").text(outlook::Type);
    const Object workspace = gateway.create(zelbar::Server::Dao, dao::kEngineProgIds[0], dao::kEngine)
                                 .object(dao::CreateWorkspace, L"", L"admin", L"", dao::kUseJet);
    const Object database = workspace.object(dao::OpenDatabase, cache.native());
    const Object stores = database.object(dao::OpenRecordset, L"Select * from TStoreID", dao::kOpenDynaset);
    for (; !stores.boolean(dao::EOF_); stores.call(dao::MoveNext))
        for (const wchar_t* column : {L"Index", L"StoreID"})
            stores.object(dao::FieldNamed, column).text(dao::Value);
    stores.call(dao::Close);
    database.call(dao::Close);
}

/// Loading and unloading the file alone; the driver in use would keep it loaded.
Times loadTimes() {
    constexpr int kRounds = 21;
    const std::filesystem::path file = beside(L"zelbar00.dll");
    Times times;
    for (int i = 0; i < kRounds; ++i) {
        HMODULE module = nullptr;
        times.measure([&] { module = LoadLibraryW(file.c_str()); });
        if (module) FreeLibrary(module);
    }
    return times;
}

}  // namespace

void measureFootprint(const Scale& scale) {
    const Times loading = loadTimes();
    zelbar::Gateway gateway;
    const Object application =
        gateway.create(zelbar::Server::Outlook, outlook::kProgId, outlook::kApplication);
    const ContactPlace contact = addContact(application, L"Footprint", L"+44 20 2");
    const DataFolder folder;
    folder.writeCache({1000, contact});
    startUpCalls(folder.cacheFile());
    const Holdings before = holdingsOf(GetCurrentProcess());
    { requireKnown(findFirst(*createDriver().get(), 0, CacheRows::number(1))); }
    const Holdings once = holdingsOf(GetCurrentProcess());
    const auto [driver, bare] = inTurns([] { createDriver(); }, [&] { startUpCalls(folder.cacheFile()); });
    const long searches = scale(2000, 200);
    {
        const auto used = createDriver();
        for (long i = 0; i < searches; ++i) findFirst(*used.get(), 0, CacheRows::number(i % 1000));
    }
    const Holdings after = holdingsOf(GetCurrentProcess());

    std::printf("## What the driver costs its host\n\n| | |\n|---|---|\n");
    std::printf("| zelbar00.dll, fillcache.exe, pimcall.exe, kilobytes | %.0f, %.0f, %.0f |\n",
                kilobytes(L"zelbar00.dll"), kilobytes(L"fillcache.exe"), kilobytes(L"pimcall.exe"));
    std::printf("| loading the file, microseconds | %s |\n", loading.text().c_str());
    std::printf("| start-up with Outlook running, microseconds | %s |\n", driver.text().c_str());
    std::printf("| its calls of DAO and Outlook alone | %s |\n", bare.text().c_str());
    std::printf("| memory with the first search, megabytes | %.1f |\n", once.megabytes - before.megabytes);
    std::printf("| ... after %zu starts and %ld searches more | %.1f |\n", driver.count(), searches,
                after.megabytes - once.megabytes);
    std::printf("| handles with the first search, and after the others | %ld, %ld |\n\n",
                static_cast<long>(once.handles) - static_cast<long>(before.handles),
                static_cast<long>(after.handles) - static_cast<long>(once.handles));
    reportAim("start-up over its own calls of DAO and Outlook", driver.ratioTo(bare), 1.2);
    reportAim("fillcache.exe", kilobytes(L"fillcache.exe") / 1024, 3, " MB");
    reportAim("handles that starts and searches leave",
              static_cast<double>(after.handles) - static_cast<double>(once.handles), 0);
    std::printf("\n");
}

}  // namespace benchmark

#include <memory>

#include "automation/DaoNames.h"
#include "automation/OutlookNames.h"
#include "benchmark/Benchmarks.h"
#include "benchmark/Measure.h"
#include "benchmark/Replay.h"
#include "standin/outlook/host/Host.h"

namespace benchmark {

namespace {

namespace dao = zelbar::dao;
namespace outlook = zelbar::outlook;
using zelbar::Server;

struct Search {
    const char* name;
    long kind;
    const wchar_t* column;
    std::wstring pattern;
};

/// A client of the cache without the driver.
class BareClient {
  public:
    explicit BareClient(const std::filesystem::path& cacheFile)
        : database_(gateway_.create(Server::Dao, dao::kEngineProgIds[0], dao::kEngine)
                        .object(dao::OpenDatabase, cacheFile.native())) {}
    ~BareClient() { database_.call(dao::Close); }
    BareClient(const BareClient&) = delete;
    BareClient& operator=(const BareClient&) = delete;

    /// The driver's statement, and its reads of what comes back.
    void run(const Search& search) {
        const Object rows = database_.object(dao::OpenRecordset,
                                             std::wstring(L"Select * From TCache Where ") + search.column +
                                                 L" Like \"" + search.pattern + L"\" Order By Name",
                                             dao::kOpenDynaset);
        rows.call(dao::MoveLast);
        rows.call(dao::MoveFirst);
        rows.integer(dao::RecordCount);
        rows.boolean(dao::EOF_);
        rows.boolean(dao::BOF_);
        for (const wchar_t* column : {L"EntryId", L"StoreID", L"Name", L"PhoneNumber"})
            rows.object(dao::FieldNamed, column).text(dao::Value);
        rows.call(dao::Close);
    }

  private:
    zelbar::Gateway gateway_;
    Object database_;
};

/// In microseconds.
struct Measured {
    double driver;  ///< Median, without Outlook's share.
    double query;   ///< Median.
    double least;   ///< The driver's shortest search, Outlook's share included.
};

/// One row of the table. Outlook lives in this process; its share is what the driver's calls to it take when
/// they are made without the driver, with the names remembered as well.
Measured measure(const Search& search, long rows, ::DataConnector& driver, BareClient& bare,
                 Replay& outlookCalls) {
    const auto [all, outlookAlone, query] = inTurns([&] { findFirst(driver, search.kind, search.pattern); },
                                                    [&] { outlookCalls.run(); }, [&] { bare.run(search); });
    const double own = all.without(outlookAlone).median();
    std::printf("| %s | %ld | %s | %s | %s | %.0f | %.2f |\n", search.name, rows, all.text().c_str(),
                outlookAlone.text().c_str(), query.text().c_str(), own, own / query.median());
    return {own, query.median(), all.least()};
}

/// Sums over the searches, in microseconds. The two caches cannot be measured in turns, and a machine that is
/// slower for a while would tell in the medians: the exact number's shortest searches are compared.
struct Figures {
    double driver = 0;
    double query = 0;
    double exactNumber = 0;
};

Figures measureCache(const DataFolder& folder, const CacheRows& rows, const CallCounter& counter) {
    const Search searches[] = {
        {"number, exact", 0, L"PhoneNumber", CacheRows::number(777)},
        {"number, prefix (10 rows)", 0, L"PhoneNumber", L"+33 4 000012*"},
        {"name, exact", 1, L"Name", CacheRows::name(555)},
        {"name, prefix (10 rows)", 1, L"Name", L"caller000034*"},
    };
    folder.writeCache(rows);
    const auto driver = createDriver();
    Figures figures;
    for (const Search& search : searches) {
        BareClient bare(folder.cacheFile());
        requireKnown(findFirst(*driver.get(), search.kind, search.pattern));
        counter.reset();
        findFirst(*driver.get(), search.kind, search.pattern);
        Replay outlookCalls(counter.calls(), rows.contact, Replay::Names::Remembered);
        const Measured measured = measure(search, rows.count, *driver.get(), bare, outlookCalls);
        figures.driver += measured.driver;
        figures.query += measured.query;
        if (&search == searches) figures.exactNumber = measured.least;
    }
    return figures;
}

}  // namespace

void measureSearches() {
    const DataFolder folder;
    const std::filesystem::path mailbox = folder.path() / L"mailbox.db";
    std::filesystem::remove(mailbox);
    standin::outlook::Host host(mailbox);
    zelbar::Gateway gateway;
    const Object application = gateway.create(Server::Outlook, outlook::kProgId, outlook::kApplication);
    const CallCounter counter(application);
    const ContactPlace contact = addContact(application, L"Byron", L"+44 20 1");

    std::printf("## A search, Outlook in the same process\n\n");
    std::printf(
        "| search | rows | driver, microseconds | Outlook's share | bare query | driver without Outlook "
        "| ... over bare query |\n|---|---|---|---|---|---|---|\n");
    const Figures small = measureCache(folder, {1000, contact}, counter);
    const Figures large = measureCache(folder, {100000, contact}, counter);
    std::printf("\n");
    const double ratio = (small.driver + large.driver) / (small.query + large.query);
    std::printf("All searches together: driver over bare query %.2f\n\n", ratio);
    reportAim("driver over bare query at most 1.1", ratio <= 1.1);
    reportAim("exact number in 100,000 rows at most twice that in 1,000 (shortest)",
              large.exactNumber <= 2 * small.exactNumber);
    std::printf("\n");
}

}  // namespace benchmark

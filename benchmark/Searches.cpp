#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "automation/MessageYield.h"
#include "automation/OutlookNames.h"
#include "benchmark/BareClient.h"
#include "benchmark/Benchmarks.h"
#include "benchmark/Measure.h"
#include "benchmark/Replay.h"
#include "standin/outlook/host/Host.h"

namespace benchmark {

namespace {

namespace outlook = zelbar::outlook;
using zelbar::Server;

/// One row of the table; the driver's search without Outlook's share over the bare query, median of the
/// rounds. Outlook lives in this process; its share is what the driver's calls to it take when they are made
/// without the driver, in the driver's way. Beside it a client that does what a search does for others: it
/// serves the client's messages twice, and tells a debugger.
double measure(const char* name, const Search& search, long rows, ::DataConnector& driver, BareClient& bare,
               Replay& outlookCalls) {
    const auto serve = [&] {
        zelbar::yieldToMessages();
        bare.run(search);
        OutputDebugStringW(L"The query has run");
        zelbar::yieldToMessages();
    };
    const auto [all, outlookAlone, query, serving] =
        inTurns([&] { findFirst(driver, search.kind, search.pattern); }, [&] { outlookCalls.run(); },
                [&] { bare.run(search); }, serve);
    const Times own = all.without(outlookAlone);
    const double ratio = own.ratioTo(query);
    std::printf("| %s | %ld | %s | %s | %s | %.2f | %.2f | %.2f |\n", name, rows, all.text().c_str(),
                outlookAlone.text().c_str(), query.text().c_str(), ratio,
                (all.least() - outlookAlone.least()) / query.least(), own.ratioTo(serving));
    return ratio;
}

/// The driver over the bare query, one figure a search.
std::vector<double> measureCache(const DataFolder& folder, const CacheRows& rows,
                                 const CallCounter& counter) {
    const std::pair<const char*, Search> searches[] = {
        {"number, exact", {0, CacheRows::number(777)}},
        {"number, prefix (10 rows)", {0, L"+33 4 000012*"}},
        {"name, exact", {1, CacheRows::name(555)}},
        {"name, prefix (10 rows)", {1, L"caller000034*"}},
    };
    folder.use();
    const auto driver = createDriver();
    std::vector<double> ratios;
    for (const auto& [name, search] : searches) {
        BareClient bare(folder.cacheFile());
        requireKnown(findFirst(*driver.get(), search.kind, search.pattern));
        counter.reset();
        findFirst(*driver.get(), search.kind, search.pattern);
        Replay outlookCalls(counter.calls(), rows.contact, Replay::Client::Driver);
        ratios.push_back(measure(name, search, rows.count, *driver.get(), bare, outlookCalls));
    }
    return ratios;
}

/// One search for an exact number in each of two caches, in turns; a driver reads its cache when it starts.
std::array<Times, 2> exactNumbers(const DataFolder& one, const DataFolder& other, long turns) {
    constexpr int kSearches = 40;
    std::array<Times, 2> times;
    for (long turn = 0; turn < turns; ++turn)
        for (const DataFolder* folder : {&one, &other}) {
            folder->use();
            const auto driver = createDriver();
            requireKnown(findFirst(*driver.get(), 0, CacheRows::number(777)));
            for (int i = 0; i < kSearches; ++i)
                times[folder == &other].measure([&] { findFirst(*driver.get(), 0, CacheRows::number(777)); });
        }
    return times;
}

void compareExactNumbers(const char* what, const DataFolder& one, const DataFolder& other, double most,
                         const Scale& scale) {
    const auto [first, second] = exactNumbers(one, other, scale(10, 3));
    std::printf("Exact number, microseconds, %s: %s and %s\n", what, first.text().c_str(),
                second.text().c_str());
    reportAim(std::string("exact number, ") + what + " (shortest)", second.least() / first.least(), most);
}

}  // namespace

void measureSearches(const Scale& scale) {
    const DataFolder small(L"tessaria-benchmark-small"), large(L"tessaria-benchmark-large"),
        forms(L"tessaria-benchmark-forms"), huge(L"tessaria-benchmark-huge");
    const std::filesystem::path mailbox = small.path() / L"mailbox.db";
    std::filesystem::remove(mailbox);
    standin::outlook::Host host(mailbox);
    zelbar::Gateway gateway;
    const Object application = gateway.create(Server::Outlook, outlook::kProgId, outlook::kApplication);
    const CallCounter counter(application);
    const ContactPlace contact = addContact(application, L"Byron", L"+44 20 1");

    std::printf("## A search, Outlook in the same process\n\n");
    std::printf(
        "| microseconds: median (least - most) | rows | driver | Outlook's share | bare query | driver without Outlook "
        "over bare query: median of the rounds | ... of the shortest | over one that serves messages and tells a debugger |\n"
        "|---|---|---|---|---|---|---|---|\n");
    std::vector<double> ratios;
    const auto measured = [&](const DataFolder& folder, const CacheRows& rows) {
        folder.writeCache(rows);
        const auto some = measureCache(folder, rows, counter);
        ratios.insert(ratios.end(), some.begin(), some.end());
    };
    const long many = scale(100000, 20000);
    measured(small, {1000, contact});
    measured(large, {many, contact});
    if (!scale.isQuick) measured(huge, {1000000, contact});
    std::printf("\n");
    std::sort(ratios.begin(), ratios.end());
    reportAim("driver over bare query, median of all searches", ratios[ratios.size() / 2], 1.1);
    forms.writeCache({many, contact, true});
    const std::string contacts = std::to_string(many);
    compareExactNumbers((contacts + " contacts with four forms each over without").c_str(), large, forms, 1.2,
                        scale);
    if (scale.isQuick)
        compareExactNumbers((contacts + " rows over 1000").c_str(), small, large, 2, scale);
    else
        compareExactNumbers("1000000 rows over 1000", small, huge, 2, scale);
    for (const DataFolder* folder : {&small, &large, &forms, &huge})
        std::filesystem::remove(folder->cacheFile());
    std::printf("\n");
}

}  // namespace benchmark

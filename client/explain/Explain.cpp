#include <windows.h>

#include <chrono>
#include <set>
#include <utility>

#include "automation/Deadline.h"
#include "automation/Gateway.h"
#include "automation/OutlookNames.h"
#include "client/explain/Explanation.h"
#include "client/explain/Nearest.h"
#include "core/ItemSearch.h"
#include "core/OutlookConnection.h"
#include "core/StoreTable.h"
#include "search/CacheRow.h"
#include "search/CacheSearch.h"
#include "search/LikePattern.h"

namespace pimcall::explain {
namespace {

namespace outlook = zelbar::outlook;
using zelbar::Object;
using Clock = std::chrono::steady_clock;

/// Further rows are counted, but Outlook is not asked for them.
constexpr std::size_t kMostRows = 20;

long millisecondsSince(Clock::time_point start) {
    return static_cast<long>(
        std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start).count());
}

/// Carries a step out, and notes what became of it. False when it failed.
template <class Work>
bool take(std::vector<Step>& steps, Step step, const Work& work) {
    const auto start = Clock::now();
    try {
        work();
    } catch (...) {
        step.fault = zelbar::caughtFault();
    }
    step.milliseconds = millisecondsSince(start);
    steps.push_back(std::move(step));
    return !steps.back().fault;
}

/// The contacts behind the matching rows, as Outlook has them now.
class LiveAnswers {
  public:
    explicit LiveAnswers(Explanation& explanation, const std::vector<CacheReader::Store>& stores)
        : explanation_(explanation) {
        for (const CacheReader::Store& store : stores) stores_.add({store.storeId, store.index});
    }

    void ask() {
        if (!connect()) {
            for (MatchingRow& row : explanation_.rows) row.fault = explanation_.connection.back().fault;
            return;
        }
        std::set<std::wstring> met;
        for (MatchingRow& row : explanation_.rows)
            if (met.insert(row.row.entryId).second) ask(row);
    }

  private:
    bool connect() {
        const zelbar::Deadline deadline(gateway_, zelbar::limitForCall);
        auto& steps = explanation_.connection;
        Object application;
        return take(steps, {L"Outlook joined or started", 1},
                    [&] {
                        application =
                            gateway_.create(zelbar::Server::Outlook, outlook::kProgId, outlook::kApplication);
                    }) &&
               take(steps, {L"its address books opened", 2}, [&] {
                   session_ = application.object(outlook::GetNamespace, L"MAPI");
                   session_.text(outlook::Type);
               });
    }

    /// The places that the driver asks, in its order.
    std::vector<std::wstring> placesFor(const MatchingRow& row, const std::wstring& storeId) const {
        std::vector<std::wstring> places;
        if (!storeId.empty()) places.push_back(L"store " + row.row.storeKey);
        places.push_back(L"the default store");
        for (int i = 1; i <= zelbar::StoreTable::kEntries && !stores_.at(i).storeId.empty(); ++i)
            places.push_back(L"store " + stores_.at(i).index);
        return places;
    }

    /// Each row is a question of the client's, with its own time.
    void ask(MatchingRow& row) {
        const zelbar::Deadline deadline(gateway_, zelbar::limitForCall);
        row.wasAsked = true;
        const std::wstring storeId = stores_.storeIdOf(row.row.storeKey);
        row.isStoreKnown = row.row.storeKey.empty() || !storeId.empty();
        zelbar::LookUp answer;
        if (!row.row.entryId.empty()) answer = search(row, storeId);
        const zelbar::CacheRow cacheRow{row.row.entryId, row.row.storeKey, row.row.name, row.row.number};
        doubtUnknownStore(answer, cacheRow, storeId);
        row.verdict = answer.verdict;
        row.fault = answer.fault;
        if (answer.found()) readName(row, answer.item);
    }

    /// The driver's own search; what it reports tells its steps.
    zelbar::LookUp search(MatchingRow& row, const std::wstring& storeId) {
        const std::vector<std::wstring> places = placesFor(row, storeId);
        auto start = Clock::now();
        const auto note = [&](const zelbar::Fault& fault) {
            row.steps.push_back({places[row.steps.size()], 1, millisecondsSince(start), fault});
            start = Clock::now();
        };
        zelbar::LookUp answer =
            zelbar::ItemSearch(session_, row.row.entryId, note).everywhere(storeId, stores_);
        if (answer.found()) note({});
        return answer;
    }

    /// As the driver names a contact. An item tells its class before its first use.
    static void readName(MatchingRow& row, const Object& item) {
        const bool isRead = take(row.steps, {L"the contact's name read", 3}, [&] {
            row.name = item.text(outlook::LastNameAndFirstName);
            if (row.name.empty()) row.name = item.text(outlook::LastName);
        });
        if (isRead) return;
        row.verdict = MatchingRow::Verdict::Failed;
        row.fault = row.steps.back().fault;
    }

    Explanation& explanation_;
    zelbar::Gateway gateway_;
    zelbar::StoreTable stores_;
    Object session_;
};

void findRows(Explanation& explanation, const CacheReader& cache) {
    const zelbar::CacheSearch search(static_cast<long>(explanation.kind), explanation.text, false);
    cache.rowsOf(search.query(), [&](const CacheReader::Row& row) {
        if (explanation.rows.size() < kMostRows) explanation.rows.push_back({row});
        ++explanation.rowCount;
        return true;
    });
}

}  // namespace

Explanation explain(SearchKind kind, const std::wstring& text) {
    Explanation explanation;
    explanation.kind = kind;
    explanation.text = text;
    explanation.pattern = zelbar::EscapeLikePattern(text);
    explanation.cache = cachePath();
    const auto start = Clock::now();
    try {
        const CacheReader cache(explanation.cache);
        findRows(explanation, cache);
        explanation.query.milliseconds = millisecondsSince(start);
        if (explanation.rows.empty())
            explanation.nearest = nearestRows(cache, kind, text);
        else
            LiveAnswers(explanation, cache.stores()).ask();
    } catch (...) {
        explanation.query.fault = zelbar::caughtFault();
    }
    return explanation;
}

}  // namespace pimcall::explain

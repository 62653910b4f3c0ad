#pragma once

#include <string>
#include <vector>

#include "automation/Fault.h"
#include "client/CacheReader.h"
#include "client/Driver.h"
#include "core/LookUp.h"

namespace pimcall::explain {

/// Something that was done, what it cost, and how it failed if it did.
struct Step {
    std::wstring what;
    long calls = 0;  ///< To Outlook.
    long milliseconds = 0;
    zelbar::Fault fault = {};
};

/// One matching row of the cache, and what Outlook says of its contact.
struct MatchingRow {
    using Verdict = zelbar::LookUp::Verdict;

    CacheReader::Row row;
    bool isStoreKnown = true;  ///< The table of stores has the row's store.
    bool wasAsked = false;     ///< Its contact is not one that another row has asked for already.
    Verdict verdict = Verdict::Failed;
    zelbar::Fault fault = {};
    std::vector<Step> steps = {};  ///< The stores that were asked, in order, and the reading of the contact.
    std::wstring name = {};        ///< As the client would show it.
};

/// A row that does not match, but nearly.
struct NearRow {
    CacheReader::Row row;
    std::wstring reason;  ///< Why it does not match, and what would.
};

/// What a search in the driver does, and why it hits or misses.
struct Explanation {
    SearchKind kind = SearchKind::Number;
    std::wstring text;     ///< As the driver was asked.
    std::wstring pattern;  ///< As the driver asks the cache.
    std::wstring cache;    ///< The file.
    Step query;
    long rowCount = 0;              ///< All matching rows.
    std::vector<MatchingRow> rows;  ///< The first of them.
    std::vector<Step> connection;   ///< The way to Outlook; only taken when there are rows.
    std::vector<NearRow> nearest;   ///< For a miss.

    bool isHit() const { return !rows.empty() && rows.front().verdict == MatchingRow::Verdict::Found; }
};

/// Follows a search step by step, as the driver would carry it out, and leaves all as it is. What fails
/// stands in the explanation.
Explanation explain(SearchKind kind, const std::wstring& text);

/// In one or two sentences, what the user of the client would see, and what the driver would do besides.
std::wstring outcome(const Explanation& explanation);

std::wstring explanationText(const Explanation& explanation, bool verbose);
std::wstring explanationJson(const Explanation& explanation);

}  // namespace pimcall::explain

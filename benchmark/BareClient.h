#pragma once

#include <filesystem>
#include <string>

#include "automation/Gateway.h"
#include "automation/Object.h"

namespace benchmark {

struct Search {
    long kind;  ///< As the driver's: 0 by number, 1 by name.
    std::wstring pattern;
};

/// A client of the cache without the driver.
class BareClient {
  public:
    explicit BareClient(const std::filesystem::path& cacheFile);
    ~BareClient();
    BareClient(const BareClient&) = delete;
    BareClient& operator=(const BareClient&) = delete;

    /// The driver's statement, and its reads of what comes back.
    void run(const Search& search);

  private:
    zelbar::Gateway gateway_;
    zelbar::Object database_;
};

}  // namespace benchmark

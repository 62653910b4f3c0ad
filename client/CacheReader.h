#pragma once

#include <functional>
#include <string>
#include <vector>

#include "automation/Gateway.h"
#include "automation/Object.h"

namespace pimcall {

/// The contact cache, opened for reading alone: nothing in it can be changed by this. Every member throws a
/// Fault.
class CacheReader {
  public:
    struct Store {
        std::wstring index;
        std::wstring storeId;
    };
    struct Row {
        std::wstring name;
        std::wstring number;
        std::wstring entryId;
        std::wstring storeKey;  ///< The store's index.
    };

    explicit CacheReader(const std::wstring& path);
    ~CacheReader();
    CacheReader(const CacheReader&) = delete;
    CacheReader& operator=(const CacheReader&) = delete;

    /// The table of stores, in its order.
    std::vector<Store> stores() const;
    /// Every row in turn, in no particular order, until `visit` answers false.
    void rows(const std::function<bool(const Row&)>& visit) const { walk(L"Select * From TCache", visit); }
    /// The rows of a query of the driver's, in its order.
    void rowsOf(const std::wstring& query, const std::function<bool(const Row&)>& visit) const {
        walk(query, visit);
    }

  private:
    void walk(const std::wstring& query, const std::function<bool(const Row&)>& visit) const;

    zelbar::Gateway gateway_;
    zelbar::Object workspace_;
    zelbar::Object database_;
};

/// Where the driver's cache lies, or would lie; nothing is made.
std::wstring cachePath();

}  // namespace pimcall

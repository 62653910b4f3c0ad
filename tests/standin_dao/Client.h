#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "automation/Object.h"
#include "standin/dao/Host.h"
#include "tests/automation/FaultOf.h"
#include "tests/harness/TemporaryFolder.h"

/// A late-bound client of the engine that this process hosts.
namespace client {

using zelbar::Object;
using zelbar::Variant;

inline constexpr long kDynaset = 2;
inline constexpr long kFailOnError = 128;

/// The number of the error that an action raises; 0 when it raises none.
inline long errorOf(const std::function<void()>& action) {
    return zelbar::faultOf(action).number;
}

class DaoTest : public testing::Test {
  protected:
    DaoTest();
    ~DaoTest() override;

    Object newEngine();
    Object open(const std::wstring& path);
    void run(const std::wstring& sql) { database_.call({L"Execute"}, sql, kFailOnError); }
    Object query(const std::wstring& sql) { return query(database_, sql); }
    static Object query(const Object& database, const std::wstring& sql);
    /// TCache as the product has it, with one row for each name; numbers are 1001, 1002, ...
    void makeCache(const std::vector<std::wstring>& names);

    standin::dao::Host host_;
    harness::TemporaryFolder folder_;
    std::wstring path_ = folder_.file(L"test.mdb");
    zelbar::Gateway gateway_;
    Object engine_ = newEngine();
    Object database_;
};

std::wstring text(const Object& recordset, const std::wstring& field);
/// The texts of one field from the first row to the last, each followed by a blank.
std::wstring column(const Object& recordset, const std::wstring& field);

}  // namespace client

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

inline long errorOf(const std::function<void()>& action) {
    return zelbar::faultOf(action).number;
}

inline std::wstring text(const Object& recordset, const std::wstring& field) {
    return recordset.object({L"Fields"}, field).text({L"Value"});
}
/// The texts of one field from the first row to the last, each followed by a blank.
inline std::wstring column(const Object& recordset, const std::wstring& field) {
    std::wstring all;
    for (; !recordset.boolean({L"EOF"}); recordset.call({L"MoveNext"})) all += text(recordset, field) + L" ";
    return all;
}

class DaoTest : public testing::Test {
  protected:
    ~DaoTest() override {
        database_ = engine_ = Object();
        EXPECT_EQ(host_.server().liveObjects(), 0);
    }
    void run(const std::wstring& sql) { database_.call({L"Execute"}, sql, kFailOnError); }
    Object query(const std::wstring& sql) { return database_.object({L"OpenRecordset"}, sql, kDynaset); }
    /// TCache as the product has it, with one row for each name; numbers are 1001, 1002, ...
    void makeCache(const std::vector<std::wstring>& names) {
        run(L"CREATE TABLE TCache (Name TEXT(255), PhoneNumber TEXT(50), EntryId TEXT(255), StoreID "
            L"TEXT(10))");
        run(L"CREATE INDEX NameIndex ON TCache (Name)");
        run(L"CREATE INDEX NumberIndex ON TCache (PhoneNumber)");
        long number = 1000;
        const Object rows = database_.object({L"OpenRecordset"}, L"TCache");
        for (const std::wstring& name : names) {
            rows.call({L"AddNew"});
            rows.object({L"Fields"}, L"Name").put({L"Value"}, name);
            rows.object({L"Fields"}, L"PhoneNumber").put({L"Value"}, std::to_wstring(++number));
            rows.call({L"Update"});
        }
    }

    standin::dao::Host host_;
    harness::TemporaryFolder folder_;
    std::wstring path_ = folder_.file(L"test.mdb");
    Object engine_ =
        zelbar::Gateway().create(zelbar::Server::Dao, standin::dao::kEngineProgId, zelbar::kUnknownClass);
    Object database_ = engine_.object({L"CreateDatabase"}, path_, L";LANGID=0x0409;CP=1252");
};

}  // namespace client

#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "filler/AddressBook.h"
#include "filler/CacheUpdate.h"
#include "standin/dao/Host.h"
#include "tests/harness/RegistrySandbox.h"
#include "tests/harness/TemporaryFolder.h"

inline constexpr wchar_t kPopup[] = L"Software\\Norvane\\7316\\Popup";
inline constexpr wchar_t kSelection[] = L"Software\\Norvane\\7316\\Popup\\zelbar00folder";

/// The content of a cache as a client of DAO reads it, sorted; Null is shown as "Null".
struct CacheContent {
    using Row = std::vector<std::wstring>;
    std::vector<Row> stores;   ///< Index, StoreID
    std::vector<Row> numbers;  ///< Name, PhoneNumber, EntryId, StoreID

    bool operator==(const CacheContent&) const = default;
};

/// Watches a run, and ends it where a test wants that.
class TestObserver : public filler::Observer {
  public:
    void progress(const wchar_t* what, long done, long total) override {
        lastProgress = std::wstring(what) + L" " + std::to_wstring(done) + L"/" + std::to_wstring(total);
        if (onProgress) onProgress();
    }
    void note(const std::wstring& sentence) override { notes.push_back(sentence); }
    bool cancelled() override { return cancelAt && --*cancelAt <= 0; }

    std::optional<int> cancelAt;  ///< The question for an end that is answered with yes, counted from 1.
    std::function<void()> onProgress;
    std::wstring lastProgress;
    std::vector<std::wstring> notes;
};

/// A data folder of its own, DAO in this process, settings of its own.
class CacheTest : public testing::Test {
  protected:
    static void SetUpTestSuite();
    CacheTest();

    std::wstring path() const { return folder_.file(L"connec00.mdb"); }
    CacheContent content() const;
    std::wstring flag() const;
    /// True when the data folder holds nothing but, perhaps, the cache.
    bool isTidy() const;

    /// One update of the cache; the sentence of the failure, or empty.
    std::wstring update(const filler::AddressBook& book);

    harness::TemporaryFolder folder_;
    harness::RegistrySandbox registry_;
    standin::dao::Host dao_;
    TestObserver observer_;
    filler::CacheChange change_;
};

/// An address book of one store and three numbers; `tail` is the end of the last number.
filler::AddressBook smallBook(const std::wstring& tail = L"3");

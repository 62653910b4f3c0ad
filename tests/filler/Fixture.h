#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "automation/DaoNames.h"
#include "automation/Gateway.h"
#include "automation/Object.h"
#include "filler/FillCache.h"
#include "standin/dao/Host.h"
#include "standin/outlook/host/Host.h"
#include "support/Registry.h"
#include "tests/harness/RegistrySandbox.h"
#include "tests/harness/TemporaryFolder.h"

inline constexpr wchar_t kPopup[] = L"Software\\Norvane\\7316\\Popup";
inline constexpr wchar_t kClient[] = L"Software\\Norvane\\7316\\VEXPhone";
inline constexpr wchar_t kWriting[] = L"Writing the cache";

using Texts = std::vector<std::wstring>;
using standin::outlook::FolderRecord;
using standin::outlook::ItemRecord;

/// Watches a run, and ends it where a test wants that.
struct TestObserver : filler::Observer {
    void progress(const wchar_t* what, long, long) override {
        if (onProgress) onProgress(what);
    }
    void note(const std::wstring& sentence) override { notes.push_back(sentence); }
    bool cancelled() override { return cancelAt && --*cancelAt <= 0; }
    void pause(DWORD) override {
        ++pauses;
        if (onPause) onPause();
    }

    std::optional<int> cancelAt;  ///< The question for an end that is answered with yes, counted from 1.
    std::function<void(const std::wstring&)> onProgress;
    std::function<void()> onPause;
    int pauses = 0;
    Texts notes;
};

/// A data folder of its own, Outlook and DAO in this process, settings of its own.
class FillerTest : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        // What registration enters so that a name leads to its class; the test itself serves the class.
        for (const auto& [progId, classId] :
             {std::pair{L"Outlook.Application", L"{0006F03A-0000-0000-C000-000000000046}"},
              std::pair{L"DAO.DBEngine.36", L"{00000100-0000-0010-8000-00AA006D2EA4}"}}) {
            const std::wstring key = std::wstring(L"Software\\Classes\\") + progId + L"\\CLSID";
            zelbar::RegistryKey::create(HKEY_LOCAL_MACHINE, key, KEY_ALL_ACCESS).write(L"", classId);
        }
    }
    FillerTest() { registry_.set(HKEY_CURRENT_USER, kClient, L"DataPath", folder_.path()); }
    ~FillerTest() override { EXPECT_EQ(outlook_.liveObjects() + dao_.server().liveObjects(), 0); }

    FolderRecord contacts() { return box_.specialFolder(standin::outlook::SpecialFolder::Contacts); }
    FolderRecord addFolder(const standin::outlook::StoreRecord& store, const wchar_t* name) {
        return box_.addFolder(store.root, name, standin::outlook::ItemType::Contact);
    }
    ItemRecord addPerson(const FolderRecord& folder, const wchar_t* last, const wchar_t* number) {
        return box_.addContact(folder.id, {{L"LastName", last}, {L"BusinessTelephoneNumber", number}});
    }
    void choose(int position, const FolderRecord& folder, const wchar_t* selected = L"-1") {
        const std::wstring key = std::wstring(kPopup) + L"\\zelbar00folder", n = std::to_wstring(position);
        registry_.set(HKEY_CURRENT_USER, key, L"entryId" + n, box_.entryId(folder));
        registry_.set(HKEY_CURRENT_USER, key, L"storeId" + n, box_.storeId(folder.store));
        registry_.set(HKEY_CURRENT_USER, key, L"selectId" + n, selected);
    }
    std::wstring flag() const {
        return registry_.get(HKEY_CURRENT_USER, kPopup, L"SynchroInProgress").value_or(L"0");
    }

    /// One run; the sentence of the failure, or empty.
    std::wstring fill() {
        observer_.notes.clear();
        observer_.pauses = 0;
        try {
            result_ = filler::fillCache(observer_, place_, way_);
            return {};
        } catch (const filler::Failure& failure) {
            return failure.sentence;
        }
    }

    /// The cache as a driver beside the filler has it.
    zelbar::Object openCache(bool exclusively = false) {
        return gateway_.create(zelbar::Server::Dao, L"DAO.DBEngine.36", zelbar::dao::kEngine)
            .object(zelbar::dao::OpenDatabase, path_, exclusively);
    }
    /// A table's rows, sorted; the texts of a row are joined by "|", Null is shown as "Null".
    Texts rows(const wchar_t* table, const Texts& columns) {
        Texts rows;
        const auto records = openCache().object(zelbar::dao::OpenRecordset, table, zelbar::dao::kOpenDynaset);
        for (; !records.boolean(zelbar::dao::EOF_); records.call(zelbar::dao::MoveNext)) {
            std::wstring row;
            for (const std::wstring& column : columns) {
                const auto value = records.object(zelbar::dao::FieldNamed, column).get(zelbar::dao::Value);
                row += (row.empty() ? L"" : L"|") + (value.type() == VT_NULL ? L"Null" : value.text());
            }
            rows.push_back(row);
        }
        std::sort(rows.begin(), rows.end());
        return rows;
    }
    Texts people() { return rows(L"TCache", {L"Name", L"PhoneNumber"}); }
    Texts content() { return rows(L"TCache", {L"Name", L"PhoneNumber", L"EntryId", L"StoreID"}); }

    harness::TemporaryFolder folder_;
    const std::wstring path_ = folder_.file(L"connec00.mdb"), newPath_ = folder_.file(L"connec00_new.mdb");
    harness::RegistrySandbox registry_;
    standin::dao::Host dao_;
    standin::outlook::Host host_{folder_.file(L"mailbox.db")};
    standin::Server& outlook_ = host_.server();
    standin::outlook::Mailbox& box_ = host_.mailbox();
    zelbar::Gateway gateway_;
    TestObserver observer_;
    numbers::Place place_;  ///< Not known, unless a test says so.
    std::optional<filler::ReadWay> way_;
    filler::FillResult result_;
};

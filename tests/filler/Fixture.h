#pragma once

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "automation/DaoNames.h"
#include "filler/FillCache.h"
#include "tests/fixture/DriverTest.h"

inline constexpr wchar_t kWriting[] = L"Writing the cache";

using Texts = std::vector<std::wstring>;
using standin::outlook::FolderRecord;
using standin::outlook::ItemRecord;

struct TestObserver : filler::Observer {
    void progress(const wchar_t* what, long, long) override {
        if (onProgress) onProgress(what);
    }
    void note(const std::wstring& sentence) override { notes.push_back(sentence); }
    bool cancelled() override { return cancelAt && --*cancelAt <= 0; }
    void pause(DWORD) override {}

    std::optional<int> cancelAt;  ///< The question for an end that is answered with yes, counted from 1.
    std::function<void(const std::wstring&)> onProgress;
    Texts notes;
};

/// The filler beside a driver, an Outlook and a DAO in this process.
class FillerTest : public zelbar::DriverTest {
  protected:
    FolderRecord addFolder(const standin::outlook::StoreRecord& store, const wchar_t* name) {
        return mailbox.addFolder(store.root, name, standin::outlook::ItemType::Contact);
    }
    ItemRecord addPerson(const FolderRecord& into, const wchar_t* last, const wchar_t* number) {
        return mailbox.addContact(into.id, {{L"LastName", last}, {L"BusinessTelephoneNumber", number}});
    }
    std::wstring flag() const {
        return registry.get(HKEY_CURRENT_USER, zelbar::kPopupKey, L"SynchroInProgress").value_or(L"0");
    }

    /// One run; the sentence of the failure, or empty.
    std::wstring fill() {
        observer_.notes.clear();
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

    const std::wstring path_ = folder.file(L"connec00.mdb");
    zelbar::Gateway gateway_;
    TestObserver observer_;
    numbers::Place place_;  ///< Not known, unless a test says so.
    std::optional<filler::ReadWay> way_;
    filler::FillResult result_;
};

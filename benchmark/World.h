#pragma once

#include <PIMDriverAbstract.h>
#include <windows.h>

#include <filesystem>
#include <string>
#include <vector>

#include "automation/Object.h"

/// What the driver is measured in: settings, a cache and contacts of the benchmark's own.
namespace benchmark {

using zelbar::Com;
using zelbar::Object;

/// Where one contact lies in Outlook.
struct ContactPlace {
    std::wstring entryId;
    std::wstring storeId;
};

/// The rows of a cache, numbered from 0.
struct CacheRows {
    long count;
    ContactPlace contact;    ///< The contact of all rows.
    bool withForms = false;  ///< Four more rows behind each, without a name, as the filler writes them.
    std::vector<ContactPlace> people = {};  ///< One row more for each, to walk through.

    /// What a row is found by.
    static std::wstring number(long row);
    static std::wstring name(long row);
    /// What finds all of the people.
    static std::wstring allPeople() { return L"+49 9*"; }
};

/// A data folder for the driver in this process; the settings name the latest one until it goes.
class DataFolder {
  public:
    explicit DataFolder(const wchar_t* name = L"tessaria-benchmark");
    ~DataFolder();
    DataFolder(const DataFolder&) = delete;
    DataFolder& operator=(const DataFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    /// Has the settings name this one again.
    void use() const;
    std::filesystem::path cacheFile() const { return path_ / L"connec00.mdb"; }
    /// Makes connec00.mdb anew, through DAO.
    void writeCache(const CacheRows& rows) const;

  private:
    std::filesystem::path path_;
};

/// Saves a new contact with three numbers through Outlook's own object model.
ContactPlace addContact(const Object& application, const std::wstring& lastName, const std::wstring& number);

/// The driver as registered, through its slots. Throws when it cannot be created.
Com<::DataConnector> createDriver();
/// One search; the contact found, or the unknown one.
Com<::Contact> findFirst(::DataConnector& driver, long kind, const std::wstring& text);

/// Throws std::runtime_error for an unknown caller: figures of searches that find nothing would look good.
void requireKnown(const Com<::Contact>& contact);

}  // namespace benchmark

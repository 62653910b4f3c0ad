#pragma once

#include <PIMDriverAbstract.h>
#include <windows.h>

#include <set>
#include <string>
#include <vector>

#include "automation/Com.h"
#include "standin/dao/Host.h"
#include "standin/outlook/host/Host.h"
#include "tests/harness/RegistrySandbox.h"
#include "tests/harness/TemporaryFolder.h"

namespace prove {

/// Facts of the world around the driver, a line each.
using Facts = std::multiset<std::string>;

/// What the driver meets: an Outlook and a DAO in this process, a mailbox, a cache, a directory, settings, a
/// data folder. It is the same before every run.
class Stage {
  public:
    Stage();
    ~Stage();
    static Stage& current();

    /// Puts everything back. Nobody may hold the databases any more.
    void reset();

    /// What is there now: Outlook's folders and items, the cache's rows, the settings, the files.
    Facts facts();

    /// As another program may find it in the table of running objects.
    HRESULT runningOutlook(REFCLSID id, IUnknown** result);
    /// Outlook is closed for good, until the next reset or `revive`.
    void killOutlook();
    void killDao();
    void revive();

    void set(const wchar_t* key, const wchar_t* name, const std::wstring& text);
    std::wstring file(const wchar_t* name) const { return data_ + L"\\" + name; }
    /// The module under test, as a file of its own beside its log.
    std::wstring module(const wchar_t* name);

    std::wstring adaId, adaStore;
    standin::outlook::Host outlook;
    standin::dao::Host dao;

  private:
    struct Database {
        std::wstring path;
        std::string bytes;
        ULONGLONG written = 0;
    };
    void fillMailbox();
    void makeDatabases();
    void makeSettings();
    void addMailbox(Facts& facts);
    void addRows(Facts& facts);
    void addSettings(Facts& facts, HKEY root, const std::wstring& path);
    void addFiles(Facts& facts, const std::wstring& folder);

    static harness::TemporaryFolder& folder();
    harness::RegistrySandbox registry_;
    std::wstring data_ = folder().makeFolder(L"data");
    std::vector<Database> databases_;
    long mailboxVersion_ = -1;
    long settingsVersion_ = -1;
    Facts mailboxFacts_, settings_, rows_;
    std::wstring goneId_;
};

}  // namespace prove

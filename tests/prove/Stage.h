#pragma once

#include <set>
#include <string>
#include <vector>

#include "tests/hostile/World.h"

namespace prove {

/// Facts of the world around the driver, a line each.
using Facts = std::multiset<std::string>;

/// The world that the driver meets, the same before every run; the cache has a row for a contact that is
/// gone.
class Stage : public hostile::World {
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
    /// The module under test, as a file of its own beside its log.
    HMODULE loadModule(const wchar_t* name);

  private:
    struct Database {
        std::wstring path;
        std::string bytes;
        ULONGLONG written = 0;
        bool isAsItWas() const;
    };
    void makeSettings();
    void addMailbox(Facts& facts);
    void addRows(Facts& facts) const;
    void addSettings(Facts& facts, HKEY root, const std::wstring& path) const;
    void addFiles(Facts& facts) const;

    std::vector<Database> databases_;
    long mailboxVersion_ = -1, settingsVersion_ = -1;
    Facts mailboxFacts_, settings_, rows_;
};

}  // namespace prove

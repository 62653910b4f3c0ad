#pragma once

#include <climits>
#include <functional>
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
    static Stage& current() { return *current_; }

    /// Puts everything back. Nobody may hold the databases any more.
    void reset();

    /// What is there now: Outlook's folders and items, the cache's rows, the settings, the files.
    Facts facts();

    /// Outlook or DAO is closed for good, until the next reset or `revive`.
    void kill(bool isDao);
    void revive();
    void set(const wchar_t* key, const wchar_t* name, const std::wstring& text);

    /// The module under test, as a file of its own beside its log.
    HMODULE loadModule(const wchar_t* name);

  private:
    /// Something that facts are about. They are read anew only while it is another than the stage has made
    /// it.
    struct Part {
        std::function<ULONGLONG()> version;
        std::function<void()> restore;
        std::function<Facts()> read;
        ULONGLONG known = ULLONG_MAX;
        Facts facts = {};
    };
    Part databaseAsItIs(const std::wstring& path, std::function<Facts()> read) const;
    void makeSettings();
    Facts readMailbox();
    Facts readRows() const;
    Facts readSettings(const std::wstring& path) const;

    static inline Stage* current_ = nullptr;
    std::vector<Part> parts_;
    /// How many settings the stage itself has made.
    long made_ = 0;
};

}  // namespace prove

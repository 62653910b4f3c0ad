#pragma once

#include <PIMDriverAbstract.h>

#include <string>
#include <vector>

#include "automation/Com.h"
#include "standin/dao/Host.h"
#include "standin/outlook/host/Host.h"
#include "tests/harness/RegistrySandbox.h"
#include "tests/harness/TemporaryFolder.h"
#include "tests/hostile/Proof.h"

namespace hostile {

using zelbar::Com;

inline constexpr wchar_t kPopupKey[] = L"Software\\Norvane\\7316\\Popup";
inline constexpr wchar_t kClientKey[] = L"Software\\Norvane\\7316\\VEXPhone";
inline constexpr wchar_t kInstallKey[] = L"Software\\Norvane\\7316\\Install";

/// What the registered driver is led into: settings, a profile and a data folder of its own, an Outlook and a
/// DAO in this process, some contacts and an employee. Dialogs are answered, now with OK, now with Cancel.
class World {
  public:
    World();
    ~World();
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    /// Runs statements in a database, which is made if there is none.
    static void sql(const std::wstring& file, const std::vector<std::wstring>& statements);
    std::wstring cacheFile() const { return folder.file(L"connec00.mdb"); }
    std::wstring directoryFile() const { return folder.file(L"wxd.mdb"); }
    /// A contact, as a line for the cache.
    std::wstring addContact(const std::wstring& first, const std::wstring& last, const std::wstring& number);
    /// The cache's rows, and Outlook's contacts.
    static long rows(const std::wstring& file);
    long contacts();

    static Com<IDispatch> createServer(const wchar_t* progId);
    static Com<::DataConnector> createDriver();
    /// One object of each kind that a client can get hold of.
    static std::vector<Com<IUnknown>> objectsOf(const Com<::DataConnector>& driver);
    /// Takes the driver's leave: true when it holds nothing any more.
    static bool canUnload();

    /// What a client does in a day, from the driver's creation to its end: searches both ways, reads, acts,
    /// has the folders chosen, exports. Nothing may be left of it. True when it found Ada.
    bool day(Proof& proof);

    harness::TemporaryFolder folder;
    harness::RegistrySandbox registry;
    standin::outlook::Host outlook{folder.file(L"mailbox.db")};
    standin::dao::Host dao;

  private:
    UINT_PTR timer_;
};

/// Serves the messages that are waiting.
void serveMessages();

}  // namespace hostile

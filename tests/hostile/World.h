#pragma once

#include <PIMDriverAbstract.h>

#include <string>
#include <vector>

#include "automation/Com.h"
#include "automation/Variant.h"
#include "standin/dao/Host.h"
#include "standin/dao/Sqlite.h"
#include "standin/outlook/host/Host.h"
#include "tests/harness/RegistrySandbox.h"
#include "tests/harness/TemporaryFolder.h"
#include "tests/hostile/Proof.h"

namespace hostile {

using zelbar::Com;
using zelbar::Variant;

inline constexpr wchar_t kPopupKey[] = L"Software\\Norvane\\7316\\Popup";
inline constexpr wchar_t kClientKey[] = L"Software\\Norvane\\7316\\VEXPhone";

/// Another opening of a database file, which no rule of Jet's holds back.
struct Beside : standin::dao::Connection {
    explicit Beside(const std::wstring& file) : Connection(file, standin::dao::Access::readWrite) {
        run(L"Pragma ignore_check_constraints = On");
    }
};

/// What a module exports.
template <class Function>
Function* exported(HMODULE module, const char* name) {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

/// What a member answers that is called by its name, as a script does.
Variant ask(const Com<IDispatch>& object, const wchar_t* member, const std::vector<Variant>& arguments = {});

/// What the driver is led into: settings, a profile and a data folder of its own; an Outlook and a DAO in
/// this process; contacts, an archive of more, a folder of an earlier export; a cache of them, with a row for
/// one that is gone, and a directory of employees.
class World {
  public:
    World();
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    /// For a program whose databases nobody else uses: files need no locks then, and are read in memory.
    static void keepFilesToItself();

    std::wstring file(const std::wstring& name) const { return data + L"\\" + name; }
    std::wstring cacheFile() const { return file(L"connec00.mdb"); }
    std::wstring directoryFile() const { return file(L"wxd.mdb"); }
    /// The cache's rows, and Outlook's contacts in a folder.
    long rows() const;
    long contacts(const wchar_t* folder = L"Contacts");

    static Com<IDispatch> createServer(const wchar_t* progId);
    /// A driver of that module, wherever it has been registered.
    static HRESULT makeDriver(HMODULE module, Com<::DataConnector>& driver);

    harness::TemporaryFolder folder;
    std::wstring data = folder.makeFolder(L"data");
    harness::RegistrySandbox registry;
    standin::outlook::Host outlook{folder.file(L"mailbox.db")};
    standin::dao::Host dao;
    std::wstring adaId, adaStore;

  private:
    void makeContactsAndCache();
    void makeExported();
    void makeDirectory();
};

}  // namespace hostile

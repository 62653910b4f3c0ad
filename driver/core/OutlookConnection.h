#pragma once

#include <string>

#include "automation/Deadline.h"
#include "automation/Gateway.h"
#include "automation/Object.h"
#include "automation/OutlookClass.h"
#include "core/LookUp.h"
#include "core/StoreTable.h"
#include "core/UserDoor.h"
#include "support/FLog.h"
#include "support/mLogError.h"

namespace zelbar {

/// How long one question of the client waits for Outlook, in milliseconds; 0 for no limit.
DWORD limitForCall();

/// The driver's one connection to Outlook. Nothing is trusted: Outlook may have been closed and started again
/// since the last call, so what is handed out has been probed, and is rebuilt in stages where the probe
/// fails.
class OutlookConnection {
  public:
    /// All that is passed must outlive the connection.
    OutlookConnection(Gateway& gateway, FLog& log, mLogError& errors, UserDoor& user,
                      const StoreTable& stores)
        : gateway_(gateway), log_(log), errors_(errors), user_(user), stores_(stores), class_(gateway) {}

    /// The time for what the client asks while the telephone rings, for what the user has asked for, and none
    /// for windows that wait for him and for messages that are served. To be held by each member that is
    /// asked, for as long as it lasts.
    Deadline timeForCall() const;
    Deadline timeForUser() const;
    Untimed untimed() const { return Untimed(gateway_); }

    /// The application of the Outlook that is running under that name; none is started for it. Throws when
    /// there is none.
    Object running(const wchar_t* progId) const;

    /// The shared application. When Outlook cannot be reached the user is told, and the connection-lost fault
    /// thrown.
    Object GetApp();

    /// The "MAPI" name space of a fresh connection; the caller's own. Throws the connection-lost fault.
    Object GetNameSpace();

    /// The item with that identity: in its store if that is known, then in the default store, then in every
    /// store of the table. `caller` and `context` are for the log only. Does not throw for what Outlook
    /// answers.
    LookUp GetContactFromID(const std::wstring& entryId, const std::wstring& storeId, const wchar_t* caller,
                            const std::wstring& context);

    /// Start-up's first contact, in the two steps that it logs one by one. What they obtain is shared.
    Object connectApplication();
    void connectNameSpace();

    /// Drops what is shared; the next use connects anew.
    void release();

  private:
    Object nameSpaceOf(const Object& application);
    Object probedNameSpace(const Object& application);
    void report(const Fault& fault, const wchar_t* function, const wchar_t* stage, const wchar_t* prefix);
    [[noreturn]] void raiseConnectionLost(const Fault& cause, const wchar_t* function);

    Gateway& gateway_;
    FLog& log_;
    mLogError& errors_;
    UserDoor& user_;
    const StoreTable& stores_;
    OutlookClass class_;
    Object application_;
    Object nameSpace_;
};

}  // namespace zelbar

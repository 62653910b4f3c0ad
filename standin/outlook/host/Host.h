#pragma once

#include <filesystem>
#include <memory>
#include <optional>

#include "standin/common/ClassFactory.h"
#include "standin/outlook/mailbox/Mailbox.h"

namespace standin::outlook {

class Application;
class Session;

extern const CLSID kApplicationClsid;

// Outlook hosted in this process: while it lives, creating an Outlook.Application in the same apartment
// reaches it. COM must be initialised. Release all references to its objects before it goes.
class Host {
  public:
    enum class Mode {
        // Reached by activation in the same apartment.
        InProcess,
        // The same, and entered in the running object table.
        InProcessAndRunning,
        // For a server program: nothing is offered until it calls offer().
        Program
    };

    explicit Host(const std::filesystem::path& mailboxFile, Mode mode = Mode::InProcess);
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    // Counters, faults and switches.
    Server& server() noexcept { return server_; }
    // What is saved; changes show at once in the objects that clients hold.
    Mailbox& mailbox() noexcept { return mailbox_; }

    // The Application that a client gets, without going through COM.
    Ref<Object> application();

    // As when the user closes Outlook: what was not saved is lost, windows close, old references answer
    // 0x800706BA. The next creation gives a fresh Application.
    void quit() { server_.quit(); }

    // As when the user starts Outlook: shows a folder window with the inbox.
    void showWindow();
    // Nobody holds an object and no window is open.
    bool isIdle() const;
    // Runs each time that this may have become true.
    void onIdle(std::function<void()> action);
    // Offers the Application to other processes and enters it in the running object table.
    void offer();

  private:
    void startSession();
    void enterRunningTable();
    void leaveRunningTable() noexcept;

    Server server_{L"Microsoft Outlook"};
    Mailbox mailbox_;
    std::shared_ptr<Session> session_;
    bool usesRunningTable_ = false;
    DWORD runningCookie_ = 0;
    std::function<void()> onIdle_;
    Ref<IClassFactory> factory_;
    std::optional<HostedClass> hosted_;
};

// Where a server program keeps its mailbox: environment variable STANDIN_MAILBOX, else the registry value
// "Mailbox" of HKEY_CURRENT_USER\Software\OutlookStandin, else %LOCALAPPDATA%\OutlookStandin\mailbox.db.
std::filesystem::path configuredMailboxFile();

}  // namespace standin::outlook

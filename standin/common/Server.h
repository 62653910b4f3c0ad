#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "standin/common/CallLog.h"
#include "standin/common/FaultScript.h"

namespace standin {

// What an object needs to know of its server even when that has gone.
struct ServerLife {
    // Objects that clients hold.
    long objects = 0;
    // Objects of an earlier generation belong to a server that has quit.
    unsigned generation = 0;
    // The Server itself exists no more.
    bool ended = false;
    std::function<void()> onLastRelease;
};

// What all objects of one hosted server share: the count of them, the record of calls, the ordered faults,
// and whether the server has quit. Objects that outlive it answer as after quit(). For one thread.
class Server {
  public:
    // The name is the source of the errors that members report, such as "Microsoft Outlook".
    explicit Server(std::wstring name) : name_(std::move(name)), life_(std::make_shared<ServerLife>()) {}
    ~Server();
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    const std::wstring& name() const noexcept { return name_; }
    // Objects that clients still hold, the control object not counted.
    long liveObjects() const noexcept { return life_->objects; }
    CallLog& calls() noexcept { return calls_; }
    FaultScript& faults() noexcept { return faults_; }

    // Switches of a particular server by name, empty when never set. Names in any case.
    std::wstring option(const std::wstring& name) const;
    void setOption(const std::wstring& name, std::wstring value);

    // From now on every object handed out before answers each call with 0x800706BA (server unavailable),
    // as proxies do when the process behind them has gone.
    void quit();
    // Runs inside quit(): forget the session, or leave the process's message loop.
    void onQuit(std::function<void()> action) { onQuit_ = std::move(action); }
    // Runs when the last object has been released.
    void onLastRelease(std::function<void()> action) { life_->onLastRelease = std::move(action); }

    const std::shared_ptr<ServerLife>& life() const noexcept { return life_; }

  private:
    std::wstring name_;
    std::shared_ptr<ServerLife> life_;
    CallLog calls_;
    FaultScript faults_;
    std::map<std::wstring, std::wstring> options_;
    std::function<void()> onQuit_;
};

// Counts as one live object while it exists.
class LiveToken {
  public:
    explicit LiveToken(const Server& server);
    ~LiveToken();
    LiveToken(const LiveToken&) = delete;
    LiveToken& operator=(const LiveToken&) = delete;

  private:
    std::shared_ptr<ServerLife> life_;
};

}  // namespace standin

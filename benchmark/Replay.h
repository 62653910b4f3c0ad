#pragma once

#include <map>
#include <string>
#include <vector>

#include "automation/Gateway.h"
#include "automation/Object.h"
#include "automation/OutlookClass.h"
#include "benchmark/World.h"

namespace benchmark {

using zelbar::Gateway;

/// What the Outlook stand-in was asked, through its control object.
class CallCounter {
  public:
    explicit CallCounter(const Object& application);

    void reset() const;
    long lookUps() const;
    long invocations() const;
    /// The calls since the last reset as "Class.Member".
    std::vector<std::wstring> calls() const;

  private:
    Object control_;
};

/// Does again what the driver asked of Outlook, call by call.
class Replay {
  public:
    /// As a plain late-bound client, which asks for a member's name at each use; as one that knows the
    /// members' numbers; or in the driver's own way, which also finds Outlook as the driver does.
    enum class Client { LateBound, EarlyBound, Driver };

    /// `calls` as a `CallCounter` gives them; questions for an object's class are left out for a late-bound
    /// client, who does not need them. Throws std::runtime_error for a call that it does not know.
    Replay(const std::vector<std::wstring>& calls, ContactPlace contact, Client client);

    void run();

  private:
    struct Step {
        std::wstring objectClass;
        std::wstring member;
        std::wstring resultClass;  ///< Empty when it gives no object.
        zelbar::ObjectClass resultNumber = zelbar::kUnknownClass;
        std::vector<std::wstring> arguments;
    };

    Step stepOf(const std::wstring& call) const;
    Object newApplication();
    Object perform(const Step& step);

    ContactPlace contact_;
    Client client_;
    Gateway gateway_;
    zelbar::OutlookClass class_{gateway_};
    std::vector<Step> steps_;  // not changed once made: the gateway remembers names by where they lie
    std::map<std::wstring, Object> objects_;  // the latest one of each class
};

}  // namespace benchmark

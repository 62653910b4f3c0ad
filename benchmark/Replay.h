#pragma once

#include <map>
#include <string>
#include <vector>

#include "automation/Gateway.h"
#include "automation/Object.h"
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

/// Does again what the driver asked of Outlook, call by call: as a plain late-bound client, which asks for a
/// member's name at each use, or with the names remembered.
class Replay {
  public:
    enum class Names { AskedEachTime, Remembered };

    /// `calls` as a `CallCounter` gives them; questions for an object's class are left out where names are
    /// not remembered, since nobody else needs them. Throws std::runtime_error for a call that it does not
    /// know.
    Replay(const std::vector<std::wstring>& calls, ContactPlace contact, Names names);

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
    Object perform(const Step& step);

    ContactPlace contact_;
    Names names_;
    Gateway gateway_;
    std::vector<Step> steps_;  // not changed once made: the gateway remembers names by where they lie
    std::map<std::wstring, Object> objects_;  // the latest one of each class
};

}  // namespace benchmark

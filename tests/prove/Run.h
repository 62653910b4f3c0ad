#pragma once

#include <set>
#include <string>

#include "tests/prove/Events.h"
#include "tests/prove/Scenarios.h"
#include "tests/prove/Stage.h"

namespace prove {

/// What one run has ended with. Only what is not empty was wrong.
struct Outcome {
    std::string escape;  ///< A member let a failure out.
    std::string leak;    ///< Something is held or open that was not before.
    std::string lost;    ///< Something of the user's has gone, or the driver does not work afterwards.
    bool reached = false;
};

/// A scenario, learned by doing it without any event: what it answers and changes, and how often it leaves
/// the driver.
class Rehearsed {
  public:
    Rehearsed(HMODULE module, const Scenario& scenario);

    long count(Kind kind) const { return departed_.count(kind); }
    Outcome run(const Event& event, Kind kind, long call);

  private:
    void prepare(const Event& event) const;
    void play(Client& client, const Event& event, Kind kind, long call);
    void compare(Outcome& outcome, const Event& event, Kind kind, const Client& client, const Facts& now,
                 bool again);
    Outcome runOnce(const Event& event, Kind kind, long call);
    void leaks(Outcome& outcome);

    HMODULE module_;
    const Scenario& scenario_;
    Departures departed_;
    Facts answers_, before_, once_, twice_;
    long blocks_ = 0;
};

}  // namespace prove

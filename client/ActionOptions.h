#pragma once

#include <string>
#include <vector>

#include "client/Arguments.h"
#include "client/CallInformation.h"
#include "client/Driver.h"

namespace pimcall {

/// The options that belong to actions: which are to run, their settings, and the details of the call.
inline constexpr Option kActionOptions[] = {
    {L"--action", L"ACTION"},       {L"--create", nullptr},     {L"--create-only", nullptr},
    {L"--to-address", L"ADDRESS"},  {L"--leave-open", nullptr}, {L"--path", L"FOLDER"},
    {L"--arguments", L"TEXT"},      {L"--start", L"TIME"},      {L"--duration", L"TEXT"},
    {L"--local-number", L"NUMBER"}, {L"--origin", L"TEXT"},
};

/// The actions that a command line asks for. The command line must outlive it.
class ActionOptions {
  public:
    /// Throws `UsageError` for unknown actions, and for options whose action is not asked for.
    static ActionOptions parse(const Arguments& arguments);

    bool any() const { return !ids_.empty(); }

    /// Fills in what the options tell about the call.
    void describe(CallDetails& details) const;

    /// The driver's actions in the order asked for, copied and set.
    std::vector<OwnAction> configure(const Driver& driver) const;

  private:
    explicit ActionOptions(const Arguments& arguments) : arguments_(arguments) {}

    const Arguments& arguments_;
    std::vector<long> ids_;
};

}  // namespace pimcall

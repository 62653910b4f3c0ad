#pragma once

#include "actions/ActionBase.h"
#include "actions/CallContact.h"
#include "actions/CommandLine.h"

namespace zelbar {

/// Starts a program with details of the call in its command line.
class ActionLaunchExe final : public ActionBase<ActionLaunchExe> {
  public:
    static constexpr long kActionID = 4101;
    static constexpr wchar_t kName[] = L"#05400#";
    static constexpr wchar_t kErrorPrefix[] = L"Error (ExecuteAction - ActionLaunchExe): ";

    explicit ActionLaunchExe(const ActionParts& parts);

    void execute(ContactArgument& argument);

  private:
    CommandLine filledArguments(const CallContact& contact) const;
    void prependFolder(CommandLine& line);
};

}  // namespace zelbar

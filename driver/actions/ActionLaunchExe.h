#pragma once

#include "actions/ActionBase.h"
#include "actions/CallContact.h"

namespace zelbar {

/// Starts a program with details of the call in its command line.
class ActionLaunchExe final : public ActionBase<ActionLaunchExe> {
  public:
    static constexpr long kActionID = 4101;
    static constexpr wchar_t kName[] = L"#05400#";
    static constexpr wchar_t kErrorPrefix[] = L"Error (ExecuteAction - ActionLaunchExe): ";

    ActionLaunchExe();

    void execute(ContactArgument& argument);

  private:
    std::wstring filledArguments(const CallContact& contact) const;
    std::wstring joinedCommand(const std::wstring& arguments);
};

}  // namespace zelbar

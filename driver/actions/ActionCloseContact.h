#pragma once

#include "actions/ActionBase.h"

namespace zelbar {

/// Closes the window of the call's contact in Outlook and takes the contact from the client: the call is
/// over.
class ActionCloseContact final : public ActionBase<ActionCloseContact> {
  public:
    static constexpr long kActionID = 4098;
    static constexpr wchar_t kName[] = L"#05100#";
    static constexpr wchar_t kErrorPrefix[] = L"Error (ExecuteAction - ActionCloseContact): ";

    using ActionBase::ActionBase;

    void execute(ContactArgument& argument);
};

}  // namespace zelbar

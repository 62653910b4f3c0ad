#pragma once

#include "actions/ActionBase.h"

namespace zelbar {

/// Records the call as an entry of Outlook's journal.
class ActionStoreInJournal final : public ActionBase<ActionStoreInJournal> {
  public:
    static constexpr long kActionID = 4100;
    static constexpr wchar_t kName[] = L"#05300#";
    static constexpr wchar_t kErrorPrefix[] = L"Error (ExecuteAction - ActionStoreInJournal): ";

    using ActionBase::ActionBase;

    void execute(ContactArgument& argument);
};

}  // namespace zelbar

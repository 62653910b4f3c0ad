#pragma once

#include "actions/ActionBase.h"
#include "actions/CallContact.h"

namespace zelbar {

/// Opens the window of the call's contact in Outlook; it can also make a contact for an unknown caller.
class ActionOpenContact final : public ActionBase<ActionOpenContact> {
  public:
    static constexpr long kActionID = 4097;
    static constexpr wchar_t kName[] = L"#05000#";
    static constexpr wchar_t kErrorPrefix[] = L"Error (ExecuteAction - ActionOpenContact): ";

    explicit ActionOpenContact(const ActionParts& parts);

    bool PIMAction_PassiveAction() const { return choice() == kOpenFound; }
    Com<::CallAction> PIMAction_CopyAction() const;

    void execute(ContactArgument& argument);

  private:
    /// What the user chose; other indexes mean neither.
    enum Choice : short { kOpenFound = 0, kCreateUnknown = 1, kOpenAndCreate = 2 };

    short choice() const;
    void meetUnknown(const CallContact& contact) const;
};

}  // namespace zelbar

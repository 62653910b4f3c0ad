#pragma once

#include "actions/ActionBase.h"

namespace zelbar {

/// Writes a mail about the call to a fixed address, and sends it or leaves it open for the user.
class ActionSendMail final : public ActionBase<ActionSendMail> {
  public:
    static constexpr long kActionID = 4099;
    static constexpr wchar_t kName[] = L"#05200#";
    static constexpr wchar_t kErrorPrefix[] = L"Error (ExecuteAction - ActionSendMail): ";

    explicit ActionSendMail(const ActionParts& parts);

    void execute(ContactArgument& argument);
};

}  // namespace zelbar

#pragma once

#include "actions/cPIMActions.h"
#include "connector/Parts.h"
#include "search/cContact.h"
#include "tests/fixture/DriverTest.h"

namespace zelbar {

inline constexpr long kOpen = 4097, kClose = 4098, kMail = 4099, kJournal = 4100, kLaunch = 4101;

using standin::outlook::ItemRecord;
using standin::outlook::SpecialFolder;

/// The call actions between a client and a hosted Outlook. `anna` is a contact that Outlook has.
class ActionTest : public DriverTest {
  protected:
    ActionTest();

    /// A fresh action of a kind, with values for some of its settings.
    Com<::CallAction> action(long id,
                             std::initializer_list<std::pair<const wchar_t*, Variant>> settings = {});
    /// The action that opens contacts, with this entry of its list chosen.
    Com<::CallAction> opener(short choice);
    /// Anna as a search delivers her, and a caller whom nobody knows.
    Com<cContact> known(const std::wstring& callInformation = {}, const std::wstring& storeId = {});
    Com<cContact> unknown(const std::wstring& callInformation = {});
    /// Runs an action early bound. What the caller's variable holds afterwards; the answer must be False.
    Com<::Contact> run(::CallAction& action, Com<::Contact> contact);

    /// The saved items of one of Outlook's folders, oldest first.
    std::vector<ItemRecord> saved(SpecialFolder folder);
    /// Full names or subjects of the items whose windows are open.
    std::vector<std::wstring> windows();

    ItemRecord anna;
};

Com<::ActionProperty> settingOf(::CallAction& action, const wchar_t* key);
std::wstring valueOf(::CallAction& action, const wchar_t* key);

}  // namespace zelbar

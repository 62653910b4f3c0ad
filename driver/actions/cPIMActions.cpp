#include "actions/cPIMActions.h"

#include "actions/ActionCloseContact.h"
#include "actions/ActionLaunchExe.h"
#include "actions/ActionOpenContact.h"
#include "actions/ActionSendMail.h"
#include "actions/ActionStoreInJournal.h"
#include "com/Enumerator.h"

namespace zelbar {

namespace {

struct Kind {
    long id;
    Com<::CallAction> (*make)(const ActionParts& parts);
};

template <class Action>
constexpr Kind kindOf() {
    return {Action::kActionID,
            [](const ActionParts& parts) { return Com<::CallAction>(makeObject<Action>(parts)); }};
}

constexpr Kind kKinds[] = {kindOf<ActionOpenContact>(), kindOf<ActionCloseContact>(),
                           kindOf<ActionSendMail>(), kindOf<ActionStoreInJournal>(),
                           kindOf<ActionLaunchExe>()};

}  // namespace

cPIMActions::cPIMActions(const ActionParts& parts) : parts_(parts) {
    try {
        for (const Kind& kind : kKinds) actions_.push_back({kind.id, kind.make(parts_)});
    } catch (...) {
        parts_.log.fault(L"Error (Class_Initialize - PIMActions): ", caughtFault());
    }
}

Com<::CallAction> cPIMActions::PIMActions_Item(long id) const {
    for (const Entry& entry : actions_)
        if (entry.id == id) return entry.action;
    throw runtimeFault(fault::kSubscriptOutOfRange);
}

Com<IUnknown> cPIMActions::PIMActions_NewEnum() const {
    std::vector<Variant> actions;
    for (const Entry& entry : actions_) actions.emplace_back(Com<IDispatch>(entry.action));
    return makeEnumerator(std::move(actions));
}

Com<::CallAction> cPIMActions::PIMActions_NewAction(long id) const {
    for (const Kind& kind : kKinds)
        if (kind.id == id) return kind.make(parts_);
    return {};
}

Com<::PIMActions> makeActions(const ActionParts& parts) {
    return makeObject<cPIMActions>(parts);
}

}  // namespace zelbar

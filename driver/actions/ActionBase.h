#pragma once

#include <string>

#include "actions/ActionParts.h"
#include "actions/cActionProperties.h"
#include "com/CallActionBorder.h"

namespace zelbar {

/// What the five kinds of action have in common. A kind `Self` gives its identifier `kActionID`, its name
/// `kName` (a numbered text), the start `kErrorPrefix` of the line that tells of a failed run, and
/// `execute(ContactArgument&)`, which may throw. Its constructor adds its settings.
template <class Self>
class ActionBase : public CallActionBorder<Self> {
  public:
    explicit ActionBase(const ActionParts& parts) : parts_(parts) {}

    /// The result means nothing to a client: it is False, whatever has happened.
    bool PIMAction_ExecuteAction(ContactArgument& contact) {
        try {
            const auto deadline = parts_.outlook.timeForCall();
            static_cast<Self*>(this)->execute(contact);
        } catch (...) {
            parts_.log.fault(Self::kErrorPrefix, caughtFault());
        }
        return false;
    }
    std::wstring PIMAction_ActionName() const { return parts_.texts.translate(Self::kName); }
    /// True for an action that never adds anything to the user's contacts.
    bool PIMAction_PassiveAction() const { return true; }
    long PIMAction_ActionID() const { return Self::kActionID; }
    Com<cActionProperties> PIMAction_ActionProp() const { return properties_; }
    Com<::CallAction> PIMAction_CopyAction() const {
        const auto copy = makeObject<Self>(parts_);
        copy->settings().copyFrom(settings());
        return copy;
    }

  protected:
    /// Adds a setting under its key, with a numbered text as its label.
    Com<cActionProperty> addSetting(const wchar_t* key, const wchar_t* label, const Variant& value,
                                    short type) {
        return settings().Add(key, parts_.texts.translate(label), value, type);
    }
    Com<cActionProperty> setting(const wchar_t* key) const { return settings().ActionProperties_Item(key); }
    Variant value(const wchar_t* key) const { return setting(key)->ActionProperty_Value(); }

    const ActionParts parts_;

  private:
    // There are none when memory ran out while the action was made.
    cActionProperties& settings() const {
        if (!properties_) throw runtimeFault(fault::kObjectNotSet);
        return *properties_;
    }

    Com<cActionProperties> properties_ = makeActionProperties(parts_.log);
};

}  // namespace zelbar

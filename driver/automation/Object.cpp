#include "automation/Object.h"

#include "automation/Fault.h"
#include "automation/OutlookNames.h"

namespace zelbar {

namespace {

/// `Class` has the same number on every one of Outlook's objects, so it is remembered for all of them at
/// once.
constexpr ObjectClass kAnyOfOutlook = 1000;

}  // namespace

ObjectClass Object::objectClass() const {
    if (!target_) throw runtimeFault(fault::kObjectNotSet);
    if (class_ == kAskForClass)
        class_ =
            gateway_
                ->invoke(*target_.get(), server_, kAnyOfOutlook, outlook::Class.name, Gateway::Kind::Call, {})
                .integer();
    return class_;
}

Variant Object::invoke(const Member& member, Gateway::Kind kind,
                       std::initializer_list<Variant> arguments) const {
    const ObjectClass known = objectClass();
    return gateway_->invoke(*target_.get(), server_, known, member.name, kind, arguments);
}

}  // namespace zelbar

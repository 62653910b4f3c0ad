#include "automation/Object.h"

#include "automation/Fault.h"
#include "automation/OutlookNames.h"

namespace zelbar {

namespace {

/// `Class` has the same number on every one of Outlook's objects, so it is remembered for all of them at
/// once.
constexpr ObjectClass kAnyOfOutlook = 1000;

}  // namespace

Object::Object(const Gateway& gateway, Server server, Com<IDispatch> target, ObjectClass objectClass) {
    if (target) reference_ = std::make_shared<Reference>(gateway, server, std::move(target), objectClass);
}

std::shared_ptr<Object::Reference> Object::called() const {
    if (!reference_) throw runtimeFault(fault::kObjectNotSet);
    return reference_;
}

ObjectClass Object::objectClass() const {
    return called()->knownClass();
}

Variant Object::invoke(const Member& member, Gateway::Kind kind,
                       std::initializer_list<Variant> arguments) const {
    return called()->invoke(member, kind, arguments);
}

Object Object::objectFrom(const Member& member, std::initializer_list<Variant> arguments) const {
    const auto source = called();
    Com<IDispatch> result = invoke(member, Gateway::Kind::Call, arguments).object();
    return Object(source->gateway, source->server, std::move(result), member.result);
}

ObjectClass Object::Reference::knownClass() {
    if (objectClass == kAskForClass)
        objectClass =
            gateway.invoke(*target, server, kAnyOfOutlook, outlook::Class, Gateway::Kind::Call, {}).integer();
    return objectClass;
}

Variant Object::Reference::invoke(const Member& member, Gateway::Kind kind,
                                  std::initializer_list<Variant> arguments) {
    return gateway.invoke(*target, server, knownClass(), member, kind, arguments);
}

}  // namespace zelbar

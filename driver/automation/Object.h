#pragma once

#include <string>
#include <utility>

#include "automation/Com.h"
#include "automation/Gateway.h"
#include "automation/Member.h"
#include "automation/Variant.h"

namespace zelbar {

/// A late-bound object of another server, or none. Owns its reference; copies share it. Every call throws a
/// Fault when it fails, and the object-not-set fault (91) on none.
class Object {
  public:
    Object() = default;
    Object(Gateway& gateway, Server server, Com<IDispatch> target, ObjectClass objectClass)
        : gateway_(&gateway), target_(std::move(target)), server_(server), class_(objectClass) {}

    explicit operator bool() const { return static_cast<bool>(target_); }
    const Com<IDispatch>& target() const { return target_; }

    /// Outlook's number for the class of this object; asks the object unless that is known.
    ObjectClass objectClass() const;

    /// Reads a property or calls a method: the two are one to a late-bound client.
    template <class... Arguments>
    Variant get(const Member& member, const Arguments&... arguments) const {
        return invoke(member, Gateway::Kind::Call, {Variant(arguments)...});
    }
    template <class... Arguments>
    void call(const Member& member, const Arguments&... arguments) const {
        get(member, arguments...);
    }
    /// The object that a member gives, of the class that the member names; none for Nothing.
    template <class... Arguments>
    Object object(const Member& member, const Arguments&... arguments) const {
        Com<IDispatch> result = get(member, arguments...).object();
        return Object(*gateway_, server_, std::move(result), member.result);
    }
    template <class... Arguments>
    std::wstring text(const Member& member, const Arguments&... arguments) const {
        return get(member, arguments...).text();
    }
    template <class... Arguments>
    long integer(const Member& member, const Arguments&... arguments) const {
        return get(member, arguments...).integer();
    }
    template <class... Arguments>
    bool boolean(const Member& member, const Arguments&... arguments) const {
        return get(member, arguments...).boolean();
    }

    void put(const Member& member, const Variant& value) const {
        invoke(member, Gateway::Kind::Put, {value});
    }
    void putReference(const Member& member, const Object& value) const {
        invoke(member, Gateway::Kind::PutReference, {Variant(value.target())});
    }

  private:
    Variant invoke(const Member& member, Gateway::Kind kind, std::initializer_list<Variant> arguments) const;

    Gateway* gateway_ = nullptr;
    Com<IDispatch> target_;
    Server server_ = Server::Client;
    mutable ObjectClass class_ = kUnknownClass;
};

}  // namespace zelbar

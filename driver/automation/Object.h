#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>

#include "automation/Com.h"
#include "automation/Gateway.h"
#include "automation/Member.h"
#include "automation/Variant.h"

namespace zelbar {

/// A late-bound object of another server, or none. Copies share one reference. Every call throws a Fault when
/// it fails, and the object-not-set fault (91) on none. While a call lasts, what is called is owned by the
/// call itself: a server may let the client in meanwhile, and what the client does then may empty or replace
/// any object that the driver holds.
class Object {
  public:
    Object() = default;
    Object(const Gateway& gateway, Server server, Com<IDispatch> target, ObjectClass objectClass);

    explicit operator bool() const { return reference_ != nullptr; }
    Com<IDispatch> target() const { return reference_ ? reference_->target : Com<IDispatch>(); }

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
        return objectFrom(member, {Variant(arguments)...});
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
    struct Reference {
        Reference(const Gateway& by, Server of, Com<IDispatch> held, ObjectClass known)
            : gateway(by), server(of), target(std::move(held)), objectClass(known) {}
        ~Reference() { gateway.release(server, std::move(target)); }
        Reference(const Reference&) = delete;
        Reference& operator=(const Reference&) = delete;

        Gateway gateway;
        Server server;
        Com<IDispatch> target;
        ObjectClass objectClass;  ///< Told by the target when it is first needed.

        ObjectClass knownClass();
        Variant invoke(const Member& member, Gateway::Kind kind, std::initializer_list<Variant> arguments);
    };

    /// For one call: a share of the reference. Throws the object-not-set fault on none.
    std::shared_ptr<Reference> called() const;
    Variant invoke(const Member& member, Gateway::Kind kind, std::initializer_list<Variant> arguments) const;
    Object objectFrom(const Member& member, std::initializer_list<Variant> arguments) const;

    std::shared_ptr<Reference> reference_;
};

}  // namespace zelbar

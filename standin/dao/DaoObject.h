#pragma once

#include <functional>

#include "standin/common/Object.h"
#include "standin/dao/DaoError.h"
#include "standin/dao/Schema.h"

namespace standin::dao {

/// An object of DAO's model. Its engine's errors reach the client with DAO's numbers, and its class as the
/// source.
class DaoObject : public Object {
  public:
    /// The failure as the client is to see it.
    Error reported(const DaoError& error) const;

  protected:
    explicit DaoObject(Server& server) : Object(server) {}
    /// False once it, or what it belongs to, has been closed; every use then fails with 3420.
    virtual bool isOpen() const { return true; }
    void beforeCall(const Member& member) override;
};

namespace detail {

template <Handler Run>
Value translated(Object& object, const Arguments& arguments) {
    try {
        return Run(object, arguments);
    } catch (const DaoError& error) {
        throw static_cast<DaoObject&>(object).reported(error);
    }
}

}  // namespace detail

/// The rows of DAO classes: as those of standin/common, but for engine errors.
template <auto Get>
constexpr Member daoReadOnly(const wchar_t* name, DISPID id, unsigned minArguments = 0,
                             unsigned maxArguments = 0) {
    Member member = readOnly<Get>(name, id, minArguments, maxArguments);
    member.get = &detail::translated<&standin::detail::callMember<Get>>;
    return member;
}

template <auto Get, auto Put>
constexpr Member daoProperty(const wchar_t* name, DISPID id, unsigned minArguments = 0,
                             unsigned maxArguments = 0) {
    Member member = daoReadOnly<Get>(name, id, minArguments, maxArguments);
    member.put = &detail::translated<&standin::detail::assignMember<Put>>;
    return member;
}

template <auto Call>
constexpr Member daoMethod(const wchar_t* name, DISPID id, unsigned minArguments = 0,
                           unsigned maxArguments = 0) {
    Member member = method<Call>(name, id, minArguments, maxArguments);
    member.call = &detail::translated<&standin::detail::callMember<Call>>;
    return member;
}

/// A stored value as a client gets it, and back. The second raises 3421 for what the column cannot hold.
Value toClient(const Cell& cell, JetType type);
Cell fromClient(const Value& value, JetType type);

}  // namespace standin::dao

#pragma once

#include <string_view>
#include <tuple>
#include <type_traits>
#include <vector>

#include "standin/common/Arguments.h"

namespace standin {

class Object;

using Handler = Value (*)(Object&, const Arguments&);

// One member of a class. The handlers that are set say what kind it is and how it may be invoked.
struct Member {
    const wchar_t* name;
    DISPID id;
    Handler get = nullptr;
    Handler put = nullptr;
    Handler putRef = nullptr;
    Handler call = nullptr;
    // Argument counts of reads and calls; the assigned value of a put is not counted.
    unsigned minArguments = 0;
    unsigned maxArguments = 0;
    // Members of the stand-in's own control, which the original lacks, are neither counted nor failed.
    bool control = false;
};

// The members of one class, found by name (any case) and by number.
class MemberTable {
  public:
    // The default member answers DISPID_VALUE besides its own number. Members of the base table are
    // inherited. Two members with one name or number are a fault of the table: throws std::logic_error.
    MemberTable(const wchar_t* className, std::vector<Member> members, const wchar_t* defaultMember = nullptr,
                const MemberTable* base = nullptr);
    MemberTable(const MemberTable&) = delete;
    MemberTable& operator=(const MemberTable&) = delete;

    const wchar_t* className() const noexcept { return className_; }
    const Member* byName(std::wstring_view name) const noexcept;
    const Member* byId(DISPID id) const noexcept;
    const std::vector<Member>& members() const noexcept { return members_; }

  private:
    const wchar_t* className_;
    std::vector<Member> members_;
    const Member* default_ = nullptr;
    std::vector<const Member*> byName_;
    std::vector<const Member*> byId_;
};

bool sameName(std::wstring_view left, std::wstring_view right) noexcept;

namespace detail {

template <class T>
struct MethodTraits;
template <class C, class R, class... P>
struct MethodTraits<R (C::*)(P...)> {
    using Class = C;
    using Result = R;
    using First = std::tuple_element_t<0, std::tuple<P..., void>>;
    static constexpr bool hasArguments = std::is_same_v<First, const Arguments&>;
};
template <class C, class R, class... P>
struct MethodTraits<R (C::*)(P...) const> : MethodTraits<R (C::*)(P...)> {};

// Calls a member function that takes nothing or the arguments as a whole.
template <auto Function, class Self>
decltype(auto) runMember(Self& self, const Arguments& arguments) {
    if constexpr (MethodTraits<decltype(Function)>::hasArguments)
        return (self.*Function)(arguments);
    else
        return (self.*Function)();
}

template <auto Function>
Value callMember(Object& object, const Arguments& arguments) {
    using Traits = MethodTraits<decltype(Function)>;
    auto& self = static_cast<typename Traits::Class&>(object);
    if constexpr (std::is_void_v<typename Traits::Result>) {
        runMember<Function>(self, arguments);
        return Value();
    } else {
        return toValue(runMember<Function>(self, arguments));
    }
}

// Calls a setter that takes the arguments as a whole or just the assigned value, converted to its parameter's
// type.
template <auto Function>
Value assignMember(Object& object, const Arguments& arguments) {
    using Traits = MethodTraits<decltype(Function)>;
    auto& self = static_cast<typename Traits::Class&>(object);
    if constexpr (Traits::hasArguments)
        (self.*Function)(arguments);
    else
        (self.*Function)(valueTo<std::decay_t<typename Traits::First>>(arguments.assigned()));
    return Value();
}

}  // namespace detail

// Builders for the rows of a table. Functions are member functions of the object's class.
template <auto Get>
constexpr Member readOnly(const wchar_t* name, DISPID id, unsigned minArguments = 0,
                          unsigned maxArguments = 0) {
    return {.name = name,
            .id = id,
            .get = &detail::callMember<Get>,
            .minArguments = minArguments,
            .maxArguments = maxArguments > minArguments ? maxArguments : minArguments};
}

template <auto Get, auto Put>
constexpr Member property(const wchar_t* name, DISPID id, unsigned minArguments = 0,
                          unsigned maxArguments = 0) {
    Member member = readOnly<Get>(name, id, minArguments, maxArguments);
    member.put = &detail::assignMember<Put>;
    return member;
}

// A property that is assigned by reference only ("Set x.Member = object").
template <auto Get, auto PutRef>
constexpr Member reference(const wchar_t* name, DISPID id) {
    Member member = readOnly<Get>(name, id);
    member.putRef = &detail::assignMember<PutRef>;
    return member;
}

template <auto Call>
constexpr Member method(const wchar_t* name, DISPID id, unsigned minArguments = 0,
                        unsigned maxArguments = 0) {
    return {.name = name,
            .id = id,
            .call = &detail::callMember<Call>,
            .minArguments = minArguments,
            .maxArguments = maxArguments > minArguments ? maxArguments : minArguments};
}

}  // namespace standin

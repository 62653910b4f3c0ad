#pragma once

#include <windows.h>

#include <oaidl.h>

#include <optional>
#include <string>
#include <vector>

#include "automation/Com.h"

/// What a type library says about interfaces, for tests: read through the platform, not through the driver.
namespace zelbar {

/// What a member takes from or gives to its caller.
struct ParameterDescription {
    VARTYPE type = VT_EMPTY;  ///< VT_USERDEFINED for one of the library's own interfaces.
    bool isReference = false;
    std::string text;  ///< "long", "ref long", "[variant]" for an optional one.
};

struct MemberDescription {
    std::string name;
    INVOKEKIND kind = INVOKE_FUNC;
    int slot = 0;
    std::vector<ParameterDescription> parameters;  ///< Without the result.
    std::optional<ParameterDescription> result;
    std::string text;  ///< "get Name() text", "Find(ref long, text) Contact"
};

/// An interface as its early-bound callers see it.
struct InterfaceDescription {
    std::string name;
    IID id{};
    bool isDual = false;
    std::vector<MemberDescription> members;
};

/// `info` describes the interface, from the automation side or from the other one.
InterfaceDescription describe(Com<ITypeInfo> info);

/// The name of a type, or of one of its members.
std::string nameOf(ITypeInfo& info, MEMBERID member = MEMBERID_NIL);

}  // namespace zelbar

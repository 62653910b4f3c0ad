#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>
#include <vector>

#include "automation/Com.h"

/// What a type library says about interfaces, for tests: read through the platform, not through the driver.
namespace zelbar {

/// What a member takes from or gives to its caller.
struct ParameterDescription {
    VARTYPE type = VT_EMPTY;  ///< VT_USERDEFINED for one of the library's own interfaces.
    bool isReference = false;
    bool isOptional = false;
    std::string text;
};

struct MemberDescription {
    std::string name;
    DISPID id = 0;
    INVOKEKIND kind = INVOKE_FUNC;
    int slot = 0;
    std::vector<ParameterDescription> parameters;  ///< Without the result.
    bool hasResult = false;
    ParameterDescription result;
    std::string text;  ///< "get Name() text", "Find(ref long, text) Contact"
};

/// An interface as its early-bound callers see it.
class InterfaceDescription {
  public:
    /// `info` describes it, from the automation side or from the other one.
    explicit InterfaceDescription(const Com<ITypeInfo>& info) { read(info); }

    const std::string& name() const { return name_; }
    const IID& id() const { return id_; }
    bool isDual() const { return dual_; }
    const std::vector<MemberDescription>& members() const { return members_; }

  private:
    void read(const Com<ITypeInfo>& info);

    std::string name_;
    IID id_{};
    bool dual_ = false;
    std::vector<MemberDescription> members_;
};

std::string nameOf(ITypeInfo& info);

}  // namespace zelbar

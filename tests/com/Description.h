#pragma once

#include <windows.h>

#include <oaidl.h>

#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "automation/Bstr.h"
#include "automation/Com.h"
#include "support/Encoding.h"

/// What a type library says about interfaces, for tests: read through the platform, not through the driver.
namespace zelbar {

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

inline std::string nameOf(ITypeInfo& info, MEMBERID member = MEMBERID_NIL) {
    Bstr name;
    info.GetDocumentation(member, name.put(), nullptr, nullptr, nullptr);
    return utf8(name.text());
}

inline std::string nameOfType(ITypeInfo& info, const TYPEDESC& type) {
    static const std::map<VARTYPE, std::string> kNames{
        {VT_BSTR, "text"},       {VT_BOOL, "flag"},       {VT_I2, "short"},       {VT_I4, "long"},
        {VT_VARIANT, "variant"}, {VT_DISPATCH, "object"}, {VT_UNKNOWN, "unknown"}};
    if (type.vt != VT_USERDEFINED) return kNames.at(type.vt);
    Com<ITypeInfo> meant;
    info.GetRefTypeInfo(type.hreftype, meant.put());
    return nameOf(*meant.get());
}

inline ParameterDescription described(ITypeInfo& info, const ELEMDESC& declared) {
    const USHORT flags = declared.paramdesc.wParamFlags;
    const TYPEDESC* type = &declared.tdesc;
    if (flags & PARAMFLAG_FOUT) type = type->lptdesc;
    // An interface is passed as a pointer to it, which says nothing about its direction.
    if (type->vt == VT_PTR && type->lptdesc->vt == VT_USERDEFINED) type = type->lptdesc;
    const bool isReference = (flags & PARAMFLAG_FOUT) && !(flags & PARAMFLAG_FRETVAL);
    const std::string text = (isReference ? "ref " : "") + nameOfType(info, *type);
    return {type->vt, isReference, flags & PARAMFLAG_FOPT ? "[" + text + "]" : text};
}

inline MemberDescription described(ITypeInfo& info, const FUNCDESC& function) {
    MemberDescription member;
    member.name = nameOf(info, function.memid);
    member.kind = function.invkind;
    member.slot = function.oVft / static_cast<int>(sizeof(void*));
    std::string taken;
    for (SHORT i = 0; i < function.cParams; ++i) {
        const ELEMDESC& declared = function.lprgelemdescParam[i];
        const ParameterDescription parameter = described(info, declared);
        if (declared.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) {
            member.result = parameter;
        } else {
            member.parameters.push_back(parameter);
            taken += (taken.empty() ? "" : ", ") + parameter.text;
        }
    }
    const std::string verb = member.kind == INVOKE_PROPERTYGET   ? "get "
                             : member.kind == INVOKE_PROPERTYPUT ? "put "
                                                                 : "";
    member.text = verb + member.name + "(" + taken + ")" + (member.result ? " " + member.result->text : "");
    return member;
}

/// `info` describes the interface, from the automation side or from the other one.
inline InterfaceDescription describe(Com<ITypeInfo> info) {
    if (!info) throw std::runtime_error("no description");
    InterfaceDescription result;
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    result.isDual = (attributes->wTypeFlags & TYPEFLAG_FDUAL) != 0;
    const bool isAutomationSide = attributes->typekind == TKIND_DISPATCH;
    info->ReleaseTypeAttr(attributes);
    if (isAutomationSide) {
        HREFTYPE other = 0;
        const Com<ITypeInfo> automation = info;
        automation->GetRefTypeOfImplType(static_cast<UINT>(-1), &other);
        automation->GetRefTypeInfo(other, info.put());
    }

    info->GetTypeAttr(&attributes);
    result.name = nameOf(*info.get());
    result.id = attributes->guid;
    for (UINT i = 0; i < attributes->cFuncs; ++i) {
        FUNCDESC* function = nullptr;
        info->GetFuncDesc(i, &function);
        result.members.push_back(described(*info.get(), *function));
        info->ReleaseFuncDesc(function);
    }
    info->ReleaseTypeAttr(attributes);
    return result;
}

}  // namespace zelbar

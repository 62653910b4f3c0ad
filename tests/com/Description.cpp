#include "tests/com/Description.h"

#include <gtest/gtest.h>

#include "automation/Bstr.h"

namespace zelbar {

namespace {

std::string documentedName(ITypeInfo& info, MEMBERID member) {
    Bstr name;
    info.GetDocumentation(member, name.put(), nullptr, nullptr, nullptr);
    std::string result;
    for (const wchar_t c : name.text()) result += static_cast<char>(c);
    return result;
}

std::string nameOfType(ITypeInfo& info, const TYPEDESC& type) {
    switch (type.vt) {
        case VT_BSTR:
            return "text";
        case VT_BOOL:
            return "flag";
        case VT_I2:
            return "short";
        case VT_I4:
            return "long";
        case VT_VARIANT:
            return "variant";
        case VT_DISPATCH:
            return "object";
        case VT_UNKNOWN:
            return "unknown";
        case VT_USERDEFINED: {
            Com<ITypeInfo> meant;
            info.GetRefTypeInfo(type.hreftype, meant.put());
            return meant ? nameOf(*meant.get()) : "?";
        }
        default:
            return "type " + std::to_string(type.vt);
    }
}

/// One parameter. An interface is passed as a pointer to it, which says nothing about its direction.
ParameterDescription described(ITypeInfo& info, const ELEMDESC& declared) {
    const USHORT flags = declared.paramdesc.wParamFlags;
    ParameterDescription result;
    const TYPEDESC* type = &declared.tdesc;
    if (flags & PARAMFLAG_FOUT) type = type->lptdesc;
    if (type->vt == VT_PTR && type->lptdesc->vt == VT_USERDEFINED) type = type->lptdesc;
    result.type = type->vt;
    result.isReference = (flags & PARAMFLAG_FOUT) != 0;
    result.isOptional = (flags & PARAMFLAG_FOPT) != 0;
    result.text = nameOfType(info, *type);
    return result;
}

std::string textOf(const MemberDescription& member) {
    std::string result;
    if (member.kind == INVOKE_PROPERTYGET) result = "get ";
    if (member.kind == INVOKE_PROPERTYPUT) result = "put ";
    result += member.name + "(";
    for (const ParameterDescription& parameter : member.parameters) {
        if (result.back() != '(') result += ", ";
        const std::string text = (parameter.isReference ? "ref " : "") + parameter.text;
        result += parameter.isOptional ? "[" + text + "]" : text;
    }
    result += ")";
    return member.hasResult ? result + " " + member.result.text : result;
}

MemberDescription described(ITypeInfo& info, const FUNCDESC& function) {
    MemberDescription member;
    member.name = documentedName(info, function.memid);
    member.id = function.memid;
    member.kind = function.invkind;
    member.slot = function.oVft / static_cast<int>(sizeof(void*));
    for (SHORT i = 0; i < function.cParams; ++i) {
        const ELEMDESC& declared = function.lprgelemdescParam[i];
        ParameterDescription parameter = described(info, declared);
        if (declared.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) {
            member.hasResult = true;
            member.result = std::move(parameter);
        } else {
            member.parameters.push_back(std::move(parameter));
        }
    }
    member.text = textOf(member);
    return member;
}

}  // namespace

std::string nameOf(ITypeInfo& info) {
    return documentedName(info, MEMBERID_NIL);
}

void InterfaceDescription::read(const Com<ITypeInfo>& info) {
    ASSERT_TRUE(info) << "no description";
    Com<ITypeInfo> early = info;
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
    dual_ = (attributes->wTypeFlags & TYPEFLAG_FDUAL) != 0;
    if (attributes->typekind == TKIND_DISPATCH) {
        HREFTYPE other = 0;
        ASSERT_EQ(info->GetRefTypeOfImplType(static_cast<UINT>(-1), &other), S_OK);
        ASSERT_EQ(info->GetRefTypeInfo(other, early.put()), S_OK);
    }
    info->ReleaseTypeAttr(attributes);

    ASSERT_EQ(early->GetTypeAttr(&attributes), S_OK);
    name_ = nameOf(*early.get());
    id_ = attributes->guid;
    for (UINT i = 0; i < attributes->cFuncs; ++i) {
        FUNCDESC* function = nullptr;
        ASSERT_EQ(early->GetFuncDesc(i, &function), S_OK);
        members_.push_back(described(*early.get(), *function));
        early->ReleaseFuncDesc(function);
    }
    early->ReleaseTypeAttr(attributes);
}

}  // namespace zelbar

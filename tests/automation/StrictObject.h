#pragma once

#include <windows.h>

#include <oaidl.h>

#include <functional>
#include <string>
#include <vector>

#include "automation/Com.h"
#include "automation/Variant.h"

/// A late-bound object that knows a handful of members, refuses wrong kinds of invocation, writes down what
/// it was asked, and answers as told. Lives on the test's stack; `references` must be 1 again at the end.
class StrictObject final : public IDispatch {
  public:
    struct Member {
        std::wstring name;
        DISPID number;
        WORD kinds = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
    };
    /// Gives the answer to a call of `member`.
    using Answer =
        std::function<HRESULT(DISPID member, DISPPARAMS& arguments, VARIANT* result, EXCEPINFO* exception)>;

    /// Without an answer of its own each member gives its number.
    explicit StrictObject(std::vector<Member> members, Answer answer = {})
        : members_(std::move(members)), answer_(std::move(answer)) {}
    StrictObject(const StrictObject&) = delete;
    StrictObject& operator=(const StrictObject&) = delete;

    zelbar::Com<IDispatch> reference() { return zelbar::Com<IDispatch>::share(this); }

    /// In their order: "?Name" for a look-up, "Name/3" for an invocation with those flags.
    std::vector<std::wstring> asked;
    long references = 1;

    STDMETHODIMP QueryInterface(REFIID id, void** result) noexcept override {
        *result = id == __uuidof(IUnknown) || id == __uuidof(IDispatch) ? this : nullptr;
        if (*result) AddRef();
        return *result ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return static_cast<ULONG>(++references); }
    STDMETHODIMP_(ULONG) Release() noexcept override { return static_cast<ULONG>(--references); }
    STDMETHODIMP GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }

    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* numbers) noexcept override {
        asked.push_back(std::wstring(L"?") + names[0]);
        for (const Member& member : members_)
            if (member.name == names[0]) {
                numbers[0] = member.number;
                return S_OK;
            }
        return DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID number, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                        EXCEPINFO* exception, UINT*) noexcept override {
        for (const Member& member : members_)
            if (member.number == number && (member.kinds & flags)) {
                asked.push_back(member.name + L"/" + std::to_wstring(flags));
                if (answer_) return answer_(number, *arguments, result, exception);
                if (result) *result = zelbar::Variant(number).detach();
                return S_OK;
            }
        return DISP_E_MEMBERNOTFOUND;
    }

  private:
    std::vector<Member> members_;
    Answer answer_;
};

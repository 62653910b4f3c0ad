#pragma once

#include <windows.h>

#include <objidl.h>

namespace harness {

/// A message filter of a client's own. It lives on the test's stack; `references` is 1 again at the end.
class ClientFilter final : public IMessageFilter {
  public:
    long references = 1;

    STDMETHODIMP QueryInterface(REFIID, void** result) noexcept override {
        *result = this;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return static_cast<ULONG>(++references); }
    STDMETHODIMP_(ULONG) Release() noexcept override { return static_cast<ULONG>(--references); }
    STDMETHODIMP_(DWORD) HandleInComingCall(DWORD, HTASK, DWORD, LPINTERFACEINFO) noexcept override {
        return SERVERCALL_RETRYLATER;
    }
    STDMETHODIMP_(DWORD) RetryRejectedCall(HTASK, DWORD, DWORD) noexcept override { return 77; }
    STDMETHODIMP_(DWORD) MessagePending(HTASK, DWORD, DWORD) noexcept override {
        return PENDINGMSG_WAITNOPROCESS;
    }
};

}  // namespace harness

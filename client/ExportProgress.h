#pragma once

#include <windows.h>

#include <oaidl.h>

#include <functional>
#include <string>

namespace pimcall {

/// What the driver tells about a long run. An object with the one member `Progress(Step, Done, Total)`, for
/// the length of one call; the driver keeps no reference after it.
class ExportProgress final : public IDispatch {
  public:
    using Tell = std::function<void(const std::wstring& step, long done, long total)>;
    explicit ExportProgress(Tell tell) : tell_(std::move(tell)) {}
    ExportProgress(const ExportProgress&) = delete;
    ExportProgress& operator=(const ExportProgress&) = delete;

    STDMETHODIMP QueryInterface(REFIID id, void** result) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return 2; }
    STDMETHODIMP_(ULONG) Release() noexcept override { return 1; }
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* numbers) noexcept override;
    STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*,
                        UINT*) noexcept override;

  private:
    Tell tell_;
};

}  // namespace pimcall

#pragma once

#include "standin/common/Error.h"
#include "standin/common/MemberTable.h"
#include "standin/common/Server.h"

namespace standin {

// A late-bound object: IDispatch over a table of members, strict about names, kinds and argument counts.
// Derived classes implement members as ordinary C++ functions that return values or throw Error.
class Object : public IDispatch {
  public:
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** result) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override;
    STDMETHODIMP_(ULONG) Release() noexcept override;
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** result) noexcept override;
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept override;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* badArgument) noexcept override;

    Server& server() const noexcept { return server_; }

    // The object behind an interface, if it is one of ours in this process; else empty.
    static Ref<Object> from(IUnknown* stranger) noexcept;

  protected:
    // Whether an object counts as live, and whether its calls are recorded and may be failed.
    // The stand-in's own objects are exempt from both; what the running object table holds counts its calls
    // only.
    enum class Accounting { Counted, CallsOnly, Exempt };
    explicit Object(Server& server, Accounting accounting = Accounting::Counted);
    virtual ~Object() = default;

    virtual const MemberTable& members() const = 0;
    // Lets a class hide members that the version it plays does not have.
    virtual bool offers(const Member&) const { return true; }
    // Runs before each invocation of a member; throws to refuse it.
    virtual void beforeCall(const Member&) {}

  private:
    const Member* find(std::wstring_view name) const;
    bool isAccounted(const Member* member) const;
    void refuseAfterQuit() const;
    DISPID lookUp(const wchar_t* name);
    Value invoke(DISPID id, WORD flags, const DISPPARAMS& parameters);
    Value dispatch(const Member& member, WORD flags, const DISPPARAMS& parameters);
    Value forwardToDefault(const Arguments& arguments, WORD flags);
    HRESULT report(const Error& error, EXCEPINFO* exception) const;

    Server& server_;
    const std::shared_ptr<ServerLife> life_;
    const Accounting accounting_;
    std::optional<LiveToken> liveToken_;
    const unsigned generation_;
    ULONG references_ = 1;
};

// A new object, owned by the reference.
template <class T, class... Arguments>
Ref<T> makeObject(Arguments&&... arguments) {
    return adopt(new T(std::forward<Arguments>(arguments)...));
}

}  // namespace standin

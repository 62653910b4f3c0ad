#include "tests/hostile/Foreign.h"

#include <map>

namespace hostile {

void Foreign::implement(const zelbar::InterfaceDescription& contact) {
    constexpr size_t kDispatchSlots = 7, kWordsOfVariant = 4;
    // Who is called takes the arguments off the stack, so many words.
    static const std::map<size_t, void*> kSlots{
        {0, reinterpret_cast<void*>(&onSlot<>)},
        {1, reinterpret_cast<void*>(&onSlot<int>)},
        {2, reinterpret_cast<void*>(&onSlot<int, int>)},
        {kWordsOfVariant, reinterpret_cast<void*>(&onSlot<int, int, int, int>)}};
    void**& table = *reinterpret_cast<void***>(this);
    slots_.assign(table, table + kDispatchSlots);
    for (const auto& member : contact.members) {
        size_t words = member.result ? 1 : 0;
        for (const auto& parameter : member.parameters)
            words += parameter.type == VT_VARIANT && !parameter.isReference ? kWordsOfVariant : 1;
        slots_.push_back(kSlots.at(words));
    }
    table = slots_.data();
}

STDMETHODIMP Foreign::QueryInterface(REFIID id, void** result) noexcept {
    const bool has = id == __uuidof(IUnknown) || id == __uuidof(IDispatch) ||
                     (id == __uuidof(::Contact) && !slots_.empty());
    if (manner_ == Manner::IsRubbish) {
        *result = reinterpret_cast<void*>(0x10);
        return E_NOINTERFACE;
    }
    *result = has && manner_ != Manner::IsNothing ? this : nullptr;
    if (*result) AddRef();
    return *result || manner_ == Manner::IsNothing ? S_OK : E_NOINTERFACE;
}

HRESULT Foreign::behave() noexcept {
    if (manner_ == Manner::Lies) return S_OK;
    if (manner_ == Manner::Excepts) return DISP_E_EXCEPTION;
    if (manner_ == Manner::Reenters && !isCalling_) {
        isCalling_ = true;
        callBack_();
        isCalling_ = false;
    }
    return E_FAIL;
}

STDMETHODIMP Foreign::GetIDsOfNames(REFIID, LPOLESTR*, UINT count, LCID, DISPID* ids) noexcept {
    std::fill_n(ids, count, 1);
    return manner_ == Manner::Fails ? DISP_E_UNKNOWNNAME : S_OK;
}

STDMETHODIMP Foreign::Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO* exception,
                             UINT*) noexcept {
    if (manner_ == Manner::Excepts && exception) {
        exception->scode = ++lies_ % 3 == 0 ? S_OK : lies_ % 3 == 1 ? 7 : E_FAIL;
        exception->bstrDescription = lies_ % 2 ? nullptr : SysAllocStringLen(nullptr, 40'000);
        exception->bstrSource = SysAllocStringByteLen("odd", 3);
    }
    if (manner_ == Manner::Lies && result) {
        // Null wherever the type leads somewhere; some types are none.
        ++lies_;
        constexpr int kTypes = 40, kWays[] = {0, VT_BYREF, VT_ARRAY};
        *result = {};
        result->vt = static_cast<VARTYPE>(lies_ % kTypes | kWays[lies_ % 3]);
    }
    return behave();
}

}  // namespace hostile

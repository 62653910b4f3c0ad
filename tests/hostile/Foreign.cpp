#include "tests/hostile/Foreign.h"

#include <cstring>

namespace hostile {

namespace {

constexpr size_t kDispatchSlots = 7;

/// Machine code for a slot: calls `target` with the object, and takes `bytes` of arguments off the stack.
void* makeSlot(HRESULT (*target)(Foreign*), unsigned short bytes) {
    BYTE code[] = {0xFF, 0x74, 0x24, 0x04,     // push [esp+4], the object
                   0xB8, 0,    0,    0,    0,  // mov eax, target
                   0xFF, 0xD0,                 // call eax
                   0x59,                       // pop ecx
                   0xC2, 0,    0};             // ret bytes
    std::memcpy(code + 5, &target, sizeof target);
    std::memcpy(code + 13, &bytes, sizeof bytes);
    static BYTE* page = nullptr;
    static size_t used = 4096;
    if (used + sizeof code > 4096) {
        page =
            static_cast<BYTE*>(VirtualAlloc(nullptr, 4096, MEM_COMMIT | MEM_RESERVE, PAGE_EXECUTE_READWRITE));
        used = 0;
    }
    BYTE* const place = page + used;
    used += sizeof code;
    std::memcpy(place, code, sizeof code);
    return place;
}

}  // namespace

void Foreign::implement(const zelbar::InterfaceDescription& contact) {
    void**& table = *reinterpret_cast<void***>(this);
    slots_.assign(table, table + kDispatchSlots);
    for (const auto& member : contact.members) {
        size_t bytes = sizeof(void*) * (member.result ? 2 : 1);
        for (const auto& parameter : member.parameters)
            bytes += parameter.type == VT_VARIANT && !parameter.isReference ? sizeof(VARIANT) : sizeof(void*);
        slots_.push_back(makeSlot(&Foreign::onSlot, static_cast<unsigned short>(bytes)));
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

HRESULT Foreign::onSlot(Foreign* self) noexcept {
    return self->behave();
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

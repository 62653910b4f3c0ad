#pragma once

#include "com/Border.h"

namespace zelbar {

/// The members of `ContactRecord`.
template <class Self>
class ContactRecordBorder : public Border<Self, ::ContactRecord> {
  public:
    STDMETHODIMP get_EOF(VARIANT_BOOL* result) noexcept override {
        return answer(L"Error (EOF): ", result, [&] { return self()->ContactRecord_EOF(); });
    }
    STDMETHODIMP get_BOF(VARIANT_BOOL* result) noexcept override {
        return answer(L"Error (BOF): ", result, [&] { return self()->ContactRecord_BOF(); });
    }
    STDMETHODIMP get_RecordCount(short* result) noexcept override {
        return answer(L"Error (RecordCount): ", result, [&] { return self()->ContactRecord_RecordCount(); });
    }
    STDMETHODIMP get_NoMatch(VARIANT_BOOL* result) noexcept override {
        return answer(L"Error (NoMatch): ", result, [&] { return self()->ContactRecord_NoMatch(); });
    }
    STDMETHODIMP FillContactCollection(LONG* kind, BSTR text, IDispatch** result) noexcept override {
        if (!kind) return E_POINTER;
        return answer(L"Error (FillContactCollection): ", result,
                      [&] { return self()->ContactRecord_FillContactCollection(*kind, textOf(text)); });
    }
    STDMETHODIMP FindFirstForUnified(LONG* kind, BSTR text, ::Contact** result) noexcept override {
        if (!kind) return E_POINTER;
        return answer(L"Error (FindFirstForUnified): ", result,
                      [&] { return self()->ContactRecord_FindFirstForUnified(*kind, textOf(text)); });
    }
    STDMETHODIMP FindFirst(LONG* kind, BSTR text, ::Contact** result) noexcept override {
        if (!kind) return E_POINTER;
        return answer(L"Error (FindFirst): ", result,
                      [&] { return self()->ContactRecord_FindFirst(*kind, textOf(text)); });
    }
    STDMETHODIMP FindNext(::Contact** result) noexcept override {
        return answer(L"Error (FindNext): ", result, [&] { return self()->ContactRecord_FindNext(); });
    }
    STDMETHODIMP FindPrevious(::Contact** result) noexcept override {
        return answer(L"Error (FindPrevious): ", result,
                      [&] { return self()->ContactRecord_FindPrevious(); });
    }
    STDMETHODIMP MoveFirst() noexcept override {
        return perform(L"Error (MoveFirst): ", [&] { self()->ContactRecord_MoveFirst(); });
    }
    STDMETHODIMP MoveLast() noexcept override {
        return perform(L"Error (MoveLast): ", [&] { self()->ContactRecord_MoveLast(); });
    }
    STDMETHODIMP get_Contact(::Contact** result) noexcept override {
        return answer(L"Error (Contact): ", result, [&] { return self()->ContactRecord_Contact(); });
    }
    STDMETHODIMP ExecuteCommand(BSTR command, VARIANT* result) noexcept override {
        return answer(L"Error (ExecuteCommand): ", result,
                      [&] { return self()->ContactRecord_ExecuteCommand(textOf(command)); });
    }

  private:
    using Border<Self, ::ContactRecord>::answer;
    using Border<Self, ::ContactRecord>::perform;
    using Border<Self, ::ContactRecord>::self;
};

}  // namespace zelbar

#pragma once

#include <initializer_list>
#include <string>

#include "standin/common/Value.h"

namespace late {

using standin::Ref;
using standin::Value;

/// How one invocation ended.
struct Outcome {
    HRESULT result = S_OK;
    // Of the exception, when the result is DISP_E_EXCEPTION.
    HRESULT number = S_OK;
    std::wstring description;
    std::wstring source;
    Value value;
};

/// A client's view of an object: everything by name, as a script does it. Unchecked calls return the outcome;
/// the others fail the running test when the call fails.
class Object {
  public:
    Object() = default;
    explicit Object(Ref<IDispatch> target) : target_(std::move(target)) {}

    explicit operator bool() const { return target_ != nullptr; }
    IDispatch* raw() const { return target_.Get(); }

    HRESULT lookUp(const wchar_t* name, DISPID& id) const;
    Outcome invoke(const wchar_t* name, WORD flags, std::initializer_list<Value> arguments = {}) const;
    Outcome invokeNumber(DISPID id, WORD flags, std::initializer_list<Value> arguments = {}) const;
    /// A read or call as scripts do it.
    Outcome attempt(const wchar_t* name, std::initializer_list<Value> arguments = {}) const;

    Value get(const wchar_t* name, std::initializer_list<Value> arguments = {}) const;
    std::wstring text(const wchar_t* name, std::initializer_list<Value> arguments = {}) const;
    long number(const wchar_t* name, std::initializer_list<Value> arguments = {}) const;
    /// Empty for Nothing.
    Object object(const wchar_t* name, std::initializer_list<Value> arguments = {}) const;
    void call(const wchar_t* name, std::initializer_list<Value> arguments = {}) const;
    Value value() const;

  private:
    Ref<IDispatch> target_;
};

/// A new reference to the root object by CoCreateInstance.
Object create(const CLSID& clsid, DWORD context = CLSCTX_ALL);

/// The exception's number, else the result itself.
HRESULT numberOf(const Outcome& outcome);

}  // namespace late

#pragma once

#include <windows.h>

#include <string>

namespace zelbar {

/// A failure on its way to the routine that traps it; thrown by value. The number is the one that a
/// user of automation knows: run-time errors (91, 438, 462, 3021) where the failing HRESULT stands for
/// one, the HRESULT itself otherwise. Number 0 means that nothing failed.
struct Fault {
    long number = 0;
    std::wstring description;
    std::wstring source;

    explicit operator bool() const { return number != 0; }
};

/// Run-time error numbers that the driver raises or tests itself.
namespace fault {
inline constexpr long kOverflow = 6;
inline constexpr long kSubscriptOutOfRange = 9;
inline constexpr long kTypeMismatch = 13;
inline constexpr long kPermissionDenied = 70;
inline constexpr long kObjectNotSet = 91;
}  // namespace fault

/// The run-time error of that number with its usual text, raised by the driver itself.
Fault runtimeFault(long number);

/// The fault that a failing HRESULT stands for; `source` names the server that answered it.
Fault faultOf(HRESULT result, std::wstring source);

/// The error number that an HRESULT is shown as.
long numberOf(HRESULT result);

/// The exception being handled, as a fault. Only inside a catch clause; never throws.
Fault caughtFault() noexcept;

}  // namespace zelbar

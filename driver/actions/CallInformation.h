#pragma once

/// The call information string: what a client tells an action about the call, as fields in the contact's
/// `PersonalData`. Each field is a key, its value and a ";".
namespace zelbar::call {

inline constexpr wchar_t kType[] = L"TYPE=";
inline constexpr wchar_t kStart[] = L"START=";
inline constexpr wchar_t kDuration[] = L"DURATION=";
inline constexpr wchar_t kOrigin[] = L"ORIGIN=";
inline constexpr wchar_t kLocalNumber[] = L"LOCALNUMBER=";
inline constexpr wchar_t kPhoneNumber[] = L"PHONENUMBER=";

// Values of the type; any other leaves the direction open.
inline constexpr wchar_t kIncoming[] = L"incoming";
inline constexpr wchar_t kOutgoing[] = L"outgoing";

}  // namespace zelbar::call

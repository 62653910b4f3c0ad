#include "standin/outlook/objects/Errors.h"

namespace standin::outlook {
namespace {

constexpr unsigned long kPrivateBits = 0x7FF00000UL;

// Any number whose private bits differ from the last one's.
unsigned long nextPrivateBits() {
    static unsigned long bits = 0x41F00000UL;
    const unsigned long current = bits;
    bits = (bits + 0x0B100000UL) & kPrivateBits;
    return current;
}

constexpr HRESULT code(unsigned long number) {
    return static_cast<HRESULT>(number);
}

}  // namespace

Error outlookError(Server& server, HRESULT number, std::wstring description) {
    if (server.option(L"PrivateBits") == L"on") {
        number = code((static_cast<unsigned long>(number) & ~kPrivateBits) | nextPrivateBits());
    }
    return Error(number, std::move(description));
}

Error notFound(Server& server) {
    return outlookError(server, code(0x8004010F), L"The operation failed. An object could not be found.");
}

Error invalidEntryId(Server& server) {
    return outlookError(server, code(0x80040107), L"The operation failed.");
}

Error badParameter(Server& server) {
    return outlookError(server, E_INVALIDARG, L"One or more parameter values are not valid.");
}

Error storeNotOpen(Server& server) {
    return outlookError(server, code(0x8004011C), L"The information store could not be opened.");
}

Error outOfBounds(Server& server) {
    return outlookError(server, code(0x80020009), L"Array index out of bounds.");
}

Error itemGone(Server& server) {
    return outlookError(server, code(0x8004010A), L"The item has been moved or deleted.");
}

Error nameTaken(Server& server) {
    return outlookError(server, code(0x80040604),
                        L"The operation failed. A folder with this name already exists in this location.");
}

Error notSupported(Server& server) {
    return outlookError(server, code(0x80040102), L"The operation failed.");
}

Error accessDenied(Server& server) {
    return outlookError(server, E_ACCESSDENIED,
                        L"You don't have appropriate permission to perform this operation.");
}

Error unknownRecipients(Server& server) {
    return outlookError(server, E_FAIL, L"Outlook does not recognize one or more names.");
}

}  // namespace standin::outlook

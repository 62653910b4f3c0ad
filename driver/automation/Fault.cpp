#include "automation/Fault.h"

#include <exception>
#include <iterator>
#include <new>

namespace zelbar {

namespace {

constexpr wchar_t kOwnSource[] = L"zelbar00";
constexpr unsigned long kControlErrorBase = 0x800A0000UL;

struct RuntimeText {
    long number;
    const wchar_t* text;
};

constexpr RuntimeText kRuntimeTexts[] = {
    {5, L"Invalid procedure call or argument"},
    {6, L"Overflow"},
    {7, L"Out of memory"},
    {9, L"Subscript out of range"},
    {13, L"Type mismatch"},
    {70, L"Permission denied"},
    {91, L"Object variable or With block variable not set"},
    {429, L"ActiveX component can't create object"},
    {430, L"Class does not support Automation or does not support expected interface"},
    {438, L"Object doesn't support this property or method"},
    {449, L"Argument not optional"},
    {450, L"Wrong number of arguments or invalid property assignment"},
    {462, L"The remote server machine does not exist or is unavailable"},
};

struct NumberOfResult {
    HRESULT result;
    long number;
};

constexpr NumberOfResult kNumbers[] = {
    {DISP_E_UNKNOWNNAME, 438},
    {DISP_E_MEMBERNOTFOUND, 438},
    {DISP_E_TYPEMISMATCH, 13},
    {DISP_E_OVERFLOW, 6},
    {DISP_E_BADPARAMCOUNT, 450},
    {DISP_E_PARAMNOTOPTIONAL, 449},
    {E_NOINTERFACE, 430},
    {E_OUTOFMEMORY, 7},
    {E_ACCESSDENIED, 70},
    {REGDB_E_CLASSNOTREG, 429},
    {CO_E_CLASSSTRING, 429},
    {MK_E_UNAVAILABLE, 429},
    {HRESULT_FROM_WIN32(1722), 462},
};

std::wstring runtimeText(long number) {
    for (const auto& known : kRuntimeTexts)
        if (known.number == number) return known.text;
    return {};
}

std::wstring systemText(HRESULT result) {
    wchar_t buffer[256];
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                  static_cast<DWORD>(result), 0, buffer, std::size(buffer), nullptr);
    while (length > 0 && buffer[length - 1] <= L' ') --length;
    return std::wstring(buffer, length);
}

std::wstring widened(const char* text) {
    std::wstring result;
    for (; *text; ++text) result += static_cast<wchar_t>(static_cast<unsigned char>(*text));
    return result;
}

}  // namespace

long numberOf(HRESULT result) {
    for (const auto& known : kNumbers)
        if (known.result == result) return known.number;
    const auto bits = static_cast<unsigned long>(result);
    if ((bits & 0xFFFF0000UL) == kControlErrorBase && (bits & 0xFFFFUL) != 0)
        return static_cast<long>(bits & 0xFFFFUL);
    return result;
}

Fault runtimeFault(long number) {
    return {number, runtimeText(number), kOwnSource};
}

Fault faultOf(HRESULT result, std::wstring source) {
    const long number = numberOf(result);
    std::wstring text = runtimeText(number);
    if (text.empty()) {
        text = L"Automation error";
        if (const std::wstring reason = systemText(result); !reason.empty()) text += L": " + reason;
    }
    return {number, std::move(text), std::move(source)};
}

Fault caughtFault() noexcept {
    try {
        try {
            throw;
        } catch (const Fault& caught) {
            return caught;
        } catch (const std::bad_alloc&) {
            return runtimeFault(7);
        } catch (const std::exception& caught) {
            return {E_UNEXPECTED, widened(caught.what()), kOwnSource};
        } catch (...) {
            return {E_UNEXPECTED, L"Unexpected failure", kOwnSource};
        }
    } catch (...) {
        // No memory even for the text: the number alone must do.
        return {7, {}, {}};
    }
}

}  // namespace zelbar

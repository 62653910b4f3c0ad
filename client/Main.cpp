#include <windows.h>

#include <objbase.h>

#include "client/HandleWriter.h"
#include "client/Program.h"

int wmain(int count, wchar_t** words) {
    // The telephony client calls the driver from a single-threaded apartment, and so does this program.
    const HRESULT apartment = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    const auto createDriver = [apartment] {
        pimcall::require(apartment, L"starting COM");
        return pimcall::Driver::create();
    };
    pimcall::HandleWriter out(STD_OUTPUT_HANDLE);
    pimcall::HandleWriter error(STD_ERROR_HANDLE);
    const std::vector<std::wstring> arguments(words + (count > 0 ? 1 : 0), words + count);
    const pimcall::ExitCode result = pimcall::runProgram(arguments, createDriver, out, error);
    if (SUCCEEDED(apartment)) CoUninitialize();
    return static_cast<int>(result);
}

#include "tests/prove/Imports.h"

#include <objbase.h>
#include <oleauto.h>
#include <shellapi.h>
#include <shlobj.h>
#include <shlwapi.h>

#include <algorithm>
#include <cstring>
#include <string_view>
#include <type_traits>
#include <utility>

#include "standin/common/FaultScript.h"
#include "tests/hostile/Proof.h"
#include "tests/prove/Memory.h"
#include "tests/prove/Stage.h"

namespace prove {

namespace {

/// One call leaves; true when it is to fail.
bool meets(Kind kind) {
    if (!departures.leaves(kind)) return false;
    if (imports.happens) imports.happens();
    return imports.fails;
}

/// A function's name as a template argument.
template <std::size_t N>
struct Name {
    char text[N];
    consteval Name(const char (&name)[N]) { std::copy_n(name, N, text); }
};

enum class Fails {
    WithStatus,     ///< answers the error itself
    WithResult,     ///< answers an HRESULT
    WithLastError,  ///< answers 0, and the error can be asked for
    WithInvalid,    ///< the same with -1, as INVALID_HANDLE_VALUE
};

template <class Result>
Result invalid() {
    if constexpr (std::is_pointer_v<Result>)
        return INVALID_HANDLE_VALUE;
    else
        return static_cast<Result>(-1);
}

template <class Result, Fails kHow>
Result failed() {
    SetLastError(imports.error);
    if constexpr (kHow == Fails::WithStatus)
        return static_cast<Result>(imports.error);
    else if constexpr (kHow == Fails::WithResult)
        return HRESULT_FROM_WIN32(imports.error);
    else if constexpr (kHow == Fails::WithInvalid)
        return invalid<Result>();
    else
        return Result{};
}

template <class Result, Fails kHow>
bool succeeded(Result result) {
    if constexpr (kHow == Fails::WithInvalid) return result != invalid<Result>();
    return (result == Result{}) == (kHow == Fails::WithStatus || kHow == Fails::WithResult);
}

/// One watched import: its kind, how it fails, and what a success opens (1) or closes (-1).
template <Name kName, class Function, Kind kKind, Fails kHow, int kOpens>
struct Watched;
template <Name kName, class R, class... A, Kind kKind, Fails kHow, int kOpens>
struct Watched<kName, R __stdcall(A...), kKind, kHow, kOpens> {
    static inline R(__stdcall* real)(A...) = nullptr;
    static R __stdcall call(A... arguments) {
        if (kKind != Kind::kCount && meets(kKind)) return failed<R, kHow>();
        const R result = real(arguments...);
        constexpr std::string_view kOwnName(kName.text, sizeof(kName.text) - 1);
        if constexpr (kOwnName.starts_with("RegSet") || kOwnName.starts_with("RegDelete")) ++imports.writes;
        if (kOpens != 0 && succeeded<R, kHow>(result)) imports.resources += kOpens;
        return result;
    }
};

/// A row of the table: what the import is called, what is called instead, and where the real one goes.
struct Row {
    const char* name;
    void* instead;
    void** real;
};

template <Name kName, class Function, Kind kKind, Fails kHow, int kOpens = 0>
Row watched() {
    using Import = Watched<kName, Function, kKind, kHow, kOpens>;
    return {kName.text, reinterpret_cast<void*>(&Import::call), reinterpret_cast<void**>(&Import::real)};
}

template <class Function>
Row replaced(const char* name, Function* instead) {
    return {name, reinterpret_cast<void*>(instead), nullptr};
}

// What is only pretended.

int __stdcall showBox(HWND, const wchar_t*, const wchar_t*, UINT) {
    meets(Kind::Yield);
    return IDOK;
}

BOOL __stdcall peekMessage(MSG* message, HWND window, UINT first, UINT last, UINT how) {
    meets(Kind::Yield);
    return PeekMessageW(message, window, first, last, how);
}

void __stdcall pauses(DWORD milliseconds) {
    meets(Kind::Yield);
    imports.passed += milliseconds;
}

DWORD __stdcall waits(DWORD, const HANDLE*, DWORD milliseconds, DWORD, DWORD) {
    pauses(milliseconds);
    return WAIT_TIMEOUT;
}

ULONGLONG __stdcall tellTime() {
    return GetTickCount64() + imports.passed;
}

BOOL __stdcall createProcess(const wchar_t*, wchar_t*, SECURITY_ATTRIBUTES*, SECURITY_ATTRIBUTES*, BOOL,
                             DWORD, void*, const wchar_t*, STARTUPINFOW*, PROCESS_INFORMATION* started) {
    if (meets(Kind::Process)) return failed<BOOL, Fails::WithLastError>();
    *started = {CreateEventW(nullptr, TRUE, TRUE, nullptr), CreateEventW(nullptr, TRUE, TRUE, nullptr), 0, 0};
    imports.resources += 2;
    return TRUE;
}

BOOL __stdcall shellExecute(SHELLEXECUTEINFOW*) {
    return meets(Kind::Process) ? failed<BOOL, Fails::WithLastError>() : TRUE;
}

HRESULT __stdcall getActiveObject(REFCLSID id, void*, IUnknown** result) {
    *result = nullptr;
    if (meets(Kind::Activation)) return failed<HRESULT, Fails::WithResult>();
    if (id != standin::outlook::kApplicationClsid) return MK_E_UNAVAILABLE;
    auto& outlook = Stage::current().outlook;
    if (const HRESULT refused = outlook.server().faults().creationOutcome(); FAILED(refused)) return refused;
    *result = outlook.application().Detach();
    return S_OK;
}

/// Only a text or an array needs room.
HRESULT __stdcall copyVariant(VARIANT* to, VARIANT* from) {
    if ((from->vt == VT_BSTR || from->vt & VT_ARRAY) && meets(Kind::Memory)) return E_OUTOFMEMORY;
    return VariantCopy(to, from);
}

[[noreturn]] void __cdecl aborts() {
    // An exception that nobody catches ends here, also one that would have passed the border.
    hostile::Proof::end(&hostile::Tally::escapes, "an exception that nobody has caught");
}

using enum Kind;
using enum Fails;

const Row kRows[] = {
    watched<"RegCreateKeyExW", decltype(RegCreateKeyExW), Registry, WithStatus, 1>(),
    watched<"RegOpenKeyExW", decltype(RegOpenKeyExW), Registry, WithStatus, 1>(),
    watched<"RegCloseKey", decltype(RegCloseKey), kCount, WithStatus, -1>(),
    watched<"RegQueryValueExW", decltype(RegQueryValueExW), Registry, WithStatus>(),
    watched<"RegGetValueW", decltype(RegGetValueW), Registry, WithStatus>(),
    watched<"RegSetValueExW", decltype(RegSetValueExW), Registry, WithStatus>(),
    watched<"RegSetKeyValueW", decltype(RegSetKeyValueW), Registry, WithStatus>(),
    watched<"RegDeleteKeyW", decltype(RegDeleteKeyW), Registry, WithStatus>(),
    watched<"RegDeleteTreeW", decltype(RegDeleteTreeW), Registry, WithStatus>(),
    watched<"RegDeleteValueW", decltype(RegDeleteValueW), Registry, WithStatus>(),
    watched<"CreateFileW", decltype(CreateFileW), File, WithInvalid, 1>(),
    watched<"CloseHandle", decltype(CloseHandle), kCount, WithLastError, -1>(),
    watched<"WriteFile", decltype(WriteFile), File, WithLastError>(),
    watched<"CopyFileW", decltype(CopyFileW), File, WithLastError>(),
    watched<"MoveFileW", decltype(MoveFileW), File, WithLastError>(),
    watched<"DeleteFileW", decltype(DeleteFileW), File, WithLastError>(),
    watched<"GetFullPathNameW", decltype(GetFullPathNameW), File, WithLastError>(),
    watched<"SearchPathW", decltype(SearchPathW), File, WithLastError>(),
    watched<"CreateDirectoryW", decltype(CreateDirectoryW), File, WithLastError>(),
    watched<"FindFirstFileW", decltype(FindFirstFileW), File, WithInvalid, 1>(),
    watched<"FindNextFileW", decltype(FindNextFileW), File, WithLastError>(),
    watched<"FindClose", decltype(FindClose), kCount, WithLastError, -1>(),
    watched<"GetFileAttributesW", decltype(GetFileAttributesW), File, WithInvalid>(),
    watched<"SHGetFolderPathW", decltype(SHGetFolderPathW), File, WithResult>(),
    watched<"GetModuleFileNameW", decltype(GetModuleFileNameW), File, WithLastError>(),
    watched<"FindResourceW", decltype(FindResourceW), File, WithLastError>(),
    watched<"LoadResource", decltype(LoadResource), File, WithLastError>(),
    watched<"LoadTypeLibEx", decltype(LoadTypeLibEx), File, WithResult>(),
    watched<"CLSIDFromProgID", decltype(CLSIDFromProgID), Activation, WithResult>(),
    watched<"CoCreateInstance", decltype(CoCreateInstance), Activation, WithResult>(),
    watched<"CoGetClassObject", decltype(CoGetClassObject), Activation, WithResult>(),
    watched<"OpenProcess", decltype(OpenProcess), Process, WithLastError, 1>(),
    watched<"AssocQueryStringW", decltype(AssocQueryStringW), Process, WithResult>(),
    watched<"SysAllocStringLen", decltype(SysAllocStringLen), Memory, WithLastError>(),
    replaced("VariantCopy", copyVariant),
    watched<"VariantCopyInd", decltype(VariantCopyInd), Memory, WithResult>(),
    watched<"VariantChangeType", decltype(VariantChangeType), Memory, WithResult>(),
    watched<"SafeArrayCreateVector", decltype(SafeArrayCreateVector), Memory, WithLastError>(),
    watched<"SafeArrayPutElement", decltype(SafeArrayPutElement), Memory, WithResult>(),
    watched<"SafeArrayGetElement", decltype(SafeArrayGetElement), Memory, WithResult>(),
    watched<"GlobalAlloc", decltype(GlobalAlloc), Memory, WithLastError>(),
    watched<"CreateDialogParamW", decltype(CreateDialogParamW), Window, WithLastError>(),
    watched<"DialogBoxParamW", decltype(DialogBoxParamW), Window, WithLastError>(),
    watched<"CreateWindowExW", decltype(CreateWindowExW), Window, WithLastError>(),
    watched<"SetTimer", decltype(SetTimer), Window, WithLastError>(),
    watched<"SetWindowsHookExW", decltype(SetWindowsHookExW), Window, WithLastError, 1>(),
    watched<"UnhookWindowsHookEx", decltype(UnhookWindowsHookEx), kCount, WithLastError, -1>(),
    watched<"CreateFontIndirectW", decltype(CreateFontIndirectW), Window, WithLastError, 1>(),
    watched<"DeleteObject", decltype(DeleteObject), kCount, WithLastError, -1>(),
    watched<"GetDC", decltype(GetDC), Window, WithLastError, 1>(),
    watched<"ReleaseDC", decltype(ReleaseDC), kCount, WithLastError, -1>(),
    watched<"LoadImageW", decltype(LoadImageW), Window, WithLastError>(),
    watched<"SetClipboardData", decltype(SetClipboardData), Window, WithLastError>(),
    watched<"CreateActCtxW", decltype(CreateActCtxW), Window, WithInvalid>(),
    watched<"BeginDeferWindowPos", decltype(BeginDeferWindowPos), Window, WithLastError>(),
    watched<"DeferWindowPos", decltype(DeferWindowPos), Window, WithLastError>(),
    replaced("GetActiveObject", getActiveObject),
    replaced("CreateProcessW", createProcess),
    replaced("ShellExecuteExW", shellExecute),
    replaced("MessageBoxW", showBox),
    replaced("PeekMessageW", peekMessage),
    replaced("Sleep", pauses),
    replaced("MsgWaitForMultipleObjectsEx", waits),
    replaced("GetTickCount64", tellTime),
    replaced("abort", aborts),
    replaced("malloc", memory::allocate),
    replaced("calloc", memory::allocateZeroed),
    replaced("realloc", memory::reallocate),
    replaced("free", memory::release),
};

void patch(IMAGE_THUNK_DATA& slot, const char* name) {
    const auto* row = std::find_if(std::begin(kRows), std::end(kRows),
                                   [&](const Row& each) { return std::strcmp(each.name, name) == 0; });
    if (row == std::end(kRows)) return;
    if (row->real) *row->real = reinterpret_cast<void*>(slot.u1.Function);
    DWORD before = 0;
    VirtualProtect(&slot, sizeof(slot), PAGE_READWRITE, &before);
    slot.u1.Function = reinterpret_cast<DWORD_PTR>(row->instead);
    VirtualProtect(&slot, sizeof(slot), before, &before);
}

}  // namespace

void watchImports(HMODULE module) {
    auto* const base = reinterpret_cast<char*>(module);
    const auto* headers =
        reinterpret_cast<IMAGE_NT_HEADERS*>(base + reinterpret_cast<IMAGE_DOS_HEADER*>(base)->e_lfanew);
    const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    auto* library = reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress);
    for (; library->Name != 0; ++library) {
        auto* name = reinterpret_cast<IMAGE_THUNK_DATA*>(base + library->OriginalFirstThunk);
        auto* slot = reinterpret_cast<IMAGE_THUNK_DATA*>(base + library->FirstThunk);
        for (; slot->u1.Function != 0; ++slot, ++name)
            if (!IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal))
                patch(*slot,
                      reinterpret_cast<const char*>(
                          reinterpret_cast<IMAGE_IMPORT_BY_NAME*>(base + name->u1.AddressOfData)->Name));
    }
}

}  // namespace prove

#include "actions/ProgramStart.h"

#include <shellapi.h>

#include "actions/CommandInterpreter.h"
#include "support/Handle.h"

namespace zelbar {

namespace {

struct ProcessTraits {
    using Type = HANDLE;
    static Type empty() noexcept { return nullptr; }
    static void close(Type handle) noexcept { CloseHandle(handle); }
};
using ProcessHandle = Handle<ProcessTraits>;

using NamePlace = CommandLine::NamePlace;

/// What a command line names.
struct NamedFile {
    std::wstring path;
    NamePlace place;
};

bool isFile(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

/// The path that one of the system's functions writes, which return its length or the room that it needs.
template <class Write>
std::wstring pathFrom(const Write& write) {
    std::wstring path(MAX_PATH, L'\0');
    DWORD length = write(path.data(), static_cast<DWORD>(path.size()));
    if (length > path.size()) {
        path.resize(length);
        length = write(path.data(), length);
    }
    path.resize(length < path.size() ? length : 0);
    return path;
}

std::wstring programNamed(const std::wstring& name) {
    return pathFrom([&](wchar_t* path, DWORD size) {
        return SearchPathW(nullptr, name.c_str(), L".exe", size, path, nullptr);
    });
}

std::wstring fileNamed(const std::wstring& name) {
    return pathFrom(
        [&](wchar_t* path, DWORD size) { return GetFullPathNameW(name.c_str(), size, path, nullptr); });
}

/// The shortest name that is a program's, else the shortest that is a file's; an empty path for none.
NamedFile namedFile(const CommandLine& line) {
    const auto places = line.namePlaces();
    for (const auto find : {programNamed, fileNamed}) {
        for (const NamePlace& place : places) {
            const std::wstring path = find(line.text(place));
            if (isFile(path)) return {path, place};
        }
    }
    return {};
}

/// Starts a program or a batch file, and nothing that only a longer name would name.
DWORD startProcess(const NamedFile& named, const CommandLine& line) {
    const std::wstring name = line.text(named.place);
    const bool needsQuotes = named.place.begin == 0 && name.find_first_of(L" \t") != std::wstring::npos;
    std::wstring text = needsQuotes ? L'"' + name + L'"' + line.text().substr(named.place.rest) : line.text();
    STARTUPINFOW how{};
    how.cb = sizeof how;
    how.dwFlags = STARTF_USESHOWWINDOW;
    how.wShowWindow = SW_SHOWNORMAL;
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(named.path.c_str(), text.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &how,
                        &started))
        return GetLastError();
    const ProcessHandle process(started.hProcess);
    const ProcessHandle thread(started.hThread);
    return ERROR_SUCCESS;
}

DWORD openByShell(const NamedFile& named, const CommandLine& line) {
    const std::wstring rest = line.text().substr(named.place.rest);
    const std::wstring parameters = rest.starts_with(L' ') ? rest.substr(1) : rest;
    SHELLEXECUTEINFOW order{};
    order.cbSize = sizeof order;
    // The client may end at once: what opens the file must have been reached by then.
    order.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC;
    order.lpFile = named.path.c_str();
    order.lpParameters = parameters.empty() ? nullptr : parameters.c_str();
    order.nShow = SW_SHOWNORMAL;
    return ShellExecuteExW(&order) ? ERROR_SUCCESS : GetLastError();
}

}  // namespace

StartResult startProgram(const CommandLine& line) {
    const NamedFile named = namedFile(line);
    if (named.path.empty()) return {ERROR_FILE_NOT_FOUND, {}};
    const bool steers = steersInterpreter(line.details());
    if (steers && isForInterpreter(named.path)) return {ERROR_BAD_ARGUMENTS, named.path};
    if (startProcess(named, line) == ERROR_SUCCESS) return {ERROR_SUCCESS, named.path};
    if (steers && opensInInterpreter(named.path)) return {ERROR_BAD_ARGUMENTS, named.path};
    return {openByShell(named, line), named.path};
}

}  // namespace zelbar

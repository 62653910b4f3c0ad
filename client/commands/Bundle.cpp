#include <windows.h>

#include <string>

#include "client/Figures.h"
#include "client/Json.h"
#include "client/Text.h"
#include "client/bundle/Contents.h"
#include "client/commands/Commands.h"

namespace pimcall {
namespace {

std::wstring freshName() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    wchar_t name[60] = {};
    swprintf(name, ARRAYSIZE(name), L"tessaria-%04u%02u%02u-%02u%02u%02u.zip", now.wYear, now.wMonth,
             now.wDay, now.wHour, now.wMinute, now.wSecond);
    return name;
}

std::wstring fullPath(const std::wstring& name) {
    wchar_t path[MAX_PATH] = {};
    const DWORD length = GetFullPathNameW(name.c_str(), MAX_PATH, path, nullptr);
    if (length == 0 || length >= MAX_PATH) throw Failure(L"\"" + oneLine(name) + L"\" is no name of a file.");
    return path;
}

ExitCode run(const Context& context) {
    const std::wstring given = context.arguments.operandOrNone(L"file");
    const std::wstring path = fullPath(given.empty() ? freshName() : given);
    const bool isPlain = context.arguments.has(L"--plain");
    if (isPlain)
        context.notes.line(
            L"pimcall: with --plain the bundle holds names, numbers and addresses in clear. "
            L"Send it only to whom you would show the address book.");
    const auto parts = bundle::collect(!isPlain, [](const std::wstring&) {});
    bundle::writeZip(path, parts);
    if (context.json()) {
        json::Array names;
        for (const bundle::Part& part : parts)
            names.add(json::quoted(std::wstring(part.name.begin(), part.name.end())));
        context.out.line(
            json::Object().text(L"file", path).boolean(L"masked", !isPlain).raw(L"parts", names.str()).str());
        return ExitCode::Found;
    }
    context.out.line(oneLine(path) + L" is written:");
    for (const bundle::Part& part : parts)
        context.out.line(L"  " + std::wstring(part.name.begin(), part.name.end()) + L"  " +
                         bytesText(part.bytes.size()));
    if (!isPlain)
        context.out.line(
            L"Names, numbers and addresses in it were replaced. Have a look before you send it.");
    return ExitCode::Found;
}

constexpr Option kOptions[] = {{L"--plain", nullptr}};

}  // namespace

const Command kBundle = {
    L"bundle", L"bundle [FILE.zip] [--plain]",
    L"Packs what support needs to see into a zip file: versions, the doctor's report, settings,\n"
    L"      statistics of the cache, logs. Names, numbers, addresses, identifiers and folders are replaced by\n"
    L"      stand-ins; with --plain they are not.",
    kOptions, run};

}  // namespace pimcall

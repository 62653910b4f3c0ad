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
    (void)swprintf(name, ARRAYSIZE(name), L"tessaria-%04u%02u%02u-%02u%02u%02u.zip", now.wYear, now.wMonth,
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
    const auto parts = bundle::collect(!isPlain, [&](const wchar_t* what) { context.activity.say(what); });
    bundle::writeZip(path, parts);
    if (context.json()) {
        const std::wstring names = json::array(parts, [](const bundle::Part& part) {
            return json::quoted(std::wstring(part.name.begin(), part.name.end()));
        });
        context.out.line(
            json::Object().text(L"file", path).boolean(L"masked", !isPlain).raw(L"parts", names).str());
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
    .name = L"bundle",
    .synopsis = L"bundle [FILE.zip] [--plain]",
    .brief = L"what support needs to see, with nobody's name in it",
    .details =
        L"Packs versions, the doctor's report, settings, statistics of the cache and the logs into a zip file.\n"
        L"Names, numbers, addresses, identifiers and folders are replaced by stand-ins: the same one for the\n"
        L"same thing, so that lines about one caller still belong together. A file that exists is not touched.\n"
        L"\n"
        L"  --plain  replaces nothing. The bundle then holds personal data in clear.\n",
    .examples =
        L"pimcall bundle\n"
        L"pimcall bundle C:\\Temp\\for-support.zip\n",
    .options = kOptions,
    .run = run};

}  // namespace pimcall

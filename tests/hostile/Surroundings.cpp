#include <windows.h>

#include <clocale>

#include "tests/harness/Process.h"
#include "tests/hostile/Workplace.h"

/// The registered driver in processes, languages, folders and on screens that its makers do not have.
namespace hostile {
namespace {

/// Another compiler's run-time libraries, another C library, another copy of the driver.
void foreignLibraries(Proof& proof) {
    Workplace world;
    const std::wstring copy = world.folder.file(L"zelbar01.dll");
    proof.expect(CopyFileW((harness::programFolder() + L"\\zelbar00.dll").c_str(), copy.c_str(), FALSE),
                 &Tally::crashes, "no copy");
    for (const std::wstring& path : {std::wstring(FOREIGN_RUNTIME_THREADS), std::wstring(FOREIGN_RUNTIME),
                                     std::wstring(L"ucrtbase.dll"), std::wstring(L"msvcr120.dll"), copy}) {
        proof.expect(LoadLibraryW(path.c_str()) != nullptr, &Tally::crashes, "does not load");
        world.goodDay(proof, "beside " + std::string(path.begin(), path.end()));
    }
    // The copy's class object, while the driver's own lives.
    {
        const auto first = Workplace::createDriver();
        Com<::DataConnector> second;
        proof.run("a driver of the copy");
        World::makeDriver(GetModuleHandleW(copy.c_str()), second);
        proof.expect(Workplace::objectsOf(second).size() == Workplace::objectsOf(first).size(), &Tally::lost,
                     "objects");
    }
    world.expectNothingHeld(proof);
}

/// What the client's process and its user have set; the driver leaves it as it is.
void languages(Proof& proof) {
    Workplace world;
    int language = 0;
    for (const std::string name :
         {"en-US", "fr-FR", "de-DE", "it-IT", "hu-HU", "pl-PL", "es-ES", "nl-NL", "tr-TR"}) {
        SetThreadLocale(LocaleNameToLCID(std::wstring(name.begin(), name.end()).c_str(), 0));
        std::setlocale(LC_ALL, name.c_str());
        world.registry.set(HKEY_CURRENT_USER, std::wstring(kClientKey) + L"\\Settings", L"lang",
                           std::to_wstring(language++));
        const std::string before = std::setlocale(LC_ALL, nullptr);
        const LCID thread = GetThreadLocale();
        world.goodDay(proof, name);
        proof.expect(before == std::setlocale(LC_ALL, nullptr) && thread == GetThreadLocale(),
                     &Tally::escapes, "the process's locale is another");
    }
    std::setlocale(LC_ALL, "C");
}

/// Data folders and profiles with long and non-Latin names, there and not to be made.
void folders(Proof& proof) {
    const std::wstring kNames[] = {
        L"Łódź ΑΒΓ Журнал",      L"中文 日本語 한국어",     L"\x05E9\x05DC\x05D5\x05DD \x202E",
        L"\xD83D\xDE00 \x0130i", L"100% [a] {b} $c 'd' ;e", std::wstring(150, L'x'),
        std::wstring(230, L'y')};
    for (const auto& name : kNames) {
        Workplace world;
        const std::wstring place = world.folder.makeFolder(name);
        for (const auto& file : {world.cacheFile(), world.directoryFile()})
            CopyFileW(file.c_str(), (place + file.substr(file.rfind(L'\\'))).c_str(), FALSE);
        world.registry.set(HKEY_CURRENT_USER, kClientKey, L"DataPath", place);
        // Where the whole path is too long for Windows nobody finds the cache; that must be all.
        proof.run("data folder of " + std::to_string(place.size()) + " characters");
        proof.expect(world.day(proof) || place.size() + 12 >= MAX_PATH, &Tally::lost, "Ada is unknown");
        for (const std::wstring& bad :
             {place + L"\\" + name + L"\\" + name, std::wstring(L"\\\\nobody\\") + name, L"?:\\" + name}) {
            world.registry.set(HKEY_CURRENT_USER, kClientKey, L"DataPath", bad);
            proof.run("data folder that cannot be");
            world.day(proof);
            RemoveDirectoryW((place + L"\\" + name + L"\\" + name).c_str());
            RemoveDirectoryW((place + L"\\" + name).c_str());
        }
    }
}

/// Whoever unloads and loads gets a driver that works; the module itself stays.
void unloading(Proof& proof) {
    Workplace world;
    for (int i = 0; i < (proof.isShort() ? 10 : 1000); ++i) {
        proof.run("round " + std::to_string(i));
        Workplace::objectsOf(Workplace::createDriver());
        world.expectNothingHeld(proof);
        CoFreeUnusedLibrariesEx(0, 0);
        FreeLibrary(LoadLibraryW((harness::programFolder() + L"\\zelbar00.dll").c_str()));
    }
    world.goodDay(proof, "a day after it");
}

}  // namespace
}  // namespace hostile

int main(int count, char** arguments) {
    using namespace hostile;
    // The libraries before the driver is loaded for the first time.
    return playAll(count, arguments,
                   {{"beside foreign libraries", foreignLibraries},
                    {"locales and languages", languages},
                    {"folders", folders},
                    {"unloaded and loaded", unloading}});
}

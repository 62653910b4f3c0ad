#include <windows.h>

#include <clocale>

#include "tests/harness/Files.h"
#include "tests/harness/Process.h"
#include "tests/hostile/Proof.h"
#include "tests/hostile/World.h"

/// The registered driver in processes, languages, folders and on screens that its makers do not have.
namespace hostile {
namespace {

void expectDay(Proof& proof, World& world, const std::string& what) {
    proof.run(what);
    proof.expect(world.day(proof), &Tally::lost, "Ada is unknown");
}

void load(Proof& proof, const std::wstring& path) {
    proof.expect(LoadLibraryW(path.c_str()) != nullptr, &Tally::crashes, "does not load");
}

/// Another compiler's run-time libraries, another C library, another copy of the driver.
void foreignLibraries(Proof& proof) {
    proof.scene("beside foreign libraries");
    World world;
    const std::wstring copy = world.folder.file(L"zelbar01.dll");
    proof.expect(CopyFileW((harness::programFolder() + L"\\zelbar00.dll").c_str(), copy.c_str(), FALSE),
                 &Tally::crashes, "no copy");
    for (const std::wstring& path : {std::wstring(FOREIGN_RUNTIME_THREADS), std::wstring(FOREIGN_RUNTIME),
                                     std::wstring(L"ucrtbase.dll"), std::wstring(L"msvcr120.dll"), copy}) {
        load(proof, path);
        expectDay(proof, world, "beside " + std::string(path.begin(), path.end()));
    }
    // The copy's class object, while the driver's own lives.
    const HMODULE other = GetModuleHandleW(copy.c_str());
    using GetClassObject = HRESULT WINAPI(REFCLSID, REFIID, void**);
    const auto ask = reinterpret_cast<GetClassObject*>(
        reinterpret_cast<void*>(GetProcAddress(other, "DllGetClassObject")));
    {
        const auto first = World::createDriver();
        Com<IClassFactory> factory;
        Com<::DataConnector> second;
        proof.run("a driver of the copy");
        ask(CLSID_cDataConnector, __uuidof(IClassFactory), reinterpret_cast<void**>(factory.put()));
        factory->CreateInstance(nullptr, __uuidof(::DataConnector), reinterpret_cast<void**>(second.put()));
        proof.expect(World::objectsOf(second).size() == World::objectsOf(first).size(), &Tally::lost,
                     "objects");
    }
    proof.expect(World::canUnload(), &Tally::leaks, "the driver has objects left");
}

/// What the client's process and its user have set; the driver leaves it as it is.
void languages(Proof& proof) {
    proof.scene("locales and languages");
    World world;
    const wchar_t* const kLocales[] = {L"en-US", L"fr-FR", L"de-DE", L"it-IT", L"hu-HU",
                                       L"pl-PL", L"es-ES", L"nl-NL", L"tr-TR"};
    for (int language = 0; language < 9; ++language) {
        const std::wstring name = kLocales[language];
        SetThreadLocale(LocaleNameToLCID(name.c_str(), 0));
        std::setlocale(LC_ALL, std::string(name.begin(), name.end()).c_str());
        world.registry.set(HKEY_CURRENT_USER, std::wstring(kClientKey) + L"\\Settings", L"lang",
                           std::to_wstring(language));
        const std::string before = std::setlocale(LC_ALL, nullptr);
        const LCID thread = GetThreadLocale();
        expectDay(proof, world, std::string(name.begin(), name.end()));
        proof.expect(before == std::setlocale(LC_ALL, nullptr) && thread == GetThreadLocale(),
                     &Tally::escapes, "the process's locale is another");
    }
    std::setlocale(LC_ALL, "C");
}

/// Data folders and profiles with long and non-Latin names, there and not to be made.
void folders(Proof& proof) {
    proof.scene("folders");
    const std::wstring kNames[] = {
        L"Łódź ΑΒΓ Журнал",      L"中文 日本語 한국어",     L"\x05E9\x05DC\x05D5\x05DD \x202E",
        L"\xD83D\xDE00 \x0130i", L"100% [a] {b} $c 'd' ;e", std::wstring(150, L'x'),
        std::wstring(230, L'y')};
    for (const auto& name : kNames) {
        World world;
        const std::wstring place = world.folder.makeFolder(name);
        for (const auto& file : {world.cacheFile(), world.directoryFile()})
            CopyFileW(file.c_str(), (place + file.substr(file.rfind(L'\\'))).c_str(), FALSE);
        world.registry.set(HKEY_CURRENT_USER, kClientKey, L"DataPath", place);
        // Where the whole path is too long for Windows nobody finds the cache; that must be all.
        proof.run("data folder of " + std::to_string(place.size()) + " characters");
        proof.expect(world.day(proof) || place.size() + 12 >= MAX_PATH, &Tally::lost, "Ada is unknown");
        DeleteFileW((place + L"\\connec00.mdb").c_str());
        DeleteFileW((place + L"\\wxd.mdb").c_str());
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
    proof.scene("unloaded and loaded");
    World world;
    for (int i = 0; i < (proof.isShort() ? 10 : 1000); ++i) {
        proof.run("round " + std::to_string(i));
        World::objectsOf(World::createDriver());
        proof.expect(World::canUnload(), &Tally::leaks, "the driver has objects left");
        CoFreeUnusedLibrariesEx(0, 0);
        const HMODULE module = LoadLibraryW((harness::programFolder() + L"\\zelbar00.dll").c_str());
        FreeLibrary(module);
    }
    proof.expect(world.day(proof), &Tally::lost, "Ada is unknown");
}

}  // namespace
}  // namespace hostile

int main(int count, char** arguments) {
    using namespace hostile;
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return EXIT_FAILURE;
    Proof proof(count, arguments);
    try {
        // Before the driver is loaded for the first time.
        foreignLibraries(proof);
        languages(proof);
        folders(proof);
        unloading(proof);
    } catch (const std::exception& failure) {
        proof.expect(false, &Tally::crashes, failure.what());
    }
    return proof.finish();
}

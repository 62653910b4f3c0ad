#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "driver/support/SettingsTable.h"
#include "tests/com/LateClient.h"
#include "tests/harness/Files.h"
#include "tests/hostile/Workplace.h"

/// The registered driver among files and settings that are not as they should be. Nothing may be lost by it:
/// no row, no contact, no setting.
namespace hostile {
namespace {

constexpr size_t kPage = 4096;

void addRows(const std::wstring& file, long count) {
    Beside(file).run(L"With Recursive n(i) As (Select 1 Union All Select i + 1 From n Where i < " +
                     std::to_wstring(count) +
                     L") Insert Into TCache Select 'Caller' || i, '+33 4 ' || i, (Select EntryId From TCache "
                     L"Limit 1), '1' From n");
}

/// A day with a file's bytes changed; then one with the file as it was.
void damaged(Proof& proof, Workplace& world, const std::wstring& file, const std::string& whole,
             const std::string& bytes, const std::string& what) {
    const long contacts = world.contacts(), exported = world.contacts(L"Staff");
    harness::writeFile(file, bytes);
    proof.run(what);
    world.day(proof);
    proof.expect(harness::readFile(file) == bytes, &Tally::lost, "the file has changed");
    proof.expectNoMore(world.contacts(), contacts, &Tally::lost, "contacts");
    proof.expectNoMore(world.contacts(L"Staff"), exported, &Tally::lost, "exported contacts");
    harness::writeFile(file, whole);
}

void damagedFiles(Proof& proof) {
    Workplace world;
    addRows(world.cacheFile(), 300);
    world.goodDay(proof, "whole files");
    for (const auto& file : {world.cacheFile(), world.directoryFile()}) {
        const std::string whole = harness::readFile(file);
        for (size_t page = 0; page * kPage < whole.size(); page += proof.isShort() ? 9 : 1) {
            const std::string name =
                "page " + std::to_string(page) + " of " + std::to_string(whole.size() / kPage);
            for (const size_t more : {0u, 1u, 99u, 100u, 2048u})
                damaged(proof, world, file, whole, whole.substr(0, page * kPage + more), "cut in " + name);
            for (const char fill : {'\0', '\xFF', '\r'}) {
                std::string bytes = whole;
                std::fill_n(bytes.begin() + static_cast<std::ptrdiff_t>(page * kPage) + (page ? 0 : 100),
                            kPage / 2, fill);
                damaged(proof, world, file, whole, bytes, "overwritten " + name);
            }
        }
        world.goodDay(proof, "the whole file back");
    }
}

void otherSchemas(Proof& proof) {
    const std::wstring kLong(40'000, L'x');
    const struct {
        bool isCache;
        std::vector<std::wstring> statements;
    } kCases[] = {
        {true, {L"Drop Table TStoreID"}},
        {true, {L"Drop Table TCache"}},
        {true, {L"Drop Table TCache", L"Create Table TCache (a)"}},
        {true, {L"Drop Table TCache", L"Create Table TCache (Name Integer, PhoneNumber Integer)"}},
        {true, {L"Drop Table TStoreID", L"Create Table TStoreID ([Index] Integer)"}},
        {true, {L"Update TCache Set Name = Null"}},
        {true, {L"Update TCache Set EntryId = 7, StoreID = 1.5"}},
        {true, {L"Update TCache Set StoreID = Null"}},
        {true, {L"Update TCache Set StoreID = 'x'"}},
        {true, {L"Update TCache Set StoreID = 99"}},
        {true, {L"Update TCache Set Name = x'00FF00', PhoneNumber = PhoneNumber || x'00'"}},
        {true, {L"Update TCache Set Name = '" + kLong + L"', EntryId = '" + kLong + L"'"}},
        {true, {L"Update TStoreID Set StoreID = Null"}},
        {true, {L"Update TStoreID Set [Index] = Null"}},
        {true, {L"Update TStoreID Set [Index] = 'one'"}},
        {true, {L"Update TStoreID Set StoreID = '" + kLong + L"'"}},
        {true,
         {L"With Recursive n(i) As (Select 1 Union All Select i + 1 From n Where i < 1000) Insert Into TStoreID "
          L"Select -i, 'none' From n"}},
        {false, {L"Drop Table Employees"}},
        {false, {L"Drop Table BLFPagesContents"}},
        {false, {L"Drop Table Employees", L"Create Table Employees (EmployeeId)"}},
        {false, {L"Update Employees Set FirstName = Null, LastName = Null, BusinessPhone = Null"}},
        {false, {L"Update Employees Set FirstName = 7, LastName = 1e300, BusinessPhone = x'00FF'"}},
        {false, {L"Update Employees Set FirstName = '" + kLong + L"'"}},
        {false, {L"Update BLFPagesContents Set EmployeeId = Null"}},
        {false, {L"Update BLFPagesContents Set EmployeeId = 'x', BLFpageId = 'y', BindToEmployee = 'z'"}},
    };
    Workplace world;
    world.day(proof);
    for (const auto& c : kCases) {
        const auto file = c.isCache ? world.cacheFile() : world.directoryFile();
        const std::string whole = harness::readFile(file);
        {
            Beside beside(file);
            for (const auto& statement : c.statements) beside.run(statement);
        }
        const auto& last = c.statements.back();
        const std::string name(last.begin(), last.begin() + std::min<std::ptrdiff_t>(std::ssize(last), 90));
        // What the directory no longer tells, the export folder does not keep; that is how it should be.
        if (c.isCache) {
            damaged(proof, world, file, whole, harness::readFile(file), name);
        } else {
            proof.run(name);
            world.day(proof);
        }
        harness::writeFile(file, whole);
    }
    world.goodDay(proof, "the old files back");
}

void lockedInTheMiddle(Proof& proof) {
    Workplace world;
    addRows(world.cacheFile(), 300);
    const long rows = world.rows();
    for (const wchar_t* step :
         {L"FindNext", L"FindPrevious", L"MoveLast", L"MoveFirst", L"RecordCount", L"Contact"}) {
        const auto driver = Workplace::createDriver();
        const auto cursor = ask(driver, L"OpenContactRecord").object();
        ask(cursor, L"FindFirst", {0L, L"+33*"});
        {
            Beside other(world.cacheFile());
            other.run(L"Begin Exclusive");
            for (const wchar_t* next : {step, L"FindNext", L"FindPrevious"}) {
                proof.run("locked before " + std::string(next, next + std::wcslen(next)));
                proof.expect(zelbar::late(*cursor, next).result == S_OK, &Tally::escapes, "fails");
            }
            ask(cursor, L"FillContactCollection", {1L, L"B*"});
        }
        const auto after = ask(cursor, L"FindFirst", {0L, L"51"}).object();
        proof.expect(static_cast<bool>(after), &Tally::lost, "nothing is found afterwards");
    }
    world.goodDay(proof, "a day after it");
    proof.expect(world.rows() == rows, &Tally::lost, "rows");
}

void manyRows(Proof& proof) {
    const long count = proof.isShort() ? 5'000 : 1'000'000;
    Workplace world;
    addRows(world.cacheFile(), count);
    const long rows = world.rows();
    for (int i = 0; i < 3; ++i) {
        const DWORD began = GetTickCount();
        world.goodDay(proof, "many rows");
        std::fprintf(stderr, "  a day with %ld rows takes %lu ms\n", rows, GetTickCount() - began);
    }
    proof.expect(world.rows() == rows, &Tally::lost, "rows");
}

void oddSettings(Proof& proof) {
    Workplace world;
    world.day(proof);
    using namespace std::string_literals;
    std::vector<std::string> contents{std::string(8, '\x80'), std::string(130'000, '7')};
    for (const auto& bytes :
         {""s, "\0"s, "7\0"s, "7\0\0"s, "odd"s, "\xFF\xFF"s, "\0\xD8\0\0"s, "a\0\0\0b\0\0\0\0\0"s})
        contents.push_back(bytes);
    size_t next = 0;
    for (const auto* setting : zelbar::settings::kAll) {
        // A limit of some milliseconds is one: what is given up is let go when Outlook answers the next time.
        if (setting == &zelbar::settings::kOutlookTimeout ||
            setting == &zelbar::settings::kOutlookTimeoutUser)
            continue;
        const HKEY root =
            setting->root == zelbar::Setting::Root::CurrentUser ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
        std::wstring key = std::wstring(L"Software\\Norvane\\") + setting->application;
        if (*setting->section) key += std::wstring(L"\\") + setting->section;
        std::wstring name = setting->name;
        if (setting->numbered) name += L"1";
        for (const DWORD type :
             std::initializer_list<DWORD>{REG_NONE, REG_SZ, REG_EXPAND_SZ, REG_BINARY, REG_DWORD,
                                          REG_DWORD_BIG_ENDIAN, REG_LINK, REG_MULTI_SZ, REG_QWORD, 77ul})
            for (const auto& bytes : contents) {
                if (next++ % (proof.isShort() ? 97 : 3)) continue;
                proof.run(std::string(name.begin(), name.end()) + " of type " + std::to_string(type) + ", " +
                          std::to_string(bytes.size()) + " bytes");
                world.registry.set(root, key, name, type, bytes);
                world.day(proof);
                RegDeleteKeyValueW(root, key.c_str(), name.c_str());
                world.registry.set(HKEY_CURRENT_USER, kClientKey, L"DataPath", world.data);
            }
    }
    world.goodDay(proof, "a day after it");
}

/// For a process that may not make files longer than some kilobytes: to the driver the disk is full.
void fullDisk(Proof& proof) {
    Workplace world;
    world.registry.set(HKEY_CURRENT_USER, kPopupKey, L"Developper", L"2");
    std::ofstream filler(std::filesystem::path(world.folder.file(L"filler")), std::ios::binary);
    filler << std::string(10'000'000, 'x') << std::flush;
    proof.expect(!filler, &Tally::crashes, "the disk is not full");
    world.goodDay(proof, "full disk");
}

}  // namespace
}  // namespace hostile

int main(int count, char** arguments) {
    using namespace hostile;
    return playAll(count, arguments,
                   {{"databases cut and overwritten", damagedFiles},
                    {"databases of another schema", otherSchemas},
                    {"locked in the middle of a search", lockedInTheMiddle},
                    {"many rows", manyRows},
                    {"settings of every type and size", oddSettings},
                    {"full disk", fullDisk, true}});
}

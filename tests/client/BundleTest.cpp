#include <unzip.h>

// After unzip.h, whose macros it needs.
#include <iowin32.h>

#include <filesystem>
#include <set>
#include <sstream>

#include "client/bundle/Masker.h"
#include "client/doctor/Machine.h"
#include "standin/outlook/vcard/Import.h"
#include "support/Encoding.h"
#include "tests/client/HostedTest.h"
#include "tests/harness/Process.h"

namespace pimcall {
namespace {

using bundle::caseFolded;
using standin::outlook::ItemRecord;

/// The files of a zip file, all in one, each behind its name.
std::wstring unzipped(const std::wstring& path) {
    zlib_filefunc64_def access{};
    fill_win32_filefunc64W(&access);
    const unzFile zip = unzOpen2_64(path.c_str(), &access);
    std::string all;
    for (int more = zip ? unzGoToFirstFile(zip) : UNZ_ERRNO; more == UNZ_OK; more = unzGoToNextFile(zip)) {
        char name[100] = {}, part[4096];
        unzGetCurrentFileInfo(zip, nullptr, name, sizeof name, nullptr, 0, nullptr, 0);
        all += std::string("== ") + name + "\n";
        unzOpenCurrentFile(zip);
        for (int count; (count = unzReadCurrentFile(zip, part, sizeof part)) > 0;)
            all.append(part, static_cast<std::size_t>(count));
        unzCloseCurrentFile(zip);
    }
    unzClose(zip);
    return zelbar::wide(all);
}

std::wstring digitsOf(const std::wstring& text) {
    std::wstring digits;
    for (const wchar_t c : text)
        if (c >= L'0' && c <= L'9') digits += c;
    return digits;
}

/// The driver, its trace and its errors, on the sample address book.
class BundleTest : public HostedTest {
  protected:
    BundleTest() {
        // The driver of these tests is this program; its trace lies beside it.
        registry.set(HKEY_LOCAL_MACHINE, doctor::driverClassKey() + L"\\InprocServer32", L"",
                     zelbar::thisModule().folder + L"\\" + zelbar::thisModule().stem + L".exe");
        for (const auto& file : std::filesystem::recursive_directory_iterator(SAMPLES_FOLDER))
            if (file.path().extension() == L".vcf")
                standin::outlook::vcard::importFile(mailbox, defaultContacts.id, file.path());
        for (const auto id : mailbox.items(defaultContacts.id)) keep(*mailbox.item(id));
        secret(L"Ghost");
        rows_.push_back({L"Ghost Gail", L"+1 (555) 010-9988", L"00FFAABBCCDD"});
        writeCache(rows_);
    }

    void keep(const ItemRecord& contact) {
        const std::wstring name = contact.field(L"LastName") + L" " + contact.field(L"FirstName");
        const std::wstring id = mailbox.entryId(contact);
        secret(id);
        for (const auto& [field, value] : contact.fields) {
            secret(value, field != L"Body");
            if (field.ends_with(L"Number") && !value.empty()) rows_.push_back({name, value, id});
        }
    }
    /// A whole text, and each word of it that could tell somebody.
    void secret(const std::wstring& text, bool itsWords = true) {
        std::wistringstream words(itsWords ? text : L"");
        for (std::wstring word = text; !word.empty(); word.clear(), words >> word)
            if (word.size() > 3) secrets_.insert(caseFolded(word));
    }
    /// What a day with these contacts leaves in the logs.
    void callEverybody() {
        for (const zelbar::TestRow& row : rows_) {
            ProgramRun(
                {L"call", L"--from", row.number, L"--action=journal,mail", L"--to-address=a.b@c.example"},
                Driver::create);
            ProgramRun({L"find", L"--name", row.name + L"*", L"--all"}, Driver::create);
        }
        ProgramRun({L"create", L"--name", rows_[0].name, L"--number", rows_[0].number}, Driver::create);
        faults().failMember(L"GetItemFromID", {E_FAIL, rows_[0].name + L" is not there."}, 3);
        ProgramRun({L"call", L"--from", rows_[0].number}, Driver::create);
        faults().clear();
    }

    std::vector<zelbar::TestRow> rows_;
    std::set<std::wstring> secrets_;
};

TEST_F(BundleTest, TellsSupportWhatHappenedAndNobodyWho) {
    callEverybody();
    registry.set(HKEY_CURRENT_USER, zelbar::kFolderKey, L"entryId1", rows_[0].entryId);
    EXPECT_EQ(ExitCode::Found, run({L"bundle", folder.file(L"a.zip")}));
    expect(ExitCode::Found, {L"bundle", folder.file(L"b.zip"), L"--json"}, {L"\"masked\":true"});
    const std::wstring all = unzipped(folder.file(L"a.zip")), other = unzipped(folder.file(L"b.zip"));

    for (const wchar_t* part :
         {L"== about.txt\n", L"\r\npimcall: ", L"== doctor.txt\n", L"The trace is on", L"entryId1 = ~",
          L"Contacts: ", L"Numbers, with other signs: ", L"=>FindFisrt() Phone=", L"GetContactFromID: OK",
          L"-2147467259 (0x80004005)", L"AND DELETED FROM MDB CACHE !", L" found in Outlook..."})
        EXPECT_NE(std::wstring::npos, all.find(part)) << part << all.c_str();

    const std::wstring folded = caseFolded(all);
    for (const std::wstring& secret : secrets_)
        EXPECT_EQ(std::wstring::npos, folded.find(secret))
            << secret.c_str() << ": "
            << folded.substr(std::max<std::size_t>(folded.find(secret), 60) - 60, 120);
    const std::wstring digits = digitsOf(all);
    for (const zelbar::TestRow& row : rows_) {
        const std::wstring number = digitsOf(row.number);
        EXPECT_TRUE(number.size() < 5 || digits.find(number) == std::wstring::npos) << number.c_str();
    }

    // One caller's lines belong together within a bundle, and nobody's do between two.
    const std::size_t at = all.find(L"=>FindFisrt() Phone=+#") + 21;
    const std::wstring caller = all.substr(at, 10);
    EXPECT_NE(std::wstring::npos, all.find(caller, at + 10)) << caller.c_str();
    EXPECT_EQ(std::wstring::npos, other.find(caller));
}

TEST_F(BundleTest, IsPlainOnlyOnRequestAndTouchesNoOtherFile) {
    ProgramRun({L"call", L"--from", rows_[0].number}, Driver::create);
    const ProgramRun plain({L"bundle", folder.file(L"a.zip"), L"--plain"}, Driver::create);
    EXPECT_NE(std::wstring::npos, plain.error.find(L"in clear"));
    const std::wstring all = unzipped(folder.file(L"a.zip"));
    EXPECT_NE(std::wstring::npos, all.find(L"NOTHING WAS REPLACED"));
    EXPECT_NE(std::wstring::npos, all.find(rows_[0].number));
    for (const wchar_t* file : {L"a.zip", L"none\\b.zip"})
        EXPECT_EQ(ExitCode::Failed, ProgramRun({L"bundle", folder.file(file)}, Driver::create).exitCode);
    EXPECT_EQ(all, unzipped(folder.file(L"a.zip")));
}

TEST(Masker, KeepsTheProductsWordsAndNobodyElses) {
    bundle::Vocabulary words;
    for (const wchar_t* text :
         {L"Found: ", L"Contact deleted from mdb cache: ", L"Contact: ", L"Error (Find): ",
          L" found in Outlook...", L"The file is not there. Contact."})
        words.learn(text);
    words.forget(L"There Contact");
    bundle::Masker masker(std::move(words));
    const auto shaped = [](std::wstring text) {
        // Which letters stand in is chance.
        for (std::size_t at = 0; (at = text.find_first_of(L"~#", at)) != std::wstring::npos; ++at)
            text.erase(at + 1, 9);
        return text;
    };
    const struct {
        const wchar_t* line;
        const wchar_t* expected;
    } traces[] = {
        {L"5/24/2002 2:03:11 PM: Found: The File", L"5/24/2002 2:03:11 PM: Found: ~ ~"},
        {L"24.05.2002 14:03:11: Contact: Bo found in Outlook...",
         L"24.05.2002 14:03:11: Contact: ~ found in Outlook..."},
        {L"Found: +46 (0)31-390 06 01", L"Found: +#"},
        {L"Found: 112, 12, 1-2", L"Found: #, 12, 1-2"},
        {L"Error (Find): file is \u00C5sa there. 429 (0x1AD) 429",
         L"Error (Find): file is ~ ~. 429 (0x1AD) #"},
        {L"C:\\Users\\Eve M\\f.txt eve@x-y.example", L"C:\\~\\~ M\\f.~ ~@x-y.~"},
    };
    for (const auto& row : traces) EXPECT_EQ(row.expected, shaped(masker.traceLine(row.line)));
    EXPECT_EQ(L"24/05/2002 14:03:11\t~ file\t-",
              shaped(masker.errorLine(L"24/05/2002 14:03:11\tErr file\t-")));
    EXPECT_EQ(L"1234 file, C:\\#", shaped(masker.report(L"1234 file, C:\\12345")));
    EXPECT_EQ(masker.value(L"Bo 4631390"), masker.value(L"BO 46 (31) 390"));
    EXPECT_NE(masker.value(L"Bo"), masker.value(L"Boo"));
}

}  // namespace
}  // namespace pimcall

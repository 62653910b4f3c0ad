#include <PIMDriverAbstract.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "automation/Bstr.h"
#include "automation/Com.h"
#include "tests/harness/Files.h"
#include "tests/harness/Process.h"
#include "tests/harness/Product.h"

/// Runs the product as its users have it: an address book in an Outlook of its own process, the filler, the
/// driver as COM activates it, and clients that know nothing but its type library.
namespace {

using zelbar::Bstr;
using zelbar::Com;

std::string addressBook() {
    std::string book =
        harness::card("Byron;Ada", "TEL;TYPE=WORK:+44 20 7000 0001\r\nTEL;TYPE=CELL:+44 7700 1\r\n") +
        harness::card("Byrne;Alan", "TEL;TYPE=WORK:+44 20 7000 0002\r\n");
    for (int i = 100; i < 130; ++i)
        book +=
            harness::card("Crew;N" + std::to_string(i), "TEL;TYPE=WORK:+1 555 " + std::to_string(i) + "\r\n");
    return book;
}

class ProductTest : public testing::Test {
  protected:
    static void SetUpTestSuite() { product_ = new harness::Product(addressBook()); }
    static void TearDownTestSuite() { delete product_; }

    static Com<DataConnector> newDriver() {
        Com<DataConnector> driver;
        EXPECT_EQ(CoCreateInstance(CLSID_cDataConnector, nullptr, CLSCTX_INPROC_SERVER,
                                   __uuidof(DataConnector), reinterpret_cast<void**>(driver.put())),
                  S_OK);
        return driver;
    }
    static Com<ContactRecord> openCursor(DataConnector& driver) {
        Com<ContactRecord> cursor;
        EXPECT_EQ(driver.OpenContactRecord(cursor.put()), S_OK);
        return cursor;
    }
    /// The name of the first contact with a number.
    static std::wstring caller(ContactRecord& cursor, const wchar_t* number) {
        LONG kind = 0;
        Com<Contact> contact;
        EXPECT_EQ(cursor.FindFirst(&kind, Bstr(number).get(), contact.put()), S_OK);
        if (!contact) return L"(none)";
        VARIANT_BOOL unknown = VARIANT_FALSE;
        contact->get_NotInPIM(&unknown);
        if (unknown) return L"(unknown)";
        Bstr name;
        EXPECT_EQ(contact->get_FullName(name.put()), S_OK);
        return name.text();
    }
    /// An Outlook that does not leave while this is held; one that was just left ends a moment later, and
    /// refuses while it does.
    static Com<IUnknown> lastingOutlook() {
        Com<IUnknown> outlook;
        CLSID id{};
        EXPECT_EQ(CLSIDFromProgID(L"Outlook.Application", &id), S_OK);
        for (int i = 0; i < 50 && !outlook; ++i, Sleep(100))
            CoCreateInstance(id, nullptr, CLSCTX_LOCAL_SERVER, IID_IUnknown,
                             reinterpret_cast<void**>(outlook.put()));
        return outlook;
    }
    static inline harness::Product* product_ = nullptr;
};

TEST_F(ProductTest, AnswersAScript) {
    const auto outlook = lastingOutlook();
    const auto ended = harness::run(L"cscript //nologo \"" PRODUCT_FOLDER L"\\walk.vbs\" \"" +
                                    product_->folder.path() + L"\"");
    EXPECT_EQ(ended.exitCode, 0u);
    EXPECT_EQ(ended.out, "walk: ok\r\n") << ended.error;
    EXPECT_EQ(harness::awaitFile(product_->folder.file(L"INC.txt")), "+44 20 7000 0001,17,internal\r\n");
}

/// A client of its own process that ends in the middle of its work; run by the test below.
TEST(CarelessClient, DISABLED_EndsWithoutReleasingAnything) {
    DataConnector* driver = nullptr;
    ContactRecord* cursor = nullptr;
    Contact* contact = nullptr;
    LONG kind = 0;
    if (SUCCEEDED(CoCreateInstance(CLSID_cDataConnector, nullptr, CLSCTX_INPROC_SERVER,
                                   __uuidof(DataConnector), reinterpret_cast<void**>(&driver))) &&
        SUCCEEDED(driver->OpenContactRecord(&cursor)) &&
        SUCCEEDED(cursor->FindFirst(&kind, Bstr(L"+44*").get(), &contact)) && contact)
        ExitProcess(42);
}

TEST_F(ProductTest, SurvivesAClientThatEndsWithoutReleasingIt) {
    const auto ended = harness::runOwn(L"test_product.exe",
                                       L"--gtest_also_run_disabled_tests --gtest_filter=CarelessClient.*");
    EXPECT_EQ(ended.exitCode, 42u) << ended.out << ended.error;
}

// Wine does not start a server again that was killed until the service that remembers it has gone; Windows
// does.
TEST_F(ProductTest, GoesOnAfterOutlookWasClosedAndKeepsItsCacheWhenItIsKilled) {
    {
        const auto driver = newDriver();
        const auto cursor = openCursor(*driver);
        EXPECT_EQ(caller(*cursor, L"+44 20*"), L"Byrne, Alan");
        harness::Product::quitOutlook();
        EXPECT_EQ(caller(*cursor, L"+1 555*"), L"Crew, N100");
        EXPECT_EQ(harness::run(L"taskkill /f /im outlook_standin.exe").exitCode, 0u);
        for (const wchar_t* text : {L"+1 555*", L"+44*"}) EXPECT_EQ(caller(*cursor, text), L"(unknown)");
        EXPECT_EQ(cursor->MoveLast(), S_OK);
    }
    harness::run(L"net stop rpcss");
    const auto driver = newDriver();
    const auto cursor = openCursor(*driver);
    EXPECT_EQ(caller(*cursor, L"+1 555*"), L"Crew, N100");
    short matches = 0;
    cursor->get_RecordCount(&matches);
    EXPECT_EQ(matches, 30);
}

/// What Windows shows of a file, or goes by, that is not code.
TEST(ShippedFile, CarriesIconVersionAndManifest) {
    constexpr int kFirst = 1;
    const struct {
        const wchar_t* name;
        bool isProgram;
    } files[] = {{L"zelbar00.dll", false}, {L"pimcall.exe", true}, {L"fillcache.exe", true}};
    for (const auto& [name, isProgram] : files) {
        const HMODULE file = LoadLibraryExW((harness::programFolder() + L"\\" + name).c_str(), nullptr,
                                            LOAD_LIBRARY_AS_DATAFILE);
        const auto has = [&](LPCWSTR type) {
            return FindResourceW(file, MAKEINTRESOURCEW(kFirst), type) != nullptr;
        };
        EXPECT_TRUE(has(RT_GROUP_ICON)) << testing::PrintToString(name);
        EXPECT_TRUE(has(RT_VERSION)) << testing::PrintToString(name);
        EXPECT_EQ(has(RT_MANIFEST), isProgram) << testing::PrintToString(name);
        FreeLibrary(file);
    }
}

}  // namespace

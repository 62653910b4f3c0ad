#include <gtest/gtest.h>

#include <string>

#include "tests/harness/Caller.h"
#include "tests/harness/Files.h"
#include "tests/harness/Process.h"
#include "tests/harness/Product.h"

/// Runs the product as its users have it: an address book in an Outlook of its own process, the filler, the
/// driver as COM activates it, and clients that know nothing but its type library.
namespace {

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
    harness::Caller caller;
    if (!caller.find(L"+44*").empty()) ExitProcess(42);
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
        harness::Caller caller;
        EXPECT_EQ(caller.find(L"+44 20*"), L"Byrne, Alan");
        harness::Product::quitOutlook();
        EXPECT_EQ(caller.find(L"+1 555*"), L"Crew, N100");
        EXPECT_EQ(harness::run(L"taskkill /f /im outlook_standin.exe").exitCode, 0u);
        for (const wchar_t* text : {L"+1 555*", L"+44*"}) EXPECT_EQ(caller.find(text), L"");
        EXPECT_EQ(caller.cursor->MoveLast(), S_OK);
    }
    harness::run(L"net stop rpcss");
    harness::Caller caller;
    EXPECT_EQ(caller.find(L"+1 555*"), L"Crew, N100");
    short matches = 0;
    caller.cursor->get_RecordCount(&matches);
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

#include "com/Registration.h"

#include <PIMDriverAbstract.h>
#include <gtest/gtest.h>

#include "com/TypeLibrary.h"
#include "module/OwnModule.h"
#include "support/Registry.h"
#include "tests/harness/RegistrySandbox.h"

namespace zelbar {
namespace {

constexpr wchar_t kClass[] = L"CLSID\\{98EDA71F-51E6-49F9-BF7A-5F664091FC7C}";
constexpr wchar_t kLibrary[] = L"TypeLib\\{F03A15CF-DF40-424D-A6AE-D45BD2FEB00B}";
constexpr wchar_t kContact[] = L"Interface\\{1463C567-6AD7-48BF-AC66-C8B8560C42E5}";
constexpr wchar_t kClasses[] = L"Software\\Classes";

/// The whole branch of classes as a fresh, empty key: another build of the driver may be registered here.
struct RegistrationTest : testing::Test {
    harness::RegistrySandbox registry;
    HKEY classes = nullptr;

    void SetUp() override {
        // The library is found through the registry's true classes; it is kept once read.
        ASSERT_TRUE(embeddedTypeLibrary());
        ASSERT_EQ(RegCreateKeyW(HKEY_LOCAL_MACHINE, kClasses, &classes), ERROR_SUCCESS);
        ASSERT_EQ(RegOverridePredefKey(HKEY_CLASSES_ROOT, classes), ERROR_SUCCESS);
    }
    void TearDown() override {
        RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr);
        RegCloseKey(classes);
    }

    std::wstring value(const std::wstring& key, const wchar_t* name = L"") {
        return registry.get(HKEY_LOCAL_MACHINE, std::wstring(kClasses) + L"\\" + key, name)
            .value_or(L"(missing)");
    }
    bool exists(const std::wstring& key) {
        HKEY opened = nullptr;
        const bool result = RegOpenKeyW(classes, key.c_str(), &opened) == ERROR_SUCCESS;
        RegCloseKey(opened);
        return result;
    }
};

TEST_F(RegistrationTest, AllThatIsWrittenGoesAgain) {
    const RegisteredClass driver{CLSID_cDataConnector, L"zelbar00.cDataConnector", L"Contacts driver"};
    ASSERT_EQ(registerServer(driver), S_OK);
    ASSERT_EQ(registerServer(driver), S_OK) << "once more";

    const std::wstring server = std::wstring(kClass) + L"\\InprocServer32";
    EXPECT_EQ(value(L"zelbar00.cDataConnector\\CLSID"), kClass + 6);
    EXPECT_EQ(value(std::wstring(kClass) + L"\\ProgID"), L"zelbar00.cDataConnector");
    EXPECT_EQ(value(std::wstring(kClass) + L"\\TypeLib"), kLibrary + 8);
    EXPECT_EQ(value(server), modulePath());
    EXPECT_EQ(value(server, L"ThreadingModel"), L"Apartment");
    EXPECT_EQ(value(std::wstring(kLibrary) + L"\\1.0\\0\\win32"), modulePath());
    EXPECT_EQ(value(std::wstring(kContact) + L"\\TypeLib"), kLibrary + 8);

    EXPECT_EQ(unregisterServer(driver), S_OK);
    for (const wchar_t* key : {L"zelbar00.cDataConnector", kClass, kLibrary, kContact})
        EXPECT_FALSE(RegKeyExists(HKEY_CLASSES_ROOT, key)) << key;
    EXPECT_EQ(unregisterServer(driver), S_OK) << "what is not there is no failure";
}

}  // namespace
}  // namespace zelbar

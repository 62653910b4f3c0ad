#include "com/Registration.h"

#include <PIMDriverAbstract.h>
#include <gtest/gtest.h>

#include <tuple>

#include "com/TypeLibrary.h"
#include "module/OwnModule.h"
#include "support/Registry.h"
#include "tests/harness/RegistrySandbox.h"

namespace zelbar {
namespace {

const std::wstring kClass = L"CLSID\\{98EDA71F-51E6-49F9-BF7A-5F664091FC7C}";
const std::wstring kLibrary = L"TypeLib\\{F03A15CF-DF40-424D-A6AE-D45BD2FEB00B}";
const std::wstring kContact = L"Interface\\{1463C567-6AD7-48BF-AC66-C8B8560C42E5}";
constexpr wchar_t kClasses[] = L"Software\\Classes";

/// The whole branch of classes as a fresh, empty key: another build of the driver may be registered here.
struct RegistrationTest : testing::Test {
    harness::RegistrySandbox registry;
    HKEY classes = nullptr;
    const RegisteredClass driver{CLSID_cDataConnector, L"zelbar00.cDataConnector", L"Contacts driver"};

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
    std::wstring value(const std::wstring& key, const wchar_t* name = L"", HKEY root = HKEY_LOCAL_MACHINE) {
        return registry.get(root, std::wstring(kClasses) + L"\\" + key, name).value_or(L"(missing)");
    }
    void expectNothingLeft(HKEY root = HKEY_LOCAL_MACHINE) {
        for (const auto& key : {driver.progId, kClass, kLibrary, kContact})
            EXPECT_FALSE(RegKeyExists(root, std::wstring(kClasses) + L"\\" + key))
                << testing::PrintToString(key);
    }
};

TEST_F(RegistrationTest, AllThatIsWrittenGoesAgain) {
    for (const auto& [audience, root, other] :
         {std::tuple(Audience::Machine, HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER),
          std::tuple(Audience::User, HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE)}) {
        ASSERT_EQ(registerServer(driver, audience), S_OK);
        ASSERT_EQ(registerServer(driver, audience), S_OK) << "once more";
        expectNothingLeft(other);
        EXPECT_EQ(value(driver.progId + L"\\CLSID", L"", root), kClass.substr(6));
        EXPECT_EQ(value(kClass + L"\\ProgID", L"", root), driver.progId);
        EXPECT_EQ(value(kClass + L"\\TypeLib", L"", root), kLibrary.substr(8));
        EXPECT_EQ(value(kClass + L"\\InprocServer32", L"", root), modulePath());
        EXPECT_EQ(value(kClass + L"\\InprocServer32", L"ThreadingModel", root), L"Apartment");
        EXPECT_EQ(value(kLibrary + L"\\1.0\\0\\win32", L"", root), modulePath());
        EXPECT_EQ(value(kContact + L"\\TypeLib", L"", root), kLibrary.substr(8));
        EXPECT_EQ(unregisterServer(driver, audience), S_OK);
        expectNothingLeft(root);
        EXPECT_EQ(unregisterServer(driver, audience), S_OK) << "what is not there is no failure";
    }
}

TEST_F(RegistrationTest, AnotherVersionOfTheLibraryStays) {
    ASSERT_EQ(registerServer(driver), S_OK);
    const std::wstring branch = std::wstring(kClasses) + L"\\";
    registry.set(HKEY_LOCAL_MACHINE, branch + kLibrary + L"\\2.0", L"", L"newer");
    registry.set(HKEY_LOCAL_MACHINE, branch + kContact + L"\\TypeLib", L"Version", L"2.0");
    EXPECT_EQ(unregisterServer(driver), S_OK);
    EXPECT_EQ(value(kLibrary + L"\\2.0"), L"newer");
    EXPECT_EQ(value(kLibrary + L"\\1.0"), L"(missing)");
    EXPECT_EQ(value(kContact), L"Contact");
}

TEST_F(RegistrationTest, OneThatIsRefusedLeavesNothingBehind) {
    // Below a volatile key the system makes no lasting one: the class is refused after its name is written.
    HKEY refusing = nullptr;
    ASSERT_EQ(RegCreateKeyExW(classes, L"CLSID", 0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS, nullptr,
                              &refusing, nullptr),
              ERROR_SUCCESS);
    RegCloseKey(refusing);
    EXPECT_TRUE(FAILED(registerServer(driver)));
    expectNothingLeft();
}

}  // namespace
}  // namespace zelbar

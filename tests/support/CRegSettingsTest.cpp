#include "support/CRegSettings.h"

#include "automation/Fault.h"
#include "support/Registry.h"
#include "tests/support/Fixture.h"

namespace zelbar {
namespace {

class CRegSettingsTest : public SupportTest {
  protected:
    void store(const std::wstring& name, const std::wstring& text) {
        registry.set(HKEY_CURRENT_USER, std::wstring(kPopup) + L"\\section", name, text);
    }

    CRegSettings settings{L"7316\\Popup"};
};

TEST_F(CRegSettingsTest, PathPartsAreTrimmedAndRestored) {
    CRegSettings own;
    EXPECT_EQ(own.AppName(), module.title);
    registry.set(HKEY_CURRENT_USER, L"Software\\Norvane\\" + module.title, L"a", L"title");
    registry.set(HKEY_CURRENT_USER, L"Hard\\Maker\\App", L"a", L"other");
    EXPECT_EQ(own.GetSetting(L"", L"a"), L"title");
    own.SoftwareKey(L" Hard ");
    own.Company(L" Maker ");
    own.AppName(L" App ");
    EXPECT_EQ(own.GetSetting(L"", L"a"), L"other");
    own.SoftwareKey(L"  ");
    own.Company(L"");
    own.AppName(L" ");
    EXPECT_EQ(own.GetSetting(L"", L"a"), L"title");
}

TEST_F(CRegSettingsTest, OnlyPredefinedRootsAreTaken) {
    settings.hKey(HKEY_LOCAL_MACHINE);
    EXPECT_EQ(settings.hKey(), HKEY_LOCAL_MACHINE);
    for (const std::uintptr_t number : {0x80000010u, 0x80000007u, 0u, 1u, 0x7FFFFFFFu}) {
        settings.hKey(HKEY_LOCAL_MACHINE);
        settings.hKey(reinterpret_cast<HKEY>(number));
        EXPECT_EQ(settings.hKey(), HKEY_CURRENT_USER) << number;
    }
}

TEST_F(CRegSettingsTest, GetSettingFallsBackOnlyWithoutAValue) {
    EXPECT_EQ(settings.GetSetting(L"section", L"a", L"default"), L"default");
    store(L"a", L"text");
    store(L"empty", L"");
    store(L"", L"unnamed");
    store(L"long", std::wstring(3000, L'x'));
    registry.set(HKEY_CURRENT_USER, std::wstring(kPopup) + L"\\section", L"no bytes", REG_SZ, "");
    EXPECT_EQ(settings.GetSetting(L"section", L"A", L"default"), L"text");
    EXPECT_EQ(settings.GetSetting(L"section", L"absent", L"default"), L"default");
    EXPECT_EQ(settings.GetSetting(L"section", L"empty", L"default"), L"");
    EXPECT_EQ(settings.GetSetting(L"section", L"no bytes", L"default"), L"");
    EXPECT_EQ(settings.GetSetting(L"section", L"*", L"default"), L"unnamed");
    EXPECT_EQ(settings.GetSetting(L"section", L"long").size(), 3000u);
}

TEST_F(CRegSettingsTest, Numbers) {
    EXPECT_EQ(settings.GetSettingLong(L"section", L"n", 7), -1);
    EXPECT_EQ(settings.iGetSetting(L"section", L"i", -5), -5);
    store(L"text", L"123");
    registry.set(HKEY_CURRENT_USER, std::wstring(kPopup) + L"\\section", L"n", REG_DWORD,
                 std::string("\x2A\x01\0\0", 4));
    registry.set(HKEY_CURRENT_USER, std::wstring(kPopup) + L"\\section", L"two", REG_BINARY, "ab");
    EXPECT_EQ(settings.GetSettingLong(L"section", L"n"), 298);
    EXPECT_EQ(settings.GetSettingLong(L"section", L"absent", 7), 0);
    EXPECT_EQ(settings.GetSettingLong(L"section", L"two", 7), 0);
    EXPECT_EQ(settings.GetSettingLong(L"section", L"text", 7), 0);
    store(L"i", L"-12x");
    EXPECT_EQ(settings.iGetSetting(L"section", L"i", 0), -12);
    store(L"i", L"40000");
    try {
        settings.iGetSetting(L"section", L"i", 0);
        FAIL() << "no overflow";
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.number, 6);
        EXPECT_EQ(fault.description, L"Overflow");
    }
}

TEST_F(CRegSettingsTest, OnlyALeadingZeroIsFalse) {
    EXPECT_TRUE(settings.bGetSetting(L"section", L"b", true));
    EXPECT_FALSE(settings.bGetSetting(L"section", L"b", false));
    for (const auto& [text, value] : {std::pair{L"", true}, {L"0abc", false}, {L"no", true}, {L"-1", true}}) {
        store(L"b", text);
        EXPECT_EQ(settings.bGetSetting(L"section", L"b", false), value) << testing::PrintToString(text);
    }
}

TEST_F(CRegSettingsTest, SavesAndDeletes) {
    for (const wchar_t* name : {L"a", L"*"}) {
        EXPECT_TRUE(settings.SaveSetting(L"section", name, L"text"));
        EXPECT_EQ(settings.GetSetting(L"section", name), L"text");
    }
    EXPECT_TRUE(settings.SaveSetting(L"section", L"a", L"")) << "an empty text deletes";
    EXPECT_EQ(settings.GetSetting(L"section", L"a", L"gone"), L"gone");
    EXPECT_FALSE(settings.SaveSetting(L"section", L"a", L""));
    store(L"b", L"2");
    EXPECT_TRUE(settings.DeleteSetting(L"section", L"b"));
    EXPECT_FALSE(settings.DeleteSetting(L"section", L"b"));
    EXPECT_TRUE(settings.DeleteSetting(L"section", L""));
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, std::wstring(kPopup) + L"\\section"));
    EXPECT_FALSE(settings.DeleteSetting(L"", L"")) << "that would be all settings";
    EXPECT_TRUE(RegKeyExists(HKEY_CURRENT_USER, kPopup));
}

TEST_F(CRegSettingsTest, OperationsWithARootAssignIt) {
    CRegSettings other;
    EXPECT_TRUE(other.SaveSettingToHKey(HKEY_LOCAL_MACHINE, L"7316", L"Install", L"MultiUser", L"no"));
    EXPECT_EQ(registry.get(HKEY_LOCAL_MACHINE, kInstall, L"MultiUser"), L"no");
    EXPECT_EQ(other.hKey(), HKEY_LOCAL_MACHINE);
    EXPECT_EQ(other.AppName(), L"7316");
    EXPECT_EQ(other.GetSettingFromHKey(HKEY_CURRENT_USER, L"7316", L"Install", L"MultiUser", L"?"), L"?");
    EXPECT_EQ(other.GetSettingLongFromHKey(HKEY_LOCAL_MACHINE, L"7316", L"nowhere", L"x"), L"-1");
    EXPECT_TRUE(other.DeleteKey(HKEY_LOCAL_MACHINE, L"7316", L"Install", L"MultiUser"));
    EXPECT_FALSE(registry.get(HKEY_LOCAL_MACHINE, kInstall, L"MultiUser"));
}

TEST_F(CRegSettingsTest, AnAdministratorCanOpenSoftware) {
    EXPECT_FALSE(CRegSettings::IsUserAdmin(HKEY_LOCAL_MACHINE));
    registry.set(HKEY_LOCAL_MACHINE, L"Software", L"", L"");
    EXPECT_TRUE(CRegSettings::IsUserAdmin(HKEY_LOCAL_MACHINE));
}

}  // namespace
}  // namespace zelbar

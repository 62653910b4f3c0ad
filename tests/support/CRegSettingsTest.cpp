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
    void store(const std::wstring& name, DWORD type, const std::string& bytes) {
        registry.set(HKEY_CURRENT_USER, std::wstring(kPopup) + L"\\section", name, type, bytes);
    }

    CRegSettings settings{L"7316\\Popup"};
};

TEST_F(CRegSettingsTest, GetSettingFallsBackOnlyWithoutAValue) {
    EXPECT_EQ(settings.GetSetting(L"section", L"a", L"default"), L"default");
    store(L"a", L"text");
    store(L"empty", L"");
    store(L"", L"unnamed");
    store(L"long", std::wstring(3000, L'x'));
    store(L"bytes", REG_BINARY, "Zo\xEB");
    EXPECT_EQ(settings.GetSetting(L"section", L"A", L"default"), L"text");
    EXPECT_EQ(settings.GetSetting(L"section", L"absent", L"default"), L"default");
    EXPECT_EQ(settings.GetSetting(L"section", L"empty", L"default"), L"");
    EXPECT_EQ(settings.GetSetting(L"section", L"*", L"default"), L"unnamed");
    EXPECT_EQ(settings.GetSetting(L"section", L"long").size(), 3000u);
    EXPECT_EQ(settings.GetSetting(L"section", L"bytes"), L"Zoë");
}

TEST_F(CRegSettingsTest, NumbersAndFlags) {
    EXPECT_EQ(settings.GetSettingLong(L"section", L"n", 7), -1);
    EXPECT_EQ(settings.iGetSetting(L"section", L"i", -5), -5);
    EXPECT_TRUE(settings.bGetSetting(L"section", L"b", true));
    EXPECT_FALSE(settings.bGetSetting(L"section", L"b", false));
    store(L"text", L"123");
    store(L"n", REG_DWORD, {"\x2A\x01\0\0", 4});
    store(L"two", REG_BINARY, "ab");
    EXPECT_EQ(settings.GetSettingLong(L"section", L"n"), 298);
    for (const wchar_t* none : {L"absent", L"two", L"text"})
        EXPECT_EQ(settings.GetSettingLong(L"section", none, 7), 0) << testing::PrintToString(none);
    store(L"i", L"-12x");
    EXPECT_EQ(settings.iGetSetting(L"section", L"i", 0), -12);
    store(L"i", L"40000");
    EXPECT_THROW(settings.iGetSetting(L"section", L"i", 0), Fault);
    for (const auto& [text, value] : {std::pair{L"", true}, {L"0abc", false}, {L"no", true}}) {
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
    EXPECT_FALSE(settings.DeleteSetting(L"section", L"a"));
    EXPECT_TRUE(settings.DeleteSetting(L"section", L"*"));
    EXPECT_TRUE(settings.DeleteSetting(L"section", L""));
    EXPECT_FALSE(RegKeyExists(HKEY_CURRENT_USER, std::wstring(kPopup) + L"\\section"));
    EXPECT_FALSE(settings.DeleteSetting(L"", L"")) << "that would be all settings";
    EXPECT_TRUE(RegKeyExists(HKEY_CURRENT_USER, kPopup));
    EXPECT_TRUE(RegWriteString(HKEY_CURRENT_USER, kPopup, L"b", L"") &&
                RegReadStored(HKEY_CURRENT_USER, kPopup, L"b") == L" ")
        << "nothing is told from no value";
}

std::string utf16(std::wstring_view text) {
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t)};
}

TEST_F(CRegSettingsTest, ReadsEveryKindOfValue) {
    const struct {
        const wchar_t* name;
        DWORD type;
        std::string bytes;
        std::wstring text;
    } cases[] = {
        {L"text", REG_SZ, utf16(L"ab\0"), L"ab"},
        {L"expand", REG_EXPAND_SZ, utf16(L"%TEMP%"), L"%TEMP%"},
        {L"unterminated", REG_SZ, utf16(L"abc"), L"abc"},
        {L"foreign", REG_SZ, utf16(L"Zoë Łuk 𝄞"), L"Zoë Łuk 𝄞"},
        {L"257", REG_DWORD, {"\x01\x01\0\0", 4}, L"17"},
        {L"four digits", REG_DWORD, "\x78\x56\x34\x12", L"305419896"},
        {L"256", REG_DWORD, {"\0\x01\0\0", 4}, L"0"},
        {L"binary", REG_BINARY, "abc", L""},
        {L"longest", REG_SZ, utf16(std::wstring(1023, L'x') + L'\0'), std::wstring(1023, L'x')},
        {L"too long", REG_SZ, utf16(std::wstring(1024, L'x') + L'\0'), L""},
    };
    for (const auto& c : cases) {
        registry.set(HKEY_CURRENT_USER, kPopup, c.name, c.type, c.bytes);
        EXPECT_EQ(RegReadString(HKEY_CURRENT_USER, kPopup, c.name), c.text) << testing::PrintToString(c.name);
    }
    EXPECT_EQ(RegReadString(HKEY_CURRENT_USER, kPopup, L"absent"), L"");
    EXPECT_EQ(RegReadString(HKEY_CURRENT_USER, L"Software\\absent", L"text"), L"");
    EXPECT_EQ(RegReadString(HKEY_LOCAL_MACHINE, kPopup, L"text"), L"");
}

}  // namespace
}  // namespace zelbar

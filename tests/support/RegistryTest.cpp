#include "support/Registry.h"

#include "tests/support/Fixture.h"

namespace zelbar {
namespace {

using RegistryTest = SupportTest;

std::string utf16(std::wstring_view text) {
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t)};
}

TEST_F(RegistryTest, ReadsEveryKindOfValue) {
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

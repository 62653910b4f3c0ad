#include "tests/harness/Product.h"

#include <gtest/gtest.h>

#include "tests/harness/Files.h"
#include "tests/harness/Process.h"

namespace harness {

Product::Product(const std::string& addressBook) {
    set(L"VEXPhone", L"DataPath", folder.path());
    quitOutlook();
    SetEnvironmentVariableW(L"STANDIN_MAILBOX", folder.file(L"mailbox.db").c_str());
    writeFile(folder.file(L"book.vcf"), addressBook);
    const auto imported = runOwn(L"outlook_standin.exe", L"import \"" + folder.file(L"book.vcf") + L"\"");
    EXPECT_EQ(imported.exitCode, 0u) << imported.error;
    const auto filled = runOwn(L"fillcache.exe", L"");
    EXPECT_EQ(filled.exitCode, 0u) << filled.out << filled.error;
}

Product::~Product() {
    quitOutlook();
    set(L"VEXPhone", L"DataPath", L"");
}

void Product::quitOutlook() {
    runOwn(L"outlook_standin.exe", L"quit");
}

void Product::set(const wchar_t* key, const wchar_t* name, const std::wstring& value) {
    RegSetKeyValueW(HKEY_CURRENT_USER, (std::wstring(L"Software\\Norvane\\7316\\") + key).c_str(), name,
                    REG_SZ, value.c_str(), static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
}

std::string card(const std::string& name, const std::string& telephones) {
    return "BEGIN:VCARD\r\nVERSION:3.0\r\nN:" + name + "\r\n" + telephones + "END:VCARD\r\n";
}

}  // namespace harness

#include "tests/export/ExportTest.h"

namespace zelbar {

namespace {

class ExportedAddresses : public ExportTest {
  protected:
    void SetUp() override {
        ExportTest::SetUp();
        for (long id = 1; id <= 3; ++id) {
            directory.add(id,
                          {{L"LastName", L"N" + std::to_wstring(id)}, {L"EmailAddress", L"a@firm.example"}});
            directory.place(id, 2);
        }
    }
    void allow(const wchar_t* value) {
        registry.set(HKEY_CURRENT_USER, kPopupKey, L"NoEmailAddressAccess", value);
    }
    long reads() { return outlook.server().calls().invocations(L"ContactItem.Email1Address"); }
};

TEST_F(ExportedAddresses, AreNeitherReadNorWrittenWhenTheSettingForbidsIt) {
    allow(L"1");
    EXPECT_TRUE(initialize());
    EXPECT_TRUE(synchronize());
    EXPECT_EQ(reads(), 0);
    EXPECT_EQ(byName().at(L"N1").field(L"Email1Address"), L"");
    allow(L"0");
    EXPECT_TRUE(synchronize());
    for (const auto& [name, item] : byName()) EXPECT_EQ(item.field(L"Email1Address"), L"a@firm.example");
}

TEST_F(ExportedAddresses, AreLeftAloneForTheRunOnceTheUserRefuses) {
    EXPECT_TRUE(initialize());
    directory.execute(L"Update Employees Set EmailAddress = \"b@firm.example\", Department = \"New\"");
    for (const wchar_t* answer : {L"deny", L"abort"}) {
        outlook.server().setOption(L"Guard", answer);
        outlook.server().calls().reset();
        EXPECT_TRUE(synchronize());
        EXPECT_EQ(reads(), 1) << "one prompt a run";
        for (const auto& [name, item] : byName()) {
            EXPECT_EQ(item.field(L"Email1Address"), L"a@firm.example");
            EXPECT_EQ(item.field(L"Department"), L"New");
        }
    }
    outlook.server().setOption(L"Guard", L"");
    EXPECT_TRUE(synchronize());
    EXPECT_EQ(byName().at(L"N3").field(L"Email1Address"), L"b@firm.example");
}

}  // namespace

}  // namespace zelbar

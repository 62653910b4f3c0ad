#include "filler/FillCache.h"

#include <gtest/gtest.h>

#include "standin/outlook/host/Host.h"
#include "tests/filler/Fixture.h"
#include "tests/harness/Files.h"

namespace {

using Rows = std::vector<CacheContent::Row>;
using standin::outlook::FolderRecord;
using standin::outlook::ItemRecord;
using standin::outlook::ItemType;
using standin::outlook::SpecialFolder;

using Texts = std::vector<std::wstring>;

class FillCacheTest : public CacheTest {
  protected:
    ~FillCacheTest() override { EXPECT_EQ(outlook_.server().liveObjects(), 0); }

    standin::outlook::Mailbox& box() { return outlook_.mailbox(); }
    FolderRecord contacts() { return box().specialFolder(SpecialFolder::Contacts); }
    ItemRecord addPerson(const FolderRecord& folder, const wchar_t* last, const wchar_t* number) {
        return box().addContact(
            folder.id, {{L"FirstName", L"Ada"}, {L"LastName", last}, {L"BusinessTelephoneNumber", number}});
    }
    void choose(int position, const FolderRecord& folder, const wchar_t* selected) {
        const std::wstring n = std::to_wstring(position);
        registry_.set(HKEY_CURRENT_USER, kSelection, L"entryId" + n, box().entryId(folder));
        registry_.set(HKEY_CURRENT_USER, kSelection, L"storeId" + n, box().storeId(folder.store));
        registry_.set(HKEY_CURRENT_USER, kSelection, L"selectId" + n, selected);
    }
    /// One run; the sentence of the failure, or empty.
    std::wstring fill() {
        observer_.notes.clear();
        try {
            result_ = filler::fillCache(observer_);
            return {};
        } catch (const filler::Failure& failure) {
            return failure.sentence;
        }
    }
    std::vector<std::wstring> column(std::size_t position) {
        std::vector<std::wstring> texts;
        for (const auto& row : content().numbers) texts.push_back(row[position]);
        return texts;
    }

    standin::outlook::Host outlook_{folder_.file(L"mailbox.db")};
    filler::FillResult result_;
};

TEST_F(FillCacheTest, ReadsTheDefaultFolderWhileNoneIsChosen) {
    const ItemRecord byron = addPerson(contacts(), L"Byron", L"+44 20 1");
    addPerson(box().addFolder(box().defaultStore().root, L"Others", ItemType::Contact), L"Other", L"9");
    choose(1, box().specialFolder(SpecialFolder::Inbox), L"0");
    ASSERT_EQ(fill(), L"");
    const std::wstring store = box().storeId(box().defaultStore().id);
    EXPECT_EQ(content().stores, (Rows{{L"1", store}}));
    EXPECT_EQ(content().numbers, (Rows{{L"Byron Ada", L"+44 20 1", box().entryId(byron), L"1"}}));
    EXPECT_EQ(filler::describe(result_),
              L"1 contact in 1 folder, 1 number.\n1 row added, 0 removed.\n"
              L"Restart the telephony client: it reads the list of stores only when it starts.\n");
    ASSERT_EQ(fill(), L"");
    EXPECT_EQ(filler::describe(result_), L"1 contact in 1 folder, 1 number.\nNothing changed.\n");
}

TEST_F(FillCacheTest, ReadsAllNineteenNumbers) {
    Texts telephones{L"ISDNNumber",     L"BusinessFaxNumber", L"HomeFaxNumber",
                     L"OtherFaxNumber", L"PagerNumber",       L"TelexNumber"};
    for (const wchar_t* kind : {L"Business", L"Business2", L"Home", L"Home2", L"Assistant", L"Mobile", L"Car",
                                L"Primary", L"Callback", L"CompanyMain", L"Other", L"Radio", L"TTYTDD"})
        telephones.push_back(std::wstring(kind) + L"TelephoneNumber");
    standin::outlook::Fields fields{{L"LastName", L"Byron"}};
    Texts numbers;
    for (const std::wstring& telephone : telephones) {
        numbers.push_back(std::to_wstring(100 + numbers.size()));
        fields.emplace(telephone, numbers.back());
    }
    box().addContact(contacts().id, fields);
    ASSERT_EQ(fill(), L"");
    EXPECT_EQ(column(1), numbers);
    EXPECT_EQ(numbers.size(), 19u);
}

TEST_F(FillCacheTest, TakesWhatCanBeSearchedAndCalled) {
    const FolderRecord folder = contacts();
    box().addContact(
        folder.id,
        {{L"LastName", L"Twice"}, {L"HomeTelephoneNumber", L"1"}, {L"CarTelephoneNumber", L" 1 "}});
    box().addContact(folder.id, {{L"CompanyName", L"Engines"}, {L"PagerNumber", L"2"}});
    box().addContact(folder.id, {{L"FileAs", L"Filed"}, {L"TelexNumber", L"3"}});
    box().addContact(folder.id, {{L"LastName", L"Silent"}, {L"Email1Address", L"silent@example.com"}});
    box().addDistributionList(folder.id, L"Team");
    ASSERT_EQ(fill(), L"");
    EXPECT_EQ(column(0), (Texts{L"Engines", L"Filed", L"Twice"}));
    EXPECT_EQ(column(1), (Texts{L"2", L"3", L"1"}));
    EXPECT_EQ(result_.contactCount, 4);
    EXPECT_TRUE(observer_.notes.empty());
}

TEST_F(FillCacheTest, ReadsTheChosenFoldersOfSeveralStores) {
    const auto archive = box().addStore(L"Archive");
    const FolderRecord old = box().addFolder(archive.root, L"Old", ItemType::Contact);
    const FolderRecord others = box().addFolder(box().defaultStore().root, L"Others", ItemType::Contact);
    addPerson(contacts(), L"Unselected", L"1");
    addPerson(old, L"Old", L"2");
    addPerson(others, L"Other", L"3");
    choose(1, contacts(), L"0");
    choose(2, old, L"-1");
    choose(3, others, L"");
    choose(4, old, L"-1");
    ASSERT_EQ(fill(), L"");
    EXPECT_EQ(content().stores,
              (Rows{{L"1", box().storeId(archive.id)}, {L"2", box().storeId(others.store)}}));
    EXPECT_EQ(column(0), (Texts{L"Old Ada", L"Other Ada"}));
    EXPECT_EQ(column(3), (Texts{L"1", L"2"}));
    EXPECT_EQ(result_.folderCount, 2);

    registry_.set(HKEY_CURRENT_USER, kPopup, L"LimitPST", L"1");
    ASSERT_EQ(fill(), L"");
    EXPECT_EQ(column(0), (Texts{L"Old Ada"}));
    EXPECT_EQ(observer_.notes.size(), 1u);
}

TEST_F(FillCacheTest, ADeletedFolderIsLeftOutButNotTheLast) {
    const auto archive = box().addStore(L"Archive");
    const FolderRecord others = box().addFolder(box().defaultStore().root, L"Others", ItemType::Contact);
    const FolderRecord old = box().addFolder(archive.root, L"Old", ItemType::Contact);
    addPerson(others, L"Other", L"1");
    addPerson(old, L"Old", L"2");
    choose(1, others, L"-1");
    choose(2, old, L"-1");
    ASSERT_EQ(fill(), L"");
    box().eraseFolder(others.id);
    ASSERT_EQ(fill(), L"");
    EXPECT_EQ(column(0), (Texts{L"Old Ada"}));
    EXPECT_EQ(observer_.notes,
              (Texts{L"The chosen folder number 1 does not exist any more and was left out."}));
    // A store that is not open may come back.
    box().removeStore(archive.id);
    EXPECT_EQ(fill().find(L"The chosen folder number 2 cannot be opened in Outlook"), 0u);
    registry_.set(HKEY_CURRENT_USER, kSelection, L"selectId2", L"0");
    EXPECT_EQ(fill(), L"None of the chosen folders exists any more. Choose the contacts folders again.");
    EXPECT_EQ(column(0), (Texts{L"Old Ada"}));
}

TEST_F(FillCacheTest, AnItemThatCannotBeReadStopsNobody) {
    const HRESULT failed = E_FAIL;
    addPerson(contacts(), L"Byron", L"1");
    addPerson(contacts(), L"Hopper", L"2");
    ASSERT_EQ(fill(), L"");
    const CacheContent before = content();
    addPerson(contacts(), L"Lovelace", L"3");
    // The last item is read first; the one after it fails.
    outlook_.server().faults().failMember(L"TelexNumber", {failed, L"Broken item."}, 1);
    ASSERT_EQ(fill(), L"");
    EXPECT_EQ(result_.unreadCount, 1);
    EXPECT_EQ(observer_.notes, (Texts{L"Contacts that could not be read: 1. The last reason: Broken item."}));
    EXPECT_EQ(column(0), (Texts{L"Byron Ada", L"Hopper Ada"}));
    outlook_.server().faults().failMember(L"ContactItem.LastName", {failed, L"Broken item."});
    EXPECT_NE(fill().find(L"none of the contacts"), std::wstring::npos);
    EXPECT_EQ(content(), before);
}

TEST_F(FillCacheTest, OutlookFailingAnywhereLeavesTheCache) {
    addPerson(contacts(), L"Byron", L"1");
    ASSERT_EQ(fill(), L"");
    const CacheContent before = content();
    addPerson(contacts(), L"Hopper", L"2");
    outlook_.server().calls().reset();
    {
        zelbar::Gateway gateway;
        filler::readAddressBook(gateway, filler::readFolderChoice(), observer_);
    }
    const long calls = outlook_.server().calls().invocations();
    for (long n = 1; n <= calls; ++n) {
        SCOPED_TRACE("call " + std::to_string(n));
        outlook_.server().faults().failCall(n, {static_cast<HRESULT>(0x80010001)});
        ASSERT_NE(fill(), L"");
        outlook_.server().faults().clear();
        outlook_.server().faults().quitAtCall(n);
        ASSERT_NE(fill(), L"");
        outlook_.server().faults().clear();
    }
    outlook_.server().faults().failAll({static_cast<HRESULT>(0x80010001)});
    EXPECT_NE(fill().find(L"busy"), std::wstring::npos);
    outlook_.server().faults().clear();
    outlook_.server().faults().failCreation(static_cast<HRESULT>(0x80080005));
    EXPECT_EQ(fill().find(L"Outlook does not start: it is starting or closing"), 0u);
    outlook_.server().faults().clear();
    EXPECT_EQ(content(), before);
}

TEST_F(FillCacheTest, ManyContactsCostTheSameEach) {
    const auto callsOf = [&](int count) {
        for (int i = 0; i < count; ++i) addPerson(contacts(), (L"P" + std::to_wstring(i)).c_str(), L"1");
        outlook_.server().calls().reset();
        EXPECT_EQ(fill(), L"");
        return outlook_.server().calls().invocations();
    };
    const long ten = callsOf(10);
    const long names = outlook_.server().calls().lookUps();
    const long hundred = callsOf(90);
    EXPECT_EQ(hundred - ten, 90 * 24);
    EXPECT_EQ(outlook_.server().calls().lookUps(), names);
}

}  // namespace

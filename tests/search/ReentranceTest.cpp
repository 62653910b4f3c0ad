#include <functional>

#include "connector/cDataConnector.h"
#include "tests/search/SearchTest.h"

namespace zelbar {

namespace {

using Answer = std::vector<std::wstring>;
constexpr long kMostCalls = 1000;

/// A client that has found Ada Byron and calls in again while the driver waits for Outlook.
class Reentrance : public SearchTest {
  protected:
    void SetUp() override {
        std::vector<TestRow> rows;
        for (const wchar_t* name : {L"Ada", L"Ben", L"Cy"}) {
            rows.push_back(addListed(name, L"Byron", L"5" + std::wstring(name)));
            rows.push_back(addListed(name, L"Smith", L"6" + std::wstring(name)));
        }
        writeCache(rows);
        registry.set(HKEY_CURRENT_USER, kPopupKey, L"Developper", L"0");
    }
    void begin() {
        outlook.server().faults().clear();
        if (!cursor) cursor = openCursor();
        EXPECT_EQ(fullName(first(0, L"5*")), L"Byron, Ada");
    }
    Answer search(const wchar_t* text) { return {mainNumber(findFirst(*cursor.get(), 0, text).get())}; }
    Answer version() {
        Bstr result;
        connector().get_Version(result.put());
        return {result.text()};
    }
};

TEST_F(Reentrance, EveryCallAnswersAsIfNoOtherHadComeInMeanwhile) {
    const auto numbers = [&] { return list(*found, &::Contact::get_PhoneNumbers); };
    const std::pair<const char*, std::function<Answer()>> calls[] = {
        {"FindFirst", [&] { return search(L"5*"); }},
        {"FindFirst, unknown", [&] { return search(L"7"); }},
        {"FindNext", [&] { return Answer{mainNumber(findNext(*cursor.get()).get())}; }},
        {"MoveLast", [&] { return cursor->MoveLast(), Answer(); }},
        {"collection", [&] { return collect(0, L"5*"); }},
        {"PhoneNumbers", numbers},
        {"Version", [&] { return version(); }},
    };
    // What closes the cache or Outlook may cost the other call its answer, but gives it no other's.
    const struct {
        const char* name;
        bool closes;
        std::function<void()> call;
    } meanwhile[] = {
        {"search on the same cursor", false, [&] { search(L"6*"); }},
        {"search on another", false, [&] { findFirst(*openCursor().get(), 0, L"6*"); }},
        {"collection", false, [&] { collect(0, L"6*"); }},
        {"PhoneNumbers", false, numbers},
        {"ClosePIM", false, [&] { connector().ClosePIM(); }},
        {"second driver", true, [] { makeObject<cDataConnector>(); }},
        {"release of all", true, [&] { release(); }},
        {"Outlook closed", true, [&] { outlook.quit(); }},
        {"no Outlook", true,
         [&] {
             outlook.server().faults().failCreation(REGDB_E_CLASSNOTREG);
             search(L"6*");
         }},
    };
    for (const auto& [name, call] : calls) {
        begin();
        const Answer expected = call();
        for (const auto& other : meanwhile)
            for (long k = 1, ran = 1; ran && k < kMostCalls; ++k) {
                ran = 0;
                begin();
                outlook.server().faults().meanwhileAtCall(k, [&] { ++ran, other.call(); });
                const Answer answer = call();
                SCOPED_TRACE(testing::Message() << other.name << " at call " << k << " of " << name);
                EXPECT_TRUE(other.closes || answer == expected);
                for (const auto& value : answer) EXPECT_EQ(value.find(L'6'), value.npos) << value;
                EXPECT_EQ(outlook.server().calls().abandoned(), 0);
                if (other.closes) release();
            }
    }
    EXPECT_EQ(cacheRows(), 6);
}

}  // namespace

}  // namespace zelbar

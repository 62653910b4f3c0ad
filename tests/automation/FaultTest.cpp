#include "automation/Fault.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "automation/Object.h"
#include "automation/OutlookFaults.h"
#include "tests/automation/FaultOf.h"
#include "tests/automation/StrictObject.h"

namespace zelbar {
namespace {

constexpr Member kName{L"Name"};

Fault faultOfCall(StrictObject::Answer answer) {
    StrictObject target({{L"Name", 5}}, std::move(answer));
    return faultOf([&] { Object(Gateway(), Server::Outlook, target.reference(), 40).get(kName); });
}

TEST(FaultTest, ResultsAndAServersOwnErrorsBecomeTheNumbersThatUsersOfAutomationKnow) {
    const struct {
        unsigned result;
        WORD code;  ///< Of the server's own error; 0: there is none, or `result` is its number.
        const wchar_t *description, *source;
        long number;
        const wchar_t* text;
    } kCases[] = {
        {0x80020003, 0, nullptr, nullptr, 438, L"Object doesn't support this property or method"},
        {0x80020005, 0, nullptr, nullptr, 13, L"Type mismatch"},
        {0x8002000A, 0, nullptr, nullptr, 6, L"Overflow"},
        {0x8007000E, 0, nullptr, nullptr, 7, L"Out of memory"},
        {0x80040154, 0, nullptr, nullptr, 429, L"ActiveX component can't create object"},
        {0x800706BA, 0, nullptr, nullptr, 462, L"The remote server machine does not exist or is unavailable"},
        {0x800A0BCD, 0, nullptr, nullptr, 3021, L"Automation error"},
        {0x80010001, 0, nullptr, nullptr, static_cast<long>(0x80010001), L"Automation error"},
        {0x800A0BCD, 0, L"No row.", L"DAO.Recordset", 3021, L"No row."},
        {0, 7, nullptr, nullptr, 7, L"Out of memory"},
        {0, 1001, L"Own", L"Own.Source", 1001, L"Own"},
    };
    for (const auto& c : kCases)
        for (const bool isOwn : {true, false}) {
            if (!isOwn && (c.code != 0 || c.description)) continue;
            const Fault fault = faultOfCall([&](DISPID, DISPPARAMS&, VARIANT*, EXCEPINFO* info) {
                if (!isOwn) return static_cast<HRESULT>(c.result);
                info->scode = static_cast<SCODE>(c.result);
                info->wCode = c.code;
                info->bstrDescription = SysAllocString(c.description);
                info->bstrSource = SysAllocString(c.source);
                return DISP_E_EXCEPTION;
            });
            EXPECT_EQ(fault.number, c.number);
            EXPECT_TRUE(fault.description.starts_with(c.text)) << fault.description;
            EXPECT_EQ(fault.source, c.source ? c.source : L"Microsoft Outlook");
        }
}

TEST(FaultTest, TheDriversOwnFailuresHaveNumbersToo) {
    EXPECT_EQ(faultOf([] { Object().get(kName); }).number, 91);
    EXPECT_EQ(faultOf([] { Object().object(kName); }).number, 91);
    EXPECT_EQ(faultOf([] { Gateway().create(Server::Dao, L"No.Such.Class", 1); }).number, 429);
    EXPECT_EQ(faultOf([] { throw std::bad_alloc(); }).number, 7);
    EXPECT_EQ(faultOf([] { throw std::runtime_error("caf\xE9"); }).description, L"caf\u00E9");
    EXPECT_EQ(faultOf([] { throw 1; }).number, E_UNEXPECTED);
}

TEST(FaultTest, EveryNumberOfOutlooksSaysOneThing) {
    constexpr int kItemGone = 1, kServerGone = 2, kBusy = 4, kOutlookFailed = 8, kStarting = 16,
                  kNotInstalled = 32;
    const struct {
        int says;
        std::vector<unsigned long> numbers;
    } kCases[] = {
        {kItemGone, {0x8004010F, 0xC1F4010F, 0x80040107, 0x80040201, 0x8004010A}},
        {kServerGone | kOutlookFailed,
         {462, 0x80010007, 0x80010012, 0x80010108, 0x800706B5, 0x800706BE, 0x800706BF, 0x800403E9}},
        {kBusy | kOutlookFailed, {0x80010001, 0x8001010A}},
        {kStarting | kOutlookFailed, {0x80080005}},
        {kNotInstalled | kOutlookFailed, {429}},
        {kOutlookFailed, {0x80010005, 0x800706C6, 7, 0x80040115, 0x8004011C, 0xC1F4011D}},
        {0, {0, 70, 91, 438, 0x80010105, 0x80004005, 0x80070057, 0x8007000E, 0x0004010F, 0xA72300FC}},
    };
    for (const auto& c : kCases)
        for (const unsigned long number : c.numbers) {
            const Fault fault{static_cast<long>(number), {}, {}};
            const int says = (saysItemGone(fault) ? kItemGone : 0) |
                             (saysServerGone(fault) ? kServerGone : 0) | (saysBusy(fault) ? kBusy : 0) |
                             (saysStarting(fault) ? kStarting : 0) |
                             (saysNotInstalled(fault) ? kNotInstalled : 0) |
                             (saysOutlookFailed(fault) ? kOutlookFailed : 0);
            EXPECT_EQ(says, c.says) << std::hex << number;
        }
}

}  // namespace
}  // namespace zelbar

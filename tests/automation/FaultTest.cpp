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

/// The fault of a call that a server answers like this.
Fault faultOfCall(StrictObject::Answer answer) {
    StrictObject target({{L"Name", 5}}, std::move(answer));
    return faultOf([&] { Object(Gateway(), Server::Outlook, target.reference(), 40).get(kName); });
}

TEST(FaultTest, ResultsBecomeTheNumbersThatUsersOfAutomationKnow) {
    constexpr struct {
        unsigned long result;
        long number;
        const wchar_t* text;
    } kCases[] = {
        {0x80020003, 438, L"Object doesn't support this property or method"},
        {0x80020005, 13, L"Type mismatch"},
        {0x8002000A, 6, L"Overflow"},
        {0x8007000E, 7, L"Out of memory"},
        {0x80040154, 429, L"ActiveX component can't create object"},
        {0x800706BA, 462, L"The remote server machine does not exist or is unavailable"},
        {0x800A0BCD, 3021, L"Automation error"},
        {0x80010001, static_cast<long>(0x80010001), L"Automation error"},
    };
    for (const auto& c : kCases) {
        const Fault fault = faultOfCall([&](auto...) { return static_cast<HRESULT>(c.result); });
        EXPECT_EQ(fault.number, c.number);
        EXPECT_EQ(fault.description.rfind(c.text, 0), 0u) << fault.description;
        EXPECT_EQ(fault.source, L"Microsoft Outlook");
    }
}

TEST(FaultTest, AServersOwnErrorKeepsItsNumberTextAndSource) {
    const struct {
        unsigned scode;
        WORD code;
        const wchar_t *description, *source;
        Fault expected;
    } kCases[] = {
        {0x800A0BCD, 0, L"No row.", L"DAO.Recordset", {3021, L"No row.", L"DAO.Recordset"}},
        {0x80020005, 0, nullptr, nullptr, {13, L"Type mismatch", L"Microsoft Outlook"}},
        {0, 7, nullptr, nullptr, {7, L"Out of memory", L"Microsoft Outlook"}},
        {0, 1001, L"Own", L"Own.Source", {1001, L"Own", L"Own.Source"}},
    };
    for (const auto& c : kCases) {
        const Fault fault = faultOfCall([&](DISPID, DISPPARAMS&, VARIANT*, EXCEPINFO* info) {
            info->scode = static_cast<SCODE>(c.scode);
            info->wCode = c.code;
            info->bstrDescription = SysAllocString(c.description);
            info->bstrSource = SysAllocString(c.source);
            return DISP_E_EXCEPTION;
        });
        EXPECT_EQ(fault.number, c.expected.number);
        EXPECT_EQ(fault.description, c.expected.description);
        EXPECT_EQ(fault.source, c.expected.source);
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

#include "automation/Fault.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "automation/Object.h"
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

}  // namespace
}  // namespace zelbar

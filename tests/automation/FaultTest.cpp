#include "automation/Fault.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "automation/Bstr.h"
#include "automation/Gateway.h"
#include "automation/Object.h"
#include "tests/automation/HeapBlocks.h"
#include "tests/automation/StrictObject.h"

namespace zelbar {
namespace {

constexpr Member kName{L"Name"};

template <class Statement>
Fault faultIn(Statement&& statement) {
    try {
        statement();
    } catch (...) {
        return caughtFault();
    }
    ADD_FAILURE() << "nothing was thrown";
    return {};
}

/// The fault of a call that a server answers like this.
Fault faultOfCall(StrictObject::Answer answer) {
    Gateway gateway;
    StrictObject target({{L"Name", 5}}, std::move(answer));
    Fault fault = faultIn([&] { Object(gateway, Server::Outlook, target.reference(), 40).get(kName); });
    EXPECT_EQ(target.references, 1);
    return fault;
}

TEST(FaultTest, ResultsBecomeTheNumbersThatUsersOfAutomationKnow) {
    constexpr struct {
        HRESULT result;
        long number;
        const wchar_t* text;
    } kCases[] = {
        {DISP_E_MEMBERNOTFOUND, 438, L"Object doesn't support this property or method"},
        {DISP_E_UNKNOWNNAME, 438, L"Object doesn't support this property or method"},
        {DISP_E_TYPEMISMATCH, 13, L"Type mismatch"},
        {DISP_E_OVERFLOW, 6, L"Overflow"},
        {DISP_E_BADPARAMCOUNT, 450, L"Wrong number of arguments or invalid property assignment"},
        {DISP_E_PARAMNOTOPTIONAL, 449, L"Argument not optional"},
        {E_NOINTERFACE, 430, L"Class does not support Automation or does not support expected interface"},
        {E_OUTOFMEMORY, 7, L"Out of memory"},
        {E_ACCESSDENIED, 70, L"Permission denied"},
        {REGDB_E_CLASSNOTREG, 429, L"ActiveX component can't create object"},
        {static_cast<HRESULT>(0x800706BA), 462,
         L"The remote server machine does not exist or is unavailable"},
        {static_cast<HRESULT>(0x800A0BCD), 3021, L"Automation error"},
        {static_cast<HRESULT>(0x80010001), static_cast<long>(0x80010001), L"Automation error"},
        {static_cast<HRESULT>(0x800A0000), static_cast<long>(0x800A0000), L"Automation error"},
    };
    for (const auto& c : kCases) {
        const Fault fault = faultOfCall([&](auto...) { return c.result; });
        EXPECT_EQ(fault.number, c.number) << std::hex << c.result;
        EXPECT_EQ(fault.description.rfind(c.text, 0), 0u) << std::hex << c.result;
        EXPECT_EQ(fault.source, L"Microsoft Outlook");
    }
}

HRESULT __stdcall fillIn(EXCEPINFO* info) {
    info->scode = static_cast<SCODE>(0x800A0C1C);
    info->bstrDescription = SysAllocString(L"Late text");
    info->bstrSource = SysAllocString(L"DAO.Recordset");
    return S_OK;
}

TEST(FaultTest, AServersOwnErrorKeepsItsNumberTextAndSource) {
    const struct {
        unsigned scode;
        WORD code;
        const wchar_t *description, *source;
        HRESULT(__stdcall* late)(EXCEPINFO*);
        Fault expected;
    } kCases[] = {
        {0x800A0BCD,
         0,
         L"No current record.",
         L"DAO.Recordset",
         nullptr,
         {3021, L"No current record.", L"DAO.Recordset"}},
        {0x80020005, 0, nullptr, nullptr, nullptr, {13, L"Type mismatch", L"Microsoft Outlook"}},
        {0,
         91,
         nullptr,
         nullptr,
         nullptr,
         {91, L"Object variable or With block variable not set", L"Microsoft Outlook"}},
        {0, 1001, L"Own", L"Own.Source", nullptr, {1001, L"Own", L"Own.Source"}},
        {0, 0, L"", L"", nullptr, {DISP_E_EXCEPTION, L"", L""}},
        {0, 0, nullptr, nullptr, fillIn, {3100, L"Late text", L"DAO.Recordset"}},
    };
    for (const auto& c : kCases) {
        const Fault fault = faultOfCall([&](DISPID, DISPPARAMS&, VARIANT*, EXCEPINFO* info) {
            info->scode = static_cast<SCODE>(c.scode);
            info->wCode = c.code;
            info->bstrDescription = SysAllocString(c.description);
            info->bstrSource = SysAllocString(c.source);
            info->pfnDeferredFillIn = c.late;
            return DISP_E_EXCEPTION;
        });
        EXPECT_EQ(fault.number, c.expected.number);
        EXPECT_EQ(fault.description, c.expected.description);
        EXPECT_EQ(fault.source, c.expected.source);
    }
}

TEST(FaultTest, TheDriversOwnFailuresHaveNumbersToo) {
    Gateway gateway;
    EXPECT_EQ(faultIn([] { Object().get(kName); }).number, 91);
    EXPECT_EQ(faultIn([] { Object().put(kName, 1); }).number, 91);
    EXPECT_EQ(faultIn([] { Object().objectClass(); }).number, 91);
    EXPECT_EQ(faultIn([&] { gateway.create(Server::Dao, L"No.Such.Class", 1); }).number, 429);
    EXPECT_EQ(faultIn([] { throw std::bad_alloc(); }).number, 7);
    EXPECT_EQ(faultIn([] { throw std::runtime_error("caf\xE9"); }).description, L"caf\u00E9");
    EXPECT_EQ(faultIn([] { throw 1; }).number, E_UNEXPECTED);
}

TEST(FaultTest, CallsAndFailuresLeaveNothingBehind) {
    Gateway gateway;
    const auto giveText = [](VARIANT* result) {
        result->vt = VT_BSTR;
        result->bstrVal = SysAllocString(L"a text that is longer than what a string holds in itself");
    };
    StrictObject good({{L"Name", 5}}, [&](DISPID, DISPPARAMS&, VARIANT* result, EXCEPINFO*) {
        giveText(result);
        return S_OK;
    });
    StrictObject bad({{L"Name", 5}}, [&](DISPID, DISPPARAMS&, VARIANT* result, EXCEPINFO* info) {
        giveText(result);  // not allowed with an error, and done all the same
        info->pfnDeferredFillIn = fillIn;
        info->bstrHelpFile = SysAllocString(L"C:\\Programs\\Help\\a file name of some length.hlp");
        return DISP_E_EXCEPTION;
    });
    const Object works(gateway, Server::Outlook, good.reference(), 40);
    const Object fails(gateway, Server::Outlook, bad.reference(), 40);
    EXPECT_LT(blocksLeftBy([&] {
                  good.asked.clear();
                  bad.asked.clear();
                  works.text(kName, L"an argument of a length that has to be allocated", works.target());
                  faultIn([&] { fails.text(kName, L"another argument of that kind and length"); });
              }),
              kFewBlocks);
}

}  // namespace
}  // namespace zelbar

#pragma once

#include <PIMDriverAbstract.h>
#include <gtest/gtest.h>

#include <string>

#include "automation/Bstr.h"
#include "automation/Com.h"

namespace harness {

/// A client of the registered driver, which holds it, a cursor and whom it found last.
class Caller {
  public:
    Caller() {
        EXPECT_EQ(CoCreateInstance(CLSID_cDataConnector, nullptr, CLSCTX_INPROC_SERVER,
                                   __uuidof(DataConnector), reinterpret_cast<void**>(driver_.put())),
                  S_OK);
        EXPECT_EQ(driver_->OpenContactRecord(cursor.put()), S_OK);
    }
    /// The full name of the first contact with a number; empty for an unknown caller.
    std::wstring find(const wchar_t* number) {
        LONG kind = 0;
        VARIANT_BOOL unknown = VARIANT_TRUE;
        zelbar::Bstr name;
        contact_.reset();
        const ULONGLONG begun = GetTickCount64();
        EXPECT_EQ(cursor->FindFirst(&kind, zelbar::Bstr(number).get(), contact_.put()), S_OK);
        took = GetTickCount64() - begun;
        if (contact_) contact_->get_NotInPIM(&unknown);
        if (unknown == VARIANT_FALSE) contact_->get_FullName(name.put());
        return name.text();
    }

    ULONGLONG took = 0;  ///< The last search, in milliseconds.
    zelbar::Com<ContactRecord> cursor;

  private:
    zelbar::Com<DataConnector> driver_;
    zelbar::Com<Contact> contact_;
};

}  // namespace harness

#pragma once

#include <gtest/gtest.h>

#include "standin/outlook/host/Host.h"
#include "tests/harness/TemporaryFolder.h"
#include "tests/standin_outlook/LateBound.h"

namespace standin::outlook {

/// The single-threaded apartment of one test.
class Apartment {
  public:
    Apartment() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

inline constexpr HRESULT kServerGone = static_cast<HRESULT>(0x800706BA);
inline constexpr HRESULT kNotFound = static_cast<HRESULT>(0x8004010F);
inline constexpr HRESULT kInvalidEntryId = static_cast<HRESULT>(0x80040107);
inline constexpr HRESULT kStoreNotOpen = static_cast<HRESULT>(0x8004011C);

/// An Outlook in this process, its mailbox fresh, and a client's Application.
class Outlook : public testing::Test {
  protected:
    Outlook() : host(std::make_unique<Host>(folder.file(L"mailbox.db"))) {
        app = late::create(kApplicationClsid);
    }
    late::Object nameSpace() const { return app.object(L"GetNamespace", {L"MAPI"}); }
    late::Object contacts() const { return nameSpace().object(L"GetDefaultFolder", {10L}); }
    ItemRecord ada() {
        return host->mailbox().addContact(contactsRow(), {{L"FirstName", L"Ada"}, {L"LastName", L"Byron"}});
    }
    RowId contactsRow() { return host->mailbox().specialFolder(SpecialFolder::Contacts).id; }
    late::Object open(const ItemRecord& item) {
        return nameSpace().object(L"GetItemFromID", {toValue(host->mailbox().entryId(item))});
    }

    Apartment apartment;
    harness::TemporaryFolder folder;
    std::unique_ptr<Host> host;
    late::Object app;
};

}  // namespace standin::outlook

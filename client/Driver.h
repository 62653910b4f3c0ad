#pragma once

#include <windows.h>

#include <PIMDriverAbstract.h>

#include <string>
#include <vector>

#include "client/Automation.h"

namespace pimcall {

/// What a search compares: the numbers or the name.
enum class SearchKind : long { Number = 0, Name = 1 };

/// A search in the driver, as the telephony client holds one.
class Cursor {
  public:
    explicit Cursor(ComPtr<ContactRecord> record) : record_(std::move(record)) {}

    /// The first hit, or the contact that stands for an unknown caller.
    ComPtr<Contact> findFirst(SearchKind kind, const std::wstring& text);
    /// The next hit; none behind the last.
    ComPtr<Contact> findNext();
    /// How many entries of the driver's cache match; 0 when there are too many to count.
    long count() const;
    /// Whether the last `findFirst` came back empty. False as well when it could not be carried out.
    bool noMatch() const;

  private:
    ComPtr<ContactRecord> record_;
};

/// One of the actions that the driver offers for a call.
struct Action {
    long id = 0;
    std::wstring name;
    /// Whether it leaves an unknown caller alone.
    bool passive = true;
};

/// The driver behind its entry object. Every call throws `Failure` when the driver does.
class Driver {
  public:
    explicit Driver(ComPtr<DataConnector> connector) : connector_(std::move(connector)) {}
    /// Creates the registered driver; throws `Failure` with advice when that does not work.
    static Driver create();

    /// The version of the PIM that the driver talks to; "0" without one.
    std::wstring version() const;
    Cursor openCursor() const;
    /// The contact with an identifier, or one that is not in the PIM.
    ComPtr<Contact> contactById(const std::wstring& id) const;
    std::vector<Action> actions() const;

  private:
    ComPtr<DataConnector> connector_;
};

/// What to tell the user when creating the driver ended with a result code.
std::wstring creationAdvice(HRESULT result);

/// Whether the contact stands for somebody whom the PIM does not know.
bool isUnknown(Contact& contact);

}  // namespace pimcall

#pragma once

#include <windows.h>

#include <PIMDriverAbstract.h>

#include <string>
#include <vector>

#include "client/Action.h"
#include "client/Automation.h"

namespace pimcall {

/// What a search compares: the numbers or the name.
enum class SearchKind : long { Number = 0, Name = 1 };

/// Filling the folder of exported employees, or bringing it up to date.
enum class ExportStep { Initialize, Synchronize };

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
    /// A copy of the action with an identifier, for a client to keep and to set.
    OwnAction copyAction(long id) const;

    /// The contact whose window is in front in Outlook; none without such a window.
    ComPtr<Contact> activeContact() const;
    /// Makes a contact in Outlook, and opens its window if `show`. The driver does not tell what came of it.
    void createContact(const std::wstring& name, const std::wstring& number, bool show) const;
    /// Shows the folder "contacts" or "journal". True only when a window had to be opened for it.
    bool showFolder(const std::wstring& name) const;
    /// Lets the driver open its window for the choice of contacts folders, which does not wait for the user.
    void configure() const;
    /// Whether there are chosen folders and a cache of them.
    bool isConfigured() const;
    /// Exports a directory database to Outlook; `folder` names a folder that has to be made, `progress` has a
    /// method Progress(Step, Done, Total). False when something could not be done.
    bool exportEmployees(ExportStep step, const std::wstring& database, const std::wstring& folder,
                         IDispatch& progress) const;

  private:
    /// Throws `Failure` when the driver has no Outlook.
    void requireOutlook() const;
    ComPtr<PIMActions> actionList() const;

    ComPtr<DataConnector> connector_;
};

/// What to tell the user when creating the driver ended with a result code.
std::wstring creationAdvice(HRESULT result);

/// Whether the contact stands for somebody whom the PIM does not know.
bool isUnknown(Contact& contact);

}  // namespace pimcall

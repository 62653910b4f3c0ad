#pragma once

#include "com/Border.h"
#include "com/CallerVariant.h"

namespace zelbar {

/// The members of `DataConnector`.
template <class Self>
class DataConnectorBorder : public Border<Self, ::DataConnector> {
  public:
    STDMETHODIMP ShowFolder(BSTR name, VARIANT_BOOL* result) noexcept override {
        return answer(L"Error (ShowFolder): ", result,
                      [&] { return self()->DataConnector_ShowFolder(textOf(name)); });
    }
    STDMETHODIMP GetContactItemByContactItemID(BSTR entryId, IDispatch** result) noexcept override {
        return answer(L"Error (GetContactItemByContactItemID): ", result,
                      [&] { return self()->DataConnector_GetContactItemByContactItemID(textOf(entryId)); });
    }
    STDMETHODIMP InitializeExportFolder(BSTR databasePath, BSTR folderName, VARIANT progress,
                                        VARIANT_BOOL* result) noexcept override {
        return answer(L"Error (InitializeExportFolder): ", result, [&] {
            return self()->DataConnector_InitializeExportFolder(textOf(databasePath), textOf(folderName),
                                                                givenIfAny(progress).object());
        });
    }
    STDMETHODIMP SynchronizeExportFolder(VARIANT databasePath, VARIANT folderName, VARIANT progress,
                                         VARIANT_BOOL* result) noexcept override {
        return answer(L"Error (SynchronizeExportFolder): ", result, [&] {
            return self()->DataConnector_SynchronizeExportFolder(givenIfAny(databasePath).text(),
                                                                 givenIfAny(folderName).text(),
                                                                 givenIfAny(progress).object());
        });
    }
    STDMETHODIMP get_Version(BSTR* result) noexcept override {
        return answer(L"Error (Get Version): ", result, [&] { return self()->DataConnector_Version(); });
    }
    STDMETHODIMP get_PIMInstalled(VARIANT_BOOL* result) noexcept override {
        return answer(L"Error (PIMInstalled): ", result,
                      [&] { return self()->DataConnector_PIMInstalled(); });
    }
    STDMETHODIMP get_PIMName(LONG* result) noexcept override {
        return answer(L"Error (PIMName): ", result, [&] { return self()->DataConnector_PIMName(); });
    }
    STDMETHODIMP get_Actions(PIMActions** result) noexcept override {
        return answer(L"Error (Actions): ", result, [&] { return self()->DataConnector_Actions(); });
    }
    STDMETHODIMP GetActiveContact(::Contact** result) noexcept override {
        return answer(L"Error (GetActiveContact): ", result,
                      [&] { return self()->DataConnector_GetActiveContact(); });
    }
    STDMETHODIMP OpenContactRecord(::ContactRecord** result) noexcept override {
        return answer(L"Error (OpenContactRecord): ", result,
                      [&] { return self()->DataConnector_OpenContactRecord(); });
    }
    STDMETHODIMP ClosePIM() noexcept override {
        return perform(L"Error (ClosePIM): ", [&] { self()->DataConnector_ClosePIM(); });
    }
    STDMETHODIMP ConfigPIM() noexcept override {
        return perform(L"Error (ConfigPIM): ", [&] { self()->DataConnector_ConfigPIM(); });
    }
    STDMETHODIMP WriteCache(VARIANT) noexcept override {
        return perform(L"Error (WriteCache): ", [&] { self()->DataConnector_WriteCache(); });
    }
    STDMETHODIMP CreateContact(BSTR name, BSTR number, VARIANT_BOOL show) noexcept override {
        return perform(L"Error (CreateContact): ", [&] {
            self()->DataConnector_CreateContact(textOf(name), textOf(number), show != VARIANT_FALSE);
        });
    }
    STDMETHODIMP GetContactByContactID(BSTR entryId, ::Contact** result) noexcept override {
        return answer(L"Error (GetContactByContactID): ", result,
                      [&] { return self()->DataConnector_GetContactByContactID(textOf(entryId)); });
    }
    STDMETHODIMP ExecuteCommand(BSTR command, VARIANT, VARIANT* result) noexcept override {
        return answer(L"Error (ExecuteCommand): ", result,
                      [&] { return self()->DataConnector_ExecuteCommand(textOf(command)); });
    }

  private:
    using Border<Self, ::DataConnector>::answer;
    using Border<Self, ::DataConnector>::perform;
    using Border<Self, ::DataConnector>::self;
};

}  // namespace zelbar

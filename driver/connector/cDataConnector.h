#pragma once

#include "com/ConnectionPoint.h"
#include "com/DataConnectorBorder.h"
#include "search/cContact.h"
#include "search/cContactRecord.h"

namespace zelbar {

struct DriverState;

/// The entry object: creating it brings the driver up, its end shuts the driver down, and its members are
/// what the client asks of a contacts driver.
class cDataConnector final : public DataConnectorBorder<cDataConnector> {
  public:
    cDataConnector();
    ~cDataConnector() override;

    bool DataConnector_ShowFolder(const std::wstring& name);
    Com<IDispatch> DataConnector_GetContactItemByContactItemID(const std::wstring& entryId);
    bool DataConnector_InitializeExportFolder(const std::wstring& databasePath,
                                              const std::wstring& folderName, const Com<IDispatch>& progress);
    bool DataConnector_SynchronizeExportFolder(const std::wstring& databasePath,
                                               const std::wstring& folderName,
                                               const Com<IDispatch>& progress);
    std::wstring DataConnector_Version();
    bool DataConnector_PIMInstalled();
    long DataConnector_PIMName();
    Com<::PIMActions> DataConnector_Actions();
    Com<cContact> DataConnector_GetActiveContact();
    Com<cContactRecord> DataConnector_OpenContactRecord();
    void DataConnector_ClosePIM();
    void DataConnector_ConfigPIM();
    void DataConnector_WriteCache();
    void DataConnector_CreateContact(const std::wstring& name, const std::wstring& number, bool show);
    Com<cContact> DataConnector_GetContactByContactID(const std::wstring& entryId);
    Variant DataConnector_ExecuteCommand(const std::wstring& command);

  private:
    void* further(REFIID id) noexcept override;

    DriverState& state_;
    ConnectionPoint events_;
};

}  // namespace zelbar

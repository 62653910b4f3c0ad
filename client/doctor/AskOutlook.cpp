#include "client/doctor/AskOutlook.h"

#include <memory>

#include "automation/Attempts.h"
#include "automation/Gateway.h"
#include "automation/Object.h"
#include "automation/OutlookFaults.h"
#include "automation/OutlookNames.h"
#include "client/EndsWithin.h"

namespace pimcall::doctor {
namespace {

namespace outlook = zelbar::outlook;
using zelbar::Fault;
using zelbar::Object;
using State = LiveOutlook::State;

constexpr DWORD kLongestMilliseconds = 6000;

/// What is asked, and what was answered so far.
struct Talk {
    bool isThere;
    std::vector<ChosenFolder> folders;
    LiveOutlook answer;

    void run();

  private:
    Object connect() const;
    void readStores(const Object& session);
    void look(const Object& session, ChosenFolder& folder);
    State stateFor(const Fault& fault) const;
};

/// Outlook enters itself among the running objects only some time after its start, mostly when its window
/// has lost the focus once; then an activation reaches the one that is there.
Object Talk::connect() const {
    const zelbar::Gateway gateway;
    try {
        return gateway.running(zelbar::Server::Outlook, outlook::kProgId, outlook::kApplication);
    } catch (const Fault& fault) {
        if (!isThere || !saysNotInstalled(fault)) throw;
    }
    return gateway.create(zelbar::Server::Outlook, outlook::kProgId, outlook::kApplication);
}

void Talk::readStores(const Object& session) {
    const Object stores = session.object(outlook::Folders);
    const long count = stores.integer(outlook::Count);
    for (long i = 1; i <= count; ++i) {
        const Object store = stores.object(outlook::FolderAt, i);
        answer.stores.push_back({store.text(outlook::Name), store.text(outlook::StoreID)});
    }
    answer.storesKnown = true;
}

void Talk::look(const Object& session, ChosenFolder& folder) {
    const zelbar::StoredFolder& stored = folder.stored;
    try {
        if (stored.storeId.empty())
            session.object(outlook::GetFolderFromID, stored.entryId);
        else
            session.object(outlook::GetFolderFromID, stored.entryId, stored.storeId);
        folder.state = ChosenFolder::State::There;
    } catch (const Fault& fault) {
        if (saysItemGone(fault)) folder.state = ChosenFolder::State::Gone;
    }
}

State Talk::stateFor(const Fault& fault) const {
    if (saysNotInstalled(fault) && !isThere) return State::NotRunning;
    if (saysNotAnswering(fault)) return State::Silent;
    return saysBusy(fault) ? State::Busy : State::Failed;
}

void Talk::run() {
    try {
        const Object application = connect();
        answer.version = application.text(outlook::Version);
        const Object session = application.object(outlook::GetNamespace, L"MAPI");
        session.text(outlook::Type);
        answer.state = State::Answers;
        zelbar::Attempts()([&] { readStores(session); });
        for (ChosenFolder& folder : folders) look(session, folder);
    } catch (...) {
        answer.fault = zelbar::caughtFault();
        answer.state = stateFor(answer.fault);
    }
}

}  // namespace

LiveOutlook askOutlook(bool isThere, std::vector<ChosenFolder>& folders) {
    const auto talk = std::make_shared<Talk>(Talk{isThere, folders, {}});
    if (!endsWithin(kLongestMilliseconds, [talk] { talk->run(); })) {
        LiveOutlook silent;
        silent.state = State::Silent;
        return silent;
    }
    folders = talk->folders;
    return talk->answer;
}

}  // namespace pimcall::doctor

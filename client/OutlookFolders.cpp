#include "client/OutlookFolders.h"

#include "automation/OutlookFaults.h"
#include "client/Automation.h"
#include "client/Failure.h"

namespace pimcall {
namespace {

constexpr long kContactItems = 2;

/// The stores, as folders; throws `Failure` when Outlook does not hand them out.
ComPtr<IDispatch> storesOf(IDispatch& application) {
    const auto session = objectOf(resultOf(application, L"GetNamespace", Value(std::wstring(L"MAPI"))));
    return objectOf(resultOf(*session.Get(), L"Folders"));
}

class Walk {
  public:
    explicit Walk(OutlookFolders& found) : found_(found) {}

    /// Visits what a collection of folders holds. What fails costs only itself and what is below it, but for
    /// an Outlook that leaves.
    void through(IDispatch& folders, const std::wstring& parentPath) {
        const long count = resultOf(folders, L"Count").integer();
        for (long number = 1; number <= count; ++number)
            attempt([&] { visit(*objectOf(resultOf(folders, L"Item", Value(number))).Get(), parentPath); });
    }

  private:
    template <class Step>
    void attempt(const Step& step) {
        try {
            step();
        } catch (const Failure& failure) {
            found_.complete = false;
            if (isLeaving(failure)) throw;
        }
    }

    void visit(IDispatch& folder, const std::wstring& parentPath) {
        const std::wstring path = parentPath + L'\\' + resultOf(folder, L"Name").text();
        attempt([&] {
            if (resultOf(folder, L"DefaultItemType").integer() != kContactItems) return;
            found_.folders.push_back(
                {path, resultOf(folder, L"EntryID").text(), resultOf(folder, L"StoreID").text()});
        });
        through(*objectOf(resultOf(folder, L"Folders")).Get(), path);
    }

    OutlookFolders& found_;
};

void readOnce(OutlookFolders& found) {
    // Held to the end: an Outlook that was started for this might leave with it.
    const ComPtr<IDispatch> application = startOutlook();
    const ComPtr<IDispatch> stores = storesOf(*application.Get());
    found.reached = found.complete = true;
    Walk(found).through(*stores.Get(), L"");
}

}  // namespace

bool isLeaving(const Failure& failure) {
    return failure.result() == CO_E_SERVER_EXEC_FAILURE ||
           zelbar::saysServerGone(zelbar::faultOf(failure.result(), L"Outlook"));
}

ComPtr<IDispatch> objectOf(const Value& value) {
    auto object = value.object<IDispatch>();
    if (!object) throw Failure(L"Outlook did not hand out an object.");
    return object;
}

ComPtr<IDispatch> startOutlook() {
    CLSID outlook;
    require(CLSIDFromProgID(L"Outlook.Application", &outlook), L"finding Outlook");
    ComPtr<IDispatch> application;
    require(CoCreateInstance(outlook, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER,
                             IID_PPV_ARGS(application.GetAddressOf())),
            L"starting Outlook");
    return application;
}

void askOutlook(const std::function<void()>& work) {
    constexpr int kTries = 10;
    constexpr DWORD kPauseMilliseconds = 1000;
    for (int tries = 1;; ++tries) {
        try {
            return work();
        } catch (const Failure& failure) {
            if (!isLeaving(failure) || tries == kTries) throw;
        }
        // The first time it has mostly gone already.
        if (tries > 1) Sleep(kPauseMilliseconds);
    }
}

OutlookFolders readOutlookFolders() {
    OutlookFolders found;
    try {
        askOutlook([&] {
            found = {};
            readOnce(found);
        });
    } catch (const Failure&) {
        found.complete = false;
    }
    return found;
}

}  // namespace pimcall

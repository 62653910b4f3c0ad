#include <windows.h>

#include <cstdio>
#include <stdexcept>
#include <string>

#include "automation/OutlookNames.h"
#include "benchmark/Benchmarks.h"
#include "benchmark/Replay.h"
#include "benchmark/World.h"
#include "standin/outlook/host/Host.h"

namespace benchmark {

namespace {

namespace outlook = zelbar::outlook;
using standin::outlook::ItemType;
using standin::outlook::Mailbox;

/// Serves messages until nothing has been asked for half a second; how long it was until the last question.
double secondsUntilQuiet(const CallCounter& counter) {
    constexpr ULONGLONG kQuiet = 500;
    constexpr DWORD kStep = 20;
    const ULONGLONG begun = GetTickCount64();
    ULONGLONG asked = begun;
    for (long before = -1; GetTickCount64() - asked < kQuiet;) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
        if (const long now = counter.invocations(); now != before) {
            before = now;
            asked = GetTickCount64();
        }
        MsgWaitForMultipleObjects(0, nullptr, FALSE, kStep, QS_ALLINPUT);
    }
    return static_cast<double>(asked - begun) / 1000;
}

BOOL CALLBACK cancel(HWND window, LPARAM) noexcept {
    if (GetDlgItem(window, IDCANCEL)) SendMessageW(window, WM_COMMAND, IDCANCEL, 0);
    return TRUE;
}

struct Walk {
    long calls = 0;
    double seconds = 0;
};

/// The folder window, opened and closed again.
Walk walk(const CallCounter& counter, ::DataConnector& driver) {
    counter.reset();
    driver.ConfigPIM();
    Walk done;
    done.seconds = secondsUntilQuiet(counter);
    done.calls = counter.invocations();
    EnumThreadWindows(GetCurrentThreadId(), &cancel, 0);
    if (done.calls == 0) throw std::runtime_error("the folder window asked nothing");
    return done;
}

/// A store of folders of its own, which goes with it.
class Folders {
  public:
    Folders() : store_(mailbox_.addStore(L"Many folders")) {}
    ~Folders() { mailbox_.removeStore(store_.id); }
    Folders(const Folders&) = delete;
    Folders& operator=(const Folders&) = delete;

    void add(long count, ItemType type) {
        standin::outlook::Transaction together(mailbox_.database());
        for (long n = 0; n < count; ++n)
            mailbox_.addFolder(store_.root, std::to_wstring(n) + (type == ItemType::Mail ? L" m" : L" c"),
                               type);
        together.commit();
    }

  private:
    Mailbox mailbox_{standin::outlook::configuredMailboxFile()};
    standin::outlook::StoreRecord store_;
};

}  // namespace

void measureFolderWalk(const Scale& scale) {
    zelbar::Gateway gateway;
    const Object application =
        gateway.create(zelbar::Server::Outlook, outlook::kProgId, outlook::kApplication);
    const CallCounter counter(application);
    const DataFolder data;
    const auto driver = createDriver();
    Folders folders;
    walk(counter, *driver.get());
    const Walk few = walk(counter, *driver.get());
    const long count = scale(500, 50);
    folders.add(count, ItemType::Mail);
    const Walk many = walk(counter, *driver.get());
    folders.add(count, ItemType::Contact);
    const Walk contacts = walk(counter, *driver.get());

    const auto each = [&](long calls) { return static_cast<double>(calls) / static_cast<double>(count); };
    std::printf("## The folder window, Outlook in a process of its own\n\n");
    std::printf("| folders | calls to Outlook | seconds |\n|---|---|---|\n");
    std::printf("| a mailbox and an empty store | %ld | %.1f |\n", few.calls, few.seconds);
    std::printf("| and %ld others | %ld | %.1f |\n", count, many.calls, many.seconds);
    std::printf("| and %ld contacts folders | %ld | %.1f |\n\n", count, contacts.calls, contacts.seconds);
    reportAim("calls for a folder", each(many.calls - few.calls), 5);
    reportAim("calls for a contacts folder", each(contacts.calls - many.calls), 5);
    std::printf("\n");
}

}  // namespace benchmark

#include "standin/outlook/server/Program.h"

#include "module/OwnModule.h"
#include "standin/outlook/host/Host.h"
#include "standin/outlook/server/Commands.h"
#include "standin/outlook/server/Console.h"

namespace standin::outlook {
namespace {

// How long an unused server waits for the next client. A client that drops one reference and takes another
// must not meet a server that is leaving.
constexpr UINT kIdleMilliseconds = 500;
// How long a server that automation has started waits for its first client.
constexpr UINT kStartMilliseconds = 60000;

ClassEntry classEntry() {
    return {.clsid = kApplicationClsid,
            .description = L"Outlook Application (stand-in)",
            .progIds = {L"Outlook.Application", L"Outlook.Application.9"},
            .server = L"\"" + zelbar::modulePath() + L"\"",
            .inProcess = false};
}

void serve(Host& host, bool startedByAutomation) {
    host.server().onQuit([] { PostQuitMessage(0); });
    UINT_PTR timer = 0;
    if (startedByAutomation) {
        timer = SetTimer(nullptr, 0, kStartMilliseconds, nullptr);
        host.onIdle([&timer] { timer = SetTimer(nullptr, timer, kIdleMilliseconds, nullptr); });
    } else {
        host.showWindow();
    }
    host.offer();
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (message.message == WM_TIMER && message.hwnd == nullptr) {
            KillTimer(nullptr, timer);
            timer = 0;
            if (host.isIdle()) break;
        }
        DispatchMessageW(&message);
    }
    // The objects of clients that are gone by now tell the host of their end while it winds down.
    host.onIdle({});
}

bool isRunning() {
    Ref<IUnknown> running;
    return SUCCEEDED(GetActiveObject(kApplicationClsid, nullptr, &running));
}

}  // namespace

int runServer(bool startedByAutomation) {
    if (!startedByAutomation && isRunning()) {
        printError(L"Outlook's stand-in is running already");
        return kFailed;
    }
    releaseStandardHandles();
    try {
        Host host(configuredMailboxFile(), Host::Mode::Program);
        serve(host, startedByAutomation);
        return kDone;
    } catch (const std::exception&) {
        return kFailed;
    }
}

void registerProgram() {
    registerClass(classEntry());
}

void unregisterProgram() {
    unregisterClass(classEntry());
}

}  // namespace standin::outlook

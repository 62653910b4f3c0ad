#include "standin/outlook/host/Host.h"

#include "standin/outlook/objects/Application.h"

namespace standin::outlook {
namespace {

constexpr wchar_t kSettingsKey[] = L"Software\\OutlookStandin";

std::wstring environment(const wchar_t* name) {
    std::wstring value(32768, L'\0');
    value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
    return value;
}

std::wstring registryText(const wchar_t* name) {
    wchar_t value[MAX_PATH] = {};
    DWORD size = sizeof(value);
    const LSTATUS status =
        RegGetValueW(HKEY_CURRENT_USER, kSettingsKey, name, RRF_RT_REG_SZ, nullptr, value, &size);
    return status == ERROR_SUCCESS ? value : L"";
}

}  // namespace

const CLSID kApplicationClsid = {0x0006F03A, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

Host::Host(const std::filesystem::path& mailboxFile, Mode mode) : mailbox_(mailboxFile) {
    factory_ = makeFactory(server_, [this] { return application(); });
    if (mode == Mode::Program) {
        startSession();
        return;
    }
    usesRunningTable_ = mode == Mode::InProcessAndRunning;
    server_.onQuit([this] { startSession(); });
    startSession();
    hosted_.emplace(kApplicationClsid, *factory_.Get());
}

Host::~Host() {
    leaveRunningTable();
}

void Host::startSession() {
    leaveRunningTable();
    session_ = std::make_shared<Session>(server_, mailbox_);
    session_->onWindowClosed = onIdle_;
    if (usesRunningTable_) enterRunningTable();
}

void Host::enterRunningTable() {
    const Ref<Object> shown = makeObject<Application>(session_, Application::Role::RunningTable);
    RegisterActiveObject(shown.Get(), kApplicationClsid, ACTIVEOBJECT_STRONG, &runningCookie_);
}

void Host::leaveRunningTable() noexcept {
    if (runningCookie_ != 0) RevokeActiveObject(runningCookie_, nullptr);
    runningCookie_ = 0;
}

Ref<Object> Host::application() {
    return Application::shared(session_);
}

void Host::showWindow() {
    auto window = std::make_shared<ExplorerWindow>();
    window->folder = mailbox_.specialFolder(SpecialFolder::Inbox).id;
    session_->show(window);
}

bool Host::isIdle() const {
    return server_.liveObjects() == 0 && !session_->hasWindows();
}

void Host::onIdle(std::function<void()> action) {
    onIdle_ = std::move(action);
    session_->onWindowClosed = onIdle_;
    server_.onLastRelease(onIdle_);
}

void Host::offer() {
    hosted_.emplace(kApplicationClsid, *factory_.Get(), CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE);
    enterRunningTable();
}

std::filesystem::path configuredMailboxFile() {
    for (const std::wstring& chosen : {environment(L"STANDIN_MAILBOX"), registryText(L"Mailbox")}) {
        if (!chosen.empty()) return chosen;
    }
    const std::filesystem::path folder =
        std::filesystem::path(environment(L"LOCALAPPDATA")) / L"OutlookStandin";
    std::filesystem::create_directories(folder);
    return folder / L"mailbox.db";
}

}  // namespace standin::outlook

#include <cstdio>

#include "automation/Bstr.h"
#include "driver/dialogs/Controls.h"
#include "tests/com/LateClient.h"
#include "tests/hostile/Proof.h"
#include "tests/hostile/World.h"

/// The registered driver for as long as a client may run: incoming calls and openings of every window, after
/// the first hundredth of which nothing may grow any more.
namespace hostile {
namespace {

using zelbar::Bstr;
using zelbar::late;
using zelbar::lent;

/// Some bytes stay of an opening, 48 of the folders' window and 12 of the message's; whose they are is not
/// known.
constexpr long kOfWindow = 60;
/// A day leaves an entry in the journal of an Outlook that lives in this process.
constexpr long kOfDay = 400;

struct Figures {
    long long bytes = heapBytes();
    long handles = handleCount(), gdi = gdiCount(), user = userCount(), outlook, dao;

    explicit Figures(World& world)
        : outlook(world.outlook.server().liveObjects()), dao(world.dao.server().liveObjects()) {}
    void print(long done, DWORD milliseconds) const {
        std::fprintf(
            stderr,
            "  %8ld: %6lu us each; %lld bytes, %ld handles, %ld GDI, %ld user, %ld Outlook, %ld DAO\n", done,
            done ? static_cast<unsigned long>(1000.0 * milliseconds / done) : 0, bytes, handles, gdi, user,
            outlook, dao);
    }
};

/// Does something often, and compares what the process holds after the first hundredth with what it does at
/// the end.
template <class Step>
void soak(Proof& proof, World& world, const std::string& name, long count, long allowed, Step&& step) {
    proof.scene(name);
    const long first = std::max(count / 100, 20L), report = std::max(count / 5, 1L);
    const DWORD began = GetTickCount();
    std::optional<Figures> before;
    for (long done = 1; done <= count; ++done) {
        proof.run(name);
        step(done);
        if (done % 16 == 0) serveMessages();
        world.outlook.server().calls().reset();
        world.dao.server().calls().reset();
        if (done != first && done % report) continue;
        const Figures now(world);
        now.print(done, GetTickCount() - began);
        if (done == first) before = now;
    }
    const Figures after(world);
    // Containers that double leave a remainder.
    const long long slack = 20'000 + count / 10 + static_cast<long long>(allowed) * count;
    proof.expectNoMore(before->bytes + slack, after.bytes, &Tally::leaks, "bytes");
    // The highest of some new handles is not always the same.
    constexpr long kJitter = 8;
    proof.expectNoMore(before->handles + kJitter, after.handles, &Tally::leaks, "handles");
    proof.expectNoMore(before->gdi + kJitter, after.gdi, &Tally::leaks, "GDI objects");
    proof.expectNoMore(before->user + kJitter, after.user, &Tally::leaks, "user objects");
    proof.expectNoMore(before->outlook, after.outlook, &Tally::leaks, "objects of Outlook");
    proof.expectNoMore(before->dao, after.dao, &Tally::leaks, "objects of DAO");
}

/// What a client does when somebody calls.
void incomingCall(Proof& proof, IDispatch& driver, long number) {
    const auto cursor = late(driver, L"OpenContactRecord").value.object();
    const bool isKnown = number % 4 != 0;
    const Bstr text(isKnown ? L"+44 20 " + std::to_wstring(1 + number % 2) : L"0" + std::to_wstring(number));
    const auto contact = late(*cursor.get(), L"FindFirst", {lent(0L), lent(text.get())}).value.object();
    proof.expect(late(*contact.get(), L"NotInPIM").value.boolean() != isKnown, &Tally::lost,
                 "the caller is another");
    for (const wchar_t* member :
         {L"FullName", L"CompanyName", L"MainPhoneNumber", L"PhotoURL", L"PhoneNumbers"})
        late(*contact.get(), member);
}

/// Ends every dialog of this thread, as its user would.
void closeDialogs() {
    for (int i = 0; i < 200; ++i) {
        serveMessages();
        HWND open = nullptr;
        EnumThreadWindows(
            GetCurrentThreadId(), [](HWND window, LPARAM found) __stdcall->BOOL {
                if (IsWindowVisible(window)) *reinterpret_cast<HWND*>(found) = window;
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&open));
        if (!open) return;
        SendMessageW(open, WM_CLOSE, 0, 0);
    }
}

void run(Proof& proof) {
    World world;
    const long calls = proof.isShort() ? 2'000 : proof.count(1'000'000),
               windows = proof.isShort() ? 30 : 1'000;
    const auto driver = World::createDriver();
    soak(proof, world, "incoming calls", calls, 0, [&](long i) { incomingCall(proof, *driver.get(), i); });
    soak(proof, world, "window of the folders, tree", windows, kOfWindow, [&](long) {
        late(*driver.get(), L"ConfigPIM");
        const HWND window = GetActiveWindow();
        serveMessages();
        PostMessageW(window, WM_COMMAND, kControl_CmdSelect, 0);
        closeDialogs();
    });
    const auto actions = late(*driver.get(), L"Actions").value.object();
    const auto launch = late(*actions.get(), L"Item", {lent(4101L)}).value.object();
    const auto settings = late(*launch.get(), L"ActionProp").value.object();
    const auto path = late(*settings.get(), L"Item", {lent(1L)}).value.object();
    late(*path.get(), L"Value", {lent(Bstr(L"Z:\\nowhere\\none.exe").get())}, DISPATCH_PROPERTYPUT);
    soak(proof, world, "message window", windows, kOfWindow, [&](long) {
        const auto cursor = late(*driver.get(), L"OpenContactRecord").value.object();
        const auto caller =
            late(*cursor.get(), L"FindFirst", {lent(0L), lent(Bstr(L"77").get())}).value.object();
        late(*launch.get(), L"ExecuteAction", {lent(caller.get())});
        closeDialogs();
    });
    world.registry.set(HKEY_CURRENT_USER, kPopupKey, L"Developper", L"1");
    soak(proof, world, "log window, second driver", windows, 0, [&](long) {
        const auto second = World::createDriver();
        closeDialogs();
    });
}

/// The whole driver, made and gone again and again.
void lives(Proof& proof) {
    World world;
    soak(proof, world, "days, each with a driver of its own", proof.isShort() ? 30 : 1'000, kOfDay,
         [&](long) { world.day(proof); });
}

}  // namespace
}  // namespace hostile

int main(int count, char** arguments) {
    using namespace hostile;
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return EXIT_FAILURE;
    Proof proof(count, arguments);
    try {
        run(proof);
        proof.expect(World::canUnload(), &Tally::leaks, "the driver has objects left");
        lives(proof);
    } catch (const std::exception& failure) {
        proof.expect(false, &Tally::crashes, failure.what());
    }
    return proof.finish();
}

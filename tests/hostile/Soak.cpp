#include <cstdio>

#include "driver/dialogs/Controls.h"
#include "tests/com/LateClient.h"
#include "tests/dialogs/Windows.h"
#include "tests/hostile/Measures.h"
#include "tests/hostile/Workplace.h"

/// The registered driver for as long as a client may run: incoming calls and openings of every window, after
/// the first hundredth of which nothing may grow any more.
namespace hostile {
namespace {

/// The emulator's own: its common controls 6 lose so many bytes with each STATIC that is given a font, in a
/// bare dialog too.
constexpr long kOfStatic = 12;
constexpr long kOfFolders = 6 * kOfStatic, kOfMessage = kOfStatic;
/// A day has one window of the folders, and an entry in the journal of an Outlook that lives in this process.
constexpr long kOfDay = kOfFolders + 400;

/// What this process holds, the objects of the servers among it.
std::vector<Measure> holding(World& world) {
    auto result = measures();
    result.push_back({"objects of Outlook", world.outlook.server().liveObjects()});
    result.push_back({"objects of DAO", world.dao.server().liveObjects()});
    return result;
}

/// Does something often, and compares what the process holds after the first hundredth with what it does at
/// the end.
template <class Step>
void soak(Proof& proof, World& world, const std::string& name, long count, long allowed, Step&& step) {
    proof.scene(name);
    const long first = std::max(count / 100, 20L), report = std::max(count / 5, 1L);
    const DWORD began = GetTickCount();
    std::vector<Measure> before = holding(world), now = before;
    for (long done = 1; done <= count; ++done) {
        proof.run(name);
        step(done);
        if (done % 16 == 0) zelbar::serveMessages();
        world.outlook.server().calls().reset();
        world.dao.server().calls().reset();
        if (done != first && done % report) continue;
        now = holding(world);
        std::fprintf(stderr, "  %8ld: %6.0f us each", done, 1000.0 * (GetTickCount() - began) / done);
        for (const auto& measure : now) std::fprintf(stderr, ", %lld %s", measure.number, measure.what);
        std::fprintf(stderr, "\n");
        if (done == first) before = now;
    }
    // Containers that double leave a remainder.
    before.front().jitter = 20'000 + count / 10 + static_cast<long long>(allowed) * count;
    for (size_t i = 0; i < now.size(); ++i)
        proof.expectNoMore(before[i].number + before[i].jitter, now[i].number, &Tally::leaks, now[i].what);
}

/// What a client does when somebody calls: a friend, or every fourth time nobody that it knows.
void incomingCall(Proof& proof, const Com<IDispatch>& driver, long number) {
    const auto cursor = ask(driver, L"OpenContactRecord").object();
    const bool isKnown = number % 4 != 0;
    const auto text = isKnown ? L"6" + std::to_wstring(1 + number % 25) : L"0" + std::to_wstring(number);
    const auto contact = ask(cursor, L"FindFirst", {0L, text}).object();
    proof.expect(ask(contact, L"NotInPIM").boolean() != isKnown, &Tally::lost, "the caller is another");
    for (const wchar_t* member :
         {L"FullName", L"CompanyName", L"MainPhoneNumber", L"PhotoURL", L"PhoneNumbers"})
        ask(contact, member);
}

void calls(Proof& proof) {
    World world;
    // Nothing is written, so that the mailbox is read once and for all.
    world.outlook.mailbox().database().run("BEGIN");
    const auto driver = Workplace::createDriver();
    const long count = proof.isShort() ? 2'000 : std::stol(proof.valueOf("--calls", "1000000"));
    soak(proof, world, "incoming calls", count, 0, [&](long i) { incomingCall(proof, driver, i); });
}

long windowCount(const Proof& proof) {
    return proof.isShort() ? 30 : 1'000;
}

void openFolders(Proof& proof, const Com<IDispatch>& driver) {
    ask(driver, L"ConfigPIM");
    const HWND window = zelbar::openDialogs().at(0), select = GetDlgItem(window, kControl_CmdSelect);
    const bool opens = zelbar::serveUntil([&] { return IsWindowEnabled(select); }) &&
                       zelbar::pressForModal(select, [](HWND tree) { SendMessageW(tree, WM_CLOSE, 0, 0); });
    proof.expect(opens, &Tally::lost, "the tree does not open");
    closeDialogs();
}

void windows(Proof& proof) {
    World world;
    const long count = windowCount(proof);
    const auto driver = Workplace::createDriver();
    soak(proof, world, "window of the folders, tree", count, kOfFolders,
         [&](long) { openFolders(proof, driver); });
    const auto launch = ask(ask(driver, L"Actions").object(), L"Item", {4101L}).object();
    const auto path = ask(ask(launch, L"ActionProp").object(), L"Item", {1L}).object();
    zelbar::late(*path, L"Value", {Variant(L"Z:\\nowhere\\none.exe").raw()}, DISPATCH_PROPERTYPUT);
    soak(proof, world, "message window", count, kOfMessage, [&](long) {
        const auto cursor = ask(driver, L"OpenContactRecord").object();
        ask(launch, L"ExecuteAction", {ask(cursor, L"FindFirst", {0L, L"77"})});
        proof.expect(!zelbar::openDialogs().empty(), &Tally::lost, "no window opens");
        closeDialogs();
    });
}

/// A driver reads whether it is to log when nobody has held anything of it before.
void logs(Proof& proof) {
    Workplace world;
    world.registry.set(HKEY_CURRENT_USER, kPopupKey, L"Developper", L"1");
    world.expectNothingHeld(proof);
    soak(proof, world, "log window, each of a driver of its own", windowCount(proof), 0, [&](long) {
        Workplace::createDriver();
        proof.expect(!zelbar::openDialogs().empty(), &Tally::lost, "no window opens");
        closeDialogs();
        world.expectNothingHeld(proof);
    });
}

/// The whole driver, made and gone again and again.
void days(Proof& proof) {
    Workplace world;
    soak(proof, world, "days, each with a driver of its own", windowCount(proof), kOfDay,
         [&](long) { world.day(proof); });
}

}  // namespace
}  // namespace hostile

int main(int count, char** arguments) {
    using namespace hostile;
    World::keepFilesToItself();
    return playAll(count, arguments,
                   {{"calls", calls}, {"windows", windows}, {"logs", logs}, {"days", days}});
}

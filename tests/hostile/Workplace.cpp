#include "tests/hostile/Workplace.h"

#include <stdexcept>

#include "tests/dialogs/Windows.h"

namespace hostile {

namespace {

void CALLBACK answerDialogs(HWND, UINT, UINT_PTR, DWORD) noexcept {
    static unsigned answered = 0;
    for (const HWND dialog : zelbar::openDialogs())
        PostMessageW(dialog, WM_COMMAND, ++answered % 3 ? IDOK : IDCANCEL, 0);
}

/// The driver holds nothing any more; windows that are still open are on their way out.
bool canUnload() {
    const HMODULE driver = GetModuleHandleW(L"zelbar00.dll");
    return !driver || zelbar::serveUntil(
                          [&] { return exported<HRESULT WINAPI()>(driver, "DllCanUnloadNow")() == S_OK; });
}

Com<IDispatch> made(const Com<IDispatch>& from, const wchar_t* name,
                    const std::vector<Variant>& arguments = {}) {
    const auto object = ask(from, name, arguments).object();
    if (!object) throw std::runtime_error("an object is missing");
    return object;
}

}  // namespace

Workplace::Workplace() : timer_(SetTimer(nullptr, 0, 10, answerDialogs)) {}

Workplace::~Workplace() {
    zelbar::serveMessages();
    KillTimer(nullptr, timer_);
}

std::vector<Com<IUnknown>> Workplace::objectsOf(const Com<::DataConnector>& driver) {
    const auto cursor = made(driver, L"OpenContactRecord");
    const auto contact = made(cursor, L"FindFirst", {1L, L"Byron*"});
    const auto nobody = made(made(driver, L"OpenContactRecord"), L"FindFirst", {0L, L"777"});
    const auto actions = made(driver, L"Actions");
    std::vector<Com<IUnknown>> result{driver, cursor, contact, actions, made(contact, L"PhoneNumbers"),
                                      nobody};
    for (long id = 4097; id <= 4101; ++id) {
        const auto action = made(actions, L"Item", {id});
        const auto settings = made(action, L"ActionProp");
        const long count = ask(settings, L"Count").integer();
        for (long i = 1; i <= count; ++i) result.push_back(made(settings, L"Item", {i}));
        result.insert(result.end(), {action, settings});
    }
    return result;
}

bool Workplace::day(Proof& proof) {
    bool known = false;
    {
        const auto driver = createDriver();
        const auto cursor = ask(driver, L"OpenContactRecord").object();
        ask(driver, L"ExecuteCommand", {L"isFolderConfigured"});
        // What nobody has is thrown about inside.
        ask(driver, L"GetContactItemByContactItemID", {L"none"});
        ask(driver, L"ConfigPIM");
        if (ask(cursor, L"FindFirst", {1L, L"Friend*"}).object())
            for (const wchar_t* step :
                 {L"FindNext", L"FindNext", L"FindPrevious", L"MoveLast", L"MoveFirst", L"Contact"})
                ask(cursor, step);
        ask(cursor, L"FillContactCollection", {0L, L"5*"});
        if (const auto ada = ask(cursor, L"FindFirst", {0L, L"51"}).object()) {
            known = !ask(ada, L"NotInPIM").boolean();
            for (const wchar_t* member :
                 {L"FullName", L"PhoneNumbers", L"Emails", L"PhotoURL", L"Department"})
                ask(ada, member);
            const auto actions = ask(driver, L"Actions").object();
            ask(ask(actions, L"Item", {4100L}).object(), L"ExecuteAction", {ada});
        }
        ask(driver, L"SynchronizeExportFolder", {directoryFile(), L"Staff"});
    }
    expectNothingHeld(proof);
    return known;
}

void Workplace::goodDay(Proof& proof, const std::string& name) {
    proof.run(name);
    proof.expect(day(proof), &Tally::lost, "Ada is unknown");
}

void Workplace::expectNothingHeld(Proof& proof) {
    proof.expect(canUnload(), &Tally::leaks, "the driver has objects left");
    proof.expectNoMore(0, outlook.server().liveObjects(), &Tally::leaks, "objects of Outlook");
    proof.expectNoMore(0, dao.server().liveObjects(), &Tally::leaks, "objects of DAO");
}

void closeDialogs() {
    for (int i = 0; i < 200 && !zelbar::openDialogs().empty(); ++i) {
        SendMessageW(zelbar::openDialogs().front(), WM_CLOSE, 0, 0);
        zelbar::serveMessages();
    }
    for (const HWND left : zelbar::openDialogs()) DestroyWindow(left);
}

}  // namespace hostile

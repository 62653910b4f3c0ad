#include "tests/hostile/Workplace.h"

#include <stdexcept>

#include "automation/Bstr.h"
#include "tests/com/LateClient.h"
#include "tests/dialogs/Windows.h"

namespace hostile {

namespace {

using zelbar::Bstr;
using zelbar::late;
using zelbar::lent;

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

Com<IDispatch> made(IDispatch& from, const wchar_t* name, std::vector<VARIANT> arguments = {}) {
    const auto object = late(from, name, std::move(arguments)).value.object();
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
    const auto cursor = made(*driver.get(), L"OpenContactRecord");
    const auto contact = made(*cursor.get(), L"FindFirst", {lent(1L), lent(Bstr(L"Byron*").get())});
    const auto nobody = made(*made(*driver.get(), L"OpenContactRecord").get(), L"FindFirst",
                             {lent(0L), lent(Bstr(L"777").get())});
    const auto actions = made(*driver.get(), L"Actions");
    std::vector<Com<IUnknown>> result{driver, cursor, contact, actions, made(*contact.get(), L"PhoneNumbers"),
                                      nobody};
    for (long id = 4097; id <= 4101; ++id) {
        const auto action = made(*actions.get(), L"Item", {lent(id)});
        const auto settings = made(*action.get(), L"ActionProp");
        const long count = late(*settings.get(), L"Count").value.integer();
        for (long i = 1; i <= count; ++i) result.push_back(made(*settings.get(), L"Item", {lent(i)}));
        result.insert(result.end(), {action, settings});
    }
    return result;
}

bool Workplace::day(Proof& proof) {
    bool known = false;
    {
        const auto driver = createDriver();
        const auto cursor = late(*driver.get(), L"OpenContactRecord").value.object();
        const auto find = [&](long kind, const wchar_t* text) {
            return late(*cursor.get(), L"FindFirst", {lent(kind), lent(Bstr(text).get())}).value.object();
        };
        late(*driver.get(), L"ExecuteCommand", {lent(Bstr(L"isFolderConfigured").get())});
        // What nobody has is thrown about inside.
        late(*driver.get(), L"GetContactItemByContactItemID", {lent(Bstr(L"none").get())});
        late(*driver.get(), L"ConfigPIM");
        if (find(1, L"Friend*"))
            for (const wchar_t* step :
                 {L"FindNext", L"FindNext", L"FindPrevious", L"MoveLast", L"MoveFirst", L"Contact"})
                late(*cursor.get(), step);
        late(*cursor.get(), L"FillContactCollection", {lent(0L), lent(Bstr(L"5*").get())});
        if (const auto ada = find(0, L"51")) {
            known = !late(*ada.get(), L"NotInPIM").value.boolean();
            for (const wchar_t* member :
                 {L"FullName", L"PhoneNumbers", L"Emails", L"PhotoURL", L"Department"})
                late(*ada.get(), member);
            const auto actions = late(*driver.get(), L"Actions").value.object();
            const auto journal = late(*actions.get(), L"Item", {lent(4100L)}).value.object();
            late(*journal.get(), L"ExecuteAction", {lent(ada.get())});
        }
        late(*driver.get(), L"SynchronizeExportFolder",
             {lent(Bstr(directoryFile()).get()), lent(Bstr(L"Staff").get())});
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

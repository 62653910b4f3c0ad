#include <windows.h>

#include <objbase.h>

#include <string>

#include "automation/BusyRetry.h"
#include "automation/Fault.h"
#include "filler/Arguments.h"
#include "filler/Console.h"
#include "filler/FillCache.h"
#include "filler/Interrupt.h"

namespace {

enum ExitStatus { kDone = 0, kIncomplete = 1, kUsage = 2, kFailure = 3 };

constexpr wchar_t kHelp[] =
    L"Fills the contact cache of Tessaria (connec00.mdb in the data folder) from Outlook.\n"
    L"\n"
    L"  fillcache [--country DE] [--area 89] [--outside-line 0] [--without-prefix KIND]\n"
    L"            [--read table|items] [--quiet]\n"
    L"\n"
    L"Reads the contacts folders that were chosen in the client, or the default contacts folder\n"
    L"while none is chosen. Only rows that differ are written, all of them or none: a run that\n"
    L"fails or is interrupted (Ctrl+C) leaves the cache as it was.\n"
    L"\n"
    L"Each number gets a row for each form in which the telephone system presents it. Where that\n"
    L"stands is taken from the options, else from the settings, else from Windows:\n"
    L"\n"
    L"  --country LETTERS      the country, as in DE\n"
    L"  --area DIGITS          the area code without the trunk prefix, as in 89\n"
    L"  --outside-line DIGITS  what the system puts before numbers from outside; mostly nothing\n"
    L"  --without-prefix KIND  what numbers without + and prefix are: international, national or\n"
    L"                         unknown; unknown writes only those that can mean one number alone\n"
    L"\n"
    L"  --read table           reads hundreds of contacts in one call (Outlook 2007 and later); left to\n"
    L"                         itself only where that cannot make Outlook ask its user\n"
    L"  --read items           reads item by item, which takes minutes for thousands\n"
    L"\n"
    L"  -q, --quiet   say nothing unless something goes wrong\n"
    L"  -h, --help    this text; /? is the same\n"
    L"\n"
    L"Examples:\n"
    L"  fillcache\n"
    L"  fillcache --quiet                        at logon\n"
    L"  fillcache --country DE --area 89 --outside-line 0\n"
    L"\n"
    L"Exit status: 0 the cache is up to date, 1 it is, but not complete, 2 wrong usage, 3 failure.\n";

/// Shows a run on the console.
class ConsoleObserver final : public filler::Observer {
  public:
    ConsoleObserver(const filler::Console& errors, bool isQuiet) : errors_(errors), isQuiet_(isQuiet) {}
    ~ConsoleObserver() override { endLine(); }

    void progress(const wchar_t* what, long done, long total) override {
        const ULONGLONG now = GetTickCount64();
        if (isQuiet_ || !errors_.isScreen() || now < nextLine_) return;
        nextLine_ = now + kStep;
        errors_.write(L"\r" + std::wstring(what) + L": " + std::to_wstring(done) + L" of " +
                      std::to_wstring(total) + L"   ");
        isLineOpen_ = true;
    }
    void note(const std::wstring& sentence) override {
        endLine();
        errors_.write(sentence + L"\n");
    }
    void changesBegin() override { interrupt_.changesBegin(); }
    bool cancelled() override { return interrupt_.requested(); }

    void endLine() {
        if (isLineOpen_) errors_.write(L"\n");
        isLineOpen_ = false;
    }

  private:
    // Milliseconds: nothing is shown of a run that is over soon.
    static constexpr ULONGLONG kFirst = 1000, kStep = 250;

    const filler::Console& errors_;
    filler::Interrupt interrupt_;
    bool isQuiet_;
    bool isLineOpen_ = false;
    ULONGLONG nextLine_ = GetTickCount64() + kFirst;
};

class Apartment {
  public:
    Apartment() : result_(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {}
    ~Apartment() {
        if (SUCCEEDED(result_)) CoUninitialize();
    }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;

  private:
    HRESULT result_;
};

int run(const filler::Arguments& given, const filler::Console& output, const filler::Console& errors) {
    const numbers::HomePlace home = numbers::findHomePlace(given.place);
    const bool isQuiet = given.isQuiet;
    std::wstring reason;
    try {
        if (!isQuiet) output.write(numbers::described(home) + L"\n");
        const Apartment apartment;
        const zelbar::BusyRetry retry;
        ConsoleObserver observer(errors, isQuiet);
        const filler::FillResult result = filler::fillCache(observer, home.place, given.way);
        observer.endLine();
        if (!isQuiet) output.write(filler::describe(result));
        if (result.isComplete()) return kDone;
        errors.write(L"fillcache: The cache is not complete: " + std::to_wstring(result.unreadCount) +
                     L" could not be read. What it had of them was kept.\n");
        return kIncomplete;
    } catch (const filler::Failure& failure) {
        reason = failure.sentence;
    } catch (...) {
        reason = zelbar::caughtFault().description;
    }
    if (!reason.ends_with(L'.')) reason += L'.';
    errors.write(L"fillcache: " + reason + L" The cache stays as it was.\n");
    return kFailure;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    const filler::Console output(STD_OUTPUT_HANDLE), errors(STD_ERROR_HANDLE);
    try {
        const filler::Arguments given = filler::parseArguments(count, arguments);
        if (!given.wantsHelp) return run(given, output, errors);
        output.write(kHelp);
        return kDone;
    } catch (const filler::WrongUsage& wrong) {
        errors.write(L"fillcache: " + wrong.sentence + (wrong.sentence.ends_with(L'?') ? L"" : L".") +
                     L" Try fillcache --help.\n");
    } catch (const numbers::BadPlace& bad) {
        errors.write(L"fillcache: " + bad.sentence + L"\n");
    }
    return kUsage;
}

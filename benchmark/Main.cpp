#include <windows.h>

#include <objbase.h>

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <string_view>
#include <vector>

#include "automation/Fault.h"
#include "benchmark/Benchmarks.h"

namespace benchmark {

namespace {

struct Section {
    const wchar_t* name;
    void (*measure)(const Scale& scale);
};
// The footprint first: the driver stays in the process once it has been used.
constexpr Section kSections[] = {
    {L"footprint", measureFootprint}, {L"calls", measureIncomingCalls}, {L"folders", measureFolderWalk},
    {L"searches", measureSearches},   {L"fills", measureFills},         {L"forms", measureForms},
    {L"memory", measureFillMemory},   {L"exports", measureExports},
};

/// A machine under load must not turn a figure into a refusal: Outlook is given time while this lives.
class Patience {
  public:
    Patience() {
        for (const wchar_t* name : kLimits)
            RegSetKeyValueW(HKEY_CURRENT_USER, kKey, name, REG_SZ, kMilliseconds, sizeof kMilliseconds);
    }
    ~Patience() {
        for (const wchar_t* name : kLimits) RegDeleteKeyValueW(HKEY_CURRENT_USER, kKey, name);
    }
    Patience(const Patience&) = delete;
    Patience& operator=(const Patience&) = delete;

  private:
    static constexpr wchar_t kKey[] = L"Software\\Norvane\\7316\\Popup";
    static constexpr wchar_t kMilliseconds[] = L"120000";
    static constexpr const wchar_t* kLimits[] = {L"OutlookTimeout", L"OutlookTimeoutUser"};
};

/// Those of the names given, or all; false when one of the words names none.
bool measureSections(const std::vector<std::wstring_view>& words) {
    Scale scale;
    std::vector<const Section*> chosen;
    for (const std::wstring_view word : words) {
        const auto section = std::find_if(std::begin(kSections), std::end(kSections),
                                          [&](const Section& one) { return word == one.name; });
        if (section != std::end(kSections))
            chosen.push_back(section);
        else if (word == L"--quick")
            scale.isQuick = true;
        else
            return false;
    }
    const Patience patience;
    for (const Section& section : kSections)
        if (chosen.empty() || std::find(chosen.begin(), chosen.end(), &section) != chosen.end())
            section.measure(scale);
    std::printf("%s.%s\n", countedAims().c_str(),
                scale.isQuick ? " (Smaller sizes and fewer rounds: --quick.)" : "");
    return true;
}

}  // namespace

}  // namespace benchmark

/// usage: benchmark [--quick] [footprint|calls|folders|searches|fills|forms|memory|exports]...
int wmain(int argc, wchar_t** argv) {
    // A pipe would get the whole page only at its end.
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 1;
    int status = 0;
    try {
        if (!benchmark::measureSections({argv + 1, argv + argc})) {
            std::fprintf(
                stderr,
                "usage: benchmark [--quick] [footprint|calls|folders|searches|fills|forms|memory|exports]...\n");
            status = 2;
        }
    } catch (...) {
        const zelbar::Fault fault = zelbar::caughtFault();
        std::fprintf(stderr, "benchmark: %ls in %ls (%08lX)\n", fault.description.c_str(),
                     fault.source.c_str(), static_cast<unsigned long>(fault.number));
        status = 1;
    }
    CoUninitialize();
    return status;
}

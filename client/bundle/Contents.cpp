#include "client/bundle/Contents.h"

#include <windows.h>

#include <algorithm>
#include <map>
#include <optional>
#include <set>

#include "client/CacheReader.h"
#include "client/FaultWords.h"
#include "client/Text.h"
#include "client/bundle/FileText.h"
#include "client/bundle/Masker.h"
#include "client/bundle/Versions.h"
#include "client/doctor/Machine.h"
#include "client/doctor/Report.h"
#include "module/OwnModule.h"
#include "support/Encoding.h"
#include "support/Settings.h"

namespace pimcall::bundle {
namespace {

using zelbar::Setting;
namespace settings = zelbar::settings;

/// Of each log its end is enough.
constexpr std::size_t kMostOfLog = 8u << 20;

/// Folders that every Windows has, and units.
constexpr wchar_t kPlainWords[] =
    L"Users Documents Settings Program Files ProgramData Windows System SysWOW64 AppData Roaming Local Temp "
    L"Norvane Tessaria exe dll mdb log byte bytes KB MB GB TB";

std::wstring nameOf(BOOL(WINAPI* read)(LPWSTR, LPDWORD)) {
    wchar_t name[260] = {};
    DWORD length = ARRAYSIZE(name);
    return read(name, &length) ? name : L"";
}

/// The cache as a whole, and its words: whoever stands in it is nobody's business.
struct CacheFacts {
    std::wstring statistics;
    std::set<std::wstring> names;
};

std::wstring shapeOf(const std::wstring& number) {
    const std::size_t start = number.starts_with(L'+') ? 1 : 0;
    const bool isPlain = std::all_of(number.begin() + static_cast<std::ptrdiff_t>(start), number.end(),
                                     [](wchar_t c) { return c >= L'0' && c <= L'9'; });
    if (!isPlain) return L"with other signs";
    return start ? L"plus and digits" : L"digits alone";
}

std::wstring countLine(const std::wstring& what, long count) {
    return what + L": " + std::to_wstring(count) + L"\n";
}

CacheFacts readCache() {
    CacheFacts facts;
    long rows = 0, unnamed = 0;
    std::set<std::wstring> contacts;
    std::map<std::wstring, long> shapes, stores;
    try {
        const CacheReader cache(cachePath());
        cache.rows([&](const CacheReader::Row& row) {
            ++rows;
            if (row.name.empty()) ++unnamed;
            ++shapes[shapeOf(row.number)];
            ++stores[row.storeKey];
            contacts.insert(row.entryId);
            facts.names.insert(row.name);
            return true;
        });
        facts.statistics = countLine(L"Rows", rows) + countLine(L"Rows without a name", unnamed) +
                           countLine(L"Contacts", static_cast<long>(contacts.size())) +
                           countLine(L"Stores in the table", static_cast<long>(cache.stores().size()));
        for (const auto& [shape, count] : shapes) facts.statistics += countLine(L"Numbers, " + shape, count);
        long number = 0;
        for (const auto& [key, count] : stores)
            facts.statistics += countLine(L"Rows of store " + std::to_wstring(++number), count);
    } catch (...) {
        facts.statistics += L"The cache cannot be read: " + inWords(zelbar::caughtFault()) + L"\n";
    }
    return facts;
}

Vocabulary productVocabulary(const doctor::Machine& machine, const CacheFacts& cache) {
    Vocabulary vocabulary;
    vocabulary.learnFrom(zelbar::modulePath());
    if (machine.driver.used().exists) vocabulary.learnFrom(machine.driver.used().path);
    for (const std::wstring& name : cache.names) vocabulary.forget(name);
    for (const doctor::OpenStore& store : machine.outlook.live.stores) vocabulary.forget(store.name);
    vocabulary.learn(kPlainWords);
    vocabulary.forget(nameOf(GetUserNameW));
    vocabulary.forget(nameOf(GetComputerNameW));
    return vocabulary;
}

/// Writes the parts, masked or as they are.
class Collection {
  public:
    explicit Collection(std::optional<Masker> masker) : masker_(std::move(masker)) {}

    void add(const char* name, const std::wstring& text) {
        // Notepad before Windows 10 knows no other line ends.
        std::wstring lines;
        for (const wchar_t c : text) lines += c == L'\n' ? std::wstring(L"\r\n") : std::wstring(1, c);
        parts_.push_back({name, zelbar::utf8(lines)});
    }
    void addLog(const char* name, const std::wstring& path, std::wstring (Masker::*mask)(std::wstring_view)) {
        const std::wstring text = zelbar::wide(fileBytes(path, kMostOfLog));
        std::wstring result;
        for (std::size_t start = 0; start < text.size();) {
            const std::size_t end = std::min(text.find(L'\n', start), text.size());
            std::wstring_view line = std::wstring_view(text).substr(start, end - start);
            if (line.ends_with(L'\r')) line.remove_suffix(1);
            result += (masker_ ? ((*masker_).*mask)(line) : std::wstring(line)) + L'\n';
            start = end + 1;
        }
        add(name, result);
    }
    std::wstring report(const std::wstring& text) { return masker_ ? masker_->report(text) : text; }
    std::wstring value(const Setting& setting, const std::wstring& text) {
        const bool isNobodys = setting.type != Setting::Type::Text || &setting == &settings::kCountry ||
                               &setting == &settings::kNumbersWithoutPrefix;
        return masker_ && !isNobodys ? masker_->value(text) : text;
    }
    std::vector<Part> take() { return std::move(parts_); }

  private:
    std::optional<Masker> masker_;
    std::vector<Part> parts_;
};

std::wstring settingsText(Collection& collection) {
    std::wstring text;
    const auto add = [&](const Setting& setting, const std::wstring& name, const std::wstring& value) {
        if (!value.empty())
            text += zelbar::keyOf(setting) + L"\\" + name + L" = " + collection.value(setting, value) + L"\n";
    };
    for (const Setting* setting : settings::kAll) {
        if (!setting->numbered) {
            add(*setting, setting->name, zelbar::readSetting(*setting));
            continue;
        }
        const std::size_t count = zelbar::storedFolders().size();
        for (std::size_t number = 1; number <= count; ++number)
            add(*setting, setting->name + std::to_wstring(number), zelbar::getSetting(*setting, number));
    }
    return text;
}

/// The trace of the run before lies beside the present one.
std::wstring previousOf(std::wstring path) {
    const std::size_t dot = path.find_last_of(L'.');
    return dot == std::wstring::npos ? path : path.insert(dot, L"_o");
}

struct TextWriter final : Writer {
    void write(std::wstring_view more) override { text += more; }
    std::wstring text;
};

constexpr wchar_t kMaskedAbout[] =
    L"Names, numbers, addresses, identifiers and folders were replaced: ~xxx stands for a word, #xxx for a\n"
    L"number. The same one stands for the same thing in all files of this bundle, and in no other bundle.\n\n";
constexpr wchar_t kPlainAbout[] = L"NOTHING WAS REPLACED: this bundle holds personal data in clear.\n\n";

}  // namespace

std::vector<Part> collect(bool isMasked, const std::function<void(const wchar_t*)>& tell) {
    const doctor::Machine machine = doctor::observe(tell);
    tell(L"Counting the cache");
    const CacheFacts cache = readCache();
    std::optional<Masker> masker;
    if (isMasked) masker.emplace(productVocabulary(machine, cache));
    Collection collection(std::move(masker));
    collection.add("about.txt", (isMasked ? kMaskedAbout : kPlainAbout) + versionsText(machine));
    TextWriter report;
    doctor::writeReport(report, doctor::examine(machine));
    collection.add("doctor.txt", collection.report(report.text));
    collection.add("settings.txt", settingsText(collection));
    collection.add("tables.txt", collection.report(cache.statistics));
    tell(L"Reading the logs");
    collection.addLog("trace.txt", machine.trace.trace.path, &Masker::traceLine);
    collection.addLog("trace-before.txt", previousOf(machine.trace.trace.path), &Masker::traceLine);
    collection.addLog("errors.txt", machine.trace.errors.path, &Masker::errorLine);
    return collection.take();
}

}  // namespace pimcall::bundle

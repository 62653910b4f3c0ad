// What a stored choice of folders means, how folders are shown, and the categories of an exported contact.

#include <algorithm>

#include "dialogs/FolderRules.h"
#include "export/CategoryList.h"
#include "fuzz/Input.h"

namespace {

void tryPath(const std::wstring& path) {
    std::wstring broken = zelbar::brokenPath(path);
    for (std::size_t at; (at = broken.find(L"\r\n")) != std::wstring::npos; broken.erase(at, 2))
        FUZZ_EXPECT(at > 0);
    FUZZ_EXPECT(broken == path);
    FUZZ_EXPECT(zelbar::shownPath(path).size() <= 259);
}

void tryCategories(const std::wstring& categories, const std::wstring& wanted, const std::wstring& unwanted) {
    const std::wstring result = zelbar::refiled(categories, wanted, unwanted);
    const auto before = zelbar::splitCategories(categories), after = zelbar::splitCategories(result);
    const auto has = [](const auto& names, const std::wstring& name) {
        return std::find(names.begin(), names.end(), name) != names.end();
    };
    FUZZ_EXPECT(has(after, wanted));
    FUZZ_EXPECT(wanted == unwanted || !has(after, unwanted));
    for (const std::wstring& name : before) FUZZ_EXPECT(name == unwanted || has(after, name));
    FUZZ_EXPECT(zelbar::refiled(result, wanted, unwanted) == result);
}

void trySelection(fuzz::Input& input) {
    zelbar::StoredSelection stored;
    for (int count = input.byte() % 8; count > 0; --count)
        stored.folders.push_back({input.text(L"ab"), input.text(L"s"), input.byte() % 2 == 1});
    std::vector<zelbar::cfolder> folders(input.byte() % 8U);
    std::vector<zelbar::cfolder*> found;
    for (zelbar::cfolder& folder : folders) {
        folder.EntryId = input.text(L"ab");
        folder.StoreID = input.text(L"s");
        found.push_back(&folder);
    }
    const auto match = zelbar::applySelection(stored, found);
    FUZZ_EXPECT(match.stored <= stored.folders.size());
    FUZZ_EXPECT(match.found <= stored.folders.size() * found.size());
    const std::wstring signature = zelbar::signatureOf(found);
    FUZZ_EXPECT(signature.size() == found.size());
    const std::size_t first = zelbar::firstSelected(found);
    FUZZ_EXPECT(first == (signature.find(L'1') == std::wstring::npos ? 0 : signature.find(L'1')));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    tryPath(input.text(L"\\abcdefghijklmnop rstuvwxyz"));
    constexpr std::wstring_view kNames = L"Phone set";
    const std::wstring wanted = input.text(kNames), unwanted = input.text(kNames);
    const auto isName = [](const std::wstring& text) {
        const auto names = zelbar::splitCategories(text);
        return names.size() == 1 && names.front() == text;
    };
    if (isName(wanted) && isName(unwanted)) tryCategories(input.text(L"Phone set,; "), wanted, unwanted);
    if (const auto limit = zelbar::storeLimit(input.text(L"0123456789- x"))) FUZZ_EXPECT(*limit >= 1);
    trySelection(input);
    return 0;
}

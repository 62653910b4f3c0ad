#include "dialogs/SelectionTexts.h"

#include <algorithm>

namespace zelbar {

namespace {

std::wstring filledIn(std::wstring text, std::wstring_view mark, size_t number) {
    const size_t place = text.find(mark);
    if (place != text.npos) text.replace(place, mark.size(), std::to_wstring(number));
    return text;
}

}  // namespace

std::wstring searchingText(cLocalizedText& texts, size_t seen) {
    const std::wstring text = texts.translate(L"#07112#Searching for contacts folders...");
    return seen > 0 ? text + L" " + std::to_wstring(seen) : text;
}

std::wstring countText(cLocalizedText& texts, const std::vector<cfolder*>& found) {
    const auto checked =
        std::count_if(found.begin(), found.end(), [](const cfolder* folder) { return folder->IsSelected; });
    const std::wstring text = texts.translate(L"#07118#%1 of %2 checked");
    return filledIn(filledIn(text, L"%1", static_cast<size_t>(checked)), L"%2", found.size());
}

std::wstring hintText(cLocalizedText& texts, const FolderSelection& selection, size_t lines) {
    std::wstring result;
    const auto say = [&](const wchar_t* text) {
        result += (result.empty() ? L"" : L" ") + texts.translate(text);
    };
    if (!selection.reached())
        say(L"#07113#Outlook is not running: its folders cannot be shown.");
    else if (!selection.complete())
        say(L"#07114#Some folders could not be read and are missing here.");
    else if (selection.StoresChanged())
        say(L"#07103#The selection has changed because of contacts files added or removed in Outlook.");
    // Without a stored choice there is nothing to lose.
    if (!selection.complete() && !selection.FirstConfiguration())
        say(lines == 0 ? L"#07115#OK would erase the stored selection."
                       : L"#07116#OK would remove them from the stored selection.");
    if (lines > kMostStoredFolders) say(L"#07117#Only the first sixteen folders are remembered.");
    return result;
}

}  // namespace zelbar

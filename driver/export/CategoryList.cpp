#include "export/CategoryList.h"

#include <algorithm>

#include "support/Text.h"

namespace zelbar {

std::vector<std::wstring> splitCategories(std::wstring_view categories) {
    std::vector<std::wstring> names;
    while (true) {
        const size_t end = categories.find_first_of(L",;");
        if (const auto name = trimmed(categories.substr(0, end)); !name.empty()) names.emplace_back(name);
        if (end == std::wstring_view::npos) return names;
        categories.remove_prefix(end + 1);
    }
}

std::wstring refiled(const std::wstring& categories, const std::wstring& wanted,
                     const std::wstring& unwanted) {
    std::vector<std::wstring> names = splitCategories(categories);
    const bool isThere = std::find(names.begin(), names.end(), wanted) != names.end();
    const auto obsolete = std::remove(names.begin(), names.end(), unwanted);
    if (isThere && (obsolete == names.end() || wanted == unwanted)) return categories;
    names.erase(obsolete, names.end());
    if (!isThere) names.push_back(wanted);
    std::wstring result;
    for (const std::wstring& name : names) result += (result.empty() ? L"" : L", ") + name;
    return result;
}

}  // namespace zelbar

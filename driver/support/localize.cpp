#include "support/localize.h"

#include <utility>

#include "support/Settings.h"
#include "support/Text.h"

namespace zelbar {

localize::localize(Module module, mLogError& errors) : module_(std::move(module)), errors_(errors) {}

std::wstring localize::ReadLanguageChoice() const {
    const std::wstring table(trimmed(readSetting(settings::kLanguageChoice, module_.company)));
    return table.empty() ? kDefaultLanguageTable : table;
}

void localize::SplitLanguageChoice(std::wstring_view table) {
    LanguageTableSplit split = splitLanguageTable(table);
    table_ = std::move(split.table);
    tableLoaded_ = true;
    for (const std::wstring& message : split.messages) {
        errors_.LogError({}, L"localize.SplitLanguageChoice", nullptr, message);
    }
}

std::int16_t localize::GetChartset() {
    const Language* language = userLanguage();
    return language ? language->charset : std::int16_t{0};
}

std::int32_t localize::textResource() {
    const Language* language = userLanguage();
    return language ? language->resource : 0;
}

const Language* localize::userLanguage() {
    const std::int32_t index = leadingInteger(readSetting(settings::kLang, module_.company));
    if (!tableLoaded_) SplitLanguageChoice(ReadLanguageChoice());
    return languageAt(table_, index);
}

}  // namespace zelbar

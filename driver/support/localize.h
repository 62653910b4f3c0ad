#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "support/LanguageTable.h"
#include "support/Module.h"
#include "support/mLogError.h"

namespace zelbar {

/// The user's language and what hangs on it.
class localize {
  public:
    /// `errors` must outlive this object.
    localize(Module module, mLogError& errors);

    /// The installation's language table, or the default one.
    std::wstring ReadLanguageChoice() const;
    /// Replaces the table in memory; malformed entries go to the error file.
    void SplitLanguageChoice(std::wstring_view table);
    /// Character set of the user's language; 0 when that is unknown.
    std::int16_t GetChartset();
    /// Number of the text resource of the user's language; 0 when that is unknown.
    std::int32_t textResource();

    /// What the windows draw with; start-up sets it once from `GetChartset`.
    std::int16_t CurrentCharset() const noexcept { return currentCharset_; }
    void CurrentCharset(std::int16_t charset) noexcept { currentCharset_ = charset; }

  private:
    const Language* userLanguage();

    Module module_;
    mLogError& errors_;
    LanguageTable table_;
    bool tableLoaded_ = false;
    std::int16_t currentCharset_ = 0;
};

}  // namespace zelbar

#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "support/localize.h"

namespace zelbar {

/// Translates numbered texts into the user's language.
class cLocalizedText {
  public:
    /// `languages` must outlive this object.
    cLocalizedText(Module module, localize& languages);

    /// Reads the texts of the user's language (anew); the first translation does so by itself. The argument
    /// is part of the service's history and means nothing.
    void init(long unused = 0);
    /// Forgets the texts, so that the next translation reads those of the language that the user has then.
    void release() noexcept;

    /// The language's text for a numbered text; else the default text in it; for a bare number the English
    /// text; else the text unchanged. Other texts come back unchanged.
    std::wstring translate(std::wstring_view text);

  private:
    using Texts = std::map<int, std::wstring>;
    Texts textsOf(std::int32_t resource) const;

    Module module_;
    localize& languages_;
    bool initialised_ = false;
    Texts texts_;
    Texts english_;
};

}  // namespace zelbar

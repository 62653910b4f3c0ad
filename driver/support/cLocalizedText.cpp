#include "support/cLocalizedText.h"

#include <utility>

#include "support/Encoding.h"
#include "support/NumberedText.h"

namespace zelbar {
namespace {

constexpr int kEnglishResource = 5900;

}  // namespace

cLocalizedText::cLocalizedText(Module module, localize& languages)
    : module_(std::move(module)), languages_(languages) {}

void cLocalizedText::init([[maybe_unused]] long unused) {
    english_ = textsOf(kEnglishResource);
    const std::int32_t resource = languages_.textResource();
    texts_ = resource == 0 ? english_ : textsOf(resource);
    initialised_ = true;
}

void cLocalizedText::release() noexcept {
    initialised_ = false;
    texts_.clear();
    english_.clear();
}

std::wstring cLocalizedText::translate(std::wstring_view text) {
    const auto numbered = splitNumberedText(text);
    if (!numbered) return std::wstring(text);
    if (!initialised_) init();
    if (const auto hit = texts_.find(numbered->number); hit != texts_.end()) return hit->second;
    if (!numbered->defaultText.empty()) return std::wstring(numbered->defaultText);
    const auto english = english_.find(numbered->number);
    return english != english_.end() ? english->second : std::wstring(text);
}

cLocalizedText::Texts cLocalizedText::textsOf(std::int32_t resource) const {
    // A resource is named by a 16-bit number; the language table may hold anything.
    if (resource <= 0 || resource > 0xFFFF) return {};
    HRSRC place = FindResourceW(module_.handle, MAKEINTRESOURCEW(resource), RT_RCDATA);
    HGLOBAL data = place ? LoadResource(module_.handle, place) : nullptr;
    const char* bytes = data ? static_cast<const char*>(LockResource(data)) : nullptr;
    if (!bytes) return {};
    Texts texts;
    for (const auto& [number, line] : parseTextFile({bytes, SizeofResource(module_.handle, place)})) {
        texts.emplace(number, wide(line));
    }
    return texts;
}

}  // namespace zelbar

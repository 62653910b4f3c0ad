#include "automation/LateReleases.h"

#include <utility>

namespace zelbar {

LateReleases::~LateReleases() {
    for (auto& reference : kept_) reference.detach();
}

void LateReleases::keep(Com<IUnknown> reference) noexcept {
    try {
        kept_.push_back(nullptr);
        std::swap(kept_.back(), reference);
    } catch (...) {
        // Without memory it is left to the process's end.
        reference.detach();
    }
}

void LateReleases::release(const std::function<bool()>& mayGoOn) {
    while (!kept_.empty() && mayGoOn()) {
        // Taken out before it goes: the client may come in meanwhile.
        const Com<IUnknown> next = std::move(kept_.back());
        kept_.pop_back();
    }
}

}  // namespace zelbar

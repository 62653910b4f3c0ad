#include "client/Activity.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

namespace pimcall {

using Clock = std::chrono::steady_clock;

/// What the program's thread and the one that shows the line have in common.
struct Activity::Shared {
    explicit Shared(Writer& shownOn) : screen(shownOn) {}

    Writer& screen;
    std::mutex mutex;
    std::condition_variable changed;
    std::wstring what;
    Clock::time_point begun = Clock::now();
    std::chrono::milliseconds delay{};
    std::size_t shownLength = 0;
    bool isOver = false;

    void draw() {
        constexpr std::size_t kWidest = 76;
        const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - begun).count();
        std::wstring line = what.substr(0, kWidest - 10) + L" ... " + std::to_wstring(seconds) + L" s";
        const std::size_t length = line.size();
        line.resize(std::max(length, shownLength), L' ');
        shownLength = length;
        put(L'\r' + line);
    }
    void erase() {
        if (shownLength > 0) put(L'\r' + std::wstring(shownLength, L' ') + L'\r');
        shownLength = 0;
    }
    void put(const std::wstring& text) noexcept {
        try {
            screen.write(text);
        } catch (...) {
            // Nobody sees it then.
        }
    }
};

Activity::Activity(Writer& screen, std::wstring what, unsigned delayMilliseconds) {
    if (!screen.isTerminal()) return;
    shared_ = std::make_shared<Shared>(screen);
    shared_->what = std::move(what);
    shared_->delay = std::chrono::milliseconds(delayMilliseconds);
    std::thread(show, shared_).detach();
}

Activity::~Activity() {
    end();
}

void Activity::show(const std::shared_ptr<Shared>& shared) {
    std::unique_lock lock(shared->mutex);
    while (!shared->changed.wait_for(lock, shared->delay, [&] { return shared->isOver; })) shared->draw();
}

void Activity::say(std::wstring what) {
    if (!shared_) return;
    const std::scoped_lock lock(shared_->mutex);
    shared_->what = std::move(what);
}

void Activity::end() {
    if (!shared_) return;
    const std::scoped_lock lock(shared_->mutex);
    shared_->isOver = true;
    shared_->erase();
    shared_->changed.notify_all();
}

void Activity::write(Writer& writer, std::wstring_view text) {
    if (!shared_) return writer.write(text);
    const std::scoped_lock lock(shared_->mutex);
    shared_->erase();
    writer.write(text);
}

}  // namespace pimcall

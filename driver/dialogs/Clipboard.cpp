#include "dialogs/Clipboard.h"

#include <cstring>

#include "support/Handle.h"

namespace zelbar {

namespace {

struct MemoryTraits {
    using Type = HGLOBAL;
    static Type empty() noexcept { return nullptr; }
    static void close(Type memory) noexcept { GlobalFree(memory); }
};

/// The clipboard while it is ours.
class OpenClipboardScope {
  public:
    explicit OpenClipboardScope(HWND owner) : open_(OpenClipboard(owner)) {}
    ~OpenClipboardScope() {
        if (open_) CloseClipboard();
    }
    OpenClipboardScope(const OpenClipboardScope&) = delete;
    OpenClipboardScope& operator=(const OpenClipboardScope&) = delete;
    explicit operator bool() const { return open_; }

  private:
    bool open_;
};

}  // namespace

bool copyToClipboard(HWND owner, const std::wstring& text) noexcept {
    const size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    Handle<MemoryTraits> memory(GlobalAlloc(GMEM_MOVEABLE, bytes));
    void* content = GlobalLock(memory.get());
    if (!content) return false;
    std::memcpy(content, text.c_str(), bytes);
    GlobalUnlock(memory.get());

    const OpenClipboardScope clipboard(owner);
    if (!clipboard || !EmptyClipboard() || !SetClipboardData(CF_UNICODETEXT, memory.get())) return false;
    memory.release();  // it is the system's now
    return true;
}

}  // namespace zelbar

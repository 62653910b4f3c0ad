#pragma once

#include <windows.h>

#include <utility>

namespace zelbar {

/// Owner of one system handle. Traits give `Type`, `empty()` (what stands for "none") and `close(Type)`.
template <class Traits>
class Handle {
  public:
    using Type = typename Traits::Type;

    Handle() noexcept = default;
    explicit Handle(Type handle) noexcept : handle_(handle) {}
    Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, Traits::empty())) {}
    Handle& operator=(Handle&& other) noexcept {
        reset(other.release());
        return *this;
    }
    ~Handle() { reset(); }

    explicit operator bool() const noexcept { return handle_ != Traits::empty(); }
    Type get() const noexcept { return handle_; }

    void reset(Type handle = Traits::empty()) noexcept {
        if (*this) Traits::close(handle_);
        handle_ = handle;
    }
    /// Gives the handle away, to be closed by whoever has it now.
    Type release() noexcept { return std::exchange(handle_, Traits::empty()); }
    /// Where a function stores a new handle; the one held before is closed first.
    Type* put() noexcept {
        reset();
        return &handle_;
    }

  private:
    Type handle_ = Traits::empty();
};

struct FileTraits {
    using Type = HANDLE;
    static Type empty() noexcept { return INVALID_HANDLE_VALUE; }
    static void close(Type file) noexcept { CloseHandle(file); }
};
using FileHandle = Handle<FileTraits>;

struct RegistryTraits {
    using Type = HKEY;
    static Type empty() noexcept { return nullptr; }
    static void close(Type key) noexcept { RegCloseKey(key); }
};

}  // namespace zelbar

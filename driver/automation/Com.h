#pragma once

#include <windows.h>

#include <unknwn.h>

#include <cstddef>
#include <utility>

namespace zelbar {

/// Owns one COM reference. Starts empty; `adopt` takes a reference over, `share` adds one of its own.
template <class T>
class Com {
  public:
    Com() = default;
    Com(std::nullptr_t) {}
    Com(const Com& other) : pointer_(other.pointer_) { addRef(); }
    Com(Com&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
    template <class U>
    Com(const Com<U>& other) : pointer_(other.get()) {
        addRef();
    }
    template <class U>
    Com(Com<U>&& other) noexcept : pointer_(other.detach()) {}
    ~Com() { reset(); }

    Com& operator=(Com other) noexcept {
        std::swap(pointer_, other.pointer_);
        return *this;
    }

    static Com adopt(T* pointer) {
        Com result;
        result.pointer_ = pointer;
        return result;
    }
    static Com share(T* pointer) {
        Com result = adopt(pointer);
        result.addRef();
        return result;
    }

    T* get() const { return pointer_; }
    T* operator->() const { return pointer_; }
    T& operator*() const { return *pointer_; }
    explicit operator bool() const { return pointer_ != nullptr; }

    /// The address for an out argument; what was held is released first.
    T** put() {
        reset();
        return &pointer_;
    }

    /// Hands the reference to the caller, who releases it.
    T* detach() { return std::exchange(pointer_, nullptr); }

    /// The pointer is emptied before the release: a release may come back here while the object goes.
    void reset() {
        if (T* old = std::exchange(pointer_, nullptr)) old->Release();
    }

    /// The same object's other interface, or none. Who refuses it may have left rubbish in its place.
    template <class U>
    Com<U> as(const IID& id = __uuidof(U)) const {
        U* other = nullptr;
        const bool has =
            pointer_ && SUCCEEDED(pointer_->QueryInterface(id, reinterpret_cast<void**>(&other)));
        return Com<U>::adopt(has ? other : nullptr);
    }

  private:
    void addRef() {
        if (pointer_) pointer_->AddRef();
    }

    T* pointer_ = nullptr;
};

}  // namespace zelbar

#pragma once

#include <utility>

#include "automation/interface_id.h"

namespace mavrin2::automation {

// One counted reference on a COM object. `T` is an interface, or a class of this project that has
// AddRef and Release.
template <class T>
class ComPtr {
public:
    ComPtr() = default;
    ComPtr(std::nullptr_t) {}
    // Adds a reference; see Adopt for a pointer that already carries one.
    explicit ComPtr(T* object) : object_(object) {
        if (object_) object_->AddRef();
    }
    ComPtr(const ComPtr& other) : ComPtr(other.object_) {}
    ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~ComPtr() {
        if (object_) object_->Release();
    }

    // Takes over the reference that a call handed out.
    static ComPtr Adopt(T* object) {
        ComPtr result;
        result.object_ = object;
        return result;
    }

    T* Get() const { return object_; }
    T* operator->() const { return object_; }
    T& operator*() const { return *object_; }
    explicit operator bool() const { return object_ != nullptr; }

    // For out-parameters: drops what is held and gives the place to be filled.
    T** Put() {
        Reset();
        return &object_;
    }
    void** PutVoid() { return reinterpret_cast<void**>(Put()); }

    // Hands the reference to the caller.
    [[nodiscard]] T* Detach() { return std::exchange(object_, nullptr); }

    void Reset() {
        // Cleared first: the release may come back here.
        if (T* old = std::exchange(object_, nullptr)) old->Release();
    }

    // The same object through another interface; empty when it does not have it.
    template <class Interface>
    ComPtr<Interface> As() const {
        ComPtr<Interface> result;
        if (object_) object_->QueryInterface(IidOf<Interface>(), result.PutVoid());
        return result;
    }

private:
    T* object_ = nullptr;
};

}  // namespace mavrin2::automation

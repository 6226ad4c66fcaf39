// SPDX-License-Identifier: MIT
// ComPtr: owner of one reference to a COM object.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <utility>

namespace Quorvane::Host {

/// Holds one reference to an object, or none. (The one that comes with the compiler, in
/// wrl/client.h, adds a reference in Attach and leaves the source of a move its pointer.)
template <typename Interface>
class ComPtr {
  public:
    ComPtr() = default;
    ComPtr(decltype(nullptr)) {}

    /// Adds a reference to `object`, which may be null.
    ComPtr(Interface* object) noexcept : object_(object) {
        if (object_) {
            object_->AddRef();
        }
    }
    ComPtr(const ComPtr& other) noexcept : ComPtr(other.object_) {}
    ComPtr(ComPtr&& other) noexcept : object_(other.Detach()) {}

    /// Also from an owner of a derived interface.
    template <typename Other>
    ComPtr(const ComPtr<Other>& other) noexcept : ComPtr(static_cast<Interface*>(other.Get())) {}

    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~ComPtr() { Reset(); }

    Interface* Get() const noexcept { return object_; }
    Interface* operator->() const noexcept { return object_; }
    explicit operator bool() const noexcept { return object_ != nullptr; }
    bool operator==(decltype(nullptr)) const noexcept { return object_ == nullptr; }

    /// The empty place for a call to store a new reference.
    Interface** Receive() noexcept {
        Reset();
        return &object_;
    }
    void** ReceiveVoid() noexcept { return reinterpret_cast<void**>(Receive()); }

    /// Takes over a reference that the caller owns.
    void Attach(Interface* object) noexcept {
        Reset();
        object_ = object;
    }

    /// Hands the reference over to the caller.
    [[nodiscard]] Interface* Detach() noexcept { return std::exchange(object_, nullptr); }

    void Reset() noexcept {
        // The object may come back here while it goes.
        if (Interface* const object = std::exchange(object_, nullptr)) {
            object->Release();
        }
    }

    /// Gives a reference of its own to the caller's `place`.
    HRESULT CopyTo(Interface** place) const noexcept {
        *place = ComPtr(*this).Detach();
        return S_OK;
    }

  private:
    Interface* object_ = nullptr;
};

/// The interface `Interface` of `object`, or null if the object is null or does not offer it.
template <typename Interface>
ComPtr<Interface> Query(IUnknown* object) {
    ComPtr<Interface> found;
    if (object) {
        object->QueryInterface(__uuidof(Interface), found.ReceiveVoid());
    }
    return found;
}

} // namespace Quorvane::Host

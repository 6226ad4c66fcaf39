// SPDX-License-Identifier: MIT
// An owner of one COM reference. The compiler's own <wrl/client.h> is not used: its Attach adds a
// reference, so every object that is handed over would leak.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <cstddef>
#include <type_traits>
#include <utility>

namespace Quorvane::Com {

template <class T>
class ComPtr {
  public:
    ComPtr() noexcept = default;
    ComPtr(std::nullptr_t) noexcept {}

    /// Adds a reference of its own.
    ComPtr(T* object) noexcept : object_(object) { AddRef(); }

    ComPtr(const ComPtr& other) noexcept : object_(other.object_) { AddRef(); }
    ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    template <class U>
    requires std::is_convertible_v<U*, T*> ComPtr(ComPtr<U> other)
    noexcept : object_(other.Detach()) {}

    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment): a copy swapped in is safe
    ComPtr& operator=(const ComPtr& other) noexcept {
        ComPtr(other).Swap(*this);
        return *this;
    }
    ComPtr& operator=(ComPtr&& other) noexcept {
        ComPtr(std::move(other)).Swap(*this);
        return *this;
    }
    ~ComPtr() { Reset(); }

    /// Takes over a reference that the caller owns.
    static ComPtr Attach(T* object) noexcept {
        ComPtr result;
        result.object_ = object;
        return result;
    }

    void Swap(ComPtr& other) noexcept { std::swap(object_, other.object_); }

    T* Get() const noexcept { return object_; }
    T* operator->() const noexcept { return object_; }
    T& operator*() const noexcept { return *object_; }
    explicit operator bool() const noexcept { return object_ != nullptr; }
    bool operator==(const ComPtr& other) const noexcept { return object_ == other.object_; }

    /// Releases. The member is null before the object's Release runs, which may call back.
    void Reset() noexcept {
        if (T* const object = std::exchange(object_, nullptr)) {
            object->Release();
        }
    }

    /// The place for a function that returns an object; what was held is released first.
    T** Put() noexcept {
        Reset();
        return &object_;
    }
    void** PutVoid() noexcept { return reinterpret_cast<void**>(Put()); }

    /// Hands the reference to the caller.
    T* Detach() noexcept { return std::exchange(object_, nullptr); }

    /// Stores a further reference in an out parameter, null where nothing is held.
    void CopyTo(T** target) const noexcept {
        AddRef();
        *target = object_;
    }

    /// The object's interface U, null where it has none or nothing is held.
    template <class U>
    ComPtr<U> As() const noexcept {
        ComPtr<U> result;
        if (object_ && FAILED(object_->QueryInterface(__uuidof(U), result.PutVoid()))) {
            result.Detach();
        }
        return result;
    }

  private:
    void AddRef() const noexcept {
        if (object_) {
            object_->AddRef();
        }
    }

    T* object_ = nullptr;
};

/// The interface U of an object, null where it has none or the object is null.
template <class U>
ComPtr<U> Query(IUnknown* object) noexcept {
    return ComPtr<IUnknown>(object).As<U>();
}

/// Whether two references mean one object: COM compares objects by their IUnknown.
inline bool IsSameObject(IUnknown* left, IUnknown* right) noexcept {
    return Query<IUnknown>(left) == Query<IUnknown>(right);
}

} // namespace Quorvane::Com

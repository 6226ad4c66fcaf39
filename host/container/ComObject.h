// SPDX-License-Identifier: MIT
// ComObject: reference counting and interface lookup for the host's own COM objects.
#pragma once

#include "host/container/ComPtr.h"

#include <atomic>
#include <utility>

namespace Quorvane::Host {

// The platform's interfaces have no destructor; ours is virtual, and only Release deletes.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// Base of an object on the heap that offers the interfaces `First` and `Others`, each derived
/// directly from IUnknown. Its life ends with the last reference.
template <typename First, typename... Others>
class ComObject : public First, public Others... {
  public:
    ComObject() = default;
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override {
        if (!object) {
            return E_POINTER;
        }
        *object = nullptr;
        if (iid == __uuidof(IUnknown) || AnswersAsFirst(iid)) {
            *object = static_cast<First*>(this);
        } else {
            (void)(Offer<First>(iid, object) || ... || Offer<Others>(iid, object));
        }
        if (!*object) {
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }

    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references_; }

    ULONG STDMETHODCALLTYPE Release() noexcept override {
        const ULONG left = --references_;
        if (left == 0) {
            delete this;
        }
        return left;
    }

  protected:
    virtual ~ComObject() = default;

    /// Further interface identifiers that `First` stands for, such as a dispatch interface known
    /// only at run time.
    virtual bool AnswersAsFirst(REFIID) const noexcept { return false; }

  private:
    template <typename Interface>
    bool Offer(REFIID iid, void** object) noexcept {
        if (iid != __uuidof(Interface)) {
            return false;
        }
        *object = static_cast<Interface*>(this);
        return true;
    }

    std::atomic<ULONG> references_ = 1;
};

#pragma GCC diagnostic pop

/// A new object of the class `Object`, whose only reference is the one returned.
template <typename Object, typename... Arguments>
ComPtr<Object> MakeCom(Arguments&&... arguments) {
    ComPtr<Object> object;
    object.Attach(new Object(std::forward<Arguments>(arguments)...));
    return object;
}

} // namespace Quorvane::Host

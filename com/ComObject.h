// SPDX-License-Identifier: MIT
// The base of every COM object: identity, interfaces, reference count, aggregation.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <atomic>
#include <memory>
#include <type_traits>
#include <utility>

#include "com/ComPtr.h"
#include "com/ErrorBoundary.h"
#include "com/Module.h"

namespace Quorvane::Com {

/// A list of interface types.
template <class... I>
struct InterfaceList {};

/// An interface together with the interfaces it derives from, which the object answers as well:
///   Chain<IViewObjectEx, IViewObject2, IViewObject>
template <class First, class... Ancestors>
struct Chain {
    using Base = First;
    using Answers = InterfaceList<First, Ancestors...>;
};

namespace Detail {

/// A plain interface is its own base and answers for itself.
template <class I>
struct ItemTraits {
    using Base = I;
    using Answers = InterfaceList<I>;
};

template <class First, class... Ancestors>
struct ItemTraits<Chain<First, Ancestors...>> : Chain<First, Ancestors...> {};

/// A class of the plumbing that implements interfaces names them itself, as `Answers`.
template <class I>
requires requires {
    typename I::Answers;
} && std::is_base_of_v<IUnknown, I>
struct ItemTraits<I> {
    using Base = I;
    using Answers = typename I::Answers;
};

} // namespace Detail

/// An object with the given interfaces. An item is an interface, a Chain of one with its
/// ancestors, or a class of this folder that implements some (DualDispatch, ProvideClassInfo ...).
///
///   class Thing final : public Com::ComObject<Com::DualDispatch<_Thing>,
///                                             Com::Chain<IPersistStreamInit, IPersist>> {
///     public:
///       explicit Thing(IUnknown* outer) : ComObject(outer) {}
///       ...
///   };
///
/// A new object has one reference, which MakeObject hands over. It lives until its own count is
/// zero; FinalRelease runs first. As part of an aggregate every interface but the inner IUnknown
/// delegates to the outer object, which must outlive it and is not counted.
template <class... Items>
class ComObject : public Detail::ItemTraits<Items>::Base... {
  public:
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** result) noexcept override {
        return outer_->QueryInterface(iid, result);
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return outer_->AddRef(); }
    STDMETHODIMP_(ULONG) Release() noexcept override { return outer_->Release(); }

    /// The object's identity as a host sees it: the outer object's, when it is part of one.
    IUnknown* ControllingUnknown() const noexcept { return outer_; }

    /// The object's own IUnknown, which an outer object holds.
    IUnknown* InnerUnknown() noexcept { return &inner_; }

    /// Makes the object count as an instance that a host created.
    void Hold(InstanceClaim claim) noexcept { claim_ = std::move(claim); }

  protected:
    // The bases may allocate.
    explicit ComObject(IUnknown* outer = nullptr)
        : inner_(*this), outer_(outer ? outer : &inner_) {}

    virtual ~ComObject() = default;

    /// Whether a host ever had the object: one made for an interface that it lacks goes unseen.
    bool IsHeld() const noexcept { return claim_.IsHeld(); }

    /// Runs once, when the last reference has gone and before destruction begins, with the whole
    /// object still there: the place to drop what may call back.
    virtual void FinalRelease() noexcept {}

  private:
    /// The IUnknown that never delegates.
    class Inner final : public IUnknown {
      public:
        explicit Inner(ComObject& owner) noexcept : owner_(owner) {}

        STDMETHODIMP QueryInterface(REFIID iid, void** result) noexcept override {
            if (!result) {
                return E_POINTER;
            }
            *result = nullptr;
            if (iid == __uuidof(IUnknown)) {
                *result = static_cast<IUnknown*>(this);
                ++count_;
                return S_OK;
            }
            return owner_.Find(iid, result) ? S_OK : E_NOINTERFACE;
        }

        STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++count_; }

        STDMETHODIMP_(ULONG) Release() noexcept override {
            const ULONG left = --count_;
            if (left == 0) {
                // References taken and dropped during the end must not end the object again.
                count_ = EndingCount;
                owner_.FinalRelease();
                delete &owner_;
            }
            return left;
        }

      private:
        static constexpr ULONG EndingCount = 0x40000000;

        ComObject& owner_;
        std::atomic<ULONG> count_ = 1;
    };

    /// Stores a counted reference to the interface; false where the object has none such.
    bool Find(REFIID iid, void** result) noexcept {
        return (FindIn<typename Detail::ItemTraits<Items>::Base>(
                    iid, result, typename Detail::ItemTraits<Items>::Answers()) ||
                ...);
    }

    template <class Base, class... I>
    bool FindIn(REFIID iid, void** result, InterfaceList<I...>) noexcept {
        return (Take<I>(static_cast<Base*>(this), iid, result) || ...);
    }

    template <class I>
    static bool Take(I* object, REFIID iid, void** result) noexcept {
        if (iid != __uuidof(I)) {
            return false;
        }
        object->AddRef();
        *result = object;
        return true;
    }

    ModuleLock lock_;
    InstanceClaim claim_;
    Inner inner_;
    IUnknown* outer_;
};

/// A new object, not aggregated; the result holds its one reference. Throws what its constructor
/// throws.
template <class T, class... Arguments>
ComPtr<T> MakeObject(Arguments&&... arguments) {
    return ComPtr<T>::Attach(new T(std::forward<Arguments>(arguments)...));
}

/// A new instance of a class for a host: the Create function of a ClassEntry. The class has a
/// constructor that takes the outer IUnknown, null for none.
template <class T>
void CreateInstance(IUnknown* outer, REFIID iid, void** result) {
    InstanceClaim claim = InstanceClaim::ForThisThread(DescribeModule().GiveUpState);
    T* const object = new T(outer);
    const auto inner = ComPtr<IUnknown>::Attach(object->InnerUnknown());
    Check(inner->QueryInterface(iid, result));
    object->Hold(std::move(claim));
}

/// Keeps an object alive through a call in which a host may release it.
class KeepAlive {
  public:
    template <class T>
    explicit KeepAlive(T* object) noexcept : unknown_(object->ControllingUnknown()) {}

  private:
    ComPtr<IUnknown> unknown_;
};

} // namespace Quorvane::Com

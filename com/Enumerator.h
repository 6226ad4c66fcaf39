// SPDX-License-Identifier: MIT
// The one template behind every IEnum... interface.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include <algorithm>
#include <memory>
#include <vector>

#include "com/ComObject.h"
#include "com/Scoped.h"

namespace Quorvane::Com {

/// How an owned item becomes one for the caller. The general case copies plain data.
template <class Item>
struct EnumeratorTraits {
    using Owned = Item;
    static void Copy(const Owned& from, Item* to) { *to = from; }
    static void Discard(Item*) noexcept {}
};

template <class I>
struct EnumeratorTraits<I*> {
    using Owned = ComPtr<I>;
    static void Copy(const Owned& from, I** to) noexcept { from.CopyTo(to); }
    static void Discard(I** item) noexcept {
        if (*item) {
            (*item)->Release();
        }
    }
};

template <>
struct EnumeratorTraits<VARIANT> {
    using Owned = Variant;
    static void Copy(const Owned& from, VARIANT* to) { *to = Variant(from).Detach(); }
    static void Discard(VARIANT* item) noexcept { ::VariantClear(item); }
};

struct OwnedConnection {
    ComPtr<IUnknown> Sink;
    DWORD Cookie;
};

template <>
struct EnumeratorTraits<CONNECTDATA> {
    using Owned = OwnedConnection;
    static void Copy(const Owned& from, CONNECTDATA* to) noexcept {
        from.Sink.CopyTo(&to->pUnk);
        to->dwCookie = from.Cookie;
    }
    static void Discard(CONNECTDATA* item) noexcept { item->pUnk->Release(); }
};

/// An enumerator with a cursor of its own over a copy of the items; a clone shares the items and
/// starts where the original stands.
///   MakeObject<Enumerator<IEnumVARIANT, VARIANT>>(std::vector<Variant>{...})
template <class I, class Item>
class Enumerator final : public ComObject<I> {
    using Traits = EnumeratorTraits<Item>;

  public:
    using Items = std::vector<typename Traits::Owned>;

    explicit Enumerator(Items items)
        : Enumerator(std::make_shared<const Items>(std::move(items)), 0) {}
    Enumerator(std::shared_ptr<const Items> items, std::size_t position)
        : items_(std::move(items)), position_(position) {}

    /// S_FALSE where fewer items were left than asked for. A failure hands out none.
    STDMETHODIMP Next(ULONG count, Item* items, ULONG* fetched) noexcept override {
        return Guard<I>([&] {
            if (fetched) {
                *fetched = 0;
            }
            // A caller may leave out the number fetched only when it asks for one item.
            if (count > 0 && (!items || (!fetched && count != 1))) {
                throw HresultError(E_POINTER);
            }
            const ULONG given = std::min(count, Left());
            CopyItems(given, items);
            position_ += given;
            if (fetched) {
                *fetched = given;
            }
            return given == count ? S_OK : S_FALSE;
        });
    }

    STDMETHODIMP Skip(ULONG count) noexcept override {
        const ULONG skipped = std::min(count, Left());
        position_ += skipped;
        return skipped == count ? S_OK : S_FALSE;
    }

    STDMETHODIMP Reset() noexcept override {
        position_ = 0;
        return S_OK;
    }

    STDMETHODIMP Clone(I** clone) noexcept override {
        return Guard<I>([&] {
            Out(clone) = nullptr;
            *clone = MakeObject<Enumerator>(items_, position_).Detach();
        });
    }

  private:
    ULONG Left() const noexcept { return static_cast<ULONG>(items_->size() - position_); }

    void CopyItems(ULONG count, Item* items) {
        ULONG copied = 0;
        try {
            for (; copied < count; ++copied) {
                Traits::Copy((*items_)[position_ + copied], &items[copied]);
            }
        } catch (...) {
            while (copied > 0) {
                Traits::Discard(&items[--copied]);
            }
            throw;
        }
    }

    std::shared_ptr<const Items> items_;
    std::size_t position_ = 0;
};

} // namespace Quorvane::Com

// SPDX-License-Identifier: MIT
// The dictionaries through which a host and the engine exchange crisp values.
#pragma once

#include <memory>

#include "shared/StringKeyedDictionary.h"
#include "shared/Value.h"

namespace Quorvane {

/// A dictionary of crisp values by variable name: the system's own, or one that a host assigned.
class ValueDictionary {
  public:
    ValueDictionary() = default;
    ValueDictionary(const ValueDictionary&) = delete;
    ValueDictionary& operator=(const ValueDictionary&) = delete;
    virtual ~ValueDictionary() = default;

    /// The value under a key, Empty when there is none; reading never adds a key. A copy, since a
    /// host that converts it may replace the item meanwhile.
    virtual Value Get(TextView key) = 0;

    /// Replaces the value under a key, or adds it.
    virtual void Put(TextView key, Value value) = 0;
};

/// The object through which a host sees one of the system's own dictionaries; the shell has it.
class DictionaryFace {
  public:
    DictionaryFace(const DictionaryFace&) = delete;
    DictionaryFace& operator=(const DictionaryFace&) = delete;

  protected:
    DictionaryFace() = default;
    ~DictionaryFace() = default;
};

/// A dictionary of the system's own.
class OwnValueDictionary final : public ValueDictionary {
  public:
    struct Item {
        Value Content;
        /// The key as the host gave it, where it was no text.
        std::shared_ptr<const HostValue> HostKey;
    };

    explicit OwnValueDictionary(KeyComparison comparison) : Items(comparison) {}

    Value Get(TextView key) override {
        const Item* const item = Items.Find(key);
        return item ? item->Content : Value();
    }

    void Put(TextView key, Value value) override {
        if (!Replace(key, value)) {
            Items.Add(Text(key), {std::move(value), nullptr});
        }
    }

    /// Swaps the value under a key with another; false where there is none. What was there is the
    /// caller's to let go, after the item is whole again: releasing an object of the host may come
    /// back to this dictionary.
    bool Replace(TextView key, Value& value) {
        Item* const item = Items.Find(key);
        if (item) {
            std::swap(item->Content, value);
        }
        return item != nullptr;
    }

    StringKeyedDictionary<Item> Items;

    /// Set while a host holds this dictionary; the face itself sets and clears it.
    DictionaryFace* Face = nullptr;
};

} // namespace Quorvane

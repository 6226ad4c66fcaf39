// SPDX-License-Identifier: MIT
// The container of the system: a dictionary with text keys that keeps insertion order.
#pragma once

#include <cstddef>
#include <list>
#include <memory>
#include <unordered_map>
#include <utility>

#include "shared/ChangeStamp.h"
#include "shared/FisError.h"
#include "shared/Text.h"

namespace Quorvane {

/// How a dictionary compares its keys. The values are those of the scripting dictionary.
enum class KeyComparison { Exact = 0, IgnoreCase = 1 };

/// Hashes keys so that keys that compare equal hash equal. It never throws; it does not say so
/// because the standard library then keeps the hashes instead of computing them again and again.
struct KeyHash {
    KeyComparison Comparison;
    std::size_t operator()(TextView key) const;
};

struct KeyEqual {
    KeyComparison Comparison;
    bool operator()(TextView left, TextView right) const noexcept;
};

/// Where the nodes of a dictionary lie: each in a block of the heap, and its key in another.
struct HeapNodes {
    template <class T>
    using Allocator = std::allocator<T>;
    using Key = Text;
    /// What a new key is given as.
    using NewKey = Text;

    static Allocator<std::byte> Get() noexcept { return {}; }
};

/// A dictionary with text keys. Enumeration yields the entries in the order in which they were
/// added; replacing a value or a key keeps the entry's place. Operations on one entry take constant
/// time, and an entry stays where it is in memory until it is removed.
template <class Value, class Nodes = HeapNodes>
class StringKeyedDictionary {
  public:
    using Key = typename Nodes::Key;
    using NewKey = typename Nodes::NewKey;

    struct Entry {
        typename Nodes::Key Key;
        [[no_unique_address]] Value Item;
    };

    using Entries = std::list<Entry, typename Nodes::template Allocator<Entry>>;
    using const_iterator = typename Entries::const_iterator;
    using iterator = typename Entries::iterator;

    explicit StringKeyedDictionary(KeyComparison comparison)
        : index_(0, KeyHash{comparison}, KeyEqual{comparison}, nodes_.Get()) {}

    /// The other one stays usable, and empty.
    StringKeyedDictionary(StringKeyedDictionary&& other) noexcept
        : nodes_(other.nodes_), entries_(std::move(other.entries_)),
          index_(std::move(other.index_)) {
        ChangeStamp::Advance();
    }
    StringKeyedDictionary& operator=(StringKeyedDictionary&& other) noexcept {
        if (this != &other) {
            // Made anew, as a pool stays with its nodes. The former values end last, for the end of
            // one may come back here.
            const StringKeyedDictionary former(std::move(*this));
            std::destroy_at(this);
            std::construct_at(this, std::move(other));
        }
        return *this;
    }
    StringKeyedDictionary(const StringKeyedDictionary& other)
        : StringKeyedDictionary(other.Comparison()) {
        for (const Entry& entry : other) {
            Add(entry.Key, entry.Item);
        }
    }
    StringKeyedDictionary& operator=(const StringKeyedDictionary& other) {
        *this = StringKeyedDictionary(other);
        return *this;
    }
    ~StringKeyedDictionary() { ChangeStamp::Advance(); }

    KeyComparison Comparison() const { return index_.key_eq().Comparison; }
    std::size_t Count() const { return entries_.size(); }
    bool Empty() const { return entries_.empty(); }

    /// Makes room for so many entries, which spares growing on the way there.
    void Reserve(std::size_t count) { index_.reserve(count); }

    /// Adds an entry at the end and returns its value. Raises DuplicateKey when the key exists.
    Value& Add(NewKey key, Value value = {}) {
        ChangeStamp::Advance();
        entries_.push_back({Key(std::move(key), nodes_.Get()), std::move(value)});
        const auto added = std::prev(entries_.end());
        try {
            if (!index_.emplace(added->Key, added).second) {
                throw FisError(RuntimeError::DuplicateKey);
            }
        } catch (...) {
            entries_.erase(added);
            throw;
        }
        return added->Item;
    }

    /// The value under a key, or nullptr. Reading never adds a key.
    Value* Find(TextView key) {
        const auto found = index_.find(key);
        return found == index_.end() ? nullptr : &found->second->Item;
    }
    const Value* Find(TextView key) const {
        return const_cast<StringKeyedDictionary*>(this)->Find(key);
    }

    bool Exists(TextView key) const { return Find(key) != nullptr; }

    /// The value under a key. Raises MissingKey when there is none.
    Value& At(TextView key) {
        if (Value* const value = Find(key)) {
            return *value;
        }
        throw FisError(RuntimeError::MissingKey);
    }
    const Value& At(TextView key) const {
        return const_cast<StringKeyedDictionary*>(this)->At(key);
    }

    /// Replaces the value under a key, or adds the entry when there is none.
    Value& Put(TextView key, Value value) {
        if (Value* const existing = Find(key)) {
            return *existing = std::move(value);
        }
        return Add(NewKey(key), std::move(value));
    }

    /// Gives an entry another key, in its place. Raises MissingKey when there is no such entry and
    /// DuplicateKey when another entry has the new key; either way nothing changes. A new key that
    /// equals the old one under the dictionary's comparison is taken as the new spelling.
    void Rekey(TextView oldKey, NewKey newKey) {
        const auto found = index_.find(oldKey);
        if (found == index_.end()) {
            throw FisError(RuntimeError::MissingKey);
        }
        const auto holder = index_.find(newKey);
        if (holder != index_.end() && holder != found) {
            throw FisError(RuntimeError::DuplicateKey);
        }
        ChangeStamp::Advance();
        Key key(std::move(newKey), nodes_.Get());
        // The index views the key's characters, so the node leaves it while they change.
        auto node = index_.extract(found);
        node.mapped()->Key = std::move(key);
        node.key() = node.mapped()->Key;
        index_.insert(std::move(node));
    }

    /// Removes an entry. Raises MissingKey when there is none.
    void Remove(TextView key) {
        const auto found = index_.find(key);
        if (found == index_.end()) {
            throw FisError(RuntimeError::MissingKey);
        }
        ChangeStamp::Advance();
        const auto entry = found->second;
        index_.erase(found);
        entries_.erase(entry);
    }

    /// Removes the entries that the predicate, given an Entry, chooses.
    template <class Predicate>
    void RemoveIf(Predicate chosen) {
        ChangeStamp::Advance();
        for (auto entry = entries_.begin(); entry != entries_.end();) {
            const auto next = std::next(entry);
            if (chosen(std::as_const(*entry))) {
                index_.erase(TextView(entry->Key));
                entries_.erase(entry);
            }
            entry = next;
        }
    }

    /// Removes every entry. The values are destroyed after the dictionary is empty, so that one
    /// whose end comes back to the dictionary finds it whole.
    void RemoveAll() {
        ChangeStamp::Advance();
        const Nodes nodes = nodes_;
        Entries removed(nodes.Get());
        removed.swap(entries_);
        index_.clear();
    }

    /// Changes how keys compare. Raises InvalidCall when the dictionary holds entries.
    void SetComparison(KeyComparison comparison) {
        if (!Empty()) {
            throw FisError(RuntimeError::InvalidCall);
        }
        ChangeStamp::Advance();
        index_ = Index(0, KeyHash{comparison}, KeyEqual{comparison}, nodes_.Get());
    }

    const_iterator begin() const { return entries_.begin(); }
    const_iterator end() const { return entries_.end(); }

    /// For changing values while enumerating; keys change through Rekey alone.
    iterator begin() { return entries_.begin(); }
    iterator end() { return entries_.end(); }

  private:
    // The list keeps order and addresses; the index finds an entry by a view of its own key.
    using Index =
        std::unordered_map<TextView, iterator, KeyHash, KeyEqual,
                           typename Nodes::template Allocator<std::pair<const TextView, iterator>>>;

    [[no_unique_address]] Nodes nodes_;
    Entries entries_{nodes_.Get()};
    Index index_;
};

} // namespace Quorvane

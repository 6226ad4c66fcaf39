// SPDX-License-Identifier: MIT
// Items of a value dictionary that are used over and over.
#pragma once

#include <vector>

#include "shared/ChangeStamp.h"
#include "shared/ValueDictionary.h"

namespace Quorvane {

/// The addresses of the items under some names, looked up again only when something may have moved.
class ItemAddresses {
  public:
    explicit ItemAddresses(std::vector<Text> names) : names_(std::move(names)) {}

    const std::vector<Text>& Names() const { return names_; }

    /// The item under a name, by the index of the name. Null where the dictionary is absent, lacks
    /// it or is a host's. The address holds until a dictionary changes.
    Value* Find(ValueDictionary* dictionary, std::size_t index) {
        if (stamp_ != ChangeStamp::Current() || dictionary_ != dictionary) {
            Bind(dictionary);
        }
        return items_[index];
    }

  private:
    void Bind(ValueDictionary* dictionary) {
        // A dictionary that ends changes the stamp, so an address that is the same is the same one.
        stamp_ = ChangeStamp::Current();
        dictionary_ = dictionary;
        auto* const own = dynamic_cast<OwnValueDictionary*>(dictionary);
        items_.clear();
        for (const Text& name : names_) {
            auto* const item = own ? own->Items.Find(name) : nullptr;
            items_.push_back(item ? &item->Content : nullptr);
        }
    }

    std::vector<Text> names_;
    std::uint64_t stamp_ = 0;
    const ValueDictionary* dictionary_ = nullptr;
    std::vector<Value*> items_;
};

} // namespace Quorvane

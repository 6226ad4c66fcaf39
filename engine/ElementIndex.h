// SPDX-License-Identifier: MIT
// Finds what the elements of rules mean by their texts.
#pragma once

#include <vector>

#include "shared/StringKeyedDictionary.h"

namespace Quorvane::RunTime {

/// The meanings of elements such as "Input>Term". Rules mostly say at a place of their lists what
/// the rule before has said there, so that is looked at first.
template <class Meaning>
class ElementIndex {
  public:
    /// The meaning of the element at a place of a rule's list; an element that is new is given the
    /// one that resolve returns. The places of a list come in order, and the texts stay.
    template <class Resolve>
    const Meaning& Find(std::size_t place, TextView element, Resolve resolve) {
        if (place == latest_.size()) {
            latest_.push_back({});
        }
        Known& latest = latest_[place];
        if (!latest.Means || latest.Element != element) {
            const Meaning* const known = meanings_.Find(element);
            latest = {element, known ? known : &meanings_.Add(Text(element), resolve())};
        }
        return *latest.Means;
    }

  private:
    struct Known {
        TextView Element;
        const Meaning* Means = nullptr;
    };

    StringKeyedDictionary<Meaning> meanings_{KeyComparison::Exact};
    /// For each place the element that was there last.
    std::vector<Known> latest_;
};

} // namespace Quorvane::RunTime

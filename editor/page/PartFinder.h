// SPDX-License-Identifier: MIT
// Finds a part in many texts.
#pragma once

#include <vector>

#include "shared/Text.h"

namespace Quorvane::Editor {

/// Finds a part in time linear in the length of a text, whatever the two say: names in a loaded
/// definition can have any length, and looking for one of equal letters in another, place by place,
/// would take hours. The part outlives the finder.
class PartFinder {
  public:
    explicit PartFinder(TextView part);

    TextView Part() const { return part_; }

    /// Where the part occurs first; npos where it does not.
    std::size_t FindIn(TextView text) const;

    bool IsIn(TextView text) const { return FindIn(text) != TextView::npos; }

  private:
    TextView part_;
    /// For each of its beginnings, how long the longest shorter beginning is that ends it. None for
    /// a part so short that looking place by place is faster.
    std::vector<std::size_t> borders_;
};

} // namespace Quorvane::Editor
